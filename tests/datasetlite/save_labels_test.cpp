// The labels of a training set that come back: `Save` makes the run's column records of them, which
// `Load` reads, where the application keeps none that say more.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/data_set_lite.h"

namespace tslm5 {
namespace {

constexpr const char* kColumns =
    "SELECT ColumnIndex, Name, OriginalLabel, IsNominal, MissingCount, Reserved, IsResponse FROM "
    "DataSetColumn ORDER BY Id";
constexpr const char* kLabels = "SELECT SetId, [column], label FROM DataSetLabels ORDER BY Id";
const Lines kAgeAndHeight = {"0|d0|age|0|0|0|0", "1|d1|height|0|0|0|1"};

class DataSetLiteSaveLabels : public DataSetLiteTest {
 protected:
  /// Loads a file into the training set and saves it.
  void Keep(std::string_view bytes, bool has_labels = true) const {
    Parse(bytes, {.has_labels = has_labels});
    ASSERT_TRUE(set_.Save(run_, data_set_type::kTraining));
  }
  /// The labels of the training set as somebody finds them who opens the run now.
  Lines Reopened() const {
    const LiteSet set;
    set.Load(run_, data_set_type::kTraining);
    Lines labels = set.Labels();
    labels.emplace_back(set->HasLabels() ? "labels" : "no labels");
    return labels;
  }
  Lines Columns() const { return run_.Select(kColumns); }
};

TEST_F(DataSetLiteSaveLabels, BringsThemBack) {
  Keep("Blood Pressure,it's\n1,2\n");
  EXPECT_EQ(Reopened(), (Lines{"Blood Pressure", "it's", "labels"}));
  EXPECT_EQ(Columns(), (Lines{"0|d0|Blood Pressure|0|0|0|0", "1|d1|it's|0|0|0|1"}));
}

TEST_F(DataSetLiteSaveLabels, BringsThemBackOfOneColumn) {
  Parse("passengers\n112\n118\n", {.separator = separator_code::kNone, .has_labels = true});
  set_.Save(run_, data_set_type::kTraining);
  EXPECT_EQ(Reopened(), (Lines{"passengers", "labels"}));
}

TEST_F(DataSetLiteSaveLabels, BringsBackThoseOfNewData) {
  Keep("age,height\n1,2\n");
  Keep("p,q,r\n1,2,3\n");
  EXPECT_EQ(Reopened(), (Lines{"p", "q", "r", "labels"}));
  EXPECT_EQ(Columns().size(), 3U);
  Keep("7,8\n", false);
  EXPECT_EQ(Reopened(), (Lines{"d0", "y", "no labels"})) << "new data end the labels of the old";
  EXPECT_TRUE(run_.Select(kLabels).empty());
}

TEST_F(DataSetLiteSaveLabels, BringsBackThoseThatAreSet) {
  Keep("age,height\n1,2\n");
  set_->SetLabels("p q");
  set_.Save(run_, data_set_type::kTraining);
  EXPECT_EQ(Reopened(), (Lines{"p", "q", "labels"}));
  const LiteSet again;
  again.Load(run_, data_set_type::kTraining);
  again.Save(run_, data_set_type::kTraining);
  EXPECT_EQ(Reopened(), (Lines{"p", "q", "labels"}));
}

TEST_F(DataSetLiteSaveLabels, BringsThemBackOfAClosedSet) {
  Parse("age,height\n1,2\n", {.has_labels = true});
  set_.As<IDisposable>()->Dispose(true);
  set_.Save(run_, data_set_type::kTraining);
  EXPECT_EQ(Reopened(), (Lines{"age", "height", "labels"}));
}

TEST_F(DataSetLiteSaveLabels, LeavesRecordsThatSayMoreThanLabels) {
  const std::pair<const char*, const char*> marks[] = {
      {"IsNominal", "1"}, {"MissingCount", "4"}, {"IsResponse", "1"}, {"OriginalLabel", "'Years'"}};
  for (const auto& [field, value] : marks) {
    run_.Execute("DELETE FROM DataSetColumn");
    Keep("age,height\n1,2\n");
    ASSERT_EQ(Columns(), kAgeAndHeight);
    run_.Execute(std::string("UPDATE DataSetColumn SET ") + field + " = " + value +
                 " WHERE ColumnIndex = 0");
    const Lines records = Columns();
    Keep("p,q\n1,2\n");
    EXPECT_EQ(Columns(), records) << field;
    EXPECT_EQ(run_.Select(kLabels), (Lines{"1|0|p", "1|1|q"})) << field;
    Keep("1,2\n", false);
    EXPECT_EQ(Columns(), records) << field;
    EXPECT_EQ(run_.Select(kLabels).size(), 2U) << field;
  }
}

TEST_F(DataSetLiteSaveLabels, LeavesRecordsThatSayOther) {
  AddColumn(0, "t_1");
  AddColumn(1, "t_0", true);
  Keep("age,height\n1,2\n");
  EXPECT_EQ(Reopened(), (Lines{"t_1", "t_0", "labels"}));
}

TEST_F(DataSetLiteSaveLabels, OfAnUnlabelledSetThatOnlyReadTheRunLeavesThem) {
  Parse("1,2\n");
  const LiteSet reader;
  reader.Load(run_, data_set_type::kTraining);
  Keep("age,height\n1,2\n");
  ASSERT_FALSE(reader->HasLabels());
  EXPECT_TRUE(reader.Save(run_, data_set_type::kTraining));
  EXPECT_EQ(Reopened(), (Lines{"age", "height", "labels"}));
}

TEST_F(DataSetLiteSaveLabels, MakesNoRecordsThatDoNotFitTheTable) {
  Keep("age,height\n1,2\n");
  set_->SetLabels("one");
  set_.Save(run_, data_set_type::kTraining);
  EXPECT_TRUE(Columns().empty());
  EXPECT_EQ(run_.Select(kLabels), (Lines{"1|0|one"}));
}

TEST_F(DataSetLiteSaveLabels, MakesNoRecordsInARunWithoutTheSet) {
  Parse("age,height\n1,2\n", {.has_labels = true});
  const TestRun other;
  CreateRunTables(*other.Connection());
  EXPECT_TRUE(set_.Save(other, data_set_type::kTraining));
  EXPECT_TRUE(other.Select(kColumns).empty());
}

TEST_F(DataSetLiteSaveLabels, MakesNoRecordsOfAnotherSetThanTheTrainingSet) {
  ParseFile(set_, File("age,height\n1,2\n"), {.has_labels = true, .type = 2});
  set_.Save(run_, data_set_type::kTesting);
  EXPECT_TRUE(Columns().empty());
}

TEST_F(DataSetLiteSaveLabels, IsAllOrNothing) {
  Keep("age,height\n1,2\n");
  Parse("p,q\n1,2\n", {.has_labels = true});
  run_.Log().before = [](std::string_view statement) {
    if (statement.starts_with("UPDATE DataSetColumn")) throw Error(4711, "Test", "it fails");
  };
  EXPECT_EQ(RaisedNumber([this] { set_.Save(run_, data_set_type::kTraining); }), 4711);
  run_.Log().before = nullptr;
  EXPECT_EQ(Columns(), kAgeAndHeight);
  EXPECT_EQ(run_.Select(kLabels), (Lines{"1|0|age", "1|1|height"}));
  EXPECT_TRUE(set_.IsDirty());
  EXPECT_FALSE(run_.InTransaction());
}

TEST_F(DataSetLiteSaveLabels, IsFollowedByTheRecordsOfASeriesInTheirPlace) {
  Keep("age,height\n1,2\n");
  const Ref<IDataSetLite> lite = set_.As<IDataSetLite>();
  lite->SaveTimeSeriesDataSetColumnData(0);
  EXPECT_EQ(Columns(), kAgeAndHeight) << "not each column twice";
  lite->SaveTimeSeriesDataSetColumnData(0);
  EXPECT_EQ(Columns().size(), 4U) << "required by the contract: it adds to what is there";
}

}  // namespace
}  // namespace tslm5
