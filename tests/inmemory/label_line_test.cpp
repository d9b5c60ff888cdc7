#include "inmemory/label_line.h"

#include <gmock/gmock.h>

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LabelLine, IsTheFirstLineSplitAtTheSeparator) {
  EXPECT_THAT(LabelLine::Read("a,b,c\n1,2,3", ","), ElementsAre("a", "b", "c"));
  EXPECT_THAT(LabelLine::Read("a\tb\n", "\t"), ElementsAre("a", "b"));
}

TEST(LabelLine, NeedsALineFeed) {
  EXPECT_THAT(LabelLine::Read("a,b", ","), IsEmpty());
  EXPECT_THAT(LabelLine::Read("\na,b", ","), IsEmpty());
}

TEST(LabelLine, TakesRunsOfSeparatorsAndBlanksForOne) {
  EXPECT_THAT(LabelLine::Read(",a,,, b  c,\n", ","), ElementsAre("a", "b", "c"));
}

TEST(LabelLine, MakesCode5ABlankInsideALabel) {
  EXPECT_THAT(LabelLine::Read("my\x05label,x\n", ","), ElementsAre("my label", "x"));
}

TEST(LabelLine, DeletesCode5WithoutASeparator) {
  EXPECT_THAT(LabelLine::Read("my\x05label x,y\n", ""), ElementsAre("mylabel", "x,y"));
}

TEST(LabelLine, DoublesTheLabelThatIsThePrefixOfVariables) {
  EXPECT_THAT(LabelLine::Read("d,D,dx,dd\n", ","), ElementsAre("dd", "DD", "dx", "dd"));
}

}  // namespace
}  // namespace tslm5
