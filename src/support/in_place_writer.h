#ifndef TSLM5_SUPPORT_IN_PLACE_WRITER_H_
#define TSLM5_SUPPORT_IN_PLACE_WRITER_H_

#include <cstddef>
#include <cstring>
#include <string>

namespace tslm5 {

/// Rewrites a text in its own buffer, part after part, to one that is no longer at any point than
/// what has been read of it. What is kept where it stands costs nothing.
class InPlaceWriter {
 public:
  explicit InPlaceWriter(std::string& text) : text_(text), write_(text.data()) {}

  /// The next character to be written goes here; what stands before is final.
  char* Position() const { return write_; }

  /// Keeps [first, last) of the old text, which must not begin before `Position()`.
  void Keep(const char* first, const char* last) {
    const auto size = static_cast<std::size_t>(last - first);
    if (first != write_) std::memmove(write_, first, size);
    write_ += size;
  }

  void Put(char c) { *write_++ = c; }

  /// Takes back everything written from `position` on.
  void BackTo(char* position) { write_ = position; }

  /// Ends the text at `Position()`.
  void Finish() { text_.resize(static_cast<std::size_t>(write_ - text_.data())); }

 private:
  std::string& text_;
  char* write_;
};

}  // namespace tslm5

#endif  // TSLM5_SUPPORT_IN_PLACE_WRITER_H_
