#include "conformance/set_under_test.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

class ExtraSetConformance : public ConformanceTest {
 protected:
  void Fill() const {
    Parse("1,2\n3,4\n");
    made_->FillExtraSet({10, 20, 30});
  }

  Ref<IExtraSet> extra_ = As<IExtraSet>();
};
TSLM5_CONFORMANCE_SUITE(ExtraSetConformance);

TEST_P(ExtraSetConformance, IsNotThereAtFirst) {
  EXPECT_FALSE(extra_->Exists());
  EXPECT_EQ(extra_->Rows(), 0);
  EXPECT_EQ(extra_->Columns(), 0);
  EXPECT_EQ(RaisedNumber([&] { extra_->GetItem(0, 0); }), Means().absent_extra_cell_error);
}

TEST_P(ExtraSetConformance, HasRowsOfItsOwn) {
  Fill();
  EXPECT_TRUE(extra_->Exists());
  EXPECT_EQ(extra_->Rows(), 3);
  EXPECT_EQ(extra_->Columns(), Means().extra_columns);
  EXPECT_EQ(set_->Rows(), 2);
  EXPECT_EQ(set_->Columns(), 2);
}

TEST_P(ExtraSetConformance, WritesAndReadsItsCells) {
  Fill();
  extra_->SetItem(0, 1, 25.5);
  EXPECT_EQ(extra_->GetItem(0, 1), 25.5);
  EXPECT_EQ(extra_->GetItem(0, 2), 30);
  EXPECT_THAT(Records(), ElementsAre("1,2", "3,4")) << "the data are others";
}

TEST_P(ExtraSetConformance, RaisesOutsideItself) {
  Fill();
  for (const auto& place : {std::pair(2, 0), {-1, 0}, {0, -1}, {0, 3}}) {
    const std::int32_t column = place.first;
    const std::int32_t row = place.second;
    EXPECT_EQ(RaisedNumber([&] { extra_->GetItem(column, row); }), Means().absent_extra_cell_error);
    EXPECT_EQ(RaisedNumber([&] { extra_->SetItem(column, row, 1); }),
              Means().absent_extra_cell_error);
  }
}

TEST_P(ExtraSetConformance, EndsWithItsData) {
  Fill();
  Parse("7,8\n");
  EXPECT_FALSE(extra_->Exists());
  EXPECT_EQ(extra_->Rows(), 0);
  EXPECT_EQ(RaisedNumber([&] { extra_->GetItem(0, 0); }), Means().absent_extra_cell_error);
  Fill();
  set_->Clear();
  EXPECT_FALSE(extra_->Exists());
  EXPECT_EQ(extra_->Rows(), 0);
}

}  // namespace
}  // namespace tslm5
