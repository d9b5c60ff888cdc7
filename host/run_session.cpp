#include "host/run_session.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "host/failure.h"
#include "host/shown_text.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5::host {
namespace {

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
    : run_(OpenRun(path, Options(mode))),
      connection_(Query<IConnection>(run_->GetConnection().ToObject())) {
  RefuseForeignDatabase(path);
}

void RunSession::RefuseForeignDatabase(const std::string& path) const {
  if (SchemaVersion() > 0 || connection_->TableExists("DataSetColumn")) return;
  if (ReadInteger("SELECT COUNT(*) FROM sqlite_master") == 0) return;
  throw Failure(ExitCode::kTrouble,
                fmt::format("{} is a database, but not that of a run", Escaped(path)));
}

std::int32_t RunSession::SchemaVersion() const {
  return Schema()->Version(run_.get());
}

void RunSession::CreateSchema() const {
  Schema()->CreateSchema(run_.get());
}

Ref<IDataSet> RunSession::OpenDataSet(std::int32_t type) const {
  auto data_set = CreateObject<IDataSet>(class_id::kDataSetLite);
  if (!data_set.As<IPersistable>()->Load(Variant(run_), Variant(type))) return nullptr;
  // The column records of a run tell of its embedded records; a series beside them has its own
  // label.
  if (data_set->Columns() == 1 && connection_->TableExists("DataSetColumn") &&
      ReadInteger("SELECT COUNT(*) > 1 FROM DataSetColumn") != 0) {
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

std::int32_t RunSession::ReadInteger(std::string_view sql) const {
  const Ref<IDataReader> reader = connection_->ExecuteReader(sql);
  const std::int32_t value = reader->Read() ? reader->GetInteger(0) : 0;
  reader->Close();
  return value;
}

std::int32_t RunSession::ColumnsOf(std::string_view table) const {
  if (!connection_->TableExists(table)) return 0;
  const Ref<IDataReader> reader =
      connection_->ExecuteReader(fmt::format("SELECT * FROM {} WHERE 0 = 1", table));
  const std::int32_t fields = reader->FieldCount();
  reader->Close();
  return fields - 1;
}

bool HasStatistics(const RunSession& session) {
  return session.Connection().TableExists("TrainingSet");
}

Transaction::~Transaction() {
  if (!is_open_) return;
  try {
    connection_.RollbackTrans();
  } catch (const Error&) {  // the engine has rolled back by itself
  }
}

void Transaction::Commit() {
  connection_.CommitTrans();
  is_open_ = false;
}

NewRunFile::NewRunFile(std::string path) : path_(std::move(path)) {
  struct stat status {};
  must_go_ = ::stat(path_.c_str(), &status) != 0 && errno == ENOENT;
}

NewRunFile::~NewRunFile() {
  if (must_go_) ::unlink(path_.c_str());
}

}  // namespace tslm5::host
