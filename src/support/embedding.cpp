#include "support/embedding.h"

#include <cmath>
#include <string>

#include "tslm5/contracts/codes.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {
namespace {

std::int32_t ReadInteger(const PropertyBag& properties, const char* key) {
  return Variant(properties.Find(key)).ToInteger();
}

/// Whether a property is a whole number, or missing; what is no number raises 13.
bool IsWhole(const PropertyBag& properties, const char* key) {
  const std::string& text = properties.Find(key);
  if (text.empty()) return true;
  const double number = Variant(text).ToDouble();
  return number == std::nearbyint(number);
}

}  // namespace

EmbeddingStep EmbeddingStep::Of(const PropertyBag& properties) {
  return {.dimension = ReadInteger(properties, property_key::kEmbeddingDimension),
          .delay_time = ReadInteger(properties, property_key::kDelayTime)};
}

std::optional<Embedding> Embedding::Of(const PropertyBag& properties, std::int32_t series_rows) {
  for (const char* key : {property_key::kEmbeddingDimension, property_key::kDelayTime,
                          property_key::kTestingSamples}) {
    if (!IsWhole(properties, key)) return std::nullopt;
  }
  Embedding embedding;
  embedding.step_ = EmbeddingStep::Of(properties);
  embedding.series_rows_ = series_rows;
  if (!properties.Find(property_key::kTestingSamples).empty()) {
    embedding.testing_samples_ = ReadInteger(properties, property_key::kTestingSamples);
  }
  const EmbeddingStep& step = embedding.step_;
  const std::int32_t samples = embedding.testing_samples_;
  if (step.dimension < 1 || step.delay_time < 1 || samples < 0) return std::nullopt;

  // In 64 bits, where no product of two 32-bit numbers overflows.
  std::int64_t training_rows = series_rows;
  if (samples > 0) {
    training_rows = series_rows - 1 - (std::int64_t{samples} - 1) * step.delay_time;
    if (training_rows < 1) return std::nullopt;
    embedding.first_testing_row_ = static_cast<std::int32_t>(training_rows);
  }
  const std::int64_t records = training_rows - step.Lag(0);
  if (records < 1) return std::nullopt;
  embedding.records_ = static_cast<std::int32_t>(records);
  return embedding;
}

}  // namespace tslm5
