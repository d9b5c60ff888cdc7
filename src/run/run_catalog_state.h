#ifndef TSLM5_RUN_RUN_CATALOG_STATE_H_
#define TSLM5_RUN_RUN_CATALOG_STATE_H_

#include <cstdint>
#include <optional>
#include <string_view>

#include "tslm5/engine/connection.h"
#include "tslm5/engine/record_appender.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// What the faces of a catalogue share: the run's connection and the ways to ask it.
class RunCatalogState {
 public:
  /// Raises 41001 when `run` is no run; the former one stays then.
  void Open(IUnknown* run);

  /// Raises 41001 before `Open`.
  IConnection& Connection() const;
  void Execute(std::string_view sql) const { Connection().Execute(sql); }
  bool HasTable(std::string_view table) const { return Connection().TableExists(table); }
  /// The whole number that a SELECT of one cell gives; 0 for NULL and when there is no record.
  std::int32_t ReadInteger(std::string_view sql) const;
  /// Calls `take(reader)` for each record of a SELECT.
  template <class Take>
  void ForEach(std::string_view sql, Take take) const {
    const Ref<IDataReader> reader = Connection().ExecuteReader(sql);
    while (reader->Read()) take(*reader);
    reader->Close();
  }
  /// The appender to the table of the texts, kept until the next `Open`; null where the engine
  /// offers none.
  IRecordAppender* OriginalsAppender();
  /// The columns of a table without its row key, the last column; 0 when there is no such table.
  std::int32_t ColumnsOf(std::string_view table) const;
  /// Adds `distance` to the row keys of a table.
  void MoveKeys(std::string_view table, std::int32_t distance) const;

  /// The table of a set; any code but those of sets raises 9.
  static std::string_view TableOf(std::int32_t type);

 private:
  Ref<IConnection> connection_;
  Ref<IRecordAppender> originals_appender_;
};

/// A field of a record; nothing for NULL.
inline std::optional<double> NumberOf(IDataReader& reader, std::int32_t field) {
  if (reader.IsNull(field)) return std::nullopt;
  return reader.GetDouble(field);
}

}  // namespace tslm5

#endif  // TSLM5_RUN_RUN_CATALOG_STATE_H_
