// The tables of a new run.
#include "storage/run_tables.h"

#include <gtest/gtest.h>

#include "platform/raised.h"
#include "platform/test_objects.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

struct TableCase {
  std::string_view kind;
  std::string_view name;
  std::string_view columns;
};

// Every table and view, its columns in order.
constexpr TableCase kTables[] = {
    {"table", "DataSetClassStatistics",
     "Id,DataSetId,ColumnId,Class,Centroid,Medoid,Minimum,Maximum,RecordCount"},
    {"table", "DataSetColumn",
     "Id,ColumnIndex,Name,OriginalLabel,IsNominal,MissingCount,Reserved,IsResponse"},
    {"table", "DataSetColumnCategories", "Name,NominalValue,NumericValue,CategoryCount"},
    {"table", "DataSetLabels", "Id,SetId,column,label"},
    {"table", "DataSetStatistics",
     "Id,DataSetId,ColumnIndex,Centroid,Medoid,Minimum,Maximum,StandardDeviation"},
    {"table", "DataSetStatisticsForCode", "ColumnIndex,Average,StandardDeviation,Minimum,Maximum"},
    {"table", "DataSetStatisticsForMissing",
     "ColumnIndex,Average,StandardDeviation,Minimum,Maximum"},
    {"table", "MissingMappings",
     "Id,ColumnIndex,MissingCount,OriginalValue,Replacement,ReplacementType"},
    {"table", "OriginalData", "row"},
    {"table", "OriginalDataLabels", "Label,ColumnIndex,SetId"},
    {"table", "ResponseEncoding", "PositiveClass,NewPositiveValue,NewNegativeValue"},
    {"table", "RunParameters", "namespace,element,intvalue,floatvalue"},
    {"view", "vw_DataSetName", "Id,Name"},
};

TEST(RunTables, AreAllMadeWithTheirColumnsInOrder) {
  const TestRun run;
  CreateRunTables(*run.Connection());
  Lines names;
  for (const TableCase& table : kTables) {
    names.push_back(std::string(table.kind) + "|" + std::string(table.name));
    EXPECT_EQ(run.ColumnNames(table.name), table.columns) << table.name;
  }
  EXPECT_EQ(run.Select("SELECT type, name FROM sqlite_master WHERE type <> 'index' ORDER BY name"),
            names);
}

TEST(RunTables, NameTheirKeys) {
  const TestRun run;
  CreateRunTables(*run.Connection());
  EXPECT_EQ(
      run.Select("SELECT m.name, t.name FROM sqlite_master m, pragma_table_info(m.name) t WHERE "
                 "m.type = 'table' AND t.pk > 0 AND t.type = 'INTEGER' ORDER BY m.name"),
      Lines({"DataSetClassStatistics|Id", "DataSetColumn|Id", "DataSetLabels|Id",
             "DataSetStatistics|Id", "DataSetStatisticsForCode|ColumnIndex",
             "DataSetStatisticsForMissing|ColumnIndex", "MissingMappings|Id", "OriginalData|row"}));
}

TEST(RunTables, KeepClassStatisticsByExactlyThisText) {
  const TestRun run;
  CreateRunTables(*run.Connection());
  EXPECT_EQ(run.Select("SELECT sql FROM sqlite_master WHERE name = 'DataSetClassStatistics'"),
            Lines({"CREATE TABLE DataSetClassStatistics (Id INTEGER, DataSetId INTEGER, ColumnId "
                   "INTEGER, Class FLOAT, Centroid float NOT NULL, Medoid float NOT NULL, Minimum "
                   "float NOT NULL, Maximum float NOT NULL, RecordCount INTEGER NOT NULL, primary "
                   "key (Id))"}));
}

TEST(RunTables, AreEmptyButForTheNamesOfTheSets) {
  const TestRun run;
  CreateRunTables(*run.Connection());
  for (const TableCase& table : kTables) {
    if (table.kind == "table") {
      EXPECT_EQ(run.TableRows(table.name), Lines()) << table.name;
    }
  }
  EXPECT_EQ(run.TableRows("vw_DataSetName"), Lines({"1|Training", "2|Testing"}));
}

TEST(RunTables, MadeTwiceKeepWhatTheyHold) {
  const TestRun run;
  CreateRunTables(*run.Connection());
  const Lines schema = run.Schema();
  run.Execute("INSERT INTO RunParameters VALUES ('data', 'Merging', 1, NULL)");
  CreateRunTables(*run.Connection());
  EXPECT_EQ(run.Schema(), schema);
  EXPECT_EQ(run.TableRows("RunParameters"), Lines({"data|Merging|1|NULL"}));
  EXPECT_FALSE(run.InTransaction());
}

