#include "statistics/data_record_statistics.h"

#include <algorithm>
#include <cmath>

#include "statistics/column_batches.h"
#include "storage/run_statements.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::DataRecordStatistics {
namespace {

constexpr std::string_view kClassTable = "DataSetClassStatistics";
constexpr std::string_view kTrainingTable = "TrainingSet";
constexpr std::string_view kProgressText = "Processing variable d";
constexpr std::size_t kMostClasses = 2;

/// Shows progress; false when the user asks to stop.
bool Report(IFeedback* feedback, std::int32_t position) {
  return feedback == nullptr || feedback->ReportProgress(position, kProgressText);
}

bool MayContinue(IFeedback* feedback) {
  return feedback == nullptr || feedback->ContinueFlag();
}

bool CalculateColumnStatistics(IConnection& connection, const std::string& id,
                               std::string_view table_name, IFeedback* feedback) {
  const std::int32_t variables = GetColumnCount(connection, table_name) - 1;
  const std::int32_t records = GetRecordCount(connection, table_name);
  if (feedback != nullptr) {
    feedback->Start();
    feedback->SetMaximum(variables - 1);
  }
  connection.Execute(FillStatement(run_statement::kDeleteStatistics, {{"<SET_ID>", id}}));

  ColumnBatches batches(run_statement::kColumnFigures, table_name, "", variables,
                        GetBatchSize(variables, records));
  while (batches.Next(connection)) {
    for (const ColumnBatches::Figures& figures : batches.Columns()) {
      const auto& [column, minimum, maximum, average, median, deviation] = figures;
      std::string values;
      for (const double value : {average, median, minimum, maximum, deviation}) {
        if (!values.empty()) values += ", ";
        AppendNumber(values, value);
      }
      connection.Execute(FillStatement(
          run_statement::kInsertStatistics,
          {{"<SET_ID>", id}, {"<COLUMN>", std::to_string(column)}, {"<VALUES>", values}}));
    }
    if (!Report(feedback, batches.Start() + 1)) return false;
  }
  if (feedback != nullptr) {
    if (!Report(feedback, variables - 1)) return false;
    feedback->Finish();
  }
  return true;
}

/// The distinct response values in ascending order; one that is missing or not a number is no
/// class. Reading ends at the first value too many, which tells that the set has no class figures:
/// a response of many values is neither read to its end nor sorted.
std::vector<double> ReadClasses(IConnection& connection, std::string_view table_name,
                                const std::string& response) {
  std::vector<double> classes;
  const Ref<IDataReader> reader = connection.ExecuteReader(FillStatement(
      run_statement::kDistinctClasses, {{"<XX>", response}, {"<TABLE>", table_name}}));
  while (classes.size() <= kMostClasses && reader->Read()) {
    const Variant value = reader->GetValue(0);
    if (value.IsNumber()) classes.push_back(value.ToDouble());
  }
  std::sort(classes.begin(), classes.end());
  return classes;
}

/// A class value as SQL writes it: an infinity has no digits, but one too many make it.
std::string ClassText(double value) {
  if (std::isfinite(value)) return NumberText(value);
  return value > 0 ? "9e999" : "-9e999";
}

bool CalculateOneClass(IConnection& connection, const std::string& id, std::string_view table_name,
                       const std::string& condition, const std::string& class_text,
                       std::int32_t variables, std::int32_t records, IFeedback* feedback) {
  ColumnBatches batches(run_statement::kClassFigures, table_name, condition, variables,
                        GetBatchSize(variables, records));
  while (batches.Next(connection)) {
    for (const ColumnBatches::Figures& figures : batches.Columns()) {
      const auto& [column, minimum, maximum, average, median, count] = figures;
      std::string values;
      for (const double value : {average, median, minimum, maximum, count}) {
        if (!values.empty()) values += ", ";
        AppendNumber(values, value);
      }
      connection.Execute(FillStatement(run_statement::kInsertClassStatistics,
                                       {{"<SET_ID>", id},
                                        {"<COLUMN>", std::to_string(column)},
                                        {"<CLASS>", class_text},
                                        {"<VALUES>", values}}));
    }
    if (!Report(feedback, batches.Start() + 1) || !MayContinue(feedback)) return false;
  }
  return true;
}

bool CalculateClassStatistics(IConnection& connection, const std::string& id,
                              std::string_view table_name, IFeedback* feedback) {
  const std::vector<std::string> names = GetColumnNames(connection, table_name);
  if (names.size() < 2) return true;  // no record, so no class
  const std::string& response = names[names.size() - 2];
  // The shape is the training table's, whatever table this is (meant).
  const std::int32_t variables = GetColumnCount(connection, kTrainingTable) - 1;
  const std::int32_t records = GetRecordCount(connection, kTrainingTable);
  const std::vector<double> classes = ReadClasses(connection, table_name, response);
  if (classes.size() > kMostClasses) return true;  // older class rows stay (meant)

  connection.Execute(FillStatement(run_statement::kDeleteClassStatistics, {{"<SET_ID>", id}}));
  for (const double value : classes) {
    const std::string class_text = ClassText(value);
    const std::string condition = FillStatement(
        run_statement::kClassCondition, {{"<RESPONSE>", response}, {"<CLASS>", class_text}});
    if (!CalculateOneClass(connection, id, table_name, condition, class_text, variables, records,
                           feedback)) {
      return false;
    }
  }
  if (feedback != nullptr) {
    if (!Report(feedback, variables - 1)) return false;
    feedback->Finish();
  }
  return true;
}

}  // namespace

