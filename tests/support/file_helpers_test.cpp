#include "support/file_helpers.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "platform/raised.h"
#include "support/temporary_folder.h"

#if defined(__SANITIZE_ADDRESS__)
#define TSLM5_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TSLM5_ADDRESS_SANITIZER 1
#endif
#endif

namespace tslm5::FileHelpers {
namespace {

TEST(GetDirectory, EndsAtTheLastBackslash) {
  EXPECT_EQ(GetDirectory("C:\\a\\b.txt"), "C:\\a\\");
  EXPECT_EQ(GetDirectory("C:\\a\\"), "C:\\a\\");
  EXPECT_EQ(GetDirectory("/a/b"), "");
  EXPECT_EQ(GetDirectory(""), "");
}

TEST(GetFileName, StartsAfterTheLastBackslash) {
  EXPECT_EQ(GetFileName("C:\\a\\b.txt"), "b.txt");
  EXPECT_EQ(GetFileName("C:\\a\\"), "");
  EXPECT_EQ(GetFileName("/a/b"), "/a/b");
  EXPECT_EQ(GetFileName(""), "");
}

TEST(FileExists, IsTrueOfFilesOnly) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "");
  EXPECT_TRUE(FileExists(path));
  EXPECT_FALSE(FileExists(""));
  EXPECT_FALSE(FileExists(folder.Path()));
  EXPECT_FALSE(FileExists(folder.PathOf("absent")));
  EXPECT_FALSE(FileExists(path + "/below"));
  EXPECT_FALSE(FileExists(path + std::string("\0.bak", 5)));
}

TEST(ReadAllText, GivesNothingForNoFileADirectoryOrAnEmptyFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("empty.txt", "");
  EXPECT_EQ(ReadAllText(path), "");
  EXPECT_EQ(ReadAllText(""), "");
  EXPECT_EQ(ReadAllText(folder.Path()), "");
  EXPECT_EQ(ReadAllText(folder.PathOf("absent")), "");
  EXPECT_EQ(ReadAllText(path + "/below"), "");
}

TEST(ReadAllText, DoesNotTakeAPathForAShorterOne) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReadAllText(folder.Write("a.txt", "text") + std::string("\0.bak", 5)), "");
}

TEST(ReadAllText, KeepsEveryByteOfValidText) {
  const TemporaryFolder folder;
  const std::string bytes("1,é\r\n\0\r2\n", 11);
  EXPECT_EQ(ReadAllText(folder.Write("a.txt", bytes)), bytes);
}

