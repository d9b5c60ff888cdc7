#include "host/preparation/run_preparation.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>

#include "host/preparation/run_metadata.h"
#include "host/preparation/run_parameter_names.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

std::string SqlNumber(std::optional<double> value) {
  return value && std::isfinite(*value) ? NumberText(*value) : "NULL";
}

void WriteParameter(IConnection& connection, std::string_view space, std::string_view element,
                    std::optional<std::int32_t> whole, std::optional<double> number = {}) {
  connection.Execute(fmt::format("INSERT INTO RunParameters VALUES ({}, {}, {}, {})",
                                 SqlText(space), SqlText(element),
                                 whole ? fmt::format("{}", *whole) : "NULL", SqlNumber(number)));
}

void InsertFigures(IConnection& connection, std::size_t column, const ScaleFigures& figures) {
  for (const char* table : {"DataSetStatisticsForCode", "DataSetStatisticsForMissing"}) {
    connection.Execute(fmt::format(
        "INSERT INTO {} (ColumnIndex, Average, StandardDeviation, Minimum, Maximum) VALUES ({}, "
        "{}, {}, {}, {})",
        table, column, SqlNumber(figures.average), SqlNumber(figures.deviation),
        SqlNumber(figures.minimum), SqlNumber(figures.maximum)));
  }
}

void WriteFigures(IConnection& connection, const Preparation& preparation) {
  for (const char* table : {"DataSetStatisticsForCode", "DataSetStatisticsForMissing"}) {
    connection.Execute(fmt::format("DELETE FROM {}", table));
  }
  for (std::size_t i = 0; i < preparation.columns.size(); ++i) {
    InsertFigures(connection, i, preparation.columns[i].figures);
  }
}

void WriteCategories(IConnection& connection, const Preparation& preparation) {
  connection.Execute("DELETE FROM DataSetColumnCategories");
  for (std::size_t i = 0; i < preparation.columns.size(); ++i) {
    for (const Category& one : preparation.columns[i].categories.All()) {
      connection.Execute(
          fmt::format("INSERT INTO DataSetColumnCategories (Name, NominalValue, NumericValue, "
                      "CategoryCount) VALUES ('d{}', {}, {}, {})",
                      i, SqlText(one.text), NumberText(one.code), one.count));
    }
  }
}

/// The replacement chosen for a token, as SQL: its value and how it was chosen.
using Chosen = std::map<std::pair<std::int32_t, std::string>, std::pair<std::string, std::int32_t>>;

Chosen ReadChosen(IConnection& connection) {
  Chosen chosen;
  const Ref<IDataReader> reader = connection.ExecuteReader(
      "SELECT ColumnIndex, OriginalValue, Replacement, ReplacementType FROM MissingMappings "
      "WHERE Replacement IS NOT NULL");
  while (reader->Read()) {
    chosen[{reader->GetInteger(0), reader->GetString(1)}] = {NumberText(reader->GetDouble(2)),
                                                             reader->GetInteger(3)};
  }
  reader->Close();
  return chosen;
}

void WriteTokens(IConnection& connection, const Preparation& preparation) {
  const Chosen chosen = ReadChosen(connection);
  connection.Execute("DELETE FROM MissingMappings");
  for (std::size_t i = 0; i < preparation.columns.size(); ++i) {
    for (const MissingToken& token : preparation.columns[i].tokens) {
      const auto found = chosen.find({static_cast<std::int32_t>(i), token.text});
      const bool has_choice = found != chosen.end();
      connection.Execute(fmt::format(
          "INSERT INTO MissingMappings (Id, ColumnIndex, MissingCount, OriginalValue, "
          "Replacement, ReplacementType) VALUES (NULL, {}, {}, {}, {}, {})",
          i, token.count, SqlText(token.text), has_choice ? found->second.first : "NULL",
          has_choice ? found->second.second : 0));
    }
  }
}

void WriteEncoding(IConnection& connection, const Preparation& preparation) {
  connection.Execute("DELETE FROM ResponseEncoding");
  if (!preparation.two_classes) return;
  const TwoClasses& two = *preparation.two_classes;
  connection.Execute(fmt::format(
      "INSERT INTO ResponseEncoding (PositiveClass, NewPositiveValue, NewNegativeValue) "
      "VALUES ({}, {}, {})",
      SqlText(two.positive_class), NumberText(two.positive), NumberText(two.negative)));
}

void WriteNamedTokens(IConnection& connection, const Preparation& preparation) {
  for (const std::string& token : preparation.missing_tokens) {
    WriteParameter(connection, kTokenSpace, token, 1);
  }
}

