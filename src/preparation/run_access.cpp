#include "preparation/run_access.h"

#include "datasetlite/data_set_lite.h"
#include "run/run_catalog_object.h"
#include "storage/run_tables.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/time_series.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

constexpr const char* kSource = "RunPreparation";

}  // namespace

void RunAccess::Open(IUnknown* run) {
  const auto catalog = MakeRunCatalog().As<IRunCatalog>();
  catalog->Open(run);
  connection_ = ConnectionOf(run);
  run_ = Query<IConnectionService>(run);
  sets_ = catalog;
  columns_ = catalog.As<IRunColumns>();
  figures_ = catalog.As<IRunFigures>();
  history_ = catalog.As<IRunHistory>();
  originals_ = catalog.As<IRunOriginals>();
  parameters_ = catalog.As<IRunParameters>();
}

IConnection& RunAccess::Connection() const {
  if (!connection_) {
    throw Error(error_number::kInvalidArgument, kSource, "there is no run; Open names one");
  }
  return *connection_;
}

Ref<IDataSet> RunAccess::OpenDataSet(std::int32_t type) const {
  if (!sets_->HasSet(type)) return nullptr;
  auto data_set = MakeDataSetLite().As<IDataSet>();
  const bool is_loaded = data_set.As<IPersistable>()->Load(Run(), Variant(type));
  const bool is_read = is_loaded && data_set->Columns() == sets_->SetColumns(type) &&
                       (data_set->Rows() > 0 || !sets_->HasRecords(type));
  if (!is_read) throw Error(error_number::kFileAccess, kSource, "a set of the run cannot be read");
  // The columns of a run tell of its embedded records; a series beside them has its own label.
  if (data_set->Columns() == 1 && ReadColumns().size() > 1) {
    data_set.As<ITimeSeriesDataSet>()->LoadTimeSeriesLabel();
  }
  return data_set;
}

std::vector<RunColumn> RunAccess::ReadColumns() const {
  std::vector<RunColumn> columns;
  columns_->ReadColumns(columns);
  return columns;
}

void RunAccess::DropNotesOf(std::int32_t type) const {
  columns_->DropLabels(type);
  figures_->DropFigures(type);
}

std::vector<std::string> LabelsOf(IDataSet& data_set) {
  std::vector<std::string> labels;
  const std::int32_t columns = data_set.Columns();
  labels.reserve(static_cast<std::size_t>(columns));
  for (std::int32_t column = 0; column < columns; ++column) {
    labels.push_back(data_set.GetLabel(column));
  }
  return labels;
}

void RaiseNotPossible(const std::string& message) {
  throw Error(error_number::kNotPossible, kSource, message);
}

void ComputeStatistics(IDataSet& data_set, IFeedback* feedback) {
  data_set.CalculateStatistics(feedback);
  if (feedback != nullptr && !feedback->ContinueFlag()) {
    throw Error(error_number::kStopped, kSource, "stopped by its caller; nothing was changed");
  }
}

}  // namespace tslm5
