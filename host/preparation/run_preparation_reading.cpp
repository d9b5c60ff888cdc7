// The half of run_preparation.h that reads.
#include <fmt/format.h>

#include <string>
#include <utility>

#include "host/preparation/cell_rule.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_parameter_names.h"
#include "host/preparation/run_preparation.h"

namespace tslm5::host {
namespace {

std::int32_t ReadWhole(const RunSession& session, std::string_view element) {
  return session.ReadInteger(
      fmt::format("SELECT intvalue FROM RunParameters WHERE namespace = 'data' AND element = {}",
                  SqlText(element)));
}

std::optional<double> ReadNumber(IDataReader& reader, std::int32_t field) {
  if (reader.IsNull(field)) return std::nullopt;
  return reader.GetDouble(field);
}

double ReadFloat(const RunSession& session, std::string_view element) {
  const Ref<IDataReader> reader = session.Connection().ExecuteReader(
      fmt::format("SELECT floatvalue FROM RunParameters WHERE namespace = 'data' AND element = {}",
                  SqlText(element)));
  const double value = reader->Read() ? reader->GetDouble(0) : 0.0;
  reader->Close();
  return value;
}

std::vector<std::string> ReadNamedTokens(IConnection& connection) {
  std::vector<std::string> tokens;
  const Ref<IDataReader> reader = connection.ExecuteReader(
      fmt::format("SELECT element FROM RunParameters WHERE namespace = '{}'", kTokenSpace));
  while (reader->Read()) tokens.push_back(reader->GetString(0));
  reader->Close();
  return tokens;
}

void ReadColumns(IConnection& connection, Preparation& preparation) {
  const Ref<IDataReader> reader = connection.ExecuteReader(
      "SELECT c.OriginalLabel, c.IsNominal, c.MissingCount, m.Average, k.StandardDeviation, "
      "m.Minimum, m.Maximum FROM DataSetColumn c LEFT JOIN DataSetStatisticsForMissing m ON "
      "m.ColumnIndex = c.ColumnIndex LEFT JOIN DataSetStatisticsForCode k ON k.ColumnIndex = "
      "c.ColumnIndex ORDER BY c.Id");
  while (reader->Read()) {
    PreparedColumn column;
    column.label = reader->GetString(0);
    column.is_nominal = reader->GetInteger(1) == 1;
    column.missing = reader->GetInteger(2);
    column.figures = {ReadNumber(*reader, 3), ReadNumber(*reader, 4), ReadNumber(*reader, 5),
                      ReadNumber(*reader, 6)};
    if (preparation.scale.type != RunScale::kNone) {
      const bool can_scale = CanScale(preparation.scale, column.figures);
      if (!can_scale) column.figures = IdentityFigures(preparation.scale);
      column.is_scaled = can_scale && !ChangesNothing(preparation.scale, column.figures);
    }
    preparation.columns.push_back(std::move(column));
  }
  reader->Close();
}

void ReadCategories(IConnection& connection, Preparation& preparation) {
  for (std::size_t i = 0; i < preparation.columns.size(); ++i) {
    const Ref<IDataReader> reader = connection.ExecuteReader(fmt::format(
        "SELECT NominalValue, NumericValue, CategoryCount FROM DataSetColumnCategories WHERE Name "
        "= 'd{}' AND CategoryCount > 0 ORDER BY rowid",
        i));
    while (reader->Read()) {
      preparation.columns[i].categories.Add(reader->GetString(0), reader->GetDouble(1),
                                            reader->GetInteger(2));
    }
    reader->Close();
  }
}

/// Counts the tokens of the training records, in the order of the records.
void ReadTrainingTokens(const RunSession& session, Preparation& preparation) {
  if (session.ColumnsOf("OriginalData") != static_cast<std::int32_t>(preparation.columns.size())) {
    return;
  }
  const CellRule rule(false, preparation.missing_tokens);
  for (std::size_t i = 0; i + 1 < preparation.columns.size(); ++i) {
    PreparedColumn& column = preparation.columns[i];
    if (column.missing == 0) continue;
    const Ref<IDataReader> reader = session.Connection().ExecuteReader(
        fmt::format("SELECT od.d{}, COUNT(*) FROM TrainingSet t JOIN OriginalData od ON od.row = "
                    "t.row GROUP BY 1 ORDER BY MIN(t.row)",
                    i));
    while (reader->Read()) {
      const std::string text = reader->GetString(0);
      if (rule.Classify(text) == CellClass::kMissing) {
        column.tokens.push_back({text, reader->GetInteger(1)});
      }
    }
    reader->Close();
  }
}

}  // namespace

bool IsPrepared(const RunSession& session) {
  IConnection& connection = session.Connection();
  if (!connection.TableExists("RunParameters")) return false;
  return ReadWhole(session, "NormalizationType") != 0 ||
         session.ReadInteger(
             "SELECT EXISTS (SELECT * FROM DataSetColumnCategories) OR EXISTS "
             "(SELECT * FROM MissingMappings)") != 0 ||
         !ReadNamedTokens(connection).empty();
}

Preparation ReadPreparation(const RunSession& session) {
  IConnection& connection = session.Connection();
  Preparation preparation;
  preparation.scale.type = ReadWhole(session, "NormalizationType");
  preparation.scale.new_minimum = ReadFloat(session, "NormalizationNewMinValue");
  preparation.scale.new_maximum = ReadFloat(session, "NormalizationNewMaxValue");
  preparation.problem = session.ReadInteger(
      "SELECT intvalue FROM RunParameters WHERE namespace = 'set_gen' AND element = "
      "'ProblemCategory'");
  preparation.has_positive_class = ReadWhole(session, kPositiveClassNamed) == 1;
  preparation.missing_tokens = ReadNamedTokens(connection);
  const Ref<IDataReader> reader = connection.ExecuteReader(
      "SELECT PositiveClass, NewPositiveValue, NewNegativeValue FROM ResponseEncoding");
  if (reader->Read()) {
    preparation.two_classes =
        TwoClasses{reader->GetString(0), reader->GetDouble(1), reader->GetDouble(2)};
  }
  reader->Close();
  ReadColumns(connection, preparation);
  ReadCategories(connection, preparation);
  ReadTrainingTokens(session, preparation);
  return preparation;
}

}  // namespace tslm5::host
