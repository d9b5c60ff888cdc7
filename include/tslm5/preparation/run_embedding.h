#ifndef TSLM5_PREPARATION_RUN_EMBEDDING_H_
#define TSLM5_PREPARATION_RUN_EMBEDDING_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tslm5/contracts/feedback.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// How a series is embedded.
struct EmbeddingOptions {
  std::int32_t dimension = 1;        ///< the inputs of a record
  std::int32_t delay = 1;            ///< values from one input to the next
  std::int32_t testing_samples = 0;  ///< values at the end, `delay` apart

  /// How many values before the response column `pColumn` (zero-based) lies.
  std::int64_t LagOf(std::int32_t pColumn) const {
    return (std::int64_t{dimension} - pColumn) * delay;
  }
  /// The values from the first testing sample on.
  std::int64_t TestingSpan() const {
    return testing_samples == 0 ? 0 : 1 + (std::int64_t{testing_samples} - 1) * delay;
  }
};

/// What a run holds after an embedding.
struct EmbeddingResult {
  std::int32_t series_rows = 0;     ///< values of the series
  std::int32_t records = 0;         ///< of the training set
  std::vector<std::string> labels;  ///< of the inputs, the oldest first, and of the response
  bool has_dropped_backup = false;  ///< a pending reset can no longer be undone
};

/// A series as records, a face of the class `RunPreparation`.
class IRunEmbedding : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000053ULL, 0x8a1f4c0b6d2e7353ULL};

  /// Embeds the training set, a series of one column: records, testing samples, labels, columns,
  /// original texts, statistics, history. Raises 41028 for a training set that is no series or is
  /// too short. `pFeedback` is told of the statistics and may stop them; it may be null.
  virtual void Embed(const EmbeddingOptions& pOptions, const std::vector<std::string>& pWords,
                     IFeedback* pFeedback, EmbeddingResult& pResult) = 0;

 protected:
  ~IRunEmbedding() = default;
};

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_RUN_EMBEDDING_H_
