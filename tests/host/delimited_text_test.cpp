#include "host/delimited_text.h"

#include <gtest/gtest.h>

#include "host/failure.h"
#include "tests/host/temporary_folder.h"

namespace tslm5::host {
namespace {

using namespace std::string_literals;

template <class Work>
Failure FailureIn(Work work) {
  try {
    work();
  } catch (const Failure& failure) {
    return failure;
  }
  return Failure(ExitCode::kDone, "no failure");
}

TEST(DelimitedText, IsReadWithOneLineFeedALine) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadTextFile(folder.Write("a",
                                      "\xEF\xBB\xBF"
                                      "a\r\nb\r\r\nc\rd\n\r\n")),
            "a\nb\r\nc\rd\n\n");
}

TEST(DelimitedText, FileTroubleIsNamed) {
  const TemporaryFolder folder;
  const Failure absent = FailureIn([&] { ReadTextFile(folder.Path("none")); });
  EXPECT_EQ(absent.Code(), ExitCode::kTrouble);
  EXPECT_EQ(absent.what(), folder.Path("none") + ": there is no such file");
  const Failure directory = FailureIn([&] { ReadTextFile(folder.Path("")); });
  EXPECT_EQ(directory.Code(), ExitCode::kTrouble);
  EXPECT_EQ(directory.what(), folder.Path("") + ": this is a directory; a file was expected");
  const Failure device = FailureIn([] { ReadTextFile("/dev/null"); });
  EXPECT_EQ(device.Code(), ExitCode::kTrouble);
  EXPECT_STREQ(device.what(),
               "/dev/null: this is not a regular file; the loader reads its data more than once");
}

TEST(DelimitedText, RefusesAnEmptyFileAndNulBytes) {
  const TemporaryFolder folder;
  const Failure empty = FailureIn([&] { ReadTextFile(folder.Write("e", "")); });
  EXPECT_EQ(empty.Code(), ExitCode::kRefused);
  EXPECT_EQ(empty.what(), folder.Path("e") + ": the file is empty");
  const Failure nul = FailureIn([&] { ReadTextFile(folder.Write("n", "a\n1\n\0"s)); });
  EXPECT_EQ(nul.Code(), ExitCode::kRefused);
  EXPECT_STREQ(nul.what(),
               "line 3 holds a NUL byte: this is no text, or UTF-16 without the mark at its "
               "beginning that says so");
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
