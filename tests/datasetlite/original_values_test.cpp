// The way from a record back to the original data.
#include <gtest/gtest.h>

#include "datasetlite/lite_set.h"

namespace tslm5 {
namespace {

class DataSetLiteOriginalValues : public DataSetLiteTest {
 protected:
  DataSetLiteOriginalValues() {
    Parse("1,2,3\n4,5,6\n7,8,9\n");
    run_.Execute("DELETE FROM TrainingSet WHERE row = 2");  // the rows are records 1 and 3
    for (const char* column : {"d0", "d1", "d2"}) {
      run_.Execute("ALTER TABLE OriginalData ADD COLUMN " + std::string(column) + " TEXT");
    }
    run_.Execute(
        "INSERT INTO OriginalData (row, d0, d1, d2) VALUES (1, 'a1', 'b1', 'c1'),"
        " (2, 'a2', 'b2', 'c2'), (3, 'a3', NULL, 'c3')");
    AddColumn(0, "first");
    AddColumn(1, "second", true);
    AddColumn(2, "third");
  }
};

TEST_F(DataSetLiteOriginalValues, TakeTheRowFirst) {
  EXPECT_EQ(set_->GetRowOriginalValue(0, 1), Variant("b1"));
  EXPECT_EQ(set_->GetRowOriginalValue(1, 0), Variant("a3")) << "by the row's key";
  EXPECT_EQ(set_->GetRowOriginalValue(1, 2), Variant("c3"));
}

TEST_F(DataSetLiteOriginalValues, MayBeTakenByTheKeyOfTheRecord) {
  EXPECT_EQ(set_->GetRowOriginalValueByRecordId(2, 0), Variant("a2"));
  EXPECT_EQ(set_->GetRowOriginalValueByRecordId(1, 2), Variant("c1"));
}

TEST_F(DataSetLiteOriginalValues, OfColumnMinusOneAreTheResponse) {
  EXPECT_EQ(set_->GetRowOriginalValue(0, -1), Variant("b1"));
  EXPECT_EQ(set_->GetRowOriginalValueByRecordId(2, -1), Variant("b2"));
}

TEST_F(DataSetLiteOriginalValues, AreEmptyForAnUnknownColumn) {
  for (const std::int32_t column : {3, -2}) {
    EXPECT_TRUE(set_->GetRowOriginalValue(0, column).IsEmpty()) << column;
    EXPECT_TRUE(set_->GetRowOriginalValueByRecordId(1, column).IsEmpty()) << column;
    EXPECT_TRUE(set_->GetRowOriginalValue(99, column).IsEmpty()) << "the row is not looked for";
  }
}

TEST_F(DataSetLiteOriginalValues, AreEmptyWithoutAResponse) {
  run_.Execute("UPDATE DataSetColumn SET IsResponse = 0");
  EXPECT_TRUE(set_->GetRowOriginalValue(0, -1).IsEmpty());
}

TEST_F(DataSetLiteOriginalValues, AreEmptyForAnUnknownRecord) {
  EXPECT_TRUE(set_->GetRowOriginalValueByRecordId(4, 0).IsEmpty());
  run_.Execute("DELETE FROM OriginalData WHERE row = 3");
  EXPECT_TRUE(set_->GetRowOriginalValue(1, 0).IsEmpty());
}

TEST_F(DataSetLiteOriginalValues, AreNullWhereTheRecordHasNone) {
  EXPECT_EQ(set_->GetRowOriginalValue(1, 1), Variant(Null{}));
}

TEST_F(DataSetLiteOriginalValues, AreEmptyWhereTheRunHasNoTexts) {
  const TestRun run;
  CreateRunTables(*run.Connection());
  const LiteSet set(run, 1);
  ParseFile(set, File("a,b\n1,2\n"), {.has_labels = true});
  set.Save(run, 1);
  for (const std::int32_t column : {0, 1, -1}) {
    EXPECT_TRUE(set->GetRowOriginalValue(0, column).IsEmpty()) << column;
    EXPECT_TRUE(set->GetRowOriginalValueByRecordId(1, column).IsEmpty()) << column;
  }
}

TEST_F(DataSetLiteOriginalValues, RaiseForAnAbsentRow) {
  const Error error = Raised([&] { set_->GetRowOriginalValue(2, 0); });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Source(), "GetRowNumber");
}

TEST_F(DataSetLiteOriginalValues, GoByTheNameInTheColumnRecords) {
  run_.Execute("UPDATE DataSetColumn SET Name = 'd2' WHERE ColumnIndex = 0");
  EXPECT_EQ(set_->GetRowOriginalValue(0, 0), Variant("c1"));
}

TEST_F(DataSetLiteOriginalValues, LeaveNothingOpen) {
  set_->GetRowOriginalValue(0, 0);
  set_->GetRowOriginalValueByRecordId(1, -1);
  EXPECT_NO_THROW(run_.Execute("DROP TABLE OriginalData"));
  EXPECT_NE(RaisedNumber([&] { set_->GetRowOriginalValue(0, 0); }), 0) << "the engine's error";
  EXPECT_NO_THROW(run_.Execute("DROP TABLE DataSetColumn"));
}

}  // namespace
}  // namespace tslm5
