#ifndef TSLM5_CONTRACTS_NOMINAL_DATA_SET_H_
#define TSLM5_CONTRACTS_NOMINAL_DATA_SET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/contracts/event_args.h"
#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// A set that is parsed from text whose columns may hold words. A column is categorical when one of
/// its cells is neither a number nor missing; its texts are then coded by their first appearance,
/// with the case of their letters: 0, 1, 2 … in the response (the last column), 1, 2, 3 … in an
/// input column. A missing text takes up a number too, but is not a number itself, as is a missing
/// cell of any other input column. `IDataSet` of the same object gives the codes. What has a name
/// of `IDataSet` is the same state. Caller's thread only.
class INominalDataSet : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000023ULL, 0x8a1f4c0b6d2e7323ULL};

  /// As `IDataSet::Parse`, see `ParseString`; the events carry `pEvArgs`, which may be null.
  virtual void Parse(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels,
                     std::int32_t pDataSetType, std::int32_t pLayout, std::int32_t pProblemCategory,
                     IParseEventArgs* pEvArgs) = 0;
  /// As `IDataSet::ParseString`, but words and missing cells are taken; layout 3 moves the
  /// response, the first field of every line, to the end; and `pProblemCategory` becomes the set's.
  /// Cells that are missing are counted under the property "ReplacedNullValues". Raises 41024 (with
  /// words) for a text of several separators, 41020 for a row of another width, 41025 for a missing
  /// response, 41026 for training data (type 1) of one response alone with a problem category of 0,
  /// 1, 3 or 4, and 41027 for a categorical column of more than 10,000 texts, missing ones counted.
  /// The set holds no data after an error.
  virtual void ParseString(std::string& pText, std::int32_t pSeparator, bool pHasLabels,
                           std::int32_t pDataSetType, std::int32_t pLayout,
                           std::int32_t pProblemCategory, IParseEventArgs* pEvArgs) = 0;
  /// The raw text of a cell in a categorical column, else the cell's number as a double (not a
  /// number where it is missing). Column first, both from 0; one outside the data raises 9.
  virtual Variant GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) = 0;
  ///@{
  /// As the operation of this name in `IDataSet` of the same object.
  virtual std::int32_t Rows() = 0;
  virtual std::int32_t Columns() = 0;
  virtual std::string SetProperty(std::string_view pValue, std::string_view pKey) = 0;
  virtual std::string GetProperty(std::string_view pKey) = 0;
  virtual bool IsReady() = 0;
  virtual void ResetProperties() = 0;
  virtual bool FormatDataAs(std::int32_t pFormat) = 0;
  ///@}

 protected:
  ~INominalDataSet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_NOMINAL_DATA_SET_H_
