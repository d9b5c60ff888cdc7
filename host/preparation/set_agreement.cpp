#include "host/preparation/set_agreement.h"

#include <fmt/format.h>

#include "host/program/failure.h"
#include "host/program/shown_text.h"

namespace tslm5::host {

const SetName& OtherSet(const SetName& set) {
  return *FindSet(set.type == data_set_type::kTraining ? "testing" : "training");
}

void RequireSameColumns(const RunSession& session, const SetName& set, std::size_t columns) {
  const SetName& other = OtherSet(set);
  const std::int32_t other_columns = session.ColumnsOf(other.table);
  if (other_columns == 0 || other_columns == static_cast<std::int32_t>(columns)) return;
  throw Failure(
      ExitCode::kRefused,
      fmt::format("the {} set has {} columns, but the {} set of the run has {}; both must "
                  "have the same",
                  set.name, columns, other.name, other_columns));
}

std::optional<std::string> CompareLabels(const RunSession& session,
                                         const std::vector<std::string>& labels,
                                         const SetName& set) {
  std::optional<std::string> warning;
  const Ref<IDataReader> reader =
      session.Connection().ExecuteReader("SELECT OriginalLabel FROM DataSetColumn ORDER BY Id");
  for (std::size_t column = 0; column < labels.size() && reader->Read(); ++column) {
    const std::string kept = reader->GetString(0);
    if (kept == labels[column]) continue;
    warning = fmt::format("column {} is called {} in the {} set, but {} in the run", column + 1,
                          Quoted(labels[column]), set.name, Quoted(kept));
    break;
  }
  reader->Close();
  return warning;
}

}  // namespace tslm5::host
