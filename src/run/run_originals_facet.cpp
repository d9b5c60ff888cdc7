#include "run/run_originals_facet.h"

#include <algorithm>

#include "platform/only_errors.h"
#include "run/sql_text.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

constexpr const char* kOriginals = "OriginalData";

void CreateTable(const RunCatalogState& state, std::int32_t columns) {
  if (state.HasTable(kOriginals)) state.Execute("DROP TABLE OriginalData");
  std::string sql = "CREATE TABLE OriginalData (";
  for (std::int32_t column = 0; column < columns; ++column) sql += Sql("d", column, " TEXT, ");
  state.Execute(sql + "row INTEGER PRIMARY KEY)");
}

void FitTable(const RunCatalogState& state, std::int32_t columns) {
  const std::int32_t present = state.ColumnsOf(kOriginals);
  if (present == columns) return;
  state.Execute("ALTER TABLE OriginalData RENAME TO FormerOriginals");
  CreateTable(state, columns);
  std::string names;
  for (std::int32_t i = 0; i < std::min(present, columns); ++i) names += Sql("d", i, ", ");
  state.Execute(
      Sql("INSERT INTO OriginalData (", names, "row) SELECT ", names, "row FROM FormerOriginals"));
  state.Execute("DROP TABLE FormerOriginals");
}

/// Leaves of the texts those whose keys stand in `kept_table`.
void KeepTextsOf(const RunCatalogState& state, std::string_view kept_table, std::int32_t columns) {
  const std::int32_t present = state.ColumnsOf(kOriginals);
  if (!state.HasTable(kept_table) || present < columns) return CreateTable(state, columns);
  std::string others = Sql("row NOT IN (SELECT row FROM ", kept_table, ")");
  if (kept_table == "TrainingSet" && state.HasTable("TrainingSetBackup")) {
    others += " AND row NOT IN (SELECT row FROM TrainingSetBackup)";  // an undo restores them
  }
  state.Execute(Sql("DELETE FROM OriginalData WHERE ", others));
  if (present > columns) FitTable(state, columns);
}

std::int32_t MakeRoomForTesting(const RunCatalogState& state, std::int32_t columns) {
  const bool is_trained = state.HasTable("TrainingSet");
  const std::int32_t before =
      is_trained ? state.ReadInteger("SELECT MAX(row) FROM TrainingSet") : 0;
  state.MoveKeys("TestingSet", before);
  KeepTextsOf(state, "TrainingSet", columns);
  return before + 1;
}

std::int32_t MakeRoomForTraining(const RunCatalogState& state, std::int32_t records,
                                 std::int32_t columns) {
  KeepTextsOf(state, "TestingSet", columns);
  if (state.HasTable("TestingSet")) {
    const std::int32_t distance =
        records + 1 - state.ReadInteger("SELECT MIN(row) FROM TestingSet");
    state.MoveKeys(kOriginals, distance);
    state.MoveKeys("TestingSet", distance);
  }
  return 1;
}

void CreateEmbedded(const RunCatalogState& state, std::int32_t dimension, std::int32_t delay,
                    std::int32_t records) {
  std::string columns;
  std::string texts;
  for (std::int64_t column = 0; column <= dimension; ++column) {
    columns += Sql("d", column, " TEXT, ");
    texts += Sql("lead(text, ", column * delay, ") OVER places, ");
  }
  state.Execute(Sql("CREATE TABLE EmbeddedOriginals (", columns, "row INTEGER PRIMARY KEY)"));
  state.Execute(Sql(
      "INSERT INTO EmbeddedOriginals SELECT ", texts,
      "row_number() OVER places FROM (SELECT od.d0 AS text, t.row AS place FROM TrainingSet t LEFT "
      "JOIN OriginalData od ON od.row = t.row) WINDOW places AS (ORDER BY place) ORDER BY place "
      "LIMIT ",
      records));
}

void MoveTestingTexts(const RunCatalogState& state, std::int32_t records) {
  if (!state.HasTable("TestingSet")) return;
  const std::int32_t first = state.ReadInteger("SELECT MIN(row) FROM TestingSet");
  const std::int32_t distance = std::max(0, records + 1 - first);
  state.Execute(Sql("INSERT INTO EmbeddedOriginals (d0, row) SELECT d0, row + ", distance,
                    " FROM OriginalData WHERE row IN (SELECT row FROM TestingSet)"));
  state.MoveKeys("TestingSet", distance);
}

}  // namespace

