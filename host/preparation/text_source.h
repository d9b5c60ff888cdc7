#ifndef TSLM5_HOST_PREPARATION_TEXT_SOURCE_H_
#define TSLM5_HOST_PREPARATION_TEXT_SOURCE_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/preparation/memory_file.h"
#include "host/preparation/text_decoding.h"

namespace tslm5::host {

/// What stands for the standard input where a file is named.
inline constexpr std::string_view kStandardInput = "-";

/// A text file that is read once, from one descriptor. Whatever happens to the file afterwards, the
/// program and the component see the same text: the program as `Text`, the component at `Path`.
class TextSource {
 public:
  enum class Content {
    kText,   ///< decoded at once
    kBytes,  ///< as they stand; `TakeText` decodes them
  };

  /// Reads the file or pipe at `path`, or the standard input. Raises `Failure`, file trouble, when
  /// there is no such file, when it is a folder or a device, cannot be read, or changes while it is
  /// read. A NUL byte ends the reading, but for a compressed file: what holds one is no text.
  explicit TextSource(const std::string& path, Content content = Content::kText);

  /// Makes a text of the bytes, which are gone then. REQUIRES: no NUL byte.
  void TakeText();

  /// What the file holds. Lives until `TakeText`.
  std::string_view Bytes() const { return memory_->Bytes(); }
  bool IsCompressed() const;

  /// UTF-8, the line break "\n". The line breaks "\r\n" have become so, and in a file that has no
  /// other line break "\r". Lives as long as the source.
  std::string_view Text() const { return text_; }
  /// A path at which this program can read the text.
  std::string Path() const { return memory_->Path(); }

  /// The user's name of the file.
  const std::string& Name() const { return name_; }
  /// The line of the first NUL byte.
  std::optional<std::int64_t> NulLine() const { return nul_line_; }
  const BrokenCharacters& Broken() const { return broken_; }
  bool HasReturnsAlone() const { return has_returns_alone_; }

  /// Raises `Failure`, refused, for a text that is empty or holds a NUL byte.
  void RequireText() const;
  /// What `RequireText` says of a NUL byte. REQUIRES: there is one.
  std::string WordsOfNul() const;

 private:
  void ReadFile(const std::string& path);
  void FindNul(std::string_view text);

  std::string name_;
  std::unique_ptr<MemoryFile> memory_;
  std::string_view text_;
  std::optional<std::int64_t> nul_line_;
  BrokenCharacters broken_;
  bool has_returns_alone_ = false;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_TEXT_SOURCE_H_
