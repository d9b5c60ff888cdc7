#include "host/preparation/code_changes.h"

#include <gmock/gmock.h>

#include <cmath>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

using testing::ElementsAre;
using testing::Field;

template <class Work>
std::string Refusal(Work work) {
  try {
    work();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Code(), ExitCode::kUsage);
    return failure.what();
  }
  return "not refused";
}

TEST(CodeChanges, AreSplitAtTheLastEqualsSign) {
  const CodeChange plain = ParseCodeChange("red=2");
  EXPECT_EQ(plain.value, "red");
  EXPECT_EQ(plain.code, 2.0);
  const CodeChange odd = ParseCodeChange("a=b, c =-2.5e1");
  EXPECT_EQ(odd.value, "a=b, c ");
  EXPECT_EQ(odd.code, -25.0);
  EXPECT_EQ(ParseCodeChange("=1").value, "");
}

TEST(CodeChanges, TakeZeroWithoutASign) {
  EXPECT_FALSE(std::signbit(ParseCodeChange("red=-0").code));
}

TEST(CodeChanges, RefuseWhatTheyCannotRead) {
  EXPECT_EQ(Refusal([] { ParseCodeChange("red"); }),
            "--set: \"red\" has no =; expected VALUE=NUMBER");
  EXPECT_EQ(
      Refusal([] { ParseCodeChange("red=2,5"); }),
      "--set: \"2,5\" in \"red=2,5\" is no number; expected VALUE=NUMBER, the decimals behind "
      "a point");
  EXPECT_EQ(Refusal([] { ParseCodeChange("red="); }),
            "--set: \"\" in \"red=\" is no number; expected VALUE=NUMBER, the decimals behind a "
            "point");
  EXPECT_EQ(Refusal([] { ParseMerge("red=1"); }),
            "--merge: \"red=1\" names one value; expected VALUE,VALUE=NUMBER (--set gives one "
            "value a code)");
}

TEST(CodeChanges, OfAMergeHaveOneCode) {
  const auto change = [](const char* value) {
    return testing::AllOf(Field(&CodeChange::value, value), Field(&CodeChange::code, 3.0));
  };
  EXPECT_THAT(ParseMerge("a,b=c,d e=3"), ElementsAre(change("a"), change("b=c"), change("d e")));
}

TEST(CodeChanges, OfOneValueMustAgree) {
  std::vector<CodeChange> changes;
  AddCodeChange({"a", 1}, changes);
  AddCodeChange({"a", 1}, changes);
  AddCodeChange({"b", 2}, changes);
  EXPECT_THAT(changes, ElementsAre(Field(&CodeChange::value, "a"), Field(&CodeChange::value, "b")));
  EXPECT_EQ(Refusal([&changes] {
              AddCodeChange({"b", 2.5}, changes);
            }),
            "the value \"b\" is given two codes, 2 and 2.5");
}

}  // namespace
}  // namespace tslm5::host
