// Labels, nominal flags and the missing map.
#include "original/original_run.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class OriginalColumnsTest : public OriginalDataSetTest {
 protected:
  void Relabel() const {
    run_.Execute("UPDATE DataSetColumn SET OriginalLabel = 'Pressure' WHERE ColumnIndex = 1");
  }
  void AddLabel(const std::string& label, std::int32_t column, std::int32_t set_id = 1) const {
    run_.Execute("INSERT INTO OriginalDataLabels VALUES ('" + label + "', " +
                 std::to_string(column) + ", " + std::to_string(set_id) + ")");
  }
  void Open() const { view_.Open(run_, data_set_type::kTraining); }
  Lines LongLabels() const {
    Lines labels;
    for (std::int32_t column = 0; column < view_->Columns(); ++column) {
      labels.push_back(view_.DataSet()->GetLongLabel(column));
    }
    return labels;
  }
};

TEST_F(OriginalColumnsTest, AreNamedByTheirPlaceWithoutLabels) {
  Open();
  EXPECT_FALSE(view_->HasLabels());
  EXPECT_FALSE(view_.DataSet()->HasLabels());
  EXPECT_THAT(view_.Labels(), ElementsAre("d0", "d1", "y"));
  EXPECT_THAT(LongLabels(), ElementsAre("d0", "d1", "y"));
  for (std::int32_t column = 0; column < 3; ++column) {
    EXPECT_EQ(view_.DataSet()->GetColumnIndex(column), column);
    EXPECT_EQ(view_.DataSet()->GetLabel(column), view_->GetLabel(column));
  }
}

TEST_F(OriginalColumnsTest, HaveTheirOriginalLabels) {
  Relabel();
  AddLabel("Grade", 2);
  AddLabel("Size", 0);
  AddLabel("O''Brien''s Größe", 1);
  Open();
  EXPECT_TRUE(view_->HasLabels());
  EXPECT_THAT(view_.Labels(), ElementsAre("Size", "O'Brien's Größe", "Grade"));
  EXPECT_THAT(LongLabels(), ElementsAre("d0:Size", "d1:O'Brien's Größe", "y:Grade"));
}

TEST_F(OriginalColumnsTest, TakeLabelsByTheirPositionNotByTheirColumn) {
  Relabel();
  AddLabel("Pressure", 7);
  AddLabel("Size", 4);
  Open();
  EXPECT_THAT(view_.Labels(), ElementsAre("Size", "Pressure", ""));
  EXPECT_EQ(view_.DataSet()->GetColumnIndex(0), 4);
  EXPECT_EQ(view_.DataSet()->GetColumnIndex(1), 7);
  EXPECT_EQ(view_.DataSet()->GetColumnIndex(2), 0);
}

TEST_F(OriginalColumnsTest, ShowStoredLabelsAlsoWhenNoneWasChanged) {
  AddLabel("Size", 0);
  Open();
  EXPECT_FALSE(view_->HasLabels());
  EXPECT_THAT(view_.Labels(), ElementsAre("Size", "d1", "y"));
  EXPECT_THAT(LongLabels(), ElementsAre("d0", "d1", "y")) << "the long label asks the flag alone";
}

TEST_F(OriginalColumnsTest, IgnoreLabelsOfTheTestingSetAndThoseTooMany) {
  Relabel();
  for (std::int32_t column = 0; column < 5; ++column) {
    AddLabel("t" + std::to_string(column), column, 2);
    AddLabel("L" + std::to_string(column), column);
  }
  Open();
  EXPECT_THAT(view_.Labels(), ElementsAre("L0", "L1", "L2"));
}

TEST_F(OriginalColumnsTest, AreCategoricalByTheOrderOfTheirRecords) {
  Open();
  EXPECT_TRUE(view_->IsColumnCategorical(0));
  EXPECT_FALSE(view_->IsColumnCategorical(1));
  EXPECT_TRUE(view_->IsColumnCategorical(2));
}

TEST_F(OriginalColumnsTest, AreNotCategoricalWithoutARecord) {
  run_.Execute("DELETE FROM DataSetColumn WHERE ColumnIndex > 0");
  Open();
  EXPECT_TRUE(view_->IsColumnCategorical(0));
  EXPECT_FALSE(view_->IsColumnCategorical(2));
}

TEST_F(OriginalColumnsTest, MayBeFewerThanTheirRecords) {
  for (int column = 3; column < 500; ++column) {
    const std::string index = std::to_string(column);
    run_.Execute("INSERT INTO DataSetColumn VALUES (NULL, " + index + ", 'd', 'd', 1, 2, 0, 0)");
  }
  Open();
  EXPECT_EQ(view_->Columns(), 3);
  EXPECT_EQ(RaisedNumber([&] { view_->IsColumnCategorical(3); }), 9);
  EXPECT_TRUE(view_->HasMissingValues(3)) << "the missing map has what the records say";
}

TEST_F(OriginalColumnsTest, HaveMissingValuesByTheirIndex) {
  run_.Execute("UPDATE DataSetColumn SET ColumnIndex = 9 WHERE ColumnIndex = 0");
  run_.Execute("UPDATE DataSetColumn SET MissingCount = -1 WHERE ColumnIndex = 1");
  Open();
  EXPECT_TRUE(view_->HasMissingValues(9));
  EXPECT_FALSE(view_->HasMissingValues(0));
  EXPECT_FALSE(view_->HasMissingValues(1));
  EXPECT_FALSE(view_->HasMissingValues(-1));
  EXPECT_FALSE(view_->HasMissingValues(100));
}

TEST_F(OriginalColumnsTest, RaiseOutsideTheirNumber) {
  Relabel();
  Open();
  for (const std::int32_t column : {-1, 3}) {
    EXPECT_EQ(RaisedNumber([&] { view_->GetLabel(column); }), 9) << column;
    EXPECT_EQ(RaisedNumber([&] { view_->IsColumnCategorical(column); }), 9) << column;
    EXPECT_EQ(RaisedNumber([&] { view_->GetItem(column, 0); }), 9) << column;
    EXPECT_EQ(RaisedNumber([&] { view_.DataSet()->GetItemString(column, 0); }), 9) << column;
    EXPECT_EQ(RaisedNumber([&] { view_.DataSet()->GetLabel(column); }), 9) << column;
    EXPECT_EQ(RaisedNumber([&] { view_.DataSet()->GetLongLabel(column); }), 9) << column;
    EXPECT_EQ(RaisedNumber([&] { view_.DataSet()->GetColumnIndex(column); }), 9) << column;
  }
  for (const std::int32_t row : {-1, 2}) {
    EXPECT_EQ(RaisedNumber([&] { view_->GetItem(0, row); }), 9) << row;
    EXPECT_EQ(RaisedNumber([&] { view_->GetRowOriginalIndex(row); }), 9) << row;
  }
}

}  // namespace
}  // namespace tslm5