bool CalculateTableStatistics(IConnection& connection, std::int32_t data_set_id,
                              std::string_view table_name, IFeedback* feedback) {
  const std::string id = std::to_string(data_set_id);
  {
    Transaction transaction(connection);
    if (!CalculateColumnStatistics(connection, id, table_name, feedback)) return false;
    if (!MayContinue(feedback)) return false;
    transaction.Commit();
  }
  if (!connection.TableExists(kClassTable)) {
    connection.Execute(run_statement::kCreateClassStatistics);
  }
  Transaction transaction(connection);
  if (!CalculateClassStatistics(connection, id, table_name, feedback)) return false;
  if (!MayContinue(feedback)) return false;
  transaction.Commit();
  return true;
}

std::int32_t GetRecordCount(IConnection& connection, std::string_view table_name) {
  const Ref<IDataReader> reader = connection.ExecuteReader(
      FillStatement(run_statement::kCountTable, {{"<TABLE>", table_name}}));
  reader->Read();
  return reader->GetInteger(0);
}

std::int32_t GetColumnCount(IConnection& connection, std::string_view table_name) {
  return connection
      .ExecuteReader(FillStatement(run_statement::kProbeTable, {{"<TABLE>", table_name}}))
      ->FieldCount();
}

std::vector<std::string> GetColumnNames(IConnection& connection, std::string_view table_name) {
  const Ref<IDataReader> reader = connection.ExecuteReader(
      FillStatement(run_statement::kSelectFirstRecord, {{"<TABLE>", table_name}}));
  std::vector<std::string> names;
  if (!reader->Read()) return names;
  for (std::int32_t field = 0; field < reader->FieldCount(); ++field) {
    names.push_back(reader->FieldName(field));
  }
  return names;
}

std::int32_t GetBatchSize(std::int32_t variables, std::int32_t records) {
  constexpr std::int32_t kManyRecords = 50000;
  if (variables >= 100) return 99;
  if (variables >= 10) return 19;
  return records < kManyRecords ? 1 : 5;
}

std::vector<std::string> CompactStrings(std::vector<std::string> strings) {
  const auto is_empty = [](const std::string& text) { return text.empty(); };
  if (!std::all_of(strings.begin(), strings.end(), is_empty)) std::erase_if(strings, is_empty);
  return strings;
}

}  // namespace tslm5::DataRecordStatistics
