#include "host/commands/original_view.h"

#include <fmt/format.h>

#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"
#include "tslm5/component/class_factory.h"
#include "tslm5/component/create_object.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

bool HasClassedResponse(std::int32_t problem) {
  return problem == problem_category::kClassification || problem == problem_category::kBinary ||
         problem == problem_category::kFurtherClassification;
}

[[noreturn]] void RefuseClasses(const std::string& why) {
  throw Failure(ExitCode::kUsage, "--binarise: " + why);
}

}  // namespace

OriginalView::OriginalView(const OriginalOptions& options)
    : session_(options.run, RunOptions::Mode::kReadOnly),
      is_combined_(options.set_type == data_set_type::kCombined) {
  RequireSets(options);
  if (options.binarise) RequireClasses(options);
  data_set_ = CreateObject<IDeploymentDataSet>(class_id::kOriginalDataSet);
  data_set_->Open(Variant(session_.Run()), options.set_type, options.binarise);
}

void OriginalView::RequireSets(const OriginalOptions& options) const {
  const auto require = [&](const char* table, const char* name) {
    if (session_.Connection().TableExists(table)) return;
    throw Failure(ExitCode::kTrouble, fmt::format("{} has no {} set (tslm5 info tells what it has)",
                                                  Escaped(options.run), name));
  };
  if (options.set_type == data_set_type::kTesting) require("TestingSet", "testing");
  require("TrainingSet", "training");
  const std::int32_t columns = session_.ColumnsOf("OriginalData");
  if (columns == 0) {
    throw Failure(ExitCode::kTrouble,
                  fmt::format("{} keeps no original texts", Escaped(options.run)));
  }
  const auto require_width = [&](const char* table, const char* name) {
    const std::int32_t width = session_.ColumnsOf(table);
    if (width == 0 || width == columns) return;
    throw Failure(
        ExitCode::kTrouble,
        fmt::format("the {} set has {} columns, the original texts of the run {}, those of "
                    "an embedding (tslm5 show --set {} --original shows its own)",
                    name, width, columns, name));
  };
  const bool wants_all = options.set_type == data_set_type::kUnknown;
  if (wants_all) return;
  if (options.set_type != data_set_type::kTesting) require_width("TrainingSet", "training");
  if (options.set_type != data_set_type::kTraining) require_width("TestingSet", "testing");
}

void OriginalView::RequireClasses(const OriginalOptions& options) const {
  const std::int32_t problem = session_.ReadInteger(
      "SELECT intvalue FROM RunParameters WHERE namespace = 'set_gen' AND element = "
      "'ProblemCategory'");
  if (!HasClassedResponse(problem)) {
    RefuseClasses(
        fmt::format("the run's problem is {}; a response has classes where the problem "
                    "is classification or binary (tslm5 load --problem)",
                    ProblemName(problem)));
  }
  const std::int32_t maxima = session_.ReadInteger(fmt::format(
      "SELECT COUNT(*) FROM DataSetStatistics WHERE Maximum IS NOT NULL AND DataSetId IN ({}, {}) "
      "AND ColumnIndex = (SELECT ColumnIndex FROM DataSetColumn WHERE IsResponse = 1)",
      data_set_type::kTraining, is_combined_ ? data_set_type::kTraining : options.set_type));
  if (maxima == 0) {
    RefuseClasses("the run has no statistics, which tell the largest class (tslm5 stats)");
  }
  if (is_combined_ && !ClassesAreNumbers()) {
    RefuseClasses(
        "both sets together are told apart by the response's texts, which are not the run's "
        "numbers here; --set training or testing goes by the numbers");
  }
}

bool OriginalView::ClassesAreNumbers() const {
  const Ref<IDataReader> reader = session_.Connection().ExecuteReader(
      "SELECT NominalValue, NumericValue FROM DataSetColumnCategories WHERE Name = 'd' || (SELECT "
      "ColumnIndex FROM DataSetColumn WHERE IsResponse = 1)");
  while (reader->Read()) {
    double number = 0.0;
    if (!ParseNumber(reader->GetString(0), '.', number) || number != reader->GetDouble(1)) {
      return false;
    }
  }
  return true;
}

std::vector<std::string> OriginalView::Labels() const {
  std::vector<std::string> labels;
  const std::int32_t columns = data_set_->Columns();
  if (!is_combined_) {
    for (std::int32_t i = 0; i < columns; ++i) labels.push_back(data_set_->GetLabel(i));
    return labels;
  }
  // Both sets together come without labels: they are read as those of one set are.
  for (std::int32_t i = 0; i < columns; ++i) {
    labels.push_back(i == columns - 1 ? "y" : fmt::format("d{}", i));
  }
  const Ref<IDataReader> reader = session_.Connection().ExecuteReader(
      "SELECT Label FROM OriginalDataLabels WHERE SetId = 1 ORDER BY ColumnIndex");
  for (std::size_t i = 0; i < labels.size() && reader->Read(); ++i) {
    labels[i] = reader->GetString(0);
  }
  return labels;
}

}  // namespace tslm5::host
