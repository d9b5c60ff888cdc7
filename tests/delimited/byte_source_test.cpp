#include "delimited/byte_source.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <zlib.h>

#include <string>
#include <thread>

#include "support/temporary_folder.h"
#include "tslm5/platform/error.h"

namespace tslm5::delimited {
namespace {

std::string ReadAll(ByteSource& source, std::size_t step = 7) {
  std::string bytes;
  std::string piece(step, '\0');
  while (const std::size_t count = source.Read(piece.data(), piece.size())) {
    bytes.append(piece, 0, count);
  }
  return bytes;
}

std::string Compressed(const std::string& bytes) {
  z_stream stream{};
  deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY);
  std::string out(bytes.size() + 1000, '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  stream.next_out = reinterpret_cast<Bytef*>(out.data());
  stream.avail_out = static_cast<uInt>(out.size());
  deflate(&stream, Z_FINISH);
  out.resize(stream.total_out);
  deflateEnd(&stream);
  return out;
}

void ExpectError(const std::string& path, std::int32_t number, const std::string& words) {
  try {
    ReadAll(*OpenSource(path));
    ADD_FAILURE() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), number);
    EXPECT_EQ(error.Description(), words);
  }
}

TEST(ByteSource, ReadsAFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.csv", "a,b\n1,2\n");
  const auto source = OpenSource(path);
  EXPECT_EQ(ReadAll(*source), "a,b\n1,2\n");
  EXPECT_EQ(source->Name(), path);
  EXPECT_EQ(ReadAll(*OpenSource(folder.Write("empty", ""))), "");
  EXPECT_EQ(ReadAll(*OpenSource(folder.Write("one", "\x1F"))), "\x1F");
}

TEST(ByteSource, NamesAFileThatCannotBeRead) {
  const TemporaryFolder folder;
  const std::string absent = folder.PathOf("absent.csv");
  ExpectError(absent, error_number::kFileNotFound, absent + ": no such file");
  const std::string directory = folder.PathOf("");
  ExpectError(directory, error_number::kFileAccess, directory + ": Is a directory");
}

TEST(ByteSource, ReadsABorrowedDescriptorFromItsPlaceOn) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.csv", "skipped,rest");
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  ::lseek(descriptor, 8, SEEK_SET);
  EXPECT_EQ(ReadAll(*OpenSource(descriptor, "descriptor")), "rest");
  EXPECT_EQ(::lseek(descriptor, 0, SEEK_CUR), 12) << "it is still open";
  ::close(descriptor);
}

TEST(ByteSource, ReadsAPipe) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const std::string text(200'000, 'x');
  std::thread writer([&] {
    EXPECT_EQ(::write(ends[1], text.data(), text.size()), static_cast<::ssize_t>(text.size()));
    ::close(ends[1]);
  });
  EXPECT_EQ(ReadAll(*OpenSource(ends[0], "pipe"), 5000), text);
  writer.join();
  ::close(ends[0]);
}

TEST(ByteSource, DecompressesMembersOneAfterTheOther) {
  std::string text;
  for (int i = 0; i < 100'000; ++i) text += std::to_string(i) + ",x\n";
  const TemporaryFolder folder;
  const std::string path =
      folder.Write("a.gz", Compressed(text) + Compressed("more\n") + std::string(512, '\0'));
  for (const std::size_t step : {std::size_t{7}, std::size_t{65'536}, 2 * text.size()}) {
    EXPECT_EQ(ReadAll(*OpenSource(path), step), text + "more\n") << step;
  }
}

TEST(ByteSource, RefusesDamagedAndCutCompressedData) {
  std::string text;
  for (int i = 0; i < 10'000; ++i) text += std::to_string(i * 7919) + "\n";
  const TemporaryFolder folder;
  const std::string compressed = Compressed(text);
  const std::string cut = folder.Write("cut.gz", compressed.substr(0, compressed.size() - 9));
  ExpectError(cut, error_number::kFileAccess, cut + ": the compressed data end too early");
  std::string bytes = compressed;
  bytes[bytes.size() - 6] = static_cast<char>(bytes[bytes.size() - 6] + 1);  // of the checksum
  const std::string damaged = folder.Write("damaged.gz", bytes);
  ExpectError(damaged, error_number::kFileAccess, damaged + ": the compressed data are damaged");
}

}  // namespace
}  // namespace tslm5::delimited
