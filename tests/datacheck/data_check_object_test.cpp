#include "datacheck/data_check_object.h"

#include <gmock/gmock.h>

#include <string>

#include "datacheck/invalid_position.h"
#include "platform/raised.h"
#include "support/temporary_folder.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/object.h"

namespace tslm5 {
namespace {

class DataCheckObject : public testing::Test {
 protected:
  DataCheckResult Check(std::string_view bytes, IFeedback* feedback = nullptr) {
    options_.path = folder_.Write("data.csv", bytes);
    return MakeDataCheck()->Check(options_, feedback);
  }

  TemporaryFolder folder_;
  DataCheckOptions options_;
};

TEST_F(DataCheckObject, PassesAValidTextAndTellsItsSize) {
  const DataCheckResult result = Check("a,b\n1,2\n3,4\n5,6\n");
  EXPECT_TRUE(result.is_valid);
  EXPECT_EQ(result.count, 0);
  EXPECT_EQ(result.records, 3);
  EXPECT_EQ(result.columns, 2);
  EXPECT_EQ(result.first_line, 2);
  EXPECT_TRUE(result.is_plain);
  EXPECT_TRUE(result.findings.empty());
}

TEST_F(DataCheckObject, GivesTheFirstFindingAsData) {
  const DataCheckResult result = Check("a,b\n1,2\n3,abcdefghijklmnopqrs\n4\n");
  EXPECT_FALSE(result.is_valid);
  EXPECT_FALSE(result.is_plain);
  EXPECT_EQ(result.count, 1);
  ASSERT_EQ(result.findings.size(), 1u);
  const DataCheckFinding& finding = result.findings[0];
  EXPECT_EQ(finding.code, CheckCode::kText);
  EXPECT_EQ(finding.line, 3);
  EXPECT_EQ(finding.record, 2);
  EXPECT_EQ(finding.column, 2);
  EXPECT_EQ(finding.label, "b");
  EXPECT_EQ(finding.value, "abcdefghijklmnopqrs");
  EXPECT_EQ(finding.message,
            "Invalid Training. Value in row 2, column 2. is invalid: abcdefghijklmno");
}

TEST_F(DataCheckObject, CountsAllFindingsAndKeepsTheFirst) {
  options_.finds_all = true;
  options_.most_kept = 2;
  options_.set_name = "Testing";
  const DataCheckResult result = Check("a,b\n1,x\n\n4\ny,z\n");
  EXPECT_EQ(result.count, 5);
  ASSERT_EQ(result.findings.size(), 2u);
  EXPECT_EQ(result.findings[1].code, CheckCode::kEmptyLine);
  EXPECT_EQ(result.findings[1].line, 3);
  EXPECT_EQ(result.findings[1].message, "Invalid Testing. The data contains empty rows.");
  EXPECT_EQ(result.records, 3);
}

TEST_F(DataCheckObject, TakesTextAndMissingValuesWhereTheyAreAllowed) {
  options_.takes_text = true;
  options_.takes_missing = true;
  options_.problem_category = problem_category::kClassification;
  EXPECT_TRUE(Check("a,b\nx,yes\nNA,no\n").is_valid);
  const DataCheckResult refused = Check("a,b\nx,yes\n1,NA\n");
  ASSERT_EQ(refused.findings.size(), 1u);
  EXPECT_EQ(refused.findings[0].code, CheckCode::kMissingResponse);
  EXPECT_EQ(refused.findings[0].line, 3);
}

TEST_F(DataCheckObject, NamesNoPlaceForTheWholeText) {
  options_.separator = 9;
  const DataCheckResult result = Check("a,b\n1,2\n");
  ASSERT_EQ(result.findings.size(), 1u);
  EXPECT_EQ(result.findings[0].code, CheckCode::kUnknownSeparator);
  EXPECT_EQ(result.findings[0].line, 0);
  EXPECT_EQ(result.findings[0].message, "Invalid separator.");
}

TEST_F(DataCheckObject, TellsOfFieldsThatALoadChanges) {
  const DataCheckResult result = Check("a,b\n1,2\n3\t,4;\n");
  EXPECT_TRUE(result.is_valid);
  EXPECT_FALSE(result.is_plain);
  EXPECT_EQ(result.changed_count, 2);
  ASSERT_TRUE(result.first_changed);
  EXPECT_EQ(result.first_changed->line, 3);
  EXPECT_EQ(result.first_changed->column, 1);
  EXPECT_EQ(result.first_changed->value, "3\t");
}

TEST_F(DataCheckObject, CutsALongValueBetweenTwoCharacters) {
  std::string value(199, 'x');
  value += "éé";
  const DataCheckResult result = Check("a,b\n1,2\n1," + value + "\n");
  ASSERT_EQ(result.findings.size(), 1u);
  EXPECT_EQ(result.findings[0].value, std::string(199, 'x'));
}

TEST_F(DataCheckObject, NotesNoInvalidPosition) {
  LastInvalidPosition() = {7, 8};
  EXPECT_FALSE(Check("a,b\n1,x\n").is_valid);
  EXPECT_EQ(LastInvalidPosition().column, 7);
  EXPECT_EQ(LastInvalidPosition().row, 8);
}

TEST_F(DataCheckObject, RaisesWhatIsNotOfTheText) {
  const Ref<IDataCheck> check = MakeDataCheck();
  EXPECT_EQ(check->TypeName(), "DataCheck");
  options_.path = folder_.Path() + "/absent.csv";
  EXPECT_EQ(RaisedNumber([&] { check->Check(options_, nullptr); }), 53);
  options_.path = folder_.Path();
  EXPECT_EQ(RaisedNumber([&] { check->Check(options_, nullptr); }), 75);
}

/// Stops a check at a position.
class Stopper final : public CountedObject<IFeedback> {
 public:
  std::string_view TypeName() override { return "Stopper"; }
  bool ReportProgress(std::int32_t pPosition, std::string_view) override {
    last_position = pPosition;
    return pPosition < stops_at;
  }
  bool ContinueFlag() override { return true; }
  void Finish() override { is_finished = true; }
  void Start() override { is_started = true; }
  void SetMaximum(std::int32_t pMaximum) override { maximum = pMaximum; }

  std::int32_t stops_at = 1000000;
  std::int32_t last_position = -1;
  std::int32_t maximum = 0;
  bool is_started = false;
  bool is_finished = false;

 private:
  ~Stopper() override = default;
};

TEST_F(DataCheckObject, ReportsToItsFeedbackAndStopsWhenAsked) {
  std::string text = "a,b\n";
  for (int i = 0; i < 10'000; ++i) text += "1,2\n";
  const Ref<Stopper> feedback = MakeObject<Stopper>();
  EXPECT_TRUE(Check(text, feedback.get()).is_valid);
  EXPECT_TRUE(feedback->is_started);
  EXPECT_TRUE(feedback->is_finished);
  EXPECT_EQ(feedback->maximum, 10'000);
  EXPECT_EQ(feedback->last_position, 9'999);
  feedback->stops_at = 4096;
  feedback->is_finished = false;
  const DataCheckResult stopped = Check(text, feedback.get());
  EXPECT_TRUE(stopped.was_stopped);
  EXPECT_FALSE(stopped.is_valid);
  EXPECT_EQ(stopped.count, 0);
  EXPECT_EQ(stopped.records, 4096);
  EXPECT_FALSE(feedback->is_finished);
}

}  // namespace
}  // namespace tslm5
