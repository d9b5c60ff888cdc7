// What the deployment views of both classes answer alike, over one and the same run, and where they
// are meant to differ.
#include <gmock/gmock.h>

#include <functional>

#include "datasetlite/data_set_lite.h"
#include "original/original_data_set.h"
#include "platform/raised.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"
#include "support/locale.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/deployment_data_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A class with a deployment view. An error of 0 means that nothing is raised.
struct DeploymentClass {
  const char* name;
  Ref<IUnknown> (*make)();
  void (*open)(const Ref<IUnknown>& object, const TestRun& run, std::int32_t set_type);

  // Where the classes are meant to differ.
  std::int32_t new_terminal_count;
  bool is_opened_through_the_view;
  bool counts_the_sets;
  std::int32_t absent_cell_error;
  std::int32_t absent_label_error;
  std::int32_t absent_row_error;
  std::int32_t unknown_categorical_error;
};

void PrintTo(const DeploymentClass& tested, std::ostream* out) {
  *out << tested.name;
}

void OpenOriginal(const Ref<IUnknown>& object, const TestRun& run, std::int32_t set_type) {
  object.As<IDeploymentDataSet>()->Open(Variant(run.Service()), set_type, false);
}

void LoadLite(const Ref<IUnknown>& object, const TestRun& run, std::int32_t set_type) {
  object.As<IPersistable>()->Load(Variant(run.Service()), set_type);
}

const DeploymentClass kClasses[] = {
    {.name = "OriginalDataSet",
     .make = MakeOriginalDataSet,
     .open = OpenOriginal,
     .new_terminal_count = -1,
     .is_opened_through_the_view = true,
     .counts_the_sets = true,
     .absent_cell_error = 9,
     .absent_label_error = 9,
     .absent_row_error = 9,
     .unknown_categorical_error = 9},
    {.name = "DataSetLite",
     .make = MakeDataSetLite,
     .open = LoadLite,
     .new_terminal_count = 0,
     .is_opened_through_the_view = false,
     .counts_the_sets = false,
     .absent_cell_error = 0,
     .absent_label_error = 0,
     .absent_row_error = 41011,
     .unknown_categorical_error = 0},
};

/// A run whose original texts are the numbers of its sets, so that both classes show the same.
class DeploymentConformance : public testing::TestWithParam<DeploymentClass> {
 protected:
  DeploymentConformance() {
    CreateRunTables(*run_.Connection());
    run_.Execute("DROP TABLE OriginalData");
    run_.Execute("CREATE TABLE OriginalData (d0 TEXT, d1 TEXT, row INTEGER PRIMARY KEY)");
    run_.Execute(
        "INSERT INTO OriginalData VALUES ('1', '3.5', 4), (NULL, '7', 6), ('-2', '0.25', 7)");
    for (const std::string table : {"TrainingSet", "TestingSet"}) {
      run_.Execute("CREATE TABLE " + table + " (d0 FLOAT, d1 FLOAT, row INTEGER PRIMARY KEY)");
    }
    run_.Execute("INSERT INTO TrainingSet VALUES (1, 3.5, 4), (NULL, 7, 6)");
    run_.Execute("INSERT INTO TestingSet VALUES (-2, 0.25, 7)");
    run_.Execute(
        "INSERT INTO DataSetColumn VALUES (NULL, 0, 'd0', 'd0', 1, 0, 0, 0), "
        "(NULL, 1, 'd1', 'd1', 0, 3, 0, 1)");
    run_.Execute("INSERT INTO DataSetStatistics VALUES (NULL, 1, 1, 0, 0, 0, 7, 0)");
  }

  void Open(std::int32_t set_type = data_set_type::kTraining) const {
    GetParam().open(object_, run_, set_type);
  }

  /// The records, each with its key and its cells, joined by "|".
  Lines Records() const {
    Lines records;
    for (std::int32_t row = 0; row < view_->Rows(); ++row) {
      std::string& record = records.emplace_back(std::to_string(view_->GetRowOriginalIndex(row)));
      for (std::int32_t column = 0; column < view_->Columns(); ++column) {
        record += '|' + view_->GetItem(column, row);
      }
    }
    return records;
  }

  TestRun run_;
  Ref<IUnknown> object_ = GetParam().make();
  Ref<IDeploymentDataSet> view_ = object_.As<IDeploymentDataSet>();
};
INSTANTIATE_TEST_SUITE_P(Views, DeploymentConformance, testing::ValuesIn(kClasses),
                         [](const testing::TestParamInfo<DeploymentClass>& tested) {
                           return std::string(tested.param.name);
                         });

TEST_P(DeploymentConformance, IsEmptyAtFirst) {
  EXPECT_EQ(view_->Rows(), 0);
  EXPECT_EQ(view_->Columns(), 0);
  EXPECT_EQ(view_->TerminalCount(), GetParam().new_terminal_count);
  EXPECT_FALSE(view_->HasMissingValues(0));
  EXPECT_EQ(view_->GetDataSetRows(1), 0);
}

TEST_P(DeploymentConformance, ServesTheRecordsOfASetWithTheirKeys) {
  Open(data_set_type::kTraining);
  EXPECT_EQ(view_->Columns(), 2);
  EXPECT_EQ(view_->TerminalCount(), 1);
  EXPECT_THAT(Records(), ElementsAre("4|1|3.5", "6||7"));
  Open(data_set_type::kTesting);
  EXPECT_THAT(Records(), ElementsAre("7|-2|0.25"));
}

