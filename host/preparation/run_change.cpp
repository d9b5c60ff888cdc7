#include "host/preparation/run_change.h"

#include <fmt/format.h>

#include "host/preparation/label_list.h"
#include "host/preparation/run_history.h"
#include "host/preparation/statistics_feedback.h"
#include "host/program/failure.h"
#include "host/program/progress.h"
#include "host/program/set_names.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr const SetName* kChangedSets[] = {FindSet(data_set_type::kTraining),
                                           FindSet(data_set_type::kTesting)};

}  // namespace

Ref<IDataSet> RequireTrainingSet(const RunSession& session, const std::string& run) {
  if (Ref<IDataSet> data_set = session.OpenDataSet(data_set_type::kTraining)) return data_set;
  throw Failure(ExitCode::kTrouble, fmt::format("{} has no training set (tslm5 info tells what it "
                                                "has)",
                                                Escaped(run)));
}

std::string ColumnWord(std::int32_t column, const std::vector<std::string>& labels) {
  const std::string& label = labels[static_cast<std::size_t>(column)];
  const bool is_plain = !label.empty() && label.front() != '-' && label != kRunWord;
  if (is_plain && FindColumn(label, labels) == column) return label;
  return fmt::format("d{}", column);
}

std::string ColumnTitle(std::int32_t column, const std::string& label) {
  return fmt::format("{} (d{})", Cut(label), column);
}

std::int32_t NormalizationType(const RunSession& session) {
  return session.Parameters().ReadWhole(parameter_space::kAny, run_parameter::kNormalization);
}

void WriteCellsOf(const RunSession& session, std::int32_t column, std::string_view text,
                  double value) {
  for (const SetName* set : kChangedSets) {
    session.Sets().FillCells(set->type, column, text, value);
  }
}

void RenewStatistics(const RunSession& session, bool compute) {
  for (const SetName* set : kChangedSets) session.Figures().DropFigures(set->type);
  if (!compute) return;
  Progress progress(Terminal::OfStandardError());
  for (const SetName* set : kChangedSets) {
    if (const Ref<IDataSet> data_set = session.OpenDataSet(set->type)) {
      ComputeStatistics(*data_set, progress);
    }
  }
}

void RefuseApostrophe(std::string_view what, std::string_view text) {
  if (text.find('\'') == std::string_view::npos) return;
  Refuse(
      fmt::format("{} {} holds an apostrophe, which the component does not take in a "
                  "value; nothing was changed",
                  what, Quoted(text)));
}

}  // namespace tslm5::host
