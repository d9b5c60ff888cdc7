// What each set type loads, and what another open leaves.
#include "original/original_run.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using OriginalOpen = OriginalDataSetTest;

TEST_F(OriginalOpen, LoadsTheTrainingRecordsAsTheyWere) {
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->Rows(), 2);
  EXPECT_EQ(view_->Columns(), 3);
  EXPECT_EQ(view_->TerminalCount(), 2);
  EXPECT_THAT(view_.Records(), ElementsAre("3,red,1.5,no", "8,blue,2.25,yes"));
}

TEST_F(OriginalOpen, LoadsTheTestingRecords) {
  view_.Open(run_, data_set_type::kTesting);
  EXPECT_THAT(view_.Records(), ElementsAre("5,,.5,yes", "9,green,7,no")) << "NULL is \"\"";
}

TEST_F(OriginalOpen, LoadsAllRecordsInTableOrder) {
  view_.Open(run_, data_set_type::kUnknown);
  EXPECT_THAT(view_.Records(),
              ElementsAre("3,red,1.5,no", "5,,.5,yes", "8,blue,2.25,yes", "9,green,7,no"));
}

TEST_F(OriginalOpen, LoadsTrainingBeforeTestingRecords) {
  view_.Open(run_, data_set_type::kCombined);
  EXPECT_THAT(view_.Records(),
              ElementsAre("3,red,1.5,no", "8,blue,2.25,yes", "5,,.5,yes", "9,green,7,no"));
}

TEST_F(OriginalOpen, FollowsTheOrderOfTheSetNotOfTheOriginals) {
  // A set whose rowid is not its record key, as another program may have made it.
  run_.Execute("DROP TABLE TrainingSet");
  run_.Execute("CREATE TABLE TrainingSet (d0 FLOAT, d1 FLOAT, d2 FLOAT, row INTEGER)");
  run_.Execute("INSERT INTO TrainingSet VALUES (3, 7, 0, 9), (1, 1.5, 0, 3), (2, 2.25, 1, 8)");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_THAT(view_.Records(), ElementsAre("9,green,7,no", "3,red,1.5,no", "8,blue,2.25,yes"));
}

TEST_F(OriginalOpen, CountsTheSetsOfTheRunWhateverWasLoaded) {
  run_.Execute("DELETE FROM TestingSet WHERE row = 9");
  for (const std::int32_t type : {1, 2, 100, 1000}) {
    view_.Open(run_, type);
    EXPECT_EQ(view_->GetDataSetRows(1), 2) << type;
    EXPECT_EQ(view_->GetDataSetRows(2), 1) << type;
    EXPECT_EQ(view_->GetDataSetRows(3), 0) << type;
    EXPECT_EQ(view_->GetDataSetRows(100), 0) << type;
  }
}

TEST_F(OriginalOpen, HasNoTestingRowsWithoutATestingTable) {
  view_.Open(run_, data_set_type::kTraining);
  ASSERT_EQ(view_->GetDataSetRows(2), 2);
  run_.Execute("DROP TABLE TestingSet");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->GetDataSetRows(2), 0);
}

TEST_F(OriginalOpen, LeavesRowsEmptyWhereTheOriginalIsGone) {
  run_.Execute("DELETE FROM OriginalData WHERE row = 3");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_THAT(view_.Records(), ElementsAre("8,blue,2.25,yes", "0,,,"));
}

TEST_F(OriginalOpen, FindsTheKeyWhereverItStands) {
  for (const char* columns :
       {"row INTEGER PRIMARY KEY, d0 TEXT, d1 TEXT", "d0 TEXT, Row INTEGER PRIMARY KEY, d1 TEXT",
        "d0 TEXT, d1 TEXT, ROW INTEGER PRIMARY KEY"}) {
    run_.Execute("DROP TABLE OriginalData");
    run_.Execute("CREATE TABLE OriginalData (" + std::string(columns) + ")");
    run_.Execute("INSERT INTO OriginalData (d0, d1, row) VALUES ('a', 'b', 8), ('c', 'd', 3)");
    view_.Open(run_, data_set_type::kTraining);
    EXPECT_EQ(view_->Columns(), 2) << columns;
    EXPECT_THAT(view_.Records(), ElementsAre("3,c,d", "8,a,b")) << columns;
  }
}

