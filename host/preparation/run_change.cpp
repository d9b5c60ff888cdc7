#include "host/preparation/run_change.h"

#include <fmt/format.h>

#include "host/preparation/label_list.h"
#include "host/preparation/run_history.h"
#include "host/preparation/run_metadata.h"
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
  if (!session.Connection().TableExists("RunParameters")) return 0;
  return session.ReadInteger(
      "SELECT intvalue FROM RunParameters WHERE element = 'NormalizationType'");
}

void WriteCellsOf(const RunSession& session, std::int32_t column, std::string_view text,
                  std::string_view value) {
  for (const SetName* set : kChangedSets) {
    if (!session.Connection().TableExists(set->table)) continue;
    session.Connection().Execute(
        fmt::format("UPDATE {} SET d{} = {} WHERE row IN (SELECT row FROM OriginalData WHERE d{} = "
                    "{})",
                    set->table, column, value, column, SqlText(text)));
  }
}

void RenewStatistics(const RunSession& session, bool compute) {
  IConnection& connection = session.Connection();
  for (const char* table : {"DataSetStatistics", "DataSetClassStatistics"}) {
    if (!connection.TableExists(table)) continue;
    for (const SetName* set : kChangedSets) {
      connection.Execute(fmt::format("DELETE FROM {} WHERE DataSetId = {}", table, set->type));
    }
  }
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
  throw Failure(ExitCode::kRefused,
                fmt::format("{} {} holds an apostrophe, which the component does not take in a "
                            "value; nothing was changed",
                            what, Quoted(text)));
}

}  // namespace tslm5::host
