// The response check of a parse: classified data need more than one class.
#include <gmock/gmock.h>

#include "inmemory/memory_set.h"

namespace tslm5 {
namespace {

Error ErrorOf(std::int32_t category, std::string_view text) {
  const MemorySet set;
  set->put_ProblemCategory(category);
  const Error error = set.ErrorOf(text);
  EXPECT_EQ(set->IsReady(), error.Number() == 0);
  return error;
}

auto IsSingleClass(const std::string& advice) {
  return IsError(
      41026, "ParseString",
      "Unable to proceed: The Response Variable has only 1 kind of class.\r\n\r\n" + advice);
}

TEST(TextParsingClasses, MustBeTwoForABinaryResponse) {
  EXPECT_THAT(ErrorOf(3, "7,1\n8,1\n9,1"),
              IsSingleClass("Please make sure that the response variable is binary."));
}

TEST(TextParsingClasses, MustBeTwoForAClassifiedResponse) {
  for (const std::int32_t category : {1, 4}) {
    EXPECT_THAT(
        ErrorOf(category, "7,1\n8,1"),
        IsSingleClass("Please make sure that your dataset has at least 2 different classes."));
  }
}

TEST(TextParsingClasses, AreNotCountedForOtherResponses) {
  for (const std::int32_t category : {0, 2, 5, -1}) {
    EXPECT_EQ(ErrorOf(category, "7,1\n8,1").Number(), 0) << category;
  }
}

TEST(TextParsingClasses, AreComparedAsTexts) {
  EXPECT_EQ(ErrorOf(3, "7,1\n8,1.0").Number(), 0);
  EXPECT_EQ(ErrorOf(3, "7,1\n8,1,\n,9,1").Number(), 41026);
}

TEST(TextParsingClasses, AreComparedWithTheFirstOne) {
  EXPECT_EQ(ErrorOf(1, "7,1\n8,1\n9,2\n7,1").Number(), 0);
  EXPECT_EQ(ErrorOf(1, "7,1").Number(), 41026) << "one record has one class";
}

TEST(TextParsingClasses, AreTestedAfterTheLastRecord) {
  const MemorySet set;
  set->put_ProblemCategory(1);
  const Ref<RecordingMemoryEvents> events = set.Listen();
  EXPECT_EQ(set.ErrorOf("7,1\n8,1").Number(), 41026);
  EXPECT_THAT(events->lines, testing::ElementsAre("BeforeDataLoad 2 x 2", "RecordParsed 0 of 2",
                                                  "RecordParsed 1 of 2"));
  EXPECT_EQ(set->Rows(), 0);
  EXPECT_EQ(set.ErrorOf("7,1\n8,1\n9,x").Number(), 41011);
}

}  // namespace
}  // namespace tslm5
