#ifndef TSLM5_ENGINE_SQLITE_READER_H_
#define TSLM5_ENGINE_SQLITE_READER_H_

#include <cstdint>
#include <optional>
#include <string>

#include "engine/run_connection.h"
#include "engine/sqlite_statement.h"
#include "tslm5/engine/data_reader.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The engine's reader over one open statement; at the end, or when it is let go of, it closes.
class SqliteReader final : public CountedObject<IDataReader> {
 public:
  SqliteReader(RunConnection& connection, SqliteStatement statement)
      : connection_(&connection), statement_(std::move(statement)) {}

  std::string_view TypeName() override { return "DataReader"; }

  bool Read() override;
  std::int32_t GetInteger(std::int32_t pIndex) override;
  double GetDouble(std::int32_t pIndex) override;
  std::string GetString(std::int32_t pIndex) override;
  void Close() override;
  std::int32_t FieldCount() override;
  std::string FieldName(std::int32_t pIndex) override;
  Variant GetValue(std::int32_t pIndex) override;
  bool IsNull(std::int32_t pIndex) override;

 private:
  ~SqliteReader() override = default;

  /// The statement, standing on a record that has field `index`; raises 100 or 9 otherwise.
  sqlite3_stmt* Record(std::int32_t index) const;

  Ref<RunConnection> connection_;  // keeps the database open; goes after the statement
  std::optional<SqliteStatement> statement_;
  bool on_record_ = false;
  bool at_end_ = false;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_SQLITE_READER_H_
