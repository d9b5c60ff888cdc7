#include "host/preparation/run_metadata.h"

namespace tslm5::host {

std::vector<std::string> LabelsOf(IDataSet& data_set) {
  std::vector<std::string> labels;
  const std::int32_t columns = data_set.Columns();
  labels.reserve(static_cast<std::size_t>(columns));
  for (std::int32_t column = 0; column < columns; ++column) {
    labels.push_back(data_set.GetLabel(column));
  }
  return labels;
}

void ForgetFormerSet(const RunSession& session, std::int32_t type) {
  session.Columns().DropLabels(type);
  session.Figures().DropFigures(type);
}

}  // namespace tslm5::host