TEST(ReadAllText, ReadsFilesOfManySizes) {
  const TemporaryFolder folder;
  for (const std::size_t size :
       {1u, 4095u, 4096u, 4097u, 262'143u, 262'144u, 262'145u, 3'000'001u}) {
    std::string bytes(size, 'a');
    for (std::size_t i = 0; i < size; i += 97) bytes[i] = static_cast<char>('b' + i % 23);
    EXPECT_EQ(ReadAllText(folder.Write("a.txt", bytes)), bytes) << size;
  }
}

TEST(ReadAllText, ReadsAFileWhoseSizeTheSystemDoesNotTell) {
  std::ifstream file("/proc/self/cmdline", std::ios::binary);
  const std::string expected{std::istreambuf_iterator<char>(file), {}};
  ASSERT_FALSE(expected.empty());
  EXPECT_EQ(ReadAllText("/proc/self/cmdline"), expected);
}

TEST(ReadAllText, ReadsAPipeToItsEnd) {
  const TemporaryFolder folder;
  const std::string path = folder.PathOf("pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  std::string bytes(1'000'000, 'p');
  bytes.back() = 'q';
  std::thread writer([&] { std::ofstream(path, std::ios::binary) << bytes; });
  const std::string text = ReadAllText(path);
  writer.join();
  EXPECT_EQ(text, bytes);
}

TEST(ReadAllText, TellsPathAndReasonWhenAFileCannotBeOpened) {
  const TemporaryFolder folder;
  const std::string path = folder.PathOf("loop");
  std::filesystem::create_symlink("loop", path);
  const Error error = Raised([&] { ReadAllText(path); });
  EXPECT_EQ(error.Number(), 75);
  EXPECT_EQ(error.Source(), "ReadAllText");
  EXPECT_EQ(error.Description(),
            "The file \"" + path + "\" cannot be read: Too many levels of symbolic links.");
}

TEST(ReadAllText, RefusesAFileWithoutPermission) {
  if (::geteuid() == 0) GTEST_SKIP() << "root may read everything";
  const TemporaryFolder folder;
  const std::string path = folder.Write("closed.txt", "1,2");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  const Error error = Raised([&] { ReadAllText(path); });
  EXPECT_EQ(error.Number(), 75);
  EXPECT_EQ(error.Description(), "The file \"" + path + "\" cannot be read: Permission denied.");
}

TEST(ReadAllText, TellsPathAndReasonWhenReadingFails) {
  const Error error = Raised([] { ReadAllText("/proc/self/mem"); });
  EXPECT_EQ(error.Number(), 75);
  EXPECT_EQ(error.Description(), "The file \"/proc/self/mem\" cannot be read: Input/output error.");
}

TEST(ReadFile, TellsApartWhatStandsAtAPath) {
  using Kind = TextFile::Kind;
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.txt", "1,2\r\n");
  EXPECT_EQ(ReadFile(path).kind, Kind::kRead);
  EXPECT_EQ(ReadFile(path).text, "1,2\r\n");
  EXPECT_EQ(ReadFile(folder.Path()).kind, Kind::kFolder);
  for (const std::string& absent :
       {std::string(), folder.PathOf("absent"), path + "/below", path + std::string("\0x", 2)}) {
    EXPECT_EQ(ReadFile(absent).kind, Kind::kAbsent) << absent;
  }
}

std::string NoTextWords(const std::string& path, const std::string& reason) {
  return "The file \"" + path + "\" is not delimited text: " + reason + ".";
}

void ExpectNoText(const std::string& path, std::size_t longest_line, const std::string& reason) {
  const Error error = Raised([&] { ReadFile(path, longest_line); });
  EXPECT_EQ(error.Number(), 41011);
  EXPECT_EQ(error.Description(), NoTextWords(path, reason));
}

// It is far larger than any memory, so that reading it would fail in other words.
TEST(ReadFile, RefusesAFileOfNulCharactersAtOnce) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("zeros", "");
  std::filesystem::resize_file(path, std::uintmax_t{1} << 40u);
  ExpectNoText(path, kLongestLine,
               "its first line holds a NUL character and does not end within 256 KiB");
}

TEST(ReadFile, TakesANulCharacterInAShortLineOrInUtf16) {
  const TemporaryFolder folder;
  const std::string line = std::string("1,\0\n", 4);
  EXPECT_EQ(ReadFile(folder.Write("a.txt", line + std::string(300'000, '1'))).text.substr(0, 4),
            line);
  std::string utf16 = "\xFF\xFE";
  for (int i = 0; i < 200'000; ++i) utf16 += std::string("1\0", 2);
  EXPECT_EQ(ReadFile(folder.Write("b.txt", utf16)).text, std::string(200'000, '1'));
}

TEST(ReadFile, RefusesALineThatIsTooLong) {
  const TemporaryFolder folder;
  const std::string line(600'000, '1');
  const std::string reason = "it has a line of more than 599999 bytes";
  ExpectNoText(folder.Write("a.txt", line), line.size() - 1, reason);
  ExpectNoText(folder.Write("b.txt", "1\n2\n" + line + line), line.size() - 1, reason);
}

TEST(ReadFile, TakesALineThatIsJustNotTooLong) {
  const TemporaryFolder folder;
  const std::string line(600'000, '1');
  const std::string text = line + "\n" + line + "\n";
  EXPECT_EQ(ReadFile(folder.Write("a.txt", text), line.size()).text, text);
}

#if !defined(TSLM5_ADDRESS_SANITIZER)
[[noreturn]] void ReadWithLittleMemory(const std::string& path) {
  constexpr ::rlim_t kRoomBytes = ::rlim_t{512} * 1024 * 1024;
  const ::rlimit limit{kRoomBytes, kRoomBytes};
  ::setrlimit(RLIMIT_AS, &limit);
  ::_exit(RaisedNumber([&] { ReadAllText(path); }));
}

TEST(ReadAllText, RefusesAFileThatDoesNotFitIntoMemory) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const TemporaryFolder folder;
  const std::string path = folder.Write("huge.txt", "1\n");
  std::filesystem::resize_file(path, std::uintmax_t{1} << 32u);
  EXPECT_EXIT(ReadWithLittleMemory(path), ::testing::ExitedWithCode(75), "");
}
#endif

}  // namespace
}  // namespace tslm5::FileHelpers
