#include "host/commands/original_view.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/answers/column_figures.h"
#include "host/preparation/run_preparation.h"
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
  Misuse("--binarise: " + why);
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
  const auto require = [&](std::int32_t type, const char* name) {
    if (session_.Sets().HasSet(type)) return;
    throw Failure(ExitCode::kTrouble, fmt::format("{} has no {} set (tslm5 info tells what it has)",
                                                  Escaped(options.run), name));
  };
  if (options.set_type == data_set_type::kTesting) require(data_set_type::kTesting, "testing");
  require(data_set_type::kTraining, "training");
  const std::int32_t columns = session_.Originals().Columns();
  if (columns == 0) {
    throw Failure(ExitCode::kTrouble,
                  fmt::format("{} keeps no original texts", Escaped(options.run)));
  }
  const auto require_width = [&](std::int32_t type, const char* name) {
    const std::int32_t width = session_.Sets().SetColumns(type);
    if (width == 0 || width == columns) return;
    throw Failure(
        ExitCode::kTrouble,
        fmt::format("the {} set has {} columns, the original texts of the run {}, those of "
                    "an embedding (tslm5 show --set {} --original shows its own)",
                    name, width, columns, name));
  };
  const bool wants_all = options.set_type == data_set_type::kUnknown;
  if (wants_all) return;
  if (options.set_type != data_set_type::kTesting)
    require_width(data_set_type::kTraining, "training");
  if (options.set_type != data_set_type::kTraining)
    require_width(data_set_type::kTesting, "testing");
}

void OriginalView::RequireClasses(const OriginalOptions& options) const {
  const std::int32_t problem = ReadProblem(session_);
  if (!HasClassedResponse(problem)) {
    RefuseClasses(
        fmt::format("the run's problem is {}; a response has classes where the problem "
                    "is classification or binary (tslm5 load --problem)",
                    ProblemName(problem)));
  }
  const std::int32_t response = ResponseColumn();
  bool has_maximum = false;
  for (const std::int32_t type :
       {data_set_type::kTraining, is_combined_ ? data_set_type::kTraining : options.set_type}) {
    for (const RunFigures& one : ReadColumnFigures(session_, type)) {
      has_maximum = has_maximum || (one.column == response && one.maximum);
    }
  }
  if (!has_maximum) {
    RefuseClasses("the run has no statistics, which tell the largest class (tslm5 stats)");
  }
  if (is_combined_ && !ClassesAreNumbers()) {
    RefuseClasses(
        "both sets together are told apart by the response's texts, which are not the run's "
        "numbers here; --set training or testing goes by the numbers");
  }
}

std::int32_t OriginalView::ResponseColumn() const {
  const std::vector<RunColumn> columns = ColumnsOf(session_);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].is_response) return static_cast<std::int32_t>(i);
  }
  return -1;
}

bool OriginalView::ClassesAreNumbers() const {
  std::vector<RunCategory> classes;
  session_.Categories().ReadColumnCategories(ResponseColumn(), false, classes);
  return std::all_of(classes.begin(), classes.end(), [](const RunCategory& one) {
    double number = 0.0;
    return ParseNumber(one.text, '.', number) && number == one.code;
  });
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
  std::vector<std::string> kept;
  session_.Columns().ReadOriginalLabels(kept);
  std::copy_n(kept.begin(), std::min(kept.size(), labels.size()), labels.begin());
  return labels;
}

}  // namespace tslm5::host