TEST(RunTables, LeaveAnOlderTableAsItIs) {
  const TestRun run;
  run.Execute("CREATE TABLE OriginalData (d0 TEXT, row INTEGER PRIMARY KEY)");
  run.Execute("INSERT INTO OriginalData VALUES ('red', 4)");
  run.Execute("CREATE TABLE DataSetClassStatistics (old INTEGER)");
  CreateRunTables(*run.Connection());
  EXPECT_EQ(run.TableRows("OriginalData"), Lines({"red|4"}));
  EXPECT_EQ(run.ColumnNames("DataSetClassStatistics"), "old");
  EXPECT_EQ(run.ColumnNames("MissingMappings"), kTables[7].columns);
}

TEST(RunTables, NoteTheSchemaVersion) {
  const TestRun run;
  EXPECT_EQ(run.Select("PRAGMA user_version"), Lines({"0"}));
  CreateRunTables(*run.Connection());
  EXPECT_EQ(run.Select("PRAGMA user_version"), Lines({"1"}));
}

TEST(RunTables, DoNotLowerANewerVersion) {
  const TestRun run;
  run.Execute("PRAGMA user_version = 9");
  CreateRunTables(*run.Connection());
  EXPECT_EQ(run.Select("PRAGMA user_version"), Lines({"9"}));
}

TEST(RunTables, AreMadeAllOrNone) {
  const TestRun all;
  CreateRunTables(*Query<IConnection>(all.Service()->GetConnection().ToObject()));
  const std::size_t sent = all.Log().statements.size();
  ASSERT_EQ(all.Log().statements.back(), "COMMIT");
  for (std::size_t failing = 1; failing <= sent; ++failing) {
    SCOPED_TRACE(all.Log().statements[failing - 1]);
    const TestRun run;
    run.Log().FailAt(failing, Error(13, "TSLMRep5", "database or disk is full"));
    const auto connection = Query<IConnection>(run.Service()->GetConnection().ToObject());
    EXPECT_EQ(RaisedNumber([&connection] { CreateRunTables(*connection); }), 13);
    EXPECT_EQ(run.Schema(), Lines());
    EXPECT_EQ(run.Select("PRAGMA user_version"), Lines({"0"}));
    EXPECT_FALSE(run.InTransaction());
  }
}

TEST(RunSchema, MakesTheTablesOfARun) {
  const TestRun run;
  const Ref<IRunSchema> schema = MakeRunSchema();
  EXPECT_EQ(schema->TypeName(), "RunSchema");
  EXPECT_EQ(schema->NewestVersion(), 1);
  EXPECT_EQ(schema->Version(run.Service().get()), 0);
  schema->CreateSchema(run.Service().get());
  EXPECT_EQ(schema->Version(run.Service().get()), 1);
  EXPECT_EQ(run.ColumnNames("ResponseEncoding"), "PositiveClass,NewPositiveValue,NewNegativeValue");
}

TEST(RunSchema, TakesOnlyARun) {
  const Ref<IRunSchema> schema = MakeRunSchema();
  EXPECT_EQ(RaisedNumber([&schema] { schema->CreateSchema(nullptr); }), 41001);
  EXPECT_EQ(RaisedNumber([&schema] { schema->Version(MakeObject<OneFace>().get()); }), 41001);
}

/// A run object that lends something else than a connection.
class OddRun final : public CountedObject<IConnectionService> {
 public:
  explicit OddRun(Variant lent) : lent_(std::move(lent)) {}
  std::string_view TypeName() override { return "Run"; }
  Variant GetConnection() override { return lent_; }

 private:
  ~OddRun() override = default;
  Variant lent_;
};

TEST(ConnectionOf, ARunThatLendsNoConnectionRaises) {
  for (const Variant& lent : {Variant(Ref<IUnknown>()), Variant(MakeObject<OneFace>())}) {
    const auto run = MakeObject<OddRun>(lent);
    const Error error = Raised([&run] { ConnectionOf(run.get()); });
    EXPECT_EQ(error.Number(), 41001);
    EXPECT_EQ(error.Description(), "The run object has no connection.");
  }
}

TEST(ConnectionOf, ARunGivesItsConnection) {
  const TestRun run;
  EXPECT_EQ(Query<IUnknown>(ConnectionOf(run.Service().get())),
            run.Service()->GetConnection().ToObject());
  EXPECT_EQ(Raised([] { ConnectionOf(nullptr); }).Description(), "A run object was expected.");
}

}  // namespace
}  // namespace tslm5