std::int32_t RunOriginalsFacet::Columns() {
  return OnlyErrors([&] { return state_.ColumnsOf(kOriginals); });
}

void RunOriginalsFacet::Create(std::int32_t pColumns) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    CreateTable(state_, pColumns);
    transaction.Commit();
  });
}

void RunOriginalsFacet::Fit(std::int32_t pColumns) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    FitTable(state_, pColumns);
    transaction.Commit();
  });
}

std::int32_t RunOriginalsFacet::MakeRoom(std::int32_t pType, std::int32_t pRecords,
                                         std::int32_t pColumns) {
  return OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    const std::int32_t first = pType == data_set_type::kTesting
                                   ? MakeRoomForTesting(state_, pColumns)
                                   : MakeRoomForTraining(state_, pRecords, pColumns);
    transaction.Commit();
    return first;
  });
}

void RunOriginalsFacet::Append(std::span<const std::string_view> pTexts, std::int32_t pKey) {
  OnlyErrors([&] {
    IRecordAppender* const appender = state_.OriginalsAppender();
    if (appender == nullptr) return Insert(pTexts, pKey);
    cells_.resize(pTexts.size());
    std::transform(pTexts.begin(), pTexts.end(), cells_.begin(), [](std::string_view text) {
      return RecordCell{RecordCell::Kind::kText, 0.0, text};
    });
    appender->AppendCells(cells_, pKey);
  });
}

void RunOriginalsFacet::Insert(std::span<const std::string_view> texts, std::int32_t key) {
  insert_ = "INSERT INTO OriginalData VALUES (";
  for (const std::string_view text : texts) {
    AppendSqlText(text, insert_);
    insert_ += ", ";
  }
  insert_ += std::to_string(key);
  insert_ += ");";
  state_.Execute(insert_);
}

Ref<IDataReader> RunOriginalsFacet::OpenTexts(std::int32_t pType,
                                              const std::vector<std::int32_t>& pColumns,
                                              std::int32_t pFirstRow) {
  return OnlyErrors([&] {
    std::string cells;
    for (const std::int32_t column : pColumns) cells += Sql("od.d", column, ", ");
    return state_.Connection().ExecuteReader(
        Sql("SELECT ", cells, "od.row FROM ", state_.TableOf(pType),
            " t LEFT JOIN OriginalData od ON od.row = t.row ORDER BY t.rowid LIMIT -1 OFFSET ",
            pFirstRow));
  });
}

Ref<IDataReader> RunOriginalsFacet::OpenRecords(std::int32_t pType) {
  return OnlyErrors([&] {
    return state_.Connection().ExecuteReader(
        Sql("SELECT od.* FROM ", state_.TableOf(pType),
            " t JOIN OriginalData od ON od.row = t.row ORDER BY t.row"));
  });
}

Ref<IDataReader> RunOriginalsFacet::OpenTrainingColumn(std::int32_t pColumn) {
  return OnlyErrors([&] {
    return state_.Connection().ExecuteReader(
        Sql("SELECT od.d", pColumn,
            " FROM TrainingSet t JOIN OriginalData od ON od.row = t.row WHERE od.d", pColumn,
            " NOT IN (SELECT OriginalValue FROM MissingMappings WHERE ColumnIndex = ", pColumn,
            " AND OriginalValue IS NOT NULL)"));
  });
}

bool RunOriginalsFacet::WriteEmbedded(std::int32_t pDimension, std::int32_t pDelay,
                                      std::int32_t pRecords) {
  return OnlyErrors([&] {
    if (state_.ColumnsOf(kOriginals) < 1) return false;
    Transaction transaction(state_.Connection());
    CreateEmbedded(state_, pDimension, pDelay, pRecords);
    MoveTestingTexts(state_, pRecords);
    transaction.Commit();
    return true;
  });
}

void RunOriginalsFacet::TakeEmbedded() {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    state_.Execute("DROP TABLE OriginalData");
    state_.Execute("ALTER TABLE EmbeddedOriginals RENAME TO OriginalData");
    transaction.Commit();
  });
}

}  // namespace tslm5
