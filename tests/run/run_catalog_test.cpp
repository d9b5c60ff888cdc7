#include <limits>
#include <map>

#include "run/run_catalog_fixture.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kTraining = data_set_type::kTraining;
constexpr std::int32_t kTesting = data_set_type::kTesting;

class RunCatalogTest : public RunCatalogFixture {};

template <class Operation>
std::int32_t NumberRaisedBy(Operation operation) {
  try {
    operation();
  } catch (const Error& error) {
    return error.Number();
  }
  return 0;
}

TEST_F(RunCatalogTest, EveryFaceLeadsToEveryOther) {
  const auto root = Ref<IUnknown>(object_);
  for (const Uuid& id :
       {IRunCatalog::kId, IRunColumns::kId, IRunCategories::kId, IRunMissingValues::kId,
        IRunParameters::kId, IRunFigures::kId, IRunHistory::kId, IRunOriginals::kId}) {
    void* face = nullptr;
    ASSERT_TRUE(root->QueryInterface(id, &face));
    const auto held = Ref<IUnknown>::Adopt(static_cast<IUnknown*>(face));
    EXPECT_EQ(held.As<IUnknown>().get(), root.get());
    EXPECT_EQ(held->TypeName(), "RunCatalog");
  }
}

TEST(RunCatalogWithoutARun, RaisesUntilItIsOpened) {
  const Ref<IUnknown> object = MakeRunCatalog();
  EXPECT_EQ(NumberRaisedBy([&] { object.As<IRunCatalog>()->HasSet(kTraining); }), 41001);
  std::vector<RunColumn> columns;
  EXPECT_EQ(NumberRaisedBy([&] { object.As<IRunColumns>()->ReadColumns(columns); }), 41001);
}

TEST_F(RunCatalogTest, KeepsItsRunWhenItIsGivenNone) {
  EXPECT_EQ(NumberRaisedBy([&] { Catalog().Open(object_.get()); }), 41001);
  EXPECT_FALSE(Catalog().HasSet(kTraining));
}

TEST_F(RunCatalogTest, RefusesATypeThatIsNoSet) {
  for (const std::int32_t type : {0, 4, 100, 1000}) {
    EXPECT_EQ(NumberRaisedBy([&] { Catalog().HasSet(type); }), 9) << type;
  }
}

TEST(RunCatalogOfAnyDatabase, TellsAForeignOneFromAnEmptyOne) {
  const TestRun run;
  const Ref<IUnknown> object = MakeRunCatalog();
  const auto catalog = object.As<IRunCatalog>();
  catalog->Open(run.Service().get());
  EXPECT_FALSE(catalog->IsForeign());
  run.Execute("CREATE TABLE Birds (name TEXT)");
  EXPECT_TRUE(catalog->IsForeign());
  MakeRunSchema()->CreateSchema(run.Service().get());
  EXPECT_FALSE(catalog->IsForeign());
}

TEST(RunCatalogOfAnyDatabase, ReadsTablesThatAreNotThereAsEmpty) {
  const TestRun run;
  const Ref<IUnknown> object = MakeRunCatalog();
  object.As<IRunCatalog>()->Open(run.Service().get());
  EXPECT_EQ(object.As<IRunCatalog>()->SetColumns(kTraining), 0);
  EXPECT_EQ(object.As<IRunCatalog>()->LastKey(kTraining), 0);
  EXPECT_FALSE(object.As<IRunCatalog>()->SetsShareKeys());
  EXPECT_FALSE(object.As<IRunCatalog>()->HasBackup());
  std::vector<RunColumn> columns(1);
  object.As<IRunColumns>()->ReadColumns(columns);
  EXPECT_THAT(columns, IsEmpty());
  std::vector<RunCategory> categories(1);
  object.As<IRunCategories>()->ReadCategories(categories);
  EXPECT_THAT(categories, IsEmpty());
  ResponseEncoding encoding;
  EXPECT_FALSE(object.As<IRunCategories>()->ReadEncoding(encoding));
  std::vector<RunToken> tokens(1);
  object.As<IRunMissingValues>()->ReadTokens(tokens);
  EXPECT_THAT(tokens, IsEmpty());
  EXPECT_EQ(object.As<IRunParameters>()->ReadWhole("data", "Merging"), 0);
  std::vector<HistoryStep> steps(1);
  object.As<IRunHistory>()->ReadSteps(steps);
  EXPECT_THAT(steps, IsEmpty());
  EXPECT_EQ(object.As<IRunOriginals>()->Columns(), 0);
}

