#ifndef TSLM5_DATACHECK_LINE_CLEANING_H_
#define TSLM5_DATACHECK_LINE_CLEANING_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace tslm5 {

/// The clean-up of one line by the fixed rules: every separator becomes a blank, runs of blanks
/// become one, and only then tabs and semicolons are deleted.
class LineCleaning {
 public:
  /// `separator` is '\0' for none.
  explicit LineCleaning(char separator) : separator_(separator == '\0' ? ' ' : separator) {}

  /// A character that is deleted, unless it is the separator.
  static bool IsStray(char c) { return c == '\t' || c == ';'; }

  /// Writes the clean line into `cleaned`, the blanks around it kept. Whether it has lost a stray
  /// character.
  bool Clean(std::string_view line, std::string& cleaned) const {
    cleaned.resize(line.size());
    char* to = cleaned.data();
    bool is_behind_blank = false;
    bool is_changed = false;
    for (const char c : line) {
      const bool is_blank = c == ' ' || c == separator_;
      if (is_blank) {
        if (!is_behind_blank) *to++ = ' ';
      } else if (IsStray(c)) {
        is_changed = true;
      } else {
        *to++ = c;
      }
      is_behind_blank = is_blank;
    }
    cleaned.resize(static_cast<std::size_t>(to - cleaned.data()));
    return is_changed;
  }

  /// Whether nothing is left of a line but blanks.
  bool IsEmpty(std::string_view line) const {
    return line.find_first_not_of(Nothing()) == std::string_view::npos;
  }

  /// Where the last line of a text that is not empty ends; 0 when there is none.
  std::size_t EndOfLastLine(std::string_view text) const {
    const char feed_too[] = {' ', '\t', ';', separator_, '\n'};
    const std::size_t last = text.find_last_not_of({feed_too, sizeof(feed_too)});
    if (last == std::string_view::npos) return 0;
    const std::size_t feed = text.find('\n', last);
    return feed == std::string_view::npos ? text.size() : feed;
  }

  char Separator() const { return separator_; }

 private:
  std::string_view Nothing() const { return {nothing_, sizeof(nothing_)}; }

  char separator_;
  char nothing_[4] = {' ', '\t', ';', separator_};
};

}  // namespace tslm5

#endif  // TSLM5_DATACHECK_LINE_CLEANING_H_
