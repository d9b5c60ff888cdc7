#include "host/preparation/delimited_text.h"

#include <gtest/gtest.h>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

template <class Work>
Failure FailureIn(Work work) {
  try {
    work();
  } catch (const Failure& failure) {
    return failure;
  }
  return Failure(ExitCode::kDone, "no failure");
}

TEST(DelimitedText, IsTransposed) {
  const Separator& comma = *FindSeparator("comma");
  EXPECT_EQ(Transposed("1,2,3\n4,5,6\n", comma), "1,4\n2,5\n3,6");
  EXPECT_EQ(Transposed("1,2,3\n4,5", comma), "1,4\n2,5\n3");
  EXPECT_EQ(Transposed("1,,3\n\n4,5,", comma), "1,4\n,5\n3,");
  EXPECT_EQ(Transposed("", comma), "");
}

TEST(DelimitedText, ALineLongerThanTheFirstCannotBeTransposed) {
  const Failure longer = FailureIn([] { Transposed("1,2\n3,4\n5,6,7", *FindSeparator("comma")); });
  EXPECT_EQ(longer.Code(), ExitCode::kRefused);
  EXPECT_STREQ(longer.what(),
               "line 3 has more fields than the first line, which has 2; with the layout columns "
               "every line must hold one value a record");
}

}  // namespace
}  // namespace tslm5::host
