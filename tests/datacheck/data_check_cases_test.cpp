// Runs every case of the folder `cases`: a new one needs two files there and no C++.

#include <gmock/gmock.h>

#include <string>
#include <utility>

#include "datacheck/check_case.h"
#include "datacheck/check_events.h"
#include "datacheck/data_check.h"
#include "datacheck/invalid_position.h"
#include "datasetlite/data_set_lite.h"
#include "support/locale.h"
#include "support/temporary_folder.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/event_handlers.h"

namespace tslm5 {
namespace {

constexpr const char* kUntouched = "untouched";

class DataCheckCases : public testing::TestWithParam<std::string> {
 protected:
  static std::string PathOf(const TemporaryFolder& folder, const std::string* bytes) {
    return bytes == nullptr ? folder.PathOf("absent.txt") : folder.Write("data.txt", *bytes);
  }

  /// Runs `check(file name, events, separator, message)` and compares all that comes of it.
  template <class Check>
  void Expect(const CheckCase& expected, const std::string* bytes, Check&& check) {
    const ScopedLocale locale(expected.locale);
    const TemporaryFolder folder;
    CheckEvents events(expected.cancel_at);
    std::int32_t separator = expected.separator;
    std::string message = kUntouched;
    LastInvalidPosition() = kOlderPosition;
    EXPECT_EQ(check(PathOf(folder, bytes), events, separator, message), expected.result);
    EXPECT_EQ(message, expected.message.value_or(kUntouched));
    EXPECT_EQ(separator, expected.separator);
    EXPECT_EQ(LastInvalidPosition().column, expected.position.column);
    EXPECT_EQ(LastInvalidPosition().row, expected.position.row);
    EXPECT_THAT(events.seen, testing::ElementsAreArray(expected.events));
  }

  void ExpectOfTheCheck(const CheckCase& expected, const std::string* bytes) {
    Expect(expected, bytes,
           [&expected](const std::string& path, CheckEvents& events, std::int32_t separator,
                       std::string& message) {
             return CheckDataFile(path, expected.has_labels, separator, expected.rules, events,
                                  message);
           });
  }

  void ExpectWithNobodyListening(CheckCase expected, const std::string* bytes) {
    std::erase_if(expected.events, [](const auto& event) { return event.name == "LoadFeedback"; });
    Expect(expected, bytes,
           [&expected](const std::string& path, CheckEvents& events, std::int32_t separator,
                       std::string& message) {
             events.is_listening = false;
             return CheckDataFile(path, expected.has_labels, separator, expected.rules, events,
                                  message);
           });
  }

  void ExpectOfADataSetLite(const CheckCase& expected, const std::string* bytes) {
    Expect(expected, bytes,
           [&expected](const std::string& path, CheckEvents& events, std::int32_t& separator,
                       std::string& message) {
             const Ref<IUnknown> object = MakeDataSetLite();
             const Ref<EventHandlers> sink = MakeObject<EventHandlers>();
             sink->on_before_data_check = [&events](auto& ev) { events.BeforeDataCheck(ev); };
             sink->on_load_feedback = [&events](auto& ev) { events.LoadFeedback(ev); };
             sink->on_after_data_check = [&events](auto& ev) { events.AfterDataCheck(ev); };
             object.As<IConnectionPoint>()->Advise(sink.get());
             const Ref<IDataSet> set = object.As<IDataSet>();
             set->put_ProblemCategory(expected.rules.checks_response
                                          ? problem_category::kClassification
                                          : problem_category::kRegression);
             return set->IsValidDataSet(path, expected.has_labels, separator, message);
           });
  }
};

TEST_P(DataCheckCases, GivesTheResultMessageEventsAndPosition) {
  const CheckCase expected = ReadCheckCase(GetParam());
  const std::string* const bytes = expected.bytes ? &*expected.bytes : nullptr;
  ExpectOfTheCheck(expected, bytes);
  if (bytes != nullptr && expected.has_crlf_form) {
    SCOPED_TRACE("with carriage returns");
    const std::string crlf = WithCrlf(*bytes);
    ExpectOfTheCheck(expected, &crlf);
  }
  if (expected.cancel_at.empty()) {
    SCOPED_TRACE("with nobody listening");
    ExpectWithNobodyListening(expected, bytes);
  }
  if (expected.has_usual_limits) {
    SCOPED_TRACE("through a DataSetLite");
    ExpectOfADataSetLite(expected, bytes);
  }
}

INSTANTIATE_TEST_SUITE_P(, DataCheckCases, testing::ValuesIn(CheckCaseNames()),
                         [](const auto& one) { return one.param; });

TEST(DataCheckCaseFolder, IsFoundFromTheFolderThatTestsRunIn) {
  EXPECT_THAT(CheckCaseNames(), testing::Contains("absent_file"));
}

TEST(DataCheckCaseFolder, HoldsNoDataWithoutItsExpectation) {
  EXPECT_THAT(CheckDataOfNoCase(), testing::IsEmpty());
}

}  // namespace
}  // namespace tslm5
