#ifndef TSLM5_ENGINE_SQLITE_RECORD_SET_H_
#define TSLM5_ENGINE_SQLITE_RECORD_SET_H_

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "engine/record_source.h"
#include "engine/run_connection.h"
#include "engine/sqlite_error.h"
#include "engine/statement_watch.h"
#include "engine/table_versions.h"
#include "tslm5/engine/record_set.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The engine's record set: a `RecordSource` that is kept as new as the counter of its table's
/// writes, and the changes that have not reached the table yet.
class SqliteRecordSet final : public CountedObject<IRecordSet> {
 public:
  SqliteRecordSet(RunConnection& connection, std::string_view sql);

  std::string_view TypeName() override { return "RecordSet"; }

  void Close() override;
  void MoveTo(std::int32_t pRecordNumber, std::int32_t pOrigin) override;
  bool EndOfFile() override;
  Variant GetField(const Variant& pFieldIndex) override;
  void SetField(const Variant& pFieldIndex, const Variant& pValue) override;
  std::int32_t FieldCount() override;
  std::int32_t RecordCount() override;
  void Update() override;
  bool ReadNumber(std::int32_t pRecordNumber, std::int32_t pFieldIndex, double* pValue) override;

  /// Writes the pending changes, in one transaction. Called by the connection before any other
  /// statement. When that fails the changes stay pending, except for one that can never be written
  /// (a constraint forbids its value): that is dropped, and the error says so.
  void WritePending();
  /// Forgets the pending changes: the transaction that they were made in is undone.
  void DropPending() noexcept;

 private:
  struct Change {
    std::int64_t key;
    int field;
    double value;
  };

  ~SqliteRecordSet() override;

  /// Looks again when the table may have been written since.
  void KeepUp() {
    if (seen_ != *version_) Refresh();
  }
  void Refresh();
  /// Makes the next reading look again.
  void Outdate() noexcept { seen_ = *version_ - 1; }
  /// The counter that `source_` depends on: the table's, or that of all writes.
  const TableVersions::Counter* Version();
  RecordBlock& BlockOf(std::size_t index);
  void RunUpdates(std::size_t& current, StatementEffects& effects, bool& buffer_is_exact);
  [[noreturn]] void DropChange(std::size_t index, const SqliteFailure& failure);
  bool IsOpen() const { return source_.has_value(); }
  bool HasRecord(std::int64_t record_number) const {
    return record_number >= 1 && record_number <= source_->RecordCount();
  }
  /// The 0-based index of the current record; raises 100 when there is none.
  std::size_t CurrentIndex();
  int CheckedField(const Variant& field_index) const;

  Ref<RunConnection> connection_;
  std::optional<RecordSource> source_;
  const TableVersions::Counter* version_;
  TableVersions::Counter seen_;
  std::int64_t position_ = 1;
  std::vector<Change> pending_;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_SQLITE_RECORD_SET_H_
