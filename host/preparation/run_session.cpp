#include "host/preparation/run_session.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <ctime>
#include <exception>

#include "host/program/failure.h"
#include "host/program/open_files.h"
#include "host/program/set_names.h"
#include "host/program/shown_text.h"
#include "host/program/terminal.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/contracts/time_series.h"
#include "tslm5/engine/run_recovery.h"

namespace tslm5::host {
namespace {

constexpr int kMostTries = 3;

Ref<IRunSchema> Schema() {
  return CreateObject<IRunSchema>(class_id::kRunSchema);
}

RunOptions Options(RunOptions::Mode mode) {
  RunOptions options;
  options.mode = mode;
  options.newest_schema_version = Schema()->NewestVersion();
  return options;
}

}  // namespace

RunSession::RunSession(const std::string& path, RunOptions::Mode mode)
    : path_(path),
      run_(OpenRun(path, Options(mode))),
      connection_(Query<IConnection>(run_->GetConnection().ToObject())),
      sets_(CreateObject<IRunCatalog>(class_id::kRunCatalog)),
      columns_(sets_.As<IRunColumns>()),
      categories_(sets_.As<IRunCategories>()),
      missing_values_(sets_.As<IRunMissingValues>()),
      parameters_(sets_.As<IRunParameters>()),
      figures_(sets_.As<IRunFigures>()),
      history_(sets_.As<IRunHistory>()),
      originals_(sets_.As<IRunOriginals>()) {
  sets_->Open(run_.get());
  TellOfRecovery();
  RefuseForeignDatabase();
}

void RunSession::TellOfRecovery() const {
  const auto recovery = run_.As<IRunRecovery>();
  if (!recovery || !recovery->WasRecovered()) return;
  const auto time = static_cast<std::time_t>(recovery->InterruptedAt());
  Warn(
      fmt::format("{} held a change that was interrupted at {:%Y-%m-%dT%H:%M:%SZ}; it is undone, "
                  "and the run is as it was before that change",
                  Escaped(path_), fmt::gmtime(time)));
}

void RunSession::RefuseForeignDatabase() const {
  if (SchemaVersion() > 0 || !sets_->IsForeign()) return;
  throw Failure(ExitCode::kTrouble,
                fmt::format("{} is a database, but not that of a run", Escaped(path_)));
}

std::int32_t RunSession::SchemaVersion() const {
  return Schema()->Version(run_.get());
}

void RunSession::CreateSchema() const {
  Schema()->CreateSchema(run_.get());
}

Ref<IRunPreparation> RunSession::Preparation() const {
  auto preparation = CreateObject<IRunPreparation>(class_id::kRunPreparation);
  preparation->Open(run_.get());
  return preparation;
}

bool RunSession::HasAnswers(IDataSet& data_set, const SetName& set, bool is_loaded) const {
  const std::int32_t columns = sets_->SetColumns(set.type);
  if (!is_loaded) return columns == 0;
  return data_set.Columns() == columns && (data_set.Rows() > 0 || !sets_->HasRecords(set.type));
}

Ref<IDataSet> RunSession::OpenDataSet(std::int32_t type) const {
  const SetName& set = *FindSet(type);
  auto data_set = CreateObject<IDataSet>(class_id::kDataSetLite);
  bool is_loaded = false;
  bool has_answers = false;
  for (int i = 0; i < kMostTries && !has_answers; ++i) {  // another program may change the run
    is_loaded = data_set.As<IPersistable>()->Load(Variant(run_), Variant(type));
    has_answers = HasAnswers(*data_set, set, is_loaded);
  }
  if (!has_answers) {
    throw Failure(ExitCode::kTrouble,
                  fmt::format("the {} set of {} cannot be read", set.name, Escaped(path_)));
  }
  if (!is_loaded) return nullptr;
  // The column records of a run tell of its embedded records; a series beside them has its own
  // label.
  if (data_set->Columns() == 1 && ColumnsOf(*this).size() > 1) {
    data_set.As<ITimeSeriesDataSet>()->LoadTimeSeriesLabel();
  }
  return data_set;
}

Ref<IDataSet> RunSession::AttachDataSet(std::int32_t type) const {
  if (Ref<IDataSet> data_set = OpenDataSet(type)) return data_set;
  auto data_set = CreateObject<IDataSet>(class_id::kDataSetLite);
  data_set.As<IConstructor>()->Init(VariantArray({Variant(run_), Variant(type)}));
  return data_set;
}

std::vector<RunColumn> ColumnsOf(const RunSession& session) {
  std::vector<RunColumn> columns;
  session.Columns().ReadColumns(columns);
  return columns;
}

bool HasStatistics(const RunSession& session) {
  return session.Sets().HasSet(data_set_type::kTraining);
}

void CommitChange(const RunSession& session, Transaction& transaction) {
  transaction.Commit();
  try {
    if (IsOpenFile(session.Path())) return;
  } catch (const std::exception& error) {
    throw Failure(
        ExitCode::kTrouble,
        fmt::format("the change is stored in {}, but whether the file still has that name "
                    "cannot be seen: {}; look with tslm5 info before doing it again",
                    Escaped(session.Path()), error.what()));
  }
  throw Failure(ExitCode::kTrouble,
                fmt::format("{} was removed or replaced while this command was changing it: what "
                            "was stored went with the former file; do it again",
                            Escaped(session.Path())));
}

}  // namespace tslm5::host
