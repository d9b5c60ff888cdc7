#include "run/run_sets_facet.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "platform/only_errors.h"
#include "run/sql_text.h"
#include "storage/sql_number.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

constexpr std::string_view kBackup = "TrainingSetBackup";

bool AreConsecutive(const std::vector<std::int32_t>& keys) {
  return keys.back() - keys.front() == static_cast<std::int32_t>(keys.size()) - 1;
}

/// Reads one whole number a column: what `expression(column)` is over the whole table.
template <class Expression>
void CountByColumn(const RunCatalogState& state, std::string_view table, Expression expression,
                   std::vector<std::int32_t>& counts) {
  std::vector<std::int32_t> read;
  const std::int32_t columns = state.ColumnsOf(table);
  std::string sql;
  for (std::int32_t column = 0; column < columns; ++column) {
    sql += sql.empty() ? "SELECT " : ", ";
    sql += expression(column);
  }
  if (columns > 0) {
    state.ForEach(Sql(sql, " FROM ", table), [columns, &read](IDataReader& reader) {
      read.reserve(static_cast<std::size_t>(columns));
      for (std::int32_t column = 0; column < columns; ++column) {
        read.push_back(reader.GetInteger(column));
      }
    });
  }
  counts = std::move(read);
}

/// `function` of the row keys of a table; 0 without a record.
std::int32_t KeyOf(const RunCatalogState& state, std::string_view function,
                   std::string_view table) {
  if (!state.HasTable(table)) return 0;
  return state.ReadInteger(Sql("SELECT ", function, "(row) FROM ", table));
}

/// Keys of any order, by way of a table of them.
void WriteKeysOneByOne(const RunCatalogState& state, std::string_view table,
                       const std::vector<std::int32_t>& keys) {
  state.Execute("CREATE TABLE RowKeys (position INTEGER PRIMARY KEY, key INTEGER)");
  for (std::size_t i = 0; i < keys.size(); ++i) {
    state.Execute(Sql("INSERT INTO RowKeys VALUES (", i + 1, ", ", keys[i], ");"));
  }
  state.Execute(Sql("UPDATE ", table,
                    " SET row = -(SELECT key FROM RowKeys WHERE position = ", table, ".row)"));
  state.Execute(Sql("UPDATE ", table, " SET row = -row"));
  state.Execute("DROP TABLE RowKeys");
}

}  // namespace

void RunSetsFacet::Open(IUnknown* pRun) {
  OnlyErrors([&] { state_.Open(pRun); });
}

bool RunSetsFacet::IsForeign() {
  return OnlyErrors([&] {
    return !state_.HasTable("DataSetColumn") &&
           state_.ReadInteger("SELECT COUNT(*) FROM sqlite_master") > 0;
  });
}

bool RunSetsFacet::HasSet(std::int32_t pType) {
  return OnlyErrors([&] { return state_.HasTable(state_.TableOf(pType)); });
}

bool RunSetsFacet::HasRecords(std::int32_t pType) {
  return OnlyErrors([&] {
    const std::string_view table = state_.TableOf(pType);
    if (!state_.HasTable(table)) return false;
    return state_.ReadInteger(Sql("SELECT EXISTS (SELECT * FROM ", table, ")")) != 0;
  });
}

std::int32_t RunSetsFacet::SetColumns(std::int32_t pType) {
  return OnlyErrors([&] { return state_.ColumnsOf(state_.TableOf(pType)); });
}

std::int32_t RunSetsFacet::FirstKey(std::int32_t pType) {
  return OnlyErrors([&] { return KeyOf(state_, "MIN", state_.TableOf(pType)); });
}

std::int32_t RunSetsFacet::LastKey(std::int32_t pType) {
  return OnlyErrors([&] { return KeyOf(state_, "MAX", state_.TableOf(pType)); });
}

bool RunSetsFacet::SetsShareKeys() {
  return OnlyErrors([&] {
    if (!state_.HasTable("TrainingSet") || !state_.HasTable("TestingSet")) return false;
    return state_.ReadInteger(
               "SELECT EXISTS (SELECT * FROM TestingSet WHERE row IN (SELECT row FROM "
               "TrainingSet))") != 0;
  });
}

void RunSetsFacet::ReadKeys(std::int32_t pType, std::vector<std::int32_t>& pKeys) {
  OnlyErrors([&] {
    std::vector<std::int32_t> keys;
    const std::string_view table = state_.TableOf(pType);
    if (state_.HasTable(table)) {
      state_.ForEach(Sql("SELECT row FROM ", table, " ORDER BY row"),
                     [&keys](IDataReader& reader) { keys.push_back(reader.GetInteger(0)); });
    }
    pKeys = std::move(keys);
  });
}

void RunSetsFacet::WriteKeys(std::int32_t pType, const std::vector<std::int32_t>& pKeys) {
  OnlyErrors([&] {
    const std::string_view table = state_.TableOf(pType);
    if (pKeys.empty()) return;
    Transaction transaction(state_.Connection());
    if (AreConsecutive(pKeys)) {
      state_.MoveKeys(table, pKeys.front() - 1);
    } else {
      WriteKeysOneByOne(state_, table, pKeys);
    }
    transaction.Commit();
  });
}

void RunSetsFacet::MoveKeys(std::int32_t pType, std::int32_t pDistance) {
  OnlyErrors([&] {
    const std::string_view table = state_.TableOf(pType);
    Transaction transaction(state_.Connection());
    state_.MoveKeys(table, pDistance);
    transaction.Commit();
  });
}

void RunSetsFacet::CountMissing(std::int32_t pType, std::vector<std::int32_t>& pCounts) {
  const auto missing = [](std::int32_t column) { return Sql("COUNT(*) - COUNT(d", column, ")"); };
  OnlyErrors([&] { CountByColumn(state_, state_.TableOf(pType), missing, pCounts); });
}

void RunSetsFacet::CountTexts(std::int32_t pType, std::vector<std::int32_t>& pCounts) {
  const auto texts = [](std::int32_t column) {
    return Sql("COUNT(CASE WHEN typeof(d", column, ") = 'text' THEN 1 END)");
  };
  OnlyErrors([&] { CountByColumn(state_, state_.TableOf(pType), texts, pCounts); });
}

void RunSetsFacet::FillCells(std::int32_t pType, std::int32_t pColumn, std::string_view pText,
                             double pValue) {
  OnlyErrors([&] {
    const std::string_view table = state_.TableOf(pType);
    if (!state_.HasTable(table)) return;
    state_.Execute(Sql("UPDATE ", table, " SET d", pColumn, " = ",
                       std::isnan(pValue) ? "NULL" : SqlNumber(pValue),
                       " WHERE row IN (SELECT row FROM OriginalData WHERE d", pColumn, " = ",
                       SqlText(pText), ")"));
  });
}

void RunSetsFacet::DropSet(std::int32_t pType) {
  OnlyErrors([&] {
    const std::string_view table = state_.TableOf(pType);
    if (state_.HasTable(table)) state_.Execute(Sql("DROP TABLE ", table));
  });
}

bool RunSetsFacet::HasBackup() {
  return OnlyErrors([&] { return state_.HasTable(kBackup); });
}

std::int32_t RunSetsFacet::BackupRows() {
  return OnlyErrors([&] {
    if (!state_.HasTable(kBackup)) return 0;
    return state_.ReadInteger(Sql("SELECT COUNT(*) FROM ", kBackup));
  });
}

}  // namespace tslm5
