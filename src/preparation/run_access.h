#ifndef TSLM5_PREPARATION_RUN_ACCESS_H_
#define TSLM5_PREPARATION_RUN_ACCESS_H_

#include <cstdint>
#include <string>
#include <vector>

#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/feedback.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/platform/ref.h"
#include "tslm5/run/run_catalog.h"
#include "tslm5/run/run_columns.h"
#include "tslm5/run/run_figures.h"
#include "tslm5/run/run_history.h"
#include "tslm5/run/run_originals.h"
#include "tslm5/run/run_parameters.h"

namespace tslm5 {

/// The run that the faces of a preparation work on: its connection, its catalogue and its sets.
class RunAccess {
 public:
  /// Raises 41001 when `run` is no run; the former one stays then.
  void Open(IUnknown* run);

  /// Raises 41001 before `Open`. All others REQUIRE that it was called once.
  IConnection& Connection() const;
  IRunCatalog& Sets() const { return *sets_; }
  IRunColumns& Columns() const { return *columns_; }
  IRunFigures& Figures() const { return *figures_; }
  IRunHistory& History() const { return *history_; }
  IRunOriginals& Originals() const { return *originals_; }
  IRunParameters& Parameters() const { return *parameters_; }
  Variant Run() const { return Variant(run_); }

  /// The dataset over the table of set `type`; empty when the run has none.
  Ref<IDataSet> OpenDataSet(std::int32_t type) const;
  /// The columns that the run tells of.
  std::vector<RunColumn> ReadColumns() const;
  /// Drops the labels and the statistics of the former records of set `type`.
  void DropNotesOf(std::int32_t type) const;

 private:
  Ref<IConnectionService> run_;
  Ref<IConnection> connection_;
  Ref<IRunCatalog> sets_;
  Ref<IRunColumns> columns_;
  Ref<IRunFigures> figures_;
  Ref<IRunHistory> history_;
  Ref<IRunOriginals> originals_;
  Ref<IRunParameters> parameters_;
};

/// The labels of a dataset in column order; without labels the generated names.
std::vector<std::string> LabelsOf(IDataSet& data_set);

/// Raises 41028, the run is not in a state for the operation.
[[noreturn]] void RaiseNotPossible(const std::string& message);

/// Computes the statistics of a set. Raises 41029 when `feedback`, which may be null, stops it.
void ComputeStatistics(IDataSet& data_set, IFeedback* feedback);

}  // namespace tslm5

#endif  // TSLM5_PREPARATION_RUN_ACCESS_H_