TEST_F(RunCatalogTest, TellsTheSetsAndTheirKeys) {
  MakeSet("TrainingSet", {"1.5, 1", "NULL, 2", "'oak', 4"});
  MakeSet("TestingSet", {});
  EXPECT_TRUE(Catalog().HasSet(kTraining));
  EXPECT_TRUE(Catalog().HasRecords(kTraining));
  EXPECT_FALSE(Catalog().HasRecords(kTesting));
  EXPECT_EQ(Catalog().SetColumns(kTraining), 1);
  EXPECT_EQ(Catalog().FirstKey(kTraining), 1);
  EXPECT_EQ(Catalog().LastKey(kTraining), 4);
  EXPECT_EQ(Catalog().FirstKey(kTesting), 0);
  std::vector<std::int32_t> counts;
  Catalog().CountMissing(kTraining, counts);
  EXPECT_THAT(counts, ElementsAre(1));
  Catalog().CountTexts(kTraining, counts);
  EXPECT_THAT(counts, ElementsAre(1));
}

TEST_F(RunCatalogTest, MovesKeysThatOverlapThemselves) {
  MakeSet("TestingSet", {"10, 1", "20, 2", "30, 3"});
  Catalog().MoveKeys(kTesting, 1);
  EXPECT_THAT(Rows("TestingSet"), ElementsAre("10|2", "20|3", "30|4"));
  Catalog().MoveKeys(kTesting, -1);
  Catalog().WriteKeys(kTesting, {2, 3, 7});
  EXPECT_THAT(Rows("TestingSet"), ElementsAre("10|2", "20|3", "30|7"));
  std::vector<std::int32_t> keys;
  Catalog().ReadKeys(kTesting, keys);
  EXPECT_THAT(keys, ElementsAre(2, 3, 7));
}

TEST_F(RunCatalogTest, WritesKeysAsAWholeOrNotAtAll) {
  MakeSet("TestingSet", {"10, 1", "20, 2"});
  EXPECT_NE(NumberRaisedBy([&] { Catalog().WriteKeys(kTesting, {5, 5, 9}); }), 0);
  EXPECT_THAT(Rows("TestingSet"), ElementsAre("10|1", "20|2"));
  EXPECT_FALSE(run_.Connection()->TableExists("RowKeys"));
}

TEST_F(RunCatalogTest, TellsWhetherSetsShareKeys) {
  MakeSet("TrainingSet", {"1, 1", "2, 2"});
  MakeSet("TestingSet", {"3, 3"});
  EXPECT_FALSE(Catalog().SetsShareKeys());
  Catalog().MoveKeys(kTesting, -1);
  EXPECT_TRUE(Catalog().SetsShareKeys());
}

TEST_F(RunCatalogTest, DropsASet) {
  MakeSet("TimeSeriesTestingSet", {"1, 1"});
  Catalog().DropSet(data_set_type::kTimeSeriesTesting);
  Catalog().DropSet(data_set_type::kTimeSeriesTesting);
  EXPECT_FALSE(Catalog().HasSet(data_set_type::kTimeSeriesTesting));
}

TEST_F(RunCatalogTest, CountsTheBackup) {
  MakeSet("TrainingSetBackup", {"1, 1", "2, 2"});
  EXPECT_TRUE(Catalog().HasBackup());
  EXPECT_EQ(Catalog().BackupRows(), 2);
}

TEST_F(RunCatalogTest, WritesAndReadsColumns) {
  auto& columns = Face<IRunColumns>();
  columns.WriteColumns({{"O'Brien", true, 3, false}, {"weight", false, 0, false}}, true);
  std::vector<RunColumn> read;
  columns.ReadColumns(read);
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].label, "O'Brien");
  EXPECT_TRUE(read[0].is_nominal);
  EXPECT_EQ(read[0].missing, 3);
  EXPECT_FALSE(read[0].is_response);
  EXPECT_EQ(read[1].label, "weight");
  EXPECT_TRUE(read[1].is_response);
  columns.WriteMissingCounts({1, 2});
  EXPECT_THAT(Rows("DataSetColumn"),
              ElementsAre("1|0|d0|O'Brien|1|1|0|0", "2|1|d1|weight|0|2|0|1"));
}

