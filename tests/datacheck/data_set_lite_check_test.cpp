// The check as a loaded `DataSetLite` runs it: it changes nothing.

#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "datasetlite/data_set_lite.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"
#include "support/temporary_folder.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/contracts/is_dirty.h"
#include "tslm5/contracts/iterator.h"

namespace tslm5 {
namespace {

class DataSetLiteCheck : public testing::Test {
 protected:
  DataSetLiteCheck() {
    CreateRunTables(*run_.Connection());
    set_.As<IConstructor>()->Init(
        VariantArray({Variant(run_.Service()), Variant(data_set_type::kTesting)}));
    const std::string path = folder_.Write("loaded.txt", "in;out\n1,5\t;2\n3;4\n5;6.5\n");
    data_set_->Parse(path, separator_code::kSemicolon, true, data_set_type::kTesting,
                     layout_code::kRecordsInRows);
    data_set_->SetProperty("12", "DelayTime");
    set_.As<IIterator>()->ResetIterator();
  }

  bool Check(std::string_view bytes, std::int32_t separator, bool has_labels) {
    message_ = "untouched";
    return data_set_->IsValidDataSet(folder_.Write("data.txt", bytes), has_labels, separator,
                                     message_);
  }

  /// Everything of the set that can be asked for, and every table of its run.
  Lines Everything() const {
    IDataSet& set = *data_set_;
    Lines all = {std::to_string(set.DataSetType()),
                 std::to_string(set.ProblemCategory()),
                 std::to_string(set.Rows()),
                 std::to_string(set.Columns()),
                 set.Name(),
                 set.IndependentVarsPrefix(),
                 set.DependentVarName(),
                 set.GetProperty("Separator"),
                 set.GetProperty("DelayTime"),
                 set.HasLabels() ? "labels" : "no labels",
                 set.IsReady() ? "ready" : "not ready",
                 set_.As<IIsDirty>()->IsDirty() ? "dirty" : "clean",
                 std::to_string(set_.As<IIterator>()->CurrentRow())};
    for (std::int32_t column = 0; column < set.Columns(); ++column) {
      all.push_back(set.GetLabel(column));
      for (std::int32_t row = 0; row < set.Rows(); ++row) {
        all.push_back(set.GetItemString(column, row));
      }
    }
    for (const Lines& lines : {run_.Schema(), run_.TableRows("TestingSet")}) {
      all.insert(all.end(), lines.begin(), lines.end());
    }
    return all;
  }

  TemporaryFolder folder_;
  TestRun run_;
  Ref<IUnknown> set_ = MakeDataSetLite();
  Ref<IDataSet> data_set_ = set_.As<IDataSet>();
  std::string message_;
};

TEST_F(DataSetLiteCheck, ChangesNothingOfALoadedSet) {
  const Lines before = Everything();
  ASSERT_THAT(before, testing::IsSupersetOf({"2", "3", "Testing", ";", "12", "in", "out", "labels",
                                             "ready", "dirty", "0", "6.5"}));
  EXPECT_TRUE(Check("a,b,c\n1,2,3\n4,5,6\n", separator_code::kComma, true));
  EXPECT_TRUE(Check("7\n8\n", separator_code::kNone, false));
  EXPECT_FALSE(Check("1|2\n3|x\n", separator_code::kBar, false));
  EXPECT_FALSE(Check("", separator_code::kSpace, false));
  EXPECT_FALSE(Check("1,2\n", 7, false));
  EXPECT_EQ(Everything(), before);
}

TEST_F(DataSetLiteCheck, ChangesNothingOfASavedSet) {
  set_.As<IIsDirty>()->put_IsDirty(false);
  const Lines before = Everything();
  EXPECT_TRUE(Check("1,2,3\n4,5,6\n", separator_code::kComma, false));
  EXPECT_EQ(Everything(), before);
}

TEST_F(DataSetLiteCheck, SendsNothingToTheRun) {
  run_.Log().Clear();
  EXPECT_TRUE(Check("1,2\n3,4\n", separator_code::kComma, false));
  EXPECT_FALSE(Check("1,2\n3,x\n", separator_code::kComma, false));
  EXPECT_THAT(run_.Log().statements, testing::IsEmpty());
}

TEST_F(DataSetLiteCheck, NeedsNeitherRunNorData) {
  const Ref<IDataSet> set = MakeDataSetLite().As<IDataSet>();
  std::int32_t separator = separator_code::kComma;
  EXPECT_TRUE(
      set->IsValidDataSet(folder_.Write("data.txt", "1,2\n3,4\n"), false, separator, message_));
  EXPECT_FALSE(set->IsReady());
}

TEST_F(DataSetLiteCheck, ChecksTheResponseInTwoCategoriesAlone) {
  for (const std::int32_t category : {-1, 0, 1, 2, 3, 4, 5}) {
    data_set_->put_ProblemCategory(category);
    EXPECT_FALSE(Check("1 2\n3 ?\n", separator_code::kSpace, false));
    const bool checks_response = category == 1 || category == 4;
    EXPECT_THAT(
        message_,
        testing::StartsWith(checks_response ? "Unable to proceed: Invalid input in row 2, column 2."
                                            : "Invalid <DATASET>. Value in row 2, column 2. is"))
        << category;
  }
}

TEST_F(DataSetLiteCheck, OutlivesAHandlerThatLetsGoOfTheSet) {
  const Ref<EventHandlers> sink = MakeObject<EventHandlers>();
  set_.As<IConnectionPoint>()->Advise(sink.get());
  IDataSet* const set = data_set_.get();
  std::string last;
  sink->on_before_data_check = [this](auto&) {
    data_set_.Reset();
    set_.Reset();
  };
  sink->on_after_data_check = [&last](IParseEventArgs& arguments) { last = arguments.Message(); };
  std::int32_t separator = separator_code::kComma;
  EXPECT_TRUE(set->IsValidDataSet(folder_.Write("data.txt", "1,2\n"), false, separator, message_));
  EXPECT_EQ(last, "Data check completed.");
}

TEST_F(DataSetLiteCheck, ServesADataLoadThatItsOwnHandlerRuns) {
  const Ref<EventHandlers> sink = MakeObject<EventHandlers>();
  set_.As<IConnectionPoint>()->Advise(sink.get());
  sink->on_after_data_check = [this](IParseEventArgs& arguments) {
    if (arguments.Message() != "Data check completed.") return;
    data_set_->Parse(arguments.Source(), separator_code::kComma, false, data_set_type::kTesting,
                     layout_code::kRecordsInRows);
  };
  EXPECT_TRUE(Check("1,2\n3,4\n", separator_code::kComma, false));
  EXPECT_EQ(data_set_->Rows(), 2);
  EXPECT_EQ(data_set_->GetItem(1, 1), 4);
}

}  // namespace
}  // namespace tslm5
