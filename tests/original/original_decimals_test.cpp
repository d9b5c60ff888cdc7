// Under a locale with a decimal comma, a view shows numbers as the user writes them.
#include "original/original_run.h"
#include "support/locale.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using OriginalDecimals = OriginalDataSetTest;

TEST_F(OriginalDecimals, AreCommasUnderACommaLocale) {
  const ScopedLocale german("de_DE");
  run_.Execute("UPDATE OriginalData SET d0 = '1.2.3', d1 = '3.5' WHERE row = 3");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_THAT(view_.Records(), ElementsAre("3,1,2,3,3,5,no", "8,blue,2,25,yes"));
  EXPECT_EQ(view_->GetItem(0, 0), "1,2,3");
  EXPECT_EQ(view_->GetItem(1, 0), "3,5");
}

TEST_F(OriginalDecimals, StayWhereAPointBeginsTheText) {
  const ScopedLocale german("de_DE");
  for (const std::int32_t type : {2, 1000}) {
    view_.Open(run_, type);
    EXPECT_EQ(view_->GetItem(1, type == 2 ? 0 : 1), ".5") << type;
  }
}

TEST_F(OriginalDecimals, AreCommasInEverySingleSet) {
  const ScopedLocale german("de_DE");
  run_.Execute("UPDATE OriginalData SET d1 = '3.5'");
  for (const std::int32_t type : {1, 2, 1000}) {
    view_.Open(run_, type);
    EXPECT_EQ(view_->GetItem(1, 0), "3,5") << type;
  }
}

TEST_F(OriginalDecimals, ArePointsElsewhere) {
  const ScopedLocale english("en_US");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->GetItem(1, 0), "1.5");
}

TEST_F(OriginalDecimals, AreOfTheLocaleWhenTheViewWasOpened) {
  {
    const ScopedLocale german("de_DE");
    view_.Open(run_, data_set_type::kTraining);
  }
  EXPECT_EQ(view_->GetItem(1, 0), "1,5");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->GetItem(1, 0), "1.5");
}

TEST_F(OriginalDecimals, DoNotReachLabels) {
  const ScopedLocale german("de_DE");
  run_.Execute("INSERT INTO OriginalDataLabels VALUES ('v1.5', 0, 1)");
  view_.Open(run_, data_set_type::kTraining);
  EXPECT_EQ(view_->GetLabel(0), "v1.5");
}

}  // namespace
}  // namespace tslm5
