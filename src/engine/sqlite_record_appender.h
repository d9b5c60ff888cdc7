#ifndef TSLM5_ENGINE_SQLITE_RECORD_APPENDER_H_
#define TSLM5_ENGINE_SQLITE_RECORD_APPENDER_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "engine/append_target.h"
#include "engine/record_format.h"
#include "engine/run_connection.h"
#include "engine/sqlite_statement.h"
#include "engine/statement_watch.h"
#include "engine/table_image.h"
#include "engine/table_versions.h"
#include "tslm5/engine/record_appender.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The engine's appender. It collects records in a `TableImage`, which `ImageTransfer` brings into
/// the table; wherever that cannot be known to do what an INSERT does, a record is bound to a
/// statement at once: outside of a transaction, under a key that is not the largest, for a value
/// that its column converts, for a table where more happens than storing.
class SqliteRecordAppender final : public CountedObject<IRecordAppender> {
 public:
  SqliteRecordAppender(RunConnection& connection, AppendTarget target);

  std::string_view TypeName() override { return "RecordAppender"; }

  std::int32_t Columns() override;
  void AppendNumbers(std::span<const double> pNumbers, std::int64_t pKey) override;
  void AppendCells(std::span<const RecordCell> pCells, std::int64_t pKey) override;
  void Flush() override;

  /// Brings the collected records into the table. Called by the connection before any other
  /// statement. When that fails they are lost, and the transaction cannot be committed.
  void WriteAppended();
  /// Forgets the collected records: the transaction that they were made in is undone.
  void DropAppended() noexcept { image_.Clear(); }

 private:
  ~SqliteRecordAppender() override;

  /// Reads the table again when it may have been changed since, and refuses `cells` of another
  /// number than it has.
  void KeepUp(std::size_t cells);
  void TakeTarget(AppendTarget target);
  bool MayCollect(std::int64_t key) const;
  void AppendOrBind(std::span<const RecordCell> cells, std::int64_t key);
  bool Encode(std::span<const double> numbers);
  bool Encode(std::span<const RecordCell> cells);
  void Collect(std::int64_t key);
  void BindCell(int parameter, const RecordCell& cell);
  void RunBound(std::int64_t key);
  void BindRecord(std::int64_t key, std::string_view record);
  void NoteAppended(std::int64_t key);
  /// The parameter (1-based) of cell `index` (0-based).
  int ParameterOf(std::size_t index) const {
    return static_cast<int>(index) + (index < target_.key_column ? 1 : 2);
  }

  Ref<RunConnection> connection_;
  AppendTarget target_;
  TableImage image_;
  RecordEncoder encoder_;
  SqliteStatement insert_;
  StatementEffects effects_;
  TableVersions::Counter* version_;
  TableVersions::Counter seen_;
  bool is_bound_ = false;  // every record, for good
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_SQLITE_RECORD_APPENDER_H_
