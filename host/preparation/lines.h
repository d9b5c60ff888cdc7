#ifndef TSLM5_HOST_PREPARATION_LINES_H_
#define TSLM5_HOST_PREPARATION_LINES_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tslm5::host {

struct Separator;

/// Walks the lines of a text whose line break is "\n". What follows the last "\n" is a line when
/// it is not empty.
class LineCursor {
 public:
  explicit LineCursor(std::string_view text) : rest_(text) {}

  /// Puts the next line, without its "\n", into `line`; or returns false and leaves it alone.
  bool Next(std::string_view& line) {
    if (rest_.empty()) return false;
    const std::size_t size = rest_.find('\n');
    line = rest_.substr(0, size);
    rest_ = size == std::string_view::npos ? std::string_view() : rest_.substr(size + 1);
    ++number_;
    return true;
  }

  /// The 1-based number of the line last given.
  std::int64_t Number() const { return number_; }

 private:
  std::string_view rest_;
  std::int64_t number_ = 0;
};

/// `text` without the blanks around it.
inline std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

/// Splits at every single blank; nothing at all has no fields.
void SplitAtBlanks(std::string_view text, std::vector<std::string_view>& fields);

/// Splits a line as it stands in the file at the separator, each field without the blanks around
/// it. Runs of blanks are one separator; without a separator the line is one field.
void SplitLine(std::string_view line, const Separator& separator,
               std::vector<std::string_view>& fields);

/// The number of fields of `SplitLine`.
std::size_t CountFields(std::string_view line, const Separator& separator);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LINES_H_
