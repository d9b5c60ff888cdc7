#include "run/run_figures_facet.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "platform/only_errors.h"
#include "run/sql_text.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

constexpr const char* kForMissing = "DataSetStatisticsForMissing";
// Codes and missing values have a table each, of the same figures.
constexpr const char* kScaleTables[] = {"DataSetStatisticsForCode", kForMissing};

std::optional<double> FigureOf(IDataReader& reader, std::int32_t field) {
  const std::optional<double> value = NumberOf(reader, field);
  return value == kAbsentFigure ? std::nullopt : value;
}

void DeleteScaleFigures(const RunCatalogState& state) {
  for (const char* table : kScaleTables) {
    if (state.HasTable(table)) state.Execute(Sql("DELETE FROM ", table));
  }
}

void InsertScaleFigures(const RunCatalogState& state, std::size_t column,
                        const ScaleFigures& figures) {
  for (const char* table : kScaleTables) {
    state.Execute(Sql("INSERT INTO ", table,
                      " (ColumnIndex, Average, StandardDeviation, Minimum, Maximum) VALUES (",
                      column, ", ", SqlOrNull(figures.average), ", ", SqlOrNull(figures.deviation),
                      ", ", SqlOrNull(figures.minimum), ", ", SqlOrNull(figures.maximum), ")"));
  }
}

/// The figures of the training set's columns [first, end), in one scan.
std::vector<ScaleFigures> ScanFigures(const RunCatalogState& state, std::size_t first,
                                      std::size_t end) {
  std::string sql;
  for (std::size_t i = first; i < end; ++i) {
    sql += Sql(sql.empty() ? "SELECT " : ", ", "avg(d", i, "), stdev(d", i, "), min(d", i,
               "), max(d", i, ")");
  }
  std::vector<ScaleFigures> figures(end - first);
  state.ForEach(sql + " FROM TrainingSet", [&figures](IDataReader& reader) {
    std::int32_t field = 0;
    for (ScaleFigures& of_column : figures) {
      of_column.average = NumberOf(reader, field++);
      of_column.deviation = NumberOf(reader, field++);
      of_column.minimum = NumberOf(reader, field++);
      of_column.maximum = NumberOf(reader, field++);
    }
  });
  return figures;
}

}  // namespace

void RunFiguresFacet::ReadFigures(std::int32_t pType, std::vector<RunFigures>& pFigures) {
  OnlyErrors([&] {
    std::vector<RunFigures> figures;
    if (state_.HasTable("DataSetStatistics")) {
      state_.ForEach(
          Sql("SELECT ColumnIndex, Centroid, Medoid, Minimum, Maximum, StandardDeviation FROM "
              "DataSetStatistics WHERE DataSetId = ",
              pType, " ORDER BY ColumnIndex"),
          [&figures](IDataReader& reader) {
            figures.push_back({reader.GetInteger(0), FigureOf(reader, 1), FigureOf(reader, 2),
                               FigureOf(reader, 3), FigureOf(reader, 4), FigureOf(reader, 5)});
          });
    }
    pFigures = std::move(figures);
  });
}

void RunFiguresFacet::ReadClassFigures(std::int32_t pType, std::vector<RunClassFigures>& pClasses) {
  OnlyErrors([&] {
    std::vector<RunClassFigures> classes;
    if (state_.HasTable("DataSetClassStatistics")) {
      state_.ForEach(
          Sql("SELECT Class, ColumnId, Centroid, Medoid, Minimum, Maximum, RecordCount FROM "
              "DataSetClassStatistics WHERE DataSetId = ",
              pType, " ORDER BY Class, ColumnId"),
          [&classes](IDataReader& reader) {
            const double value = reader.GetDouble(0);
            if (classes.empty() || classes.back().value != value) {
              classes.push_back({value, reader.GetInteger(6), {}});
            }
            classes.back().columns.push_back({reader.GetInteger(1), FigureOf(reader, 2),
                                              FigureOf(reader, 3), FigureOf(reader, 4),
                                              FigureOf(reader, 5), std::nullopt});
          });
    }
    pClasses = std::move(classes);
  });
}

void RunFiguresFacet::DropFigures(std::int32_t pType) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    for (const char* table : {"DataSetStatistics", "DataSetClassStatistics"}) {
      if (!state_.HasTable(table)) continue;
      state_.Execute(Sql("DELETE FROM ", table, " WHERE DataSetId = ", pType));
    }
    transaction.Commit();
  });
}

bool RunFiguresFacet::HasScaleFigures() {
  return OnlyErrors([&] {
    if (!state_.HasTable(kForMissing)) return false;
    return state_.ReadInteger(Sql("SELECT EXISTS (SELECT * FROM ", kForMissing, ")")) != 0;
  });
}

void RunFiguresFacet::ReadScaleFigures(std::vector<ScaleFigures>& pFigures) {
  OnlyErrors([&] {
    std::vector<ScaleFigures> figures;
    if (state_.HasTable("DataSetColumn")) {
      state_.ForEach(
          "SELECT m.Average, k.StandardDeviation, m.Minimum, m.Maximum FROM DataSetColumn c LEFT "
          "JOIN DataSetStatisticsForMissing m ON m.ColumnIndex = c.ColumnIndex LEFT JOIN "
          "DataSetStatisticsForCode k ON k.ColumnIndex = c.ColumnIndex ORDER BY c.Id",
          [&figures](IDataReader& reader) {
            figures.push_back({NumberOf(reader, 0), NumberOf(reader, 1), NumberOf(reader, 2),
                               NumberOf(reader, 3)});
          });
    }
    pFigures = std::move(figures);
  });
}

void RunFiguresFacet::WriteScaleFigures(const std::vector<ScaleFigures>& pFigures) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    DeleteScaleFigures(state_);
    for (std::size_t i = 0; i < pFigures.size(); ++i) InsertScaleFigures(state_, i, pFigures[i]);
    transaction.Commit();
  });
}

void RunFiguresFacet::ComputeScaleFigures(std::int32_t pColumns) {
  constexpr std::size_t kColumnsOfScan = 100;
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    DeleteScaleFigures(state_);
    const auto columns =
        state_.HasTable("TrainingSet") ? static_cast<std::size_t>(pColumns) : std::size_t{0};
    for (std::size_t first = 0; first < columns; first += kColumnsOfScan) {
      const std::size_t end = std::min(columns, first + kColumnsOfScan);
      const std::vector<ScaleFigures> figures = ScanFigures(state_, first, end);
      for (std::size_t i = first; i < end; ++i) InsertScaleFigures(state_, i, figures[i - first]);
    }
    transaction.Commit();
  });
}

void RunFiguresFacet::RenewScaleFigures(std::int32_t pColumn) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    for (const char* table : kScaleTables) {
      if (!state_.HasTable(table)) continue;
      state_.Execute(Sql(
          "UPDATE ", table, " SET (Average, StandardDeviation, Minimum, Maximum) = (SELECT avg(d",
          pColumn, "), stdev(d", pColumn, "), min(d", pColumn, "), max(d", pColumn,
          ") FROM TrainingSet WHERE row NOT IN (SELECT row FROM OriginalData WHERE d", pColumn,
          " IN (SELECT OriginalValue FROM MissingMappings WHERE ColumnIndex = ", pColumn,
          "))) WHERE ColumnIndex = ", pColumn));
    }
    transaction.Commit();
  });
}

void RunFiguresFacet::DropScaleFigures() {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    DeleteScaleFigures(state_);
    transaction.Commit();
  });
}

}  // namespace tslm5
