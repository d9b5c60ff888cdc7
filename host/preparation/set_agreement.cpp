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
  const std::int32_t other_columns = session.Sets().SetColumns(other.type);
  if (other_columns == 0 || other_columns == static_cast<std::int32_t>(columns)) return;
  Refuse(
      fmt::format("the {} set has {} columns, but the {} set of the run has {}; both must "
                  "have the same",
                  set.name, columns, other.name, other_columns));
}

std::optional<std::string> CompareLabels(const RunSession& session,
                                         const std::vector<std::string>& labels,
                                         const SetName& set) {
  const std::vector<RunColumn> columns = ColumnsOf(session);
  for (std::size_t i = 0; i < labels.size() && i < columns.size(); ++i) {
    const std::string& kept = columns[i].label;
    if (kept == labels[i]) continue;
    return fmt::format("column {} is called {} in the {} set, but {} in the run", i + 1,
                       Quoted(labels[i]), set.name, Quoted(kept));
  }
  return std::nullopt;
}

}  // namespace tslm5::host
