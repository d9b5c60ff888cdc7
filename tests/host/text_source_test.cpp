#include "host/preparation/text_source.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "host/answers/text_warnings.h"
#include "host/program/failure.h"
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

std::string ReadAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(TextSource, HasOneLineFeedALine) {
  struct Case {
    const char* name;
    std::string bytes;
    std::string text;
  };
  const Case cases[] = {
      {"line feeds", "a\nb\n", "a\nb\n"},
      {"both",
       "\xEF\xBB\xBF"
       "a\r\nb\r\r\nc\rd\n\r\n",
       "a\nb\r\nc\rd\n\n"},
      {"carriage returns alone", "a\rb\r\rc", "a\nb\n\nc"},
      {"Windows-1252", "\xE9\n", "\xC3\xA9\n"},
      {"two marks",
       "\xEF\xBB\xBF\xEF\xBB\xBF"
       "a\r\n",
       "\xEF\xBB\xBF"
       "a\n"},
      {"nothing", "", ""},
  };
  const TemporaryFolder folder;
  for (const Case& one : cases) {
    const TextSource source(folder.Write("a", one.bytes));
    EXPECT_EQ(source.Text(), one.text) << one.name;
  }
}

TEST(TextSource, GivesTheSameTextAtItsPath) {
  const TemporaryFolder folder;
  for (const std::string& bytes : {"1,2\n"s,
                                   "\xEF\xBB\xBF"
                                   "1,2\n"s,
                                   "\xE9\r\n"s, "a\rb"s,
                                   "\xFF\xFE\xFF\xFE"
                                   "a\0"s}) {
    const TextSource source(folder.Write("a", bytes));
    std::string at_path = ReadAll(source.Path());
    at_path.erase(0, MarkSize(at_path));  // as the component does
    EXPECT_EQ(at_path, source.Text());
    EXPECT_EQ(ReadAll(source.Path()), ReadAll(source.Path())) << "it can be read again";
  }
}

TEST(TextSource, StaysAsItWasWhateverHappensToTheFile) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("a", "1,2\n3,4\n");
  const TextSource source(file);
  folder.Write("a", "5,6\n7,8\n");
  EXPECT_EQ(source.Text(), "1,2\n3,4\n");
  EXPECT_EQ(ReadAll(source.Path()), "1,2\n3,4\n");
  std::filesystem::remove(file);
  EXPECT_EQ(ReadAll(source.Path()), "1,2\n3,4\n");
}

TEST(TextSource, CannotBeChangedAtItsPath) {
  const TemporaryFolder folder;
  const TextSource source(folder.Write("a", "1,2\n"));
  std::ofstream(source.Path(), std::ios::in | std::ios::out) << "9,9\n";
  EXPECT_EQ(source.Text(), "1,2\n");
  EXPECT_EQ(ReadAll(source.Path()), "1,2\n");
}

TEST(TextSource, NamesFileTrouble) {
  const TemporaryFolder folder;
  const Failure absent = FailureIn([&] { TextSource(folder.Path("none")); });
  EXPECT_EQ(absent.Code(), ExitCode::kTrouble);
  EXPECT_EQ(absent.what(), folder.Path("none") + ": no such file");
  const Failure directory = FailureIn([&] { TextSource(folder.Path("")); });
  EXPECT_EQ(directory.Code(), ExitCode::kTrouble);
  EXPECT_EQ(directory.what(), folder.Path("") + ": this is a directory; a file was expected");
  const Failure device = FailureIn([] { TextSource("/dev/null"); });
  EXPECT_EQ(device.Code(), ExitCode::kTrouble);
  EXPECT_STREQ(device.what(), "/dev/null: this is no file and no pipe");
}

TEST(TextSource, RefusesAnEmptyFile) {
  const TemporaryFolder folder;
  const TextSource source(folder.Write("e", ""));
  const Failure empty = FailureIn([&] { source.RequireText(); });
  EXPECT_EQ(empty.Code(), ExitCode::kRefused);
  EXPECT_EQ(empty.what(), folder.Path("e") + ": the file is empty");
}

TEST(TextSource, RefusesANulByteByItsLine) {
  const TemporaryFolder folder;
  for (const std::string& bytes : {"a\n1\n\0\n2\n"s,
                                   "\xFF\xFE"
                                   "a\0\n\0\n\0\0\0"s}) {
    const TextSource source(folder.Write("n", bytes));
    const Failure nul = FailureIn([&] { source.RequireText(); });
    EXPECT_EQ(nul.Code(), ExitCode::kRefused);
    EXPECT_STREQ(nul.what(),
                 "line 3 holds a NUL byte: this is no text, or UTF-16 without the mark at its "
                 "beginning that says so");
  }
}

TEST(TextSource, TellsOfBrokenCharactersOfUtf16) {
  const TemporaryFolder folder;
  // A pair; a first half alone at the end of line 1, a second half alone in line 2, half a unit.
  const std::string bytes =
      "\xFF\xFE"
      "\x3D\xD8\x00\xDE\x3D\xD8\n\0\x00\xDE"
      "a"s;
  const TextSource source(folder.Write("u", bytes));
  EXPECT_EQ(source.Broken().count, 3);
  EXPECT_EQ(source.Broken().first_line, 1);
  EXPECT_EQ(TextWarnings(source),
            std::vector<std::string>{folder.Path("u") +
                                     ": 3 broken characters of the UTF-16 text are read as U+FFFD; "
                                     "the first: line 1"});
  const TextSource whole(folder.Write("w",
                                      "\xFF\xFE"
                                      "\x3D\xD8\x00\xDE\n\0"s));
  EXPECT_EQ(whole.Broken().count, 0);
  EXPECT_TRUE(TextWarnings(whole).empty());
}

TEST(TextSource, TellsOfCarriageReturnsAlone) {
  const TemporaryFolder folder;
  const TextSource source(folder.Write("c", "a\r1\r"));
  EXPECT_EQ(TextWarnings(source),
            std::vector<std::string>{folder.Path("c") +
                                     ": the lines end with a carriage return alone, which is taken "
                                     "as a line end"});
}

TEST(TextSource, TakesCarriageReturnsAloneBeforeOneLineFeedAtTheEnd) {
  const TemporaryFolder folder;
  EXPECT_EQ(TextSource(folder.Write("c", "a\r1\n")).Text(), "a\n1\n");
  EXPECT_EQ(TextSource(folder.Write("d", "a\r1\r\n")).Text(), "a\n1\n");
  EXPECT_EQ(TextSource(folder.Write("e", "a\r1\n2\n")).Text(), "a\r1\n2\n");
}

}  // namespace
}  // namespace tslm5::host
