// What makes a set dirty besides loads and properties, on a prepared run with a testing set.
#include <gtest/gtest.h>

#include <functional>

#include "datasetlite/prepared_set.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/time_series.h"

namespace tslm5 {
namespace {

class DataSetLiteDirty : public PreparedSetTest {
 protected:
  DataSetLiteDirty() {
    ParseFile(LiteSet(run_, 5), File("7\n8\n"), {.type = 5});
    Execute(
        "CREATE TABLE TrainingSetBackup (d0 FLOAT, d1 FLOAT, d2 FLOAT, row INTEGER PRIMARY KEY)");
    set_.Load(run_, data_set_type::kTraining);
  }

  /// Whether `change` makes a clean set dirty.
  bool MakesDirty(const std::function<void()>& change) const {
    set_.SetDirty(false);
    change();
    return set_.IsDirty();
  }
  /// The same of a change that the run refuses.
  bool MakesDirtyThoughRefused(std::string_view beginning, const std::function<void()>& change) {
    run_.Log().before = [beginning](std::string_view statement) {
      if (statement.starts_with(beginning)) throw Error(4711, "Test", "it fails");
    };
    const bool is_dirty = MakesDirty([&change] {
      try {
        change();
      } catch (const Error&) {
      }
    });
    run_.Log().before = nullptr;
    return is_dirty;
  }

  Ref<ITimeSeriesChanges> changes_ = set_.As<ITimeSeriesChanges>();
};

TEST_F(DataSetLiteDirty, IsASetWithAnotherCellInItsExtraSet) {
  const Ref<IExtraSet> extra = set_.As<IExtraSet>();
  EXPECT_TRUE(MakesDirty([&] { extra->SetItem(0, 1, 9); }));
  EXPECT_FALSE(MakesDirty([&] { RaisedNumber([&] { extra->SetItem(0, 5, 9); }); }));
}

TEST_F(DataSetLiteDirty, IsASetThatWasReset) {
  EXPECT_FALSE(MakesDirty([this] { changes_->UndoReset(); })) << "there is nothing to undo";
  EXPECT_TRUE(MakesDirty([this] { ASSERT_TRUE(changes_->ResetTimeSeries()); }));
  EXPECT_TRUE(MakesDirty([this] { changes_->UndoReset(); }));
  Execute("DROP TABLE TestingSet");
  EXPECT_FALSE(MakesDirty([this] { ASSERT_FALSE(changes_->ResetTimeSeries()); }));
}

TEST_F(DataSetLiteDirty, IsASetWithAnotherCode) {
  const auto recode = [this] { Nominal()->UpdateCategory("d0", "red", 9); };
  EXPECT_TRUE(MakesDirty(recode));
  EXPECT_FALSE(MakesDirtyThoughRefused("UPDATE DataSetColumnCategories", recode));
  EXPECT_TRUE(MakesDirtyThoughRefused("UPDATE TrainingSet", recode)) << "a part of it is done";
  EXPECT_FALSE(MakesDirty(
      [this] { RaisedNumber([this] { Nominal()->UpdateCategory("d0", "white", 9); }); }));
}

TEST_F(DataSetLiteDirty, IsASetWithAMergedResponse) {
  const auto merge = [this] { Nominal()->UpdateMergingResponseCategories(); };
  EXPECT_TRUE(MakesDirty(merge));
  EXPECT_FALSE(MakesDirtyThoughRefused("UPDATE ResponseEncoding", merge));
}

TEST_F(DataSetLiteDirty, IsASetWithReplacedMissingValues) {
  EXPECT_TRUE(MakesDirty([this] { ASSERT_TRUE(Missing()->ApplyMissing(1)); }));
  EXPECT_FALSE(MakesDirtyThoughRefused("UPDATE", [this] { Missing()->ApplyMissing(1); }));
}

}  // namespace
}  // namespace tslm5