TEST_F(RunCatalogTest, CallsColumnsWithoutLabelsByTheirNames) {
  auto& columns = Face<IRunColumns>();
  columns.WriteColumns({{"a", false, 0, false}, {"b", false, 0, false}}, false);
  std::vector<RunColumn> read;
  columns.ReadColumns(read);
  EXPECT_EQ(read[1].label, "d1");
  std::vector<std::string> labels;
  columns.ReadOriginalLabels(labels);
  EXPECT_THAT(labels, ElementsAre("a", "b"));
  columns.WriteOriginalLabels({"x"});
  columns.ReadOriginalLabels(labels);
  EXPECT_THAT(labels, ElementsAre("x"));
}

TEST_F(RunCatalogTest, KeepsTheLabelOfASeriesInTheTestingSetsPlace) {
  auto& columns = Face<IRunColumns>();
  EXPECT_FALSE(columns.HasLabels(kTesting));
  columns.WriteSeriesLabel("first");
  columns.WriteSeriesLabel("tide");
  EXPECT_TRUE(columns.HasLabels(kTesting));
  EXPECT_FALSE(columns.HasLabels(kTraining));
  EXPECT_THAT(Rows("DataSetLabels"), ElementsAre("1|2|0|tide"));
  columns.DropLabels(kTesting);
  EXPECT_FALSE(columns.HasLabels(kTesting));
}

TEST_F(RunCatalogTest, WritesAndReadsCategories) {
  auto& categories = Face<IRunCategories>();
  categories.WriteCategories({{10, "ten", 2.5, 1}, {2, "O'Brien", 1.0, 4}, {2, "elm", 0.0, 3}});
  std::vector<RunCategory> read;
  categories.ReadCategories(read);
  ASSERT_EQ(read.size(), 3u);
  EXPECT_EQ(read[0].text, "O'Brien");
  EXPECT_EQ(read[0].code, 1.0);
  EXPECT_EQ(read[0].count, 4);
  EXPECT_EQ(read[1].text, "elm");
  EXPECT_EQ(read[2].column, 10);
  EXPECT_EQ(read[2].code, 2.5);
}

TEST_F(RunCatalogTest, OrdersTheCategoriesOfAColumnByTextOrByNumber) {
  auto& categories = Face<IRunCategories>();
  categories.WriteCategories({{1, "9", 0.0, 1}, {1, "10", 1.0, 1}, {0, "5", 2.0, 1}});
  std::vector<RunCategory> read;
  categories.ReadColumnCategories(1, false, read);
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].text, "10");
  EXPECT_EQ(read[0].column, 1);
  categories.ReadColumnCategories(1, true, read);
  EXPECT_EQ(read[0].text, "9");
}

TEST_F(RunCatalogTest, KeepsOneEncoding) {
  auto& categories = Face<IRunCategories>();
  ResponseEncoding encoding{"untouched", 7.0, 8.0};
  EXPECT_FALSE(categories.ReadEncoding(encoding));
  EXPECT_EQ(encoding.positive_class, "untouched");
  categories.WriteEncoding({"no", {}, {}});
  categories.WriteEncoding({"O'Brien", 1.0, -1.0});
  ASSERT_TRUE(categories.ReadEncoding(encoding));
  EXPECT_EQ(encoding.positive_class, "O'Brien");
  EXPECT_EQ(encoding.positive, 1.0);
  EXPECT_EQ(encoding.negative, -1.0);
  EXPECT_THAT(Rows("ResponseEncoding"), ElementsAre("O'Brien|1|-1"));
  categories.DropEncoding();
  EXPECT_THAT(Rows("ResponseEncoding"), IsEmpty());
}

