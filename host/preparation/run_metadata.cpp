#include "host/preparation/run_metadata.h"

#include "tslm5/contracts/codes.h"

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

void DropTestingSamples(const RunSession& session) {
  if (!session.Sets().HasSet(data_set_type::kTimeSeriesTesting)) return;
  session.Sets().DropSet(data_set_type::kTimeSeriesTesting);
  ForgetFormerSet(session, data_set_type::kTimeSeriesTesting);
}

}  // namespace tslm5::host