/// The figures of a training set that was stored as it stood in its file, read in one scan of the
/// table for every `kColumnsOfScan` columns.
void WritePlainFigures(const RunSession& session, std::size_t columns) {
  constexpr std::size_t kColumnsOfScan = 100;
  IConnection& connection = session.Connection();
  if (!connection.TableExists("TrainingSet")) return;
  for (std::size_t first = 0; first < columns; first += kColumnsOfScan) {
    const std::size_t end = std::min(columns, first + kColumnsOfScan);
    std::string items;
    for (std::size_t i = first; i < end; ++i) {
      items += fmt::format("{0}avg(d{1}), stdev(d{1}), min(d{1}), max(d{1})",
                           items.empty() ? "" : ", ", i);
    }
    const Ref<IDataReader> reader =
        connection.ExecuteReader(fmt::format("SELECT {} FROM TrainingSet", items));
    reader->Read();
    auto figure = [&reader, field = std::int32_t{0}]() mutable -> std::optional<double> {
      const std::int32_t index = field++;
      if (reader->IsNull(index)) return std::nullopt;
      return reader->GetDouble(index);
    };
    std::vector<ScaleFigures> figures(end - first);
    for (ScaleFigures& of_column : figures) {
      of_column.average = figure();
      of_column.deviation = figure();
      of_column.minimum = figure();
      of_column.maximum = figure();
    }
    reader->Close();
    for (std::size_t i = first; i < end; ++i) {
      InsertFigures(connection, i, figures[i - first]);
    }
  }
}

void WriteParameters(IConnection& connection, const Preparation& preparation,
                     const std::optional<ShareOfRecords>& share) {
  const RunScale& scale = preparation.scale;
  WriteParameter(connection, "set_gen", "ProblemCategory", preparation.problem);
  WriteParameter(connection, kDataSpace, "Merging",
                 preparation.columns.empty() ? 0
                 : preparation.IsMerging()   ? 1
                                             : 0);
  WriteParameter(connection, kDataSpace, "NormalizationType", scale.type);
  WriteParameter(connection, kDataSpace, "NormalizationNewMinValue", {}, scale.new_minimum);
  WriteParameter(connection, kDataSpace, "NormalizationNewMaxValue", {}, scale.new_maximum);
  WriteParameter(connection, kDataSpace, kPositiveClassNamed,
                 preparation.has_positive_class ? 1 : 0);
  if (share) {
    WriteParameter(connection, kDataSpace, "TestingShare", {}, share->share);
    WriteParameter(connection, kDataSpace, "Seed", static_cast<std::int32_t>(share->seed));
  }
  WriteNamedTokens(connection, preparation);
}

}  // namespace

void WritePreparation(const RunSession& session, const Preparation& preparation,
                      const std::optional<ShareOfRecords>& share) {
  IConnection& connection = session.Connection();
  WriteParameters(connection, preparation, share);
  WriteCategories(connection, preparation);
  WriteEncoding(connection, preparation);
  WriteTokens(connection, preparation);
  WriteFigures(connection, preparation);
}

void WritePlainParameters(const RunSession& session) {
  WriteParameters(session.Connection(), Preparation{}, {});
}

void WriteTestingPreparation(const RunSession& session, const Preparation& preparation) {
  IConnection& connection = session.Connection();
  WriteCategories(connection, preparation);
  WriteTokens(connection, preparation);
  connection.Execute(fmt::format("DELETE FROM RunParameters WHERE namespace = '{}'", kTokenSpace));
  WriteNamedTokens(connection, preparation);
  if (session.ReadInteger("SELECT COUNT(*) FROM DataSetStatisticsForMissing") == 0) {
    WritePlainFigures(session, preparation.columns.size());
  }
  connection.Execute(fmt::format(
      "UPDATE RunParameters SET intvalue = {} WHERE namespace = 'data' AND element = 'Merging'",
      preparation.IsMerging() ? 1 : 0));
}

std::int32_t ReadProblem(const RunSession& session) {
  return session.ReadInteger(
      "SELECT intvalue FROM RunParameters WHERE namespace = 'set_gen' AND element = "
      "'ProblemCategory'");
}

void WriteProblem(const RunSession& session, std::int32_t problem) {
  session.Connection().Execute(
      "DELETE FROM RunParameters WHERE namespace = 'set_gen' AND element = 'ProblemCategory'");
  WriteParameter(session.Connection(), "set_gen", "ProblemCategory", problem);
}

void WriteEmbeddedFigures(const RunSession& session, std::int32_t columns) {
  if (session.ReadInteger("SELECT COUNT(*) FROM DataSetStatisticsForMissing") == 0) return;
  session.Connection().Execute("DELETE FROM DataSetStatisticsForCode");
  session.Connection().Execute("DELETE FROM DataSetStatisticsForMissing");
  WritePlainFigures(session, static_cast<std::size_t>(columns));
}

void ForgetPreparation(const RunSession& session) {
  IConnection& connection = session.Connection();
  for (const char* table : {"DataSetColumnCategories", "MissingMappings", "ResponseEncoding",
                            "DataSetStatisticsForCode", "DataSetStatisticsForMissing"}) {
    if (connection.TableExists(table)) connection.Execute(fmt::format("DELETE FROM {}", table));
  }
  connection.Execute(
      fmt::format("DELETE FROM RunParameters WHERE namespace IN ('{}', '{}') OR (namespace = "
                  "'set_gen' AND element = 'ProblemCategory')",
                  kDataSpace, kTokenSpace));
}

}  // namespace tslm5::host
