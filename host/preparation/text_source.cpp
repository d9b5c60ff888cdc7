#include "host/preparation/text_source.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <system_error>
#include <vector>

#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{1} << 18;
constexpr std::string_view kGzipMark = "\x1f\x8b";
constexpr std::int64_t kLongestLine = std::numeric_limits<std::int32_t>::max();

[[noreturn]] void RaiseTrouble(const std::string& path, const std::string& words) {
  throw Failure(ExitCode::kTrouble, fmt::format("{}: {}", Escaped(path), words));
}

[[noreturn]] void RaiseSystemTrouble(const std::string& path, const char* what, int code) {
  if (code == ENOENT) RaiseTrouble(path, "no such file");
  RaiseTrouble(path, fmt::format("{}: {}", what, std::generic_category().message(code)));
}

/// The file behind a path, and whether it is still as it was when it was opened.
class InputFile {
 public:
  InputFile(const std::string& path, const std::string& name)
      : name_(name),
        // A device must not keep the program waiting.
        descriptor_(path == kStandardInput
                        ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                        : ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor_ < 0) RaiseSystemTrouble(name_, "the file cannot be opened", errno);
    try {
      status_ = Status();
      RequireFile(path);
    } catch (...) {
      ::close(descriptor_);
      throw;
    }
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile() { ::close(descriptor_); }

  /// The next bytes; none at the end.
  std::string_view Read(std::vector<char>& piece) {
    for (;;) {
      StopIfInterrupted();
      const ssize_t count = ::read(descriptor_, piece.data(), piece.size());
      if (count >= 0) return {piece.data(), static_cast<std::size_t>(count)};
      if (errno != EINTR) RaiseSystemTrouble(name_, "the file cannot be read", errno);
    }
  }

  void RequireUnchanged() const {
    if (!S_ISREG(status_.st_mode)) return;
    const struct stat now = Status();
    const auto same = [](const timespec& left, const timespec& right) {
      return left.tv_sec == right.tv_sec && left.tv_nsec == right.tv_nsec;
    };
    if (now.st_size == status_.st_size && same(now.st_mtim, status_.st_mtim)) return;
    RaiseTrouble(name_, "the file was changed while it was read; do it again when it is complete");
  }

 private:
  struct stat Status() const {
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0) {
      RaiseSystemTrouble(name_, "the file cannot be read", errno);
    }
    return status;
  }

  void RequireFile(const std::string& path) const {
    if (S_ISDIR(status_.st_mode)) RaiseTrouble(name_, "this is a directory; a file was expected");
    if (S_ISREG(status_.st_mode) || path == kStandardInput) return;
    if (!S_ISFIFO(status_.st_mode)) RaiseTrouble(name_, "this is no file and no pipe");
    WaitForWriter();
  }

  /// A pipe that nobody has written into yet would read as an empty file.
  void WaitForWriter() const {
    pollfd pipe{descriptor_, POLLIN, 0};
    while (::poll(&pipe, 1, -1) < 0) {
      if (errno != EINTR) RaiseSystemTrouble(name_, "the pipe cannot be read", errno);
      StopIfInterrupted();
    }
    const int flags = ::fcntl(descriptor_, F_GETFL);
    if (flags < 0 || ::fcntl(descriptor_, F_SETFL, flags & ~O_NONBLOCK) != 0) {
      RaiseSystemTrouble(name_, "the pipe cannot be read", errno);
    }
  }

  const std::string& name_;
  int descriptor_;
  struct stat status_ {};
};

/// Follows the lines of a file that is read piece by piece.
class LineWatch {
 public:
  /// Raises `Failure` for a line that no text has.
  void Pass(std::string_view piece) {
    for (std::size_t at = 0;;) {
      const std::size_t end = piece.find('\n', at);
      length_ += static_cast<std::int64_t>(std::min(end, piece.size()) - at);
      if (length_ > kLongestLine) {
        Refuse(fmt::format("line {} is longer than {} bytes: this is no text of records", line_,
                           kLongestLine));
      }
      if (end == std::string_view::npos) return;
      at = end + 1;
      length_ = 0;
      ++line_;
    }
  }

