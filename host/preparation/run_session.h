#ifndef TSLM5_HOST_PREPARATION_RUN_SESSION_H_
#define TSLM5_HOST_PREPARATION_RUN_SESSION_H_

#include <cstdint>
#include <string>
#include <vector>

#include "host/program/set_names.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/engine/connection.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/ref.h"
#include "tslm5/preparation/run_preparation.h"
#include "tslm5/run/run_catalog.h"
#include "tslm5/run/run_categories.h"
#include "tslm5/run/run_columns.h"
#include "tslm5/run/run_figures.h"
#include "tslm5/run/run_history.h"
#include "tslm5/run/run_missing_values.h"
#include "tslm5/run/run_originals.h"
#include "tslm5/run/run_parameters.h"

namespace tslm5::host {

/// An open run. Let the datasets go before it.
class RunSession {
 public:
  /// Warns when opening the run has undone a change that a crash had interrupted. Raises `Failure`
  /// for a database that is no run, and what `OpenRun` raises.
  RunSession(const std::string& path, RunOptions::Mode mode);

  const std::string& Path() const { return path_; }
  IConnection& Connection() const { return *connection_; }
  const Ref<IConnectionService>& Run() const { return run_; }

  /// The version noted in the run; 0 for a run without tables.
  std::int32_t SchemaVersion() const;
  /// Makes the tables that the run does not have yet.
  void CreateSchema() const;

  /// What does something to the run that is a step of its history.
  Ref<IRunPreparation> Preparation() const;

  /// The dataset over the table of set `type`; empty when the run has none.
  Ref<IDataSet> OpenDataSet(std::int32_t type) const;
  /// A dataset for set `type`, whether or not its table is there.
  Ref<IDataSet> AttachDataSet(std::int32_t type) const;

  ///@{
  /// What the run keeps.
  IRunCatalog& Sets() const { return *sets_; }
  IRunColumns& Columns() const { return *columns_; }
  IRunCategories& Categories() const { return *categories_; }
  IRunMissingValues& MissingValues() const { return *missing_values_; }
  IRunParameters& Parameters() const { return *parameters_; }
  IRunFigures& Figures() const { return *figures_; }
  IRunHistory& History() const { return *history_; }
  IRunOriginals& Originals() const { return *originals_; }
  ///@}

 private:
  void TellOfRecovery() const;
  /// A set says 0 of what it could not read, which must not pass for an answer.
  bool HasAnswers(IDataSet& data_set, const SetName& set, bool is_loaded) const;
  void RefuseForeignDatabase() const;

  std::string path_;
  Ref<IConnectionService> run_;
  Ref<IConnection> connection_;
  Ref<IRunCatalog> sets_;
  Ref<IRunColumns> columns_;
  Ref<IRunCategories> categories_;
  Ref<IRunMissingValues> missing_values_;
  Ref<IRunParameters> parameters_;
  Ref<IRunFigures> figures_;
  Ref<IRunHistory> history_;
  Ref<IRunOriginals> originals_;
};

/// The columns that the run tells of; none before its first load.
std::vector<RunColumn> ColumnsOf(const RunSession& session);

/// Whether statistics can be computed in the run: those of every set need the training table.
bool HasStatistics(const RunSession& session);

/// Commits a change of the run. Raises `Failure`, file trouble, when the run's path names another
/// file by now, or none: what was committed is in a file that nobody can open any more. One that
/// says that the change is stored when the system cannot tell, and what the engine raises.
void CommitChange(const RunSession& session, Transaction& transaction);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_SESSION_H_