TEST_P(DeploymentConformance, ShowsDecimalsInTheUsersForm) {
  const ScopedLocale german("de_DE");
  Open();
  EXPECT_THAT(Records(), ElementsAre("4|1|3,5", "6||7"));
}

TEST_P(DeploymentConformance, NamesColumnsWithoutLabels) {
  Open();
  EXPECT_FALSE(view_->HasLabels());
  EXPECT_EQ(view_->GetLabel(0), "d0");
  EXPECT_EQ(view_->GetLabel(1), "y");
}

TEST_P(DeploymentConformance, NamesColumnsByTheirLabels) {
  run_.Execute("UPDATE DataSetColumn SET OriginalLabel = 'O''Brien ' || ColumnIndex");
  run_.Execute("INSERT INTO OriginalDataLabels VALUES ('O''Brien 0', 0, 1), ('O''Brien 1', 1, 1)");
  Open();
  EXPECT_TRUE(view_->HasLabels());
  EXPECT_EQ(view_->GetLabel(0), "O'Brien 0");
  EXPECT_EQ(view_->GetLabel(1), "O'Brien 1");
}

TEST_P(DeploymentConformance, GivesTheMaximumOfTheResponse) {
  Open();
  EXPECT_EQ(view_->GetTargetMax(), 7);
}

TEST_P(DeploymentConformance, KnowsTheFlagsOfItsColumns) {
  Open();
  EXPECT_TRUE(view_->IsColumnCategorical(0));
  EXPECT_FALSE(view_->IsColumnCategorical(1));
  EXPECT_FALSE(view_->HasMissingValues(0));
  EXPECT_TRUE(view_->HasMissingValues(1));
}

TEST_P(DeploymentConformance, KnowsNothingOfAnUnknownColumn) {
  Open();
  for (const std::int32_t column : {-1, 2, 1000}) {
    EXPECT_FALSE(view_->HasMissingValues(column)) << column;
    bool is_categorical = false;
    EXPECT_EQ(RaisedNumber([&] { is_categorical = view_->IsColumnCategorical(column); }),
              GetParam().unknown_categorical_error);
    EXPECT_FALSE(is_categorical) << column;
  }
}

TEST_P(DeploymentConformance, RaisesItsOwnErrorsOutsideTheData) {
  Open();
  std::string text;
  EXPECT_EQ(RaisedNumber([&] { text = view_->GetItem(0, 2); }), GetParam().absent_cell_error);
  EXPECT_EQ(RaisedNumber([&] { text = view_->GetItem(-1, 0); }), GetParam().absent_cell_error);
  EXPECT_EQ(text, "");
  EXPECT_EQ(RaisedNumber([&] { view_->GetLabel(99); }), GetParam().absent_label_error);
  EXPECT_EQ(RaisedNumber([&] { view_->GetRowOriginalIndex(2); }), GetParam().absent_row_error);
  EXPECT_EQ(RaisedNumber([&] { view_->GetRowOriginalIndex(-1); }), GetParam().absent_row_error);
}

TEST_P(DeploymentConformance, CountsTheSetsOfTheRunOrNone) {
  Open();
  const bool counts = GetParam().counts_the_sets;
  EXPECT_EQ(view_->GetDataSetRows(1), counts ? 2 : 0);
  EXPECT_EQ(view_->GetDataSetRows(2), counts ? 1 : 0);
  EXPECT_EQ(view_->GetDataSetRows(3), 0);
}

TEST_P(DeploymentConformance, IsOpenedThroughTheViewOrStaysAsItWas) {
  Open(data_set_type::kTesting);
  const Lines before = Records();
  view_->Open(Variant(run_.Service()), data_set_type::kTraining, false);
  if (GetParam().is_opened_through_the_view) {
    EXPECT_THAT(Records(), ElementsAre("4|1|3.5", "6||7"));
  } else {
    EXPECT_EQ(Records(), before);
  }
}

TEST_P(DeploymentConformance, SwallowsAPathThatIsNoRun) {
  Open();
  view_->OpenFromFile("/no/such/run.db", data_set_type::kTraining, false);
  EXPECT_EQ(view_->Rows(), GetParam().is_opened_through_the_view ? 0 : 2);
}

TEST_P(DeploymentConformance, TakesAnEmptySet) {
  run_.Execute("DELETE FROM TrainingSet");
  Open();
  EXPECT_EQ(view_->Columns(), 2);
  EXPECT_THAT(Records(), IsEmpty());
}

TEST_P(DeploymentConformance, IsAFaceOfTheOneObject) {
  EXPECT_EQ(view_.As<IUnknown>().get(), object_.get());
  EXPECT_EQ(view_.As<IDataSet>().As<IDeploymentDataSet>().get(), view_.get());
  EXPECT_EQ(view_->TypeName(), GetParam().name);
}

TEST_P(DeploymentConformance, NeverWritesToTheRun) {
  run_.Log().Clear();
  Open();
  Records();
  view_->GetTargetMax();
  for (const std::string& statement : run_.Log().statements) {
    EXPECT_EQ(statement.rfind("SELECT ", 0), 0U) << statement;
  }
}

}  // namespace
}  // namespace tslm5
