#ifndef TSLM5_ENGINE_SQLITE_READER_H_
#define TSLM5_ENGINE_SQLITE_READER_H_

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/run_connection.h"
#include "engine/sqlite_statement.h"
#include "platform/only_errors.h"
#include "tslm5/engine/data_reader.h"
#include "tslm5/engine/record_texts.h"
#include "tslm5/platform/object.h"

namespace tslm5 {

/// The engine's reader over one open statement; at the end, or when it is let go of, it closes.
class SqliteReader final : public CountedObject<IDataReader> {
 public:
  SqliteReader(RunConnection& connection, SqliteStatement statement)
      : connection_(&connection), statement_(std::move(statement)) {}

  std::string_view TypeName() override { return "DataReader"; }
  bool QueryInterface(const Uuid& pId, void** pObject) override;

  bool Read() override;
  std::int32_t GetInteger(std::int32_t pIndex) override;
  double GetDouble(std::int32_t pIndex) override;
  std::string GetString(std::int32_t pIndex) override;
  void Close() override;
  std::int32_t FieldCount() override;
  std::string FieldName(std::int32_t pIndex) override;
  Variant GetValue(std::int32_t pIndex) override;
  bool IsNull(std::int32_t pIndex) override;

  /// See `IRecordTexts`.
  void GetTexts(std::span<std::string_view> texts);

 private:
  class TextsFacet final : public Facet<IRecordTexts> {
   public:
    explicit TextsFacet(SqliteReader& owner) : Facet(owner), reader_(owner) {}
    void GetTexts(std::span<std::string_view> pTexts) override {
      OnlyErrors([&] { reader_.GetTexts(pTexts); });
    }

   private:
    SqliteReader& reader_;
  };

  ~SqliteReader() override = default;

  /// The statement, standing on a record that has field `index`; raises 100 or 9 otherwise.
  sqlite3_stmt* Record(std::int32_t index) const;

  Ref<RunConnection> connection_;  // keeps the database open; goes after the statement
  std::optional<SqliteStatement> statement_;
  bool on_record_ = false;
  bool at_end_ = false;
  std::vector<char> number_texts_;  // where the texts of a record's doubles stand
  TextsFacet texts_facet_{*this};
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_SQLITE_READER_H_