TEST_F(OriginalOpen, KeepsEveryKindOfTextAsItIs) {
  run_.Execute("DELETE FROM OriginalData");
  run_.Execute(
      "INSERT INTO OriginalData VALUES ('O''Brien', 'Größe ☂', '  1,5 ', 3), "
      "('1'');DROP TABLE TrainingSet;--', 'NA', '0x1F', 8)");
  view_.Open(run_, data_set_type::kUnknown);
  EXPECT_THAT(view_.Records(),
              ElementsAre("3,O'Brien,Größe ☂,  1,5 ", "8,1');DROP TABLE TrainingSet;--,NA,0x1F"));
}

TEST_F(OriginalOpen, WritesNumbersOfTheTableInTheShortestForm) {
  run_.Execute("DROP TABLE OriginalData");
  run_.Execute("CREATE TABLE OriginalData (d0 FLOAT, d1, row INTEGER PRIMARY KEY)");
  run_.Execute("INSERT INTO OriginalData VALUES (0.1, 12, 3), (2, 1e300, 8)");
  view_.Open(run_, data_set_type::kUnknown);
  EXPECT_THAT(view_.Records(), ElementsAre("3,0.1,12", "8,2,1E+300"));
}

TEST_F(OriginalOpen, TakesAConnectionAsWellAsARun) {
  view_->Open(run_.Service()->GetConnection(), data_set_type::kTraining, false);
  EXPECT_EQ(view_->Rows(), 2);
}

TEST_F(OriginalOpen, LetsGoOfTheRun) {
  const std::int64_t before = LiveObjects::Count();
  view_.Open(run_, data_set_type::kTraining, true);
  EXPECT_EQ(LiveObjects::Count(), before);
  run_.Execute("DROP TABLE OriginalData");  // refused while a reader is open
  EXPECT_EQ(view_->GetItem(0, 0), "red");
}

TEST_F(OriginalOpen, ReplacesEverythingTheSecondTime) {
  run_.Execute("UPDATE DataSetColumn SET OriginalLabel = 'Pressure' WHERE ColumnIndex = 1");
  view_.Open(run_, data_set_type::kUnknown);
  ASSERT_TRUE(view_->HasLabels());
  ASSERT_TRUE(view_->HasMissingValues(0));
  const OriginalRun other;
  other.Execute("DELETE FROM TrainingSet WHERE row = 3");
  other.Execute("UPDATE DataSetColumn SET IsNominal = 0, MissingCount = 0");
  view_.Open(other, data_set_type::kTraining);
  EXPECT_THAT(view_.Records(), ElementsAre("8,blue,2.25,yes"));
  EXPECT_FALSE(view_->HasLabels());
  EXPECT_THAT(view_.Labels(), ElementsAre("d0", "d1", "y"));
  EXPECT_FALSE(view_->IsColumnCategorical(0));
  EXPECT_FALSE(view_->HasMissingValues(0));
  EXPECT_EQ(view_->GetDataSetRows(1), 1);
}

TEST_F(OriginalOpen, TakesSetsWithoutRecords) {
  run_.Execute("DELETE FROM TrainingSet");
  run_.Execute("DELETE FROM TestingSet");
  for (const std::int32_t type : {1, 2}) {
    view_.Open(run_, type, true);
    EXPECT_THAT(view_.Records(), IsEmpty());
    EXPECT_EQ(view_->Columns(), 3);
  }
  run_.Execute("DELETE FROM OriginalData");
  for (const std::int32_t type : {100, 1000}) {
    view_.Open(run_, type, true);
    EXPECT_THAT(view_.Records(), IsEmpty());
  }
}

TEST_F(OriginalOpen, IsWhatLoadDoesForAllRecords) {
  const Ref<IPersistable> persistable = view_.As<IPersistable>();
  EXPECT_TRUE(persistable->Load(Variant(run_.Service()), Variant()));
  EXPECT_THAT(view_.Records(),
              ElementsAre("3,red,1.5,no", "5,,.5,yes", "8,blue,2.25,yes", "9,green,7,no"))
      << "the response keeps its text";
  EXPECT_FALSE(persistable->Save(Variant(run_.Service()), Variant()));
}

TEST_F(OriginalOpen, LoadsARunThatNamesNoProblemCategory) {
  run_.Execute("DELETE FROM RunParameters");
  EXPECT_TRUE(view_.As<IPersistable>()->Load(Variant(run_.Service()), Variant()));
  EXPECT_EQ(view_->Rows(), 4);
}

}  // namespace
}  // namespace tslm5
