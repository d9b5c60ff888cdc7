#include "storage/run_tables.h"

#include <string>

#include "platform/only_errors.h"
#include "storage/run_statements.h"
#include "tslm5/engine/connection_service.h"
#include "tslm5/engine/data_reader.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/object.h"

namespace tslm5 {
namespace {

// Codes and replacements are NUMERIC, so that 2 reads "2" when it is joined to a text.
constexpr std::string_view kTables[] = {
    "CREATE TABLE IF NOT EXISTS OriginalData (row INTEGER PRIMARY KEY)",
    "CREATE TABLE IF NOT EXISTS OriginalDataLabels (Label TEXT, ColumnIndex INTEGER, SetId"
    " INTEGER)",
    "CREATE TABLE IF NOT EXISTS DataSetColumn (Id INTEGER PRIMARY KEY, ColumnIndex INTEGER, Name"
    " TEXT, OriginalLabel TEXT, IsNominal INTEGER, MissingCount INTEGER, Reserved INTEGER,"
    " IsResponse INTEGER)",
    "CREATE TABLE IF NOT EXISTS DataSetLabels (Id INTEGER PRIMARY KEY, SetId INTEGER, [column]"
    " INTEGER, label TEXT)",
    "CREATE VIEW IF NOT EXISTS vw_DataSetName AS SELECT 1 AS Id, 'Training' AS Name UNION ALL"
    " SELECT 2, 'Testing'",
    "CREATE TABLE IF NOT EXISTS DataSetStatistics (Id INTEGER PRIMARY KEY, DataSetId INTEGER,"
    " ColumnIndex INTEGER, Centroid REAL, Medoid REAL, Minimum REAL, Maximum REAL,"
    " StandardDeviation REAL)",
    "CREATE TABLE IF NOT EXISTS DataSetColumnCategories (Name TEXT, NominalValue TEXT, NumericValue"
    " NUMERIC, CategoryCount INTEGER)",
    "CREATE TABLE IF NOT EXISTS ResponseEncoding (PositiveClass TEXT, NewPositiveValue NUMERIC,"
    " NewNegativeValue NUMERIC)",
    "CREATE TABLE IF NOT EXISTS MissingMappings (Id INTEGER PRIMARY KEY, ColumnIndex INTEGER,"
    " MissingCount INTEGER, OriginalValue TEXT, Replacement NUMERIC, ReplacementType INTEGER)",
    "CREATE TABLE IF NOT EXISTS RunParameters (namespace TEXT, element TEXT, intvalue INTEGER,"
    " floatvalue REAL)",
    "CREATE TABLE IF NOT EXISTS DataSetStatisticsForCode (ColumnIndex INTEGER PRIMARY KEY, Average"
    " REAL, StandardDeviation REAL, Minimum REAL, Maximum REAL)",
    "CREATE TABLE IF NOT EXISTS DataSetStatisticsForMissing (ColumnIndex INTEGER PRIMARY KEY,"
    " Average REAL, StandardDeviation REAL, Minimum REAL, Maximum REAL)",
};

std::int32_t ReadVersion(IConnection& connection) {
  const Ref<IDataReader> reader = connection.ExecuteReader("PRAGMA user_version");
  return reader->Read() ? reader->GetInteger(0) : 0;
}

class RunSchema final : public CountedObject<IRunSchema> {
 public:
  std::string_view TypeName() override { return "RunSchema"; }
  void CreateSchema(IUnknown* pRun) override {
    OnlyErrors([&] { CreateRunTables(*ConnectionOf(pRun)); });
  }
  std::int32_t NewestVersion() override { return kRunSchemaVersion; }
  std::int32_t Version(IUnknown* pRun) override {
    return OnlyErrors([&] { return ReadVersion(*ConnectionOf(pRun)); });
  }

 private:
  ~RunSchema() override = default;
};

}  // namespace

void CreateRunTables(IConnection& connection) {
  Transaction transaction(connection);
  for (const std::string_view statement : kTables) connection.Execute(statement);
  if (!connection.TableExists("DataSetClassStatistics")) {
    connection.Execute(run_statement::kCreateClassStatistics);
  }
  if (ReadVersion(connection) < kRunSchemaVersion) {
    connection.Execute("PRAGMA user_version = " + std::to_string(kRunSchemaVersion));
  }
  transaction.Commit();
}

Ref<IConnection> ConnectionOf(IUnknown* run) {
  const Ref<IConnectionService> service = Query<IConnectionService>(run);
  if (!service) throw Error(error_number::kInvalidArgument, "", "A run object was expected.");
  Ref<IConnection> connection = Query<IConnection>(service->GetConnection().ToObject());
  if (!connection) {
    throw Error(error_number::kInvalidArgument, "", "The run object has no connection.");
  }
  return connection;
}

Ref<IRunSchema> MakeRunSchema() {
  return MakeObject<RunSchema>();
}

}  // namespace tslm5
