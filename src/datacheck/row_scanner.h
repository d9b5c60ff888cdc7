#ifndef TSLM5_DATACHECK_ROW_SCANNER_H_
#define TSLM5_DATACHECK_ROW_SCANNER_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tslm5 {

/// Walks over the rows of a text of blank-separated values and says of each how many fields it has
/// and which of them is the first that is no number. Nothing is converted and nothing allocated:
/// sixteen bytes are looked at at once, and only a field that is longer, or that they do not show
/// to be a number, goes through the numeric grammar letter by letter.
class RowScanner {
 public:
  struct Row {
    std::int32_t fields = 0;
    std::int32_t first_invalid = -1;  ///< 0-based; -1 when every field is a number
    std::string_view invalid_field;
    std::string_view last_field;
    bool is_empty = false;  ///< not even a blank stands in it
  };

  /// The views of the rows are into `text`. `decimal` is the user's decimal separator.
  RowScanner(std::string_view text, char decimal)
      : at_(text.data()), end_(text.data() + text.size()), decimal_(decimal) {}

  bool AtEnd() const { return at_ == end_; }

  /// Scans the next row, without the blanks around it, and moves past its line feed.
  Row Next();

 private:
  const char* SkipBlanks(const char* p) const {
    while (p != end_ && *p == ' ') ++p;
    return p;
  }
  /// Where the field at `p` ends, and whether it is a number.
  const char* ScanField(const char* p, bool& is_number) const;

  const char* at_;
  const char* end_;
  char decimal_;
};

/// Where the first row begins that is empty, or holds nothing but blanks, tabs, ";" and separators,
/// and stands between two rows that hold something else; npos when there is none.
std::size_t FindEmptyRowInside(std::string_view text, char separator = ' ');

inline bool HasEmptyRowInside(std::string_view text) {
  return FindEmptyRowInside(text) != std::string_view::npos;
}

}  // namespace tslm5

#endif  // TSLM5_DATACHECK_ROW_SCANNER_H_
