#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "contracts/event_args_objects.h"
#include "inmemory/memory_set.h"
#include "support/temporary_folder.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

constexpr uid_t kNobody = 65534;
constexpr int kNoSuchUser = 255;

class TextParsingFiles : public testing::Test {
 protected:
  std::string File(std::string_view bytes) const { return folder_.Write("data.csv", bytes); }
  void Parse(std::string_view bytes, const TextOptions& options = {}) const {
    set_.ParseFile(File(bytes), options);
  }

  TemporaryFolder folder_;
  MemorySet set_;
};

TEST_F(TextParsingFiles, AreReadWhole) {
  Parse("a,b\n1,2\n3,4\n", {.has_labels = true, .type = 2});
  EXPECT_THAT(set_.Labels(), ElementsAre("a", "b"));
  EXPECT_THAT(set_.Records(), ElementsAre("1,2", "3,4"));
  EXPECT_EQ(set_->Name(), "Testing");
}

TEST_F(TextParsingFiles, MayEndTheirLinesTheOtherWay) {
  Parse("a,b\r\n1,2\r\n\r\n3,4\r\n", {.has_labels = true});
  EXPECT_THAT(set_.Labels(), ElementsAre("a", "b"));
  EXPECT_THAT(set_.Records(), ElementsAre("1,2", "3,4"));
}

TEST_F(TextParsingFiles, MayBeginWithAByteOrderMark) {
  Parse(
      "\xEF\xBB\xBF"
      "a,b\n1,2",
      {.has_labels = true});
  EXPECT_THAT(set_.Labels(), ElementsAre("a", "b"));
}

TEST_F(TextParsingFiles, MayBeOfOneByteACharacter) {
  Parse("\xE9,b\n1,2", {.has_labels = true});
  EXPECT_THAT(set_.Labels(), ElementsAre("\xC3\xA9", "b"));
}

TEST_F(TextParsingFiles, CanBeTransposed) {
  Parse("1,2,3\n4,5,6\n", {.layout = 2});
  EXPECT_THAT(set_.Records(), ElementsAre("1,4", "2,5", "3,6"));
}

TEST_F(TextParsingFiles, NameTheirPathInTheEvents) {
  const Ref<RecordingMemoryEvents> events = set_.Listen();
  const std::string path = File("1,2\n3,4");
  set_.ParseFile(path);
  EXPECT_THAT(events->sources, ElementsAre(path + " 0", path + " 0"));
  EXPECT_THAT(events->lines,
              ElementsAre("BeforeDataLoad 2 x 2", "RecordParsed 0 of 2", "RecordParsed 1 of 2",
                          "AfterDataLoad 2 x 2: Data load succeded."));
}

TEST_F(TextParsingFiles, AreParsedWithTheCallersArgument) {
  const Ref<RecordingMemoryEvents> events = set_.Listen();
  const Ref<IParseEventArgs> arguments = MakeParseEventArgs();
  arguments->put_Source("mine");
  arguments->put_ParseType(4);
  set_.As<IInMemorySet>()->ParseWithEvents(File("1,2"), 2, false, 1, 1, arguments.get());
  EXPECT_THAT(events->sources, ElementsAre("mine 4", "mine 4"));
  EXPECT_EQ(arguments->Message(), "Data load succeded.");
  const std::string path = File("3,4");
  set_.As<IInMemorySet>()->ParseWithEvents(path, 2, false, 1, 1, nullptr);
  EXPECT_EQ(events->sources.back(), path + " 0");
  EXPECT_THAT(set_.Records(), ElementsAre("3,4"));
}

TEST_F(TextParsingFiles, MustBeThere) {
  set_.Parse("7,8");
  const auto error_of = [this](const std::string& path) {
    return Raised([&] { set_.ParseFile(path); });
  };
  EXPECT_THAT(error_of(""), IsError(41001));
  EXPECT_THAT(error_of(folder_.PathOf("none.csv")), IsError(41007));
  EXPECT_THAT(error_of(folder_.Path()), IsError(41007)) << "a folder is no file";
  EXPECT_TRUE(set_->IsReady());
  EXPECT_THAT(set_.Records(), ElementsAre("7,8"));
}

TEST_F(TextParsingFiles, MayBeEmpty) {
  EXPECT_THAT(Raised([this] { Parse(""); }), IsError(41023));
}

TEST_F(TextParsingFiles, MayNotBeReadable) {
  const std::string path = File("1,2");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  ASSERT_EQ(::chmod(folder_.Path().c_str(), 0755), 0);
  const auto parse = [&] { return RaisedNumber([&] { set_.ParseFile(path); }); };
  if (::geteuid() != 0) {
    EXPECT_EQ(parse(), 75);
    return;
  }
  const pid_t child = ::fork();  // as somebody else: the superuser reads every file
  if (child == 0) ::_exit(::setuid(kNobody) == 0 ? parse() : kNoSuchUser);
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFEXITED(status));
  if (WEXITSTATUS(status) == kNoSuchUser) GTEST_SKIP() << "there is no other user";
  EXPECT_EQ(WEXITSTATUS(status), 75);
}

TEST_F(TextParsingFiles, MayHoldAnything) {
  std::string every_byte;
  for (int i = 0; i < 256; ++i) every_byte += static_cast<char>(i);
  EXPECT_EQ(Raised([&] { Parse("1,2\n" + every_byte); }).Number(), 41024);
  EXPECT_THAT(Raised([&] { Parse(std::string("1,2\n3,4\0", 8)); }),
              IsError(41011, "ParseString", std::string("Sample 2 in row 2 is invalid: 4\0", 32)));
}

}  // namespace
}  // namespace tslm5
