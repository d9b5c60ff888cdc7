#ifndef TSLM5_STORAGE_TABLE_LITE_H_
#define TSLM5_STORAGE_TABLE_LITE_H_

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "storage/table_events.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/engine/connection.h"
#include "tslm5/platform/connection_point.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The handle on one data table of a run, with its optional backup: makes it, fills it, reads and
/// writes single cells, copies it. Columns "d0", "d1", … and, last, the key `row`; row and column
/// indexes are 0-based. Made by `MakeObject`; owned by a dataset. Each fill is one transaction.
/// What the engine raises passes on. Caller's thread only.
class TableLite final : public FacetOwner {
 public:
  /// Writes the cells of row `row` (0-based).
  using FillRow = std::function<void(std::int32_t row, std::span<double> cells)>;

  TableLite();

  std::string_view TypeName() override { return "TableLite"; }

  /// Whether the response column holds exactly two distinct values, as the table is now; false
  /// when that cannot be read.
  bool IsBinary();
  /// The table's name, by its type code.
  std::string_view Name() const;
  /// Data columns of the open record set, `row` not counted; 0 when none is open.
  std::int32_t Columns();
  std::int32_t Rows();
  void Init(const Variant& pValue);
  void Init2(IUnknown* pConnectionService);

  /// Makes the table anew with `pColumns` data columns, and its backup if asked for, in one
  /// transaction; an older backup goes only then. Closes the record set; the row counter is 0.
  /// When it fails, the old table, its backup and this object are as they were. More columns than
  /// the database takes raise 41011.
  void Create(std::int32_t pColumns, std::int32_t pSetType, bool pCreateBackup);

  /// Copies every cell of another dataset, rows numbered on from the counter, and reopens the
  /// record set. False when a listener cancelled, or an error with a number of 0 or less was
  /// raised; such a fill leaves the table as it was.
  bool ParseDataSet(IDataSet& pDataSet);
  /// One row a line of blank-separated values, numbered from 1; see `RowInsertText::FromLine`.
  /// Does not reopen the record set. False when a listener cancelled; nothing is kept then.
  bool ParseArray(std::span<const std::string> pLines);
  /// The same for the lines of one text, in place.
  bool ParseText(std::string_view text);
  /// `pRows` rows of `pColumns` numbers, numbered from 1, as `pFillRow` gives them; NaN is NULL,
  /// and the engine refuses an infinite one. Raises no event and does not reopen the record set.
  void ParseNumbers(std::int32_t pRows, std::int32_t pColumns, const FillRow& pFillRow);
  /// One row of one value an element. Rows are numbered from the counter itself (meant).
  void ParseDoubleArray(std::span<const double> pValues);
  /// One row of the values given, which hold the row number as well.
  void ParseFields(std::span<const Variant> pFields);

  void DeleteAll();
  void Drop(bool pDropBackup);
  void CreateCopy();
  /// Makes the backup anew, empty and with as many columns as the open table has.
  void RemakeBackup();
  void UndoCopy();
  void ClearCopy();

  /// One cell; false when there is none. Column `Columns()` is the row number. A cell that holds
  /// no number reads as NaN.
  bool GetValue(std::int32_t pColumn, std::int32_t pRow, double& pValue) {
    return record_set_ && IsRow(pRow) && record_set_->ReadNumber(pRow + 1, pColumn, &pValue);
  }
  /// Writes one cell; false when there is none. The row number cannot be written. NaN is NULL; an
  /// infinity raises 6, and nothing is written.
  bool PutValue(std::int32_t pColumn, std::int32_t pRow, double pValue);
  /// The row's data cells, each followed by `pSeparator`; "NULL" for a missing one; "" for an
  /// absent row.
  std::string GetRow(std::int32_t pRow, std::string_view pSeparator);
  /// Opens the record set anew, writing what is pending; false when there is no such table. The old
  /// one stays open when an error is raised.
  bool LoadRecordSet();

  std::int32_t TypeCode() const { return type_code_; }
  std::int32_t Advise(IUnknown* sink) { return sinks_.Advise(sink); }
  void Unadvise(std::int32_t cookie) { sinks_.Unadvise(cookie); }

  /// Takes over the connection service and the type code, and opens the record set; an error leaves
  /// all three as they were.
  bool Load(const Variant& pRunPath, const Variant& pParams);
  /// Writes the pending changes; false when no record set is open, or they cannot be written.
  bool Save();
  /// False only when changes are pending that cannot be written.
  bool SaveIfOpen() { return !record_set_ || Save(); }
  Ref<TableLite> Clone(std::int32_t pSetType);
  void Dispose(bool pIsDisposing);

 private:
  class PersistableFacet;
  class CloneableFacet;
  class DisposableFacet;
  struct Facets;
  /// Gives the next line, or false at the end.
  using NextLine = std::function<bool(std::string_view& line)>;

  ~TableLite() override;

  /// Whether row `row` (0-based) can have a record number (1-based).
  static bool IsRow(std::int32_t row) {
    return row >= 0 && row < std::numeric_limits<std::int32_t>::max();
  }
  void* FindFacet(const Uuid& pId) override;

  Ref<IConnection> Connection() const;
  bool TableIsThere() const;
  bool FillFromLines(const NextLine& next_line);
  bool CopyRows(IConnection& connection, IDataSet& source);
  /// Runs `statement` with the table's name filled in.
  void Execute(std::string_view statement);

  Ref<IUnknown> connection_service_;
  Ref<IRecordSet> record_set_;
  std::int32_t type_code_ = 0;
  std::int32_t row_counter_ = 0;
  SinkList<ITableEvents> sinks_;
  std::unique_ptr<Facets> facets_;  // made when first asked for
};

}  // namespace tslm5

#endif  // TSLM5_STORAGE_TABLE_LITE_H_
