#include "host/preparation/store_values.h"

#include "host/preparation/load_watcher.h"
#include "host/preparation/prepared_set.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"

namespace tslm5::host {

void StoreValues(IDataSet& data_set, std::int32_t type, const std::vector<double>& values,
                 std::size_t columns, const std::vector<std::string>& labels, Progress& progress) {
  const auto source = MakeObject<PreparedSet>(values, columns, labels);
  bool is_stored = false;
  try {
    const LoadWatcher watcher(data_set, progress);
    is_stored = data_set.SetData(source.get(), type);
  } catch (const Error&) {
    StopIfInterrupted();
    throw;
  }
  StopIfInterrupted();
  if (!is_stored) throw Failure(ExitCode::kTrouble, "the prepared records could not be stored");
}

}  // namespace tslm5::host
