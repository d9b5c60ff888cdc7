#ifndef TSLM5_RUN_RUN_MISSING_VALUES_H_
#define TSLM5_RUN_RUN_MISSING_VALUES_H_

#include <cstdint>
#include <vector>

#include "tslm5/platform/unknown.h"
#include "tslm5/run/run_records.h"

namespace tslm5 {

/// The tokens that stand for missing values, and the cells that hold them, a face of the class
/// `RunCatalog`.
class IRunMissingValues : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000034ULL, 0x8a1f4c0b6d2e7334ULL};

  /// Every token, by column, in the order in which they were entered.
  virtual void ReadTokens(std::vector<RunToken>& pTokens) = 0;
  /// Replaces every token.
  virtual void WriteTokens(const std::vector<RunToken>& pTokens) = 0;
  /// The original texts of a column's training records, each once, in the order of the records.
  virtual void CountTrainingTexts(std::int32_t pColumn, std::vector<RunTextCount>& pTexts) = 0;
  /// The original texts of those cells of a column that have no value now, each once. Without the
  /// set there are none.
  virtual void CountOpenTexts(std::int32_t pType, std::int32_t pColumn,
                              std::vector<RunTextCount>& pTexts) = 0;

 protected:
  ~IRunMissingValues() = default;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_MISSING_VALUES_H_