TEST_F(RunCatalogTest, WritesAndReadsTokens) {
  auto& missing = Face<IRunMissingValues>();
  missing.WriteTokens({{1, "n'a", 4, 2.5, replacement_type::kNumber}, {0, "", 2, {}, 0}});
  std::vector<RunToken> read;
  missing.ReadTokens(read);
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].text, "");
  EXPECT_EQ(read[0].count, 2);
  EXPECT_EQ(read[0].replacement, std::nullopt);
  EXPECT_EQ(read[1].column, 1);
  EXPECT_EQ(read[1].text, "n'a");
  EXPECT_EQ(read[1].replacement, 2.5);
  EXPECT_EQ(read[1].type, 5);
}

TEST_F(RunCatalogTest, WritesAndReadsParameters) {
  auto& parameters = Face<IRunParameters>();
  parameters.WriteWhole("data", "Seed", 7);
  parameters.WriteWhole("set_gen", "Seed", 8);
  parameters.WriteWhole("data", "Seed", 9);
  parameters.WriteNumber("data", "TestingShare", 0.25);
  EXPECT_EQ(parameters.ReadWhole("data", "Seed"), 9);
  EXPECT_EQ(parameters.ReadWhole("set_gen", "Seed"), 8);
  EXPECT_EQ(parameters.ReadWhole("data", "Other"), 0);
  EXPECT_EQ(parameters.ReadNumber("data", "TestingShare"), 0.25);
  EXPECT_EQ(parameters.ReadNumber(parameter_space::kAny, "TestingShare"), 0.25);
  std::vector<std::string> names;
  parameters.ReadNames("data", names);
  EXPECT_THAT(names, ElementsAre("Seed", "TestingShare"));
}

TEST_F(RunCatalogTest, ReplacesAParameterOnlyWhereItIs) {
  auto& parameters = Face<IRunParameters>();
  parameters.ReplaceWhole("data", "Merging", 1);
  EXPECT_THAT(Rows("RunParameters"), IsEmpty());
  parameters.WriteWhole("data", "Merging", 0);
  parameters.ReplaceWhole("data", "Merging", 1);
  EXPECT_THAT(Rows("RunParameters"), ElementsAre("data|Merging|1|NULL"));
}

TEST_F(RunCatalogTest, DropsParametersAndSpaces) {
  auto& parameters = Face<IRunParameters>();
  parameters.WriteWhole("missing_token", "n'a", 1);
  parameters.WriteWhole("data", "Seed", 1);
  parameters.WriteWhole("data", "Merging", 1);
  parameters.DropParameter("data", "Seed");
  parameters.DropSpace("missing_token");
  EXPECT_THAT(Rows("RunParameters"), ElementsAre("data|Merging|1|NULL"));
}

TEST_F(RunCatalogTest, AppendsStepsToTheHistory) {
  auto& history = Face<IRunHistory>();
  history.AppendStep({"2026-01-31T12:00:00Z", "load", 1, "/a/b'c.csv", "{}"});
  history.AppendStep({"", "embed", 1, "", "{\"delay\":1}"});
  std::vector<HistoryStep> steps;
  history.ReadSteps(steps);
  ASSERT_EQ(steps.size(), 2u);
  EXPECT_EQ(steps[0].time, "2026-01-31T12:00:00Z");
  EXPECT_EQ(steps[0].file, "/a/b'c.csv");
  EXPECT_EQ(steps[1].command, "embed");
  EXPECT_EQ(steps[1].parameters, "{\"delay\":1}");
  EXPECT_THAT(steps[1].time, testing::MatchesRegex(
                                 "[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]T[0-9][0-9]:[0-9][0-9]"
                                 ":[0-9][0-9]Z"));
}

TEST_F(RunCatalogTest, FindsTheLastLoadOfASetOrOfBoth) {
  auto& history = Face<IRunHistory>();
  HistoryStep step;
  EXPECT_FALSE(history.ReadLastLoad(kTraining, step));
  history.AppendStep({"t1", "load", data_set_type::kCombined, "/both.csv", "{}"});
  history.AppendStep({"t2", "load", kTesting, "/testing.csv", "{}"});
  history.AppendStep({"t3", "embed", kTraining, "", "{}"});
  ASSERT_TRUE(history.ReadLastLoad(kTraining, step));
  EXPECT_EQ(step.file, "/both.csv");
  ASSERT_TRUE(history.ReadLastLoad(kTesting, step));
  EXPECT_EQ(step.file, "/testing.csv");
}

}  // namespace
}  // namespace tslm5
