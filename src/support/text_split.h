#ifndef TSLM5_SUPPORT_TEXT_SPLIT_H_
#define TSLM5_SUPPORT_TEXT_SPLIT_H_

#include <cstddef>
#include <string_view>

namespace tslm5 {

/// Walks over the fields of a line, or any pieces of a text between separators, without copying.
/// The empty text has no field; a separator at the end is followed by one more, empty field; an
/// empty separator makes the whole text one field. The fields are views into the text and live as
/// long as it; the separator must outlive the cursor.
class FieldCursor {
 public:
  FieldCursor(std::string_view text, std::string_view separator)
      : rest_(text), separator_(separator), at_end_(text.empty()) {}

  /// Gives the next field and moves on; or returns false and leaves `field` alone.
  bool Next(std::string_view& field) {
    if (at_end_) return false;
    const std::size_t length = FindSeparator();
    if (length == std::string_view::npos) {
      field = rest_;
      at_end_ = true;
      return true;
    }
    field = rest_.substr(0, length);
    rest_.remove_prefix(length + separator_.size());
    return true;
  }

  /// Whether every field has been given.
  bool AtEnd() const { return at_end_; }

 private:
  std::size_t FindSeparator() const {
    if (separator_.size() == 1) return rest_.find(separator_[0]);
    return separator_.empty() ? std::string_view::npos : rest_.find(separator_);
  }

  std::string_view rest_;
  std::string_view separator_;
  bool at_end_;
};

/// Walks over the lines of a text, which end at "\n". As with fields, a line feed at the end of
/// the text is followed by one more, empty line, and the empty text has no line.
class LineCursor {
 public:
  explicit LineCursor(std::string_view text) : fields_(text, "\n") {}

  /// Gives the next line without its "\n" and moves on; or returns false and leaves `line` alone.
  bool Next(std::string_view& line) { return fields_.Next(line); }

  /// Whether every line has been given.
  bool AtEnd() const { return fields_.AtEnd(); }

 private:
  FieldCursor fields_;
};

}  // namespace tslm5

#endif  // TSLM5_SUPPORT_TEXT_SPLIT_H_
