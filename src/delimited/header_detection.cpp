#include "delimited/header_detection.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tslm5::delimited {
namespace {

constexpr double kFirstYear = 1500;
constexpr double kLastYear = 2200;
constexpr double kMostlyNumbers = 0.8;
constexpr double kUnlikely = 0.05;

/// A column below the first record.
struct ColumnBody {
  std::size_t numbers = 0;
  std::size_t texts = 0;
  std::size_t years = 0;  ///< whole numbers that could be
  double smallest = INFINITY;
  double largest = -INFINITY;
  std::size_t with_digits = 0;  ///< of the texts
  std::unordered_map<std::string_view, std::size_t> counts;

  bool IsNumeric() const {
    const auto all = static_cast<double>(numbers + texts);
    return numbers > 0 && static_cast<double>(numbers) >= kMostlyNumbers * all;
  }

  /// How likely it is that one more text of this column is none of those it has: by how many stand
  /// in it once only.
  double NewTextLikelihood() const {
    std::size_t single = 0;
    for (const auto& [text, count] : counts) single += count == 1 ? 1U : 0U;
    return static_cast<double>(single + 1) / static_cast<double>(texts + 1);
  }
};

bool IsYear(double value) {
  return value >= kFirstYear && value <= kLastYear && value == std::floor(value);
}

bool HasDigit(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

ColumnBody ReadBody(const Sample& sample, std::size_t first, std::size_t columns,
                    std::size_t column) {
  ColumnBody body;
  for (std::size_t i = first + 1; i < sample.Records().size(); ++i) {
    const auto& fields = sample.Records()[i].fields;
    if (fields.size() != columns) continue;
    const Field& field = fields[column];
    if (field.field_class == FieldClass::kMissing) continue;
    ++body.counts[field.Text()];
    if (field.field_class == FieldClass::kText) {
      ++body.texts;
      body.with_digits += HasDigit(field.Text()) ? 1U : 0U;
      continue;
    }
    ++body.numbers;
    body.years += IsYear(field.value) ? 1U : 0U;
    body.smallest = std::min(body.smallest, field.value);
    body.largest = std::max(body.largest, field.value);
  }
  return body;
}

/// Whether the numbers of a first record count on, by one step, as labels do: years, or from 0
/// or 1.
bool CountOn(const std::vector<double>& numbers) {
  const double step = numbers.size() > 1 ? numbers[1] - numbers[0] : 1.0;
  if (step == 0.0) return false;
  for (std::size_t i = 1; i < numbers.size(); ++i) {
    if (numbers[i] - numbers[i - 1] != step) return false;
  }
  if (std::all_of(numbers.begin(), numbers.end(), IsYear)) return true;
  return numbers.size() > 2 && step == 1.0 && (numbers[0] == 0.0 || numbers[0] == 1.0);
}

class FirstRecord {
 public:
  FirstRecord(const Sample& sample, std::size_t first, std::size_t columns)
      : fields_(sample.Records()[first].fields) {
    for (std::size_t i = 0; i < columns; ++i) {
      bodies_.push_back(ReadBody(sample, first, columns, i));
    }
  }

  HeaderEvidence Judge() const {
    std::size_t labels = 0;  // texts above numbers
    std::size_t values = 0;  // numbers above numbers
    bool has_numeric = false;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (!bodies_[i].IsNumeric()) continue;
      has_numeric = true;
      labels += fields_[i].field_class == FieldClass::kText ? 1U : 0U;
      values += fields_[i].field_class == FieldClass::kNumber ? 1U : 0U;
    }
    if (values != 0 && AreNumberLabels()) return HeaderEvidence::kHeader;
    if (labels > values) return HeaderEvidence::kHeader;
    if (has_numeric || !AreTextsAlone()) return HeaderEvidence::kData;
    return JudgeTexts();
  }

 private:
  /// Whether the numbers of the record are labels, and its other fields may be.
  bool AreNumberLabels() const {
    std::vector<double> numbers;
    bool fits_below = true;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      const Field& field = fields_[i];
      if (field.field_class == FieldClass::kNumber) {
        numbers.push_back(field.value);
        const ColumnBody& body = bodies_[i];
        const bool is_year_above_years = IsYear(field.value) && 2 * body.years > body.numbers;
        const bool is_within = field.value >= body.smallest && field.value <= body.largest;
        const bool is_like_below = IsYear(field.value) ? is_year_above_years : is_within;
        fits_below = fits_below && is_like_below;
      } else if (bodies_[i].counts.contains(field.Text()) ||
                 (field.field_class == FieldClass::kMissing && i != 0)) {
        return false;
      }
    }
    return numbers.size() < fields_.size() && CountOn(numbers) && !fits_below;
  }

  /// Whether it holds nothing but texts, of which the first may be left out.
  bool AreTextsAlone() const {
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      if (fields_[i].field_class == FieldClass::kText) continue;
      if (i != 0 || fields_.size() == 1 || fields_[i].field_class == FieldClass::kNumber) {
        return false;
      }
    }
    return true;
  }

  HeaderEvidence JudgeTexts() const {
    double likelihood_as_data = 1.0;
    bool differs = false;
    std::unordered_set<std::string_view> seen;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
      const ColumnBody& body = bodies_[i];
      const std::string_view text = fields_[i].Text();
      if (body.counts.contains(text) || !seen.insert(text).second) return HeaderEvidence::kData;
      likelihood_as_data *= body.NewTextLikelihood();
      differs = differs || (body.texts > 1 && body.with_digits == body.texts && !HasDigit(text));
    }
    const bool is_unlikely = likelihood_as_data < kUnlikely;
    return is_unlikely || differs ? HeaderEvidence::kHeader : HeaderEvidence::kUnclear;
  }

  const std::vector<Field>& fields_;
  std::vector<ColumnBody> bodies_;
};

}  // namespace

HeaderEvidence DetectHeader(const Sample& sample, std::size_t first, std::size_t columns) {
  const auto& records = sample.Records();
  if (first + 1 >= records.size() || records[first].fields.size() != columns) {
    return HeaderEvidence::kData;
  }
  return FirstRecord(sample, first, columns).Judge();
}

}  // namespace tslm5::delimited
