#ifndef TSLM5_RUN_RUN_CATEGORIES_H_
#define TSLM5_RUN_RUN_CATEGORIES_H_

#include <cstdint>
#include <vector>

#include "tslm5/platform/unknown.h"
#include "tslm5/run/run_records.h"

namespace tslm5 {

/// The categories of a run and the encoding of its response, a face of the class `RunCatalog`.
class IRunCategories : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000033ULL, 0x8a1f4c0b6d2e7333ULL};

  /// Every category, by column, in the order in which they were entered.
  virtual void ReadCategories(std::vector<RunCategory>& pCategories) = 0;
  /// The categories of one column by their text, or by the number that it is.
  virtual void ReadColumnCategories(std::int32_t pColumn, bool pByNumber,
                                    std::vector<RunCategory>& pCategories) = 0;
  /// Replaces every category.
  virtual void WriteCategories(const std::vector<RunCategory>& pCategories) = 0;
  /// The encoding of a binary response; false, and `pEncoding` is untouched, where there is none.
  virtual bool ReadEncoding(ResponseEncoding& pEncoding) = 0;
  /// Replaces the encoding.
  virtual void WriteEncoding(const ResponseEncoding& pEncoding) = 0;
  /// Drops the encoding.
  virtual void DropEncoding() = 0;

 protected:
  ~IRunCategories() = default;
};

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_CATEGORIES_H_
