#include "host/delimited_text.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "host/failure.h"
#include "host/interruption.h"
#include "host/lines.h"
#include "host/shown_text.h"
#include "host/text_decoding.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kPieceBytes = 1 << 20;

class File {
 public:
  explicit File(const std::string& path)
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

[[noreturn]] void RaiseFileTrouble(const std::string& path, const std::string& words) {
  throw Failure(ExitCode::kTrouble, fmt::format("{}: {}", Escaped(path), words));
}

[[noreturn]] void RaiseSystemTrouble(const std::string& path, const char* what) {
  const int code = errno;
  if (code == ENOENT) RaiseFileTrouble(path, "there is no such file");
  RaiseFileTrouble(path, fmt::format("{}: {}", what, std::generic_category().message(code)));
}

/// The size of the regular file at `path`. Asked before opening: a pipe would block there.
std::size_t FileSize(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) RaiseSystemTrouble(path, "the file cannot be found");
  if (S_ISDIR(status.st_mode)) RaiseFileTrouble(path, "this is a directory; a file was expected");
  if (!S_ISREG(status.st_mode)) {
    RaiseFileTrouble(path, "this is not a regular file; the loader reads its data more than once");
  }
  return static_cast<std::size_t>(status.st_size);
}

std::string ReadBytes(const std::string& path) {
  const std::size_t size = FileSize(path);
  const File file(path);
  if (file.Descriptor() < 0) RaiseSystemTrouble(path, "the file cannot be opened");
  std::string bytes;
  bytes.reserve(size + kPieceBytes);
  for (;;) {
    StopIfInterrupted();
    const std::size_t had = bytes.size();
    bytes.resize(had + kPieceBytes);
    const ssize_t count = ::read(file.Descriptor(), bytes.data() + had, kPieceBytes);
    const int code = errno;
    bytes.resize(had + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0) return bytes;
    errno = code;
    if (count < 0 && code != EINTR) RaiseSystemTrouble(path, "the file cannot be read");
  }
}

void JoinLineEnds(std::string& text) {
  const std::size_t first = text.find("\r\n");
  if (first == std::string::npos) return;
  std::size_t to = first;
  for (std::size_t from = first; from < text.size(); ++from) {
    const bool is_pair = text[from] == '\r' && from + 1 < text.size() && text[from + 1] == '\n';
    if (!is_pair) text[to++] = text[from];
  }
  text.resize(to);
}

void RefuseNul(const std::string& text) {
  const std::size_t place = text.find('\0');
  if (place == std::string::npos) return;
  const auto line =
      1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(place), '\n');
  throw Failure(ExitCode::kRefused,
                fmt::format("line {} holds a NUL byte: this is no text, or UTF-16 without the mark "
                            "at its beginning that says so",
                            line));
}

}  // namespace

std::string ReadTextFile(const std::string& path) {
  std::string text = DecodeText(ReadBytes(path));
  if (text.empty()) {
    throw Failure(ExitCode::kRefused, fmt::format("{}: the file is empty", Escaped(path)));
  }
  RefuseNul(text);
  JoinLineEnds(text);
  return text;
}

std::string Transposed(std::string_view text, const Separator& separator) {
  std::vector<std::string> columns;
  LineCursor lines(text);
  std::string_view line;
  std::size_t width = 0;
  while (lines.Next(line)) {
    StopIfInterrupted();
    std::size_t k = 0;
    for (std::string_view rest = line; !line.empty(); ++k) {
      const std::size_t size = rest.find(separator.character);
      if (lines.Number() == 1) columns.emplace_back();
      if (k == columns.size()) {
        throw Failure(ExitCode::kRefused,
                      fmt::format("line {} has more fields than the first line, which has {}; with "
                                  "the layout columns every line must hold one value a record",
                                  lines.Number(), width));
      }
      if (lines.Number() > 1) columns[k] += separator.character;
      columns[k] += rest.substr(0, size);
      if (size == std::string_view::npos) break;
      rest.remove_prefix(size + 1);
    }
    if (lines.Number() == 1) width = columns.size();
  }
  std::string joined;
  for (const std::string& column : columns) {
    if (&column != columns.data()) joined += '\n';
    joined += column;
  }
  return joined;
}

}  // namespace tslm5::host
