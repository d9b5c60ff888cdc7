#ifndef TSLM5_DELIMITED_TEXT_WINDOW_H_
#define TSLM5_DELIMITED_TEXT_WINDOW_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "delimited/utf8_stream.h"

namespace tslm5::delimited {

/// A piece of a stream's text, moved along it. At the end of the stream it holds a line end behind
/// the last line, whether the file has one there or not.
class TextWindow {
 public:
  explicit TextWindow(Utf8Stream& stream);

  const char* Data() const { return text_.data(); }
  std::size_t Size() const { return size_; }
  /// Whether the text ends with the window.
  bool IsFinal() const { return is_final_; }
  /// How many bytes of the text stand before the window.
  std::int64_t Offset() const { return offset_; }

  /// Drops the first `used` bytes and fills up behind the rest; the window grows where the rest is
  /// most of it. Every pointer into the text is void then. `kReadableBehind` bytes behind the text
  /// can be read.
  void Advance(std::size_t used);

 private:
  Utf8Stream& stream_;
  std::vector<char> text_;
  std::size_t size_ = 0;
  std::int64_t offset_ = 0;
  bool is_final_ = false;
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_TEXT_WINDOW_H_