  std::int64_t Line() const { return line_; }

 private:
  std::int64_t line_ = 1;
  std::int64_t length_ = 0;
};

/// Makes each "\r\n" one "\n", in place.
void JoinLineEnds(std::string& text) {
  std::size_t to = std::min(text.find("\r\n"), text.size());
  for (std::size_t from = to; from < text.size(); ++from) {
    const bool is_pair = text[from] == '\r' && from + 1 < text.size() && text[from + 1] == '\n';
    if (!is_pair) text[to++] = text[from];
  }
  text.resize(to);
}

/// Whether the lines end at carriage returns alone, but for a line feed at the end of the text.
bool EndsLinesAtReturnsAlone(std::string_view text) {
  if (text.find('\n') == std::string_view::npos) return text.find('\r') != std::string_view::npos;
  const std::string_view lines = text.substr(0, text.find_last_not_of("\r\n") + 1);
  return lines.find('\r') != std::string_view::npos && lines.find('\n') == std::string_view::npos;
}

}  // namespace

TextSource::TextSource(const std::string& path, Content content)
    : name_(path == kStandardInput ? "standard input" : path) {
  try {
    ReadFile(path);
    if (!nul_line_ && content == Content::kText) TakeText();
  } catch (const std::system_error& error) {
    RaiseTrouble(name_,
                 fmt::format("the file cannot be held in memory: {}", error.code().message()));
  }
}

void TextSource::ReadFile(const std::string& path) {
  InputFile file(path, name_);
  memory_ = std::make_unique<MemoryFile>();
  std::vector<char> piece(kPieceBytes);
  LineWatch lines;
  bool may_hold_nul = false;  // as UTF-16 does in every other byte
  for (bool is_first = true;; is_first = false) {
    const std::string_view bytes = file.Read(piece);
    if (is_first) may_hold_nul = HasUtf16Mark(bytes) || bytes.starts_with(kGzipMark);
    if (bytes.empty()) break;
    const std::size_t nul = may_hold_nul ? std::string_view::npos : bytes.find('\0');
    lines.Pass(bytes.substr(0, nul));
    if (nul != std::string_view::npos) {
      nul_line_ = lines.Line();
      break;
    }
    memory_->Append(bytes);
  }
  if (!nul_line_) file.RequireUnchanged();
  memory_->Seal();
}

void TextSource::TakeText() {
  const std::string_view bytes = memory_->Bytes();
  if (IsUtf8(bytes) && bytes.find('\r') == std::string_view::npos) {
    text_ = bytes.substr(MarkSize(bytes));
    return;
  }
  std::string text = DecodeText(std::string(bytes), &broken_);
  memory_ = std::make_unique<MemoryFile>();  // the bytes as they were are not needed any more
  FindNul(text);
  JoinLineEnds(text);
  has_returns_alone_ = EndsLinesAtReturnsAlone(text);
  if (has_returns_alone_) std::replace(text.begin(), text.end(), '\r', '\n');
  memory_->Append(kUtf8Mark);  // a text may begin with the same character
  memory_->Append(text);
  memory_->Seal();
  text_ = memory_->Bytes().substr(kUtf8Mark.size());
}

bool TextSource::IsCompressed() const {
  return memory_->Bytes().starts_with(kGzipMark);
}

void TextSource::FindNul(std::string_view text) {
  const std::size_t nul = text.find('\0');
  if (nul != std::string_view::npos) {
    nul_line_ = 1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(nul), '\n');
  }
}

void TextSource::RequireText() const {
  if (nul_line_) throw Failure(ExitCode::kRefused, WordsOfNul());
  if (memory_->Bytes().empty()) {
    throw Failure(ExitCode::kRefused, fmt::format("{}: the file is empty", Escaped(name_)));
  }
}

std::string TextSource::WordsOfNul() const {
  return fmt::format(
      "line {} holds a NUL byte: this is no text, or UTF-16 without the mark at its beginning that "
      "says so",
      *nul_line_);
}

}  // namespace tslm5::host
