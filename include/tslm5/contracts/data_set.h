#ifndef TSLM5_CONTRACTS_DATA_SET_H_
#define TSLM5_CONTRACTS_DATA_SET_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/contracts/event_args.h"
#include "tslm5/contracts/feedback.h"
#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// One dataset: records in rows, variables in columns, the response in the last column.
/// Row and column indexes are zero-based. In `GetItem` the column comes first. An operation that a
/// class carries only to satisfy the interface does nothing and returns the empty or zero result.
/// Made by the component's class objects; let go of with `Release`. Caller's thread only.
/// One interface, and so one file longer than others: its slots cannot be divided.
class IDataSet : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000014ULL, 0x8a1f4c0b6d2e7314ULL};

  /// Dataset type code (`data_set_type`).
  virtual std::int32_t DataSetType() = 0;
  /// Writes the code alone: the data, and the table that holds them, stay.
  virtual void put_DataSetType(std::int32_t pDataSetType) = 0;
  /// The data carries a label row.
  virtual bool HasLabels() = 0;
  /// Number of records; 0 when there are none, never raises.
  virtual std::int32_t Rows() = 0;
  /// Number of columns, response included; 0 when there is no data, never raises.
  virtual std::int32_t Columns() = 0;
  /// Number of independent variables: columns less the response. Without data 0, but -1 in the
  /// other classes than `DataSetLite` (meant).
  virtual std::int32_t TerminalCount() = 0;
  ///@{
  /// What the generated name of an input begins with, its column index behind it; "d" at first.
  virtual std::string IndependentVarsPrefix() = 0;
  virtual void put_IndependentVarsPrefix(std::string_view pPrefix) = 0;
  ///@}
  ///@{
  /// The generated name of the response; "y" at first.
  virtual std::string DependentVarName() = 0;
  virtual void put_DependentVarName(std::string_view pName) = 0;
  ///@}
  /// Data has been loaded and can be served.
  virtual bool IsReady() = 0;
  /// "Training" for type 1, "Testing" for type 2, otherwise "".
  virtual std::string Name() = 0;
  /// Stores `pValue` under `pKey`, the value coming first; the last write wins. Keys are compared
  /// without regard to case. Marks the dataset dirty. Returns the key.
  virtual std::string SetProperty(std::string_view pValue, std::string_view pKey) = 0;
  /// The value stored under `pKey`. What an unknown key gives is the class's: "" or error 5.
  virtual std::string GetProperty(std::string_view pKey) = 0;
  /// Loads a delimited text file. Separator: `separator_code`; layout: `layout_code`. With
  /// `pHasLabels` the first line is the labels row. Raises 41001 for an empty file name, 41012 for
  /// an unknown separator code, and what reading or storing raises; the earlier data are whole
  /// then.
  virtual void Parse(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels,
                     std::int32_t pDataSetType, std::int32_t pLayout) = 0;
  /// Loads from a text held in memory, which is cleaned in place.
  virtual void ParseString(std::string& pText, std::int32_t pSeparator, bool pHasLabels,
                           std::int32_t pDataSetType, std::int32_t pLayout,
                           IParseEventArgs* pEvArgs) = 0;
  /// Replaces the rows of a loaded dataset by those of another file; type and name stay.
  virtual void Replace(std::string_view pFileName, std::int32_t pSeparator, bool pHasLabels) = 0;
  /// Embeds a series, whatever the format code: under the properties "EmbeddingDimension" (E),
  /// "DelayTime" (D) and "TestingSamples" (T, missing: 0) a set of one column becomes a set of E
  /// inputs, the values E * D, ..., 2 * D, D rows before, and the response, the value itself. The
  /// last T values that are D rows apart become the extra set, and no record holds any value from
  /// the first of them on. Marks the set dirty. False, and the data as they were, when there is
  /// nothing to embed, too little, or anything fails.
  virtual bool FormatDataAs(std::int32_t pFormat) = 0;
  /// One cell. A missing value is not a number. An absent cell raises 41011.
  virtual double GetItem(std::int32_t pColumnIndex, std::int32_t pRowIndex) = 0;
  /// One cell as text, in the user's number format; "" when it is missing or absent.
  virtual std::string GetItemString(std::int32_t pColumnIndex, std::int32_t pRowIndex) = 0;
  /// The column's label, or its generated name in a set without labels. For a column that is not
  /// there a labelled `DataSetLite` gives "", every other class raises 9.
  virtual std::string GetLabel(std::int32_t pColumnIndex) = 0;
  /// Empties the property bag.
  virtual void ResetProperties() = 0;
  /// The text of a separator code; an unknown code raises 41012.
  virtual std::string SeparatorToString(std::int32_t pSeparator) = 0;
  /// Checks a data file before it is loaded; `outMessage` receives the reason of a refusal.
  virtual bool IsValidDataSet(std::string_view pDataFilePath, bool pHasLabels,
                              std::int32_t& pSeparator, std::string& outMessage) = 0;
  /// The 1-based column and row of the last invalid cell that a data check of this process found;
  /// a later check does not reset it. The result is empty.
  virtual Variant InvalidPosition(std::int32_t& pColumn, std::int32_t& pRow) = 0;
  /// Replaces the labels by the words of a blank-separated text; the character of code 5 inside a
  /// word stands for a blank.
  virtual void SetLabels(std::string_view pLabels) = 0;
  /// Loads the rows of an in-memory set; false when the source is none, and nothing is changed.
  virtual bool SetData(IUnknown* pSource, std::int32_t pDataSetType) = 0;
  /// Empties the dataset.
  virtual void Clear() = 0;
  /// Largest value of a column over rows [pFromRow, pToRow]; 0, 0 means all rows. Numbers alone
  /// count; but rows 0, 0 of a `DataSetLite` are answered by the statistics last computed, where
  /// text in the column makes the maximum 0.
  virtual double GetMax(std::int32_t pColumn, std::int32_t pFromRow, std::int32_t pToRow) = 0;
  /// Smallest value of a column over rows [pFromRow, pToRow]; 0, 0 means all rows.
  virtual double GetMin(std::int32_t pColumn, std::int32_t pFromRow, std::int32_t pToRow) = 0;
  /// Number of records of the rarest response class.
  virtual std::int32_t GetTargetMinorityClassCount() = 0;
  /// For each row the mean of its inputs; the array's lower bound is 0.
  virtual void GetAverageModel(VariantArray& pResult) = 0;
  /// The generated name and the label as "d0:Height", where the class has both; else as `GetLabel`.
  virtual std::string GetLongLabel(std::int32_t pColumnIndex) = 0;
  /// Mean of a column from the statistics last computed. -9999 stands for a figure that the column
  /// does not have, 0 for one that was not computed; so do the figures below. A text in the column
  /// counts as 0 here, and not at all in median and deviation.
  virtual double GetGlobalCentroid(std::int32_t pColumn) = 0;
  /// Median of a column from the statistics last computed.
  virtual double GetGlobalMedoid(std::int32_t pColumn) = 0;
  ///@{
  /// Mean (centroid) or median (medoid) of a column within response class 0 or 1, in ascending
  /// order of the response; `pClassValue` receives the class's response value. Another index and a
  /// figure that was not computed write nothing; 1 raises 9 where there is a single class.
  virtual void GetClassCentroid(std::int32_t pColumn, std::int32_t pClassIndex, double& pClassValue,
                                double& pValue) = 0;
  virtual void GetClassMedoid(std::int32_t pColumn, std::int32_t pClassIndex, double& pClassValue,
                              double& pValue) = 0;
  ///@}
  /// The run has a table of figures by class, be it without any of this set (meant).
  virtual bool HasClassRecordStatistics() = 0;
  /// The run has a table of column figures, be it without any of this set (meant).
  virtual bool HasGlobalRecordStatistics() = 0;
  /// Computes the run's statistics tables. `pFeedback` (may be null) shows progress and may stop.
  virtual void CalculateStatistics(IFeedback* pFeedback) = 0;
  /// True for the classes that load data, whatever their labels are (meant).
  virtual bool HasLabelPrefix() = 0;
  /// The 1-based row number shown to users: `pRowIndex` + 1, also past the data. Raises 6 where
  /// that is no 32-bit number.
  virtual std::int32_t GetRowNumber(std::int32_t pRowIndex) = 0;
  /// The key that joins the record to the original data; a `DataSetLite` raises 41011 for an absent
  /// row and for a key outside 32 bits.
  virtual std::int32_t GetRowOriginalIndex(std::int32_t pRowIndex) = 0;
  /// Number of records of a response class, counted from 0 in ascending order of the response; 0
  /// for one that is not there.
  virtual std::int32_t GetTargetClassCount(std::int32_t pClassIndex) = 0;
  ///@{
  /// Problem category of the run (`problem_category`). Writing it changes nothing by itself: the
  /// checks and loads that follow go by it.
  virtual std::int32_t ProblemCategory() = 0;
  virtual void put_ProblemCategory(std::int32_t pProblemCategory) = 0;
  ///@}
  /// Sample deviation (n - 1) of a column from the statistics last computed.
  virtual double GetStandardDeviation(std::int32_t pColumn) = 0;
  /// The untransformed value of a cell; here the row comes first. Column -1 is the response.
  virtual Variant GetRowOriginalValue(std::int32_t pRowIndex, std::int32_t pColumnIndex) = 0;
  /// The largest response value.
  virtual double GetTargetMajorityClass() = 0;
  /// The column's index in the run: `pColumn` itself, unlooked at, but for an `OriginalDataSet`,
  /// which gives the index noted with the column's label and raises 9 for an absent column.
  virtual std::int32_t GetColumnIndex(std::int32_t pColumn) = 0;
  /// As `GetRowOriginalValue`, the record given by its key in the original data.
  virtual Variant GetRowOriginalValueByRecordId(std::int32_t pRecordId,
                                                std::int32_t pColumnIndex) = 0;

 protected:
  ~IDataSet() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DATA_SET_H_
