#include "host/preparation/record_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

namespace tslm5::host {
namespace {

/// Walks the line without the blanks around it: `separate()` for a separator, `keep(c)` for any
/// other character. Runs of blanks are one separator; blanks beside any other separator are passed
/// over.
template <class Separate, class Keep>
void WalkLine(std::string_view raw, char separator, Separate separate, Keep keep) {
  std::size_t held_blanks = 0;
  bool is_after_separator = false;
  for (const char c : Trimmed(raw)) {
    if (c == ' ' && separator != ' ') {
      ++held_blanks;
    } else if (c == separator && separator != '\0') {
      if (c != ' ' || !is_after_separator) separate();
      is_after_separator = true;
      held_blanks = 0;
    } else {
      for (; held_blanks > 0 && !is_after_separator; --held_blanks) keep(' ');
      held_blanks = 0;
      is_after_separator = false;
      keep(c);
    }
  }
}

}  // namespace

RecordReader::RecordReader(const DelimitedText& text)
    : lines_(text.text), separator_(text.separator->character) {
  if (text.has_label_line && lines_.Next(raw_)) ++label_lines_;
}

bool RecordReader::Next() {
  while (lines_.Next(raw_)) {
    CleanLine();
    if (!clean_.empty()) return true;
    ++empty_lines_;
  }
  return false;
}

void RecordReader::CleanLine() {
  buffer_.resize(raw_.size());
  char* to = buffer_.data();
  separator_count_ = 0;
  is_changed_ = false;
  WalkLine(
      raw_, separator_,
      [this, &to] {
        *to++ = ' ';
        ++separator_count_;
      },
      [this, &to](char c) {
        if (IsDeleted(c)) {
          is_changed_ = true;
        } else {
          *to++ = c;
        }
      });
  clean_ = Trimmed({buffer_.data(), static_cast<std::size_t>(to - buffer_.data())});
}

std::string WithBlanks(std::string_view raw, const Separator& separator) {
  std::string line;
  WalkLine(
      raw, separator.character, [&line] { line += ' '; }, [&line](char c) { line += c; });
  return line;
}

std::size_t CountLabels(std::string_view label_line, const Separator& separator,
                        std::size_t columns) {
  std::string line = WithBlanks(label_line, separator);
  std::erase(line, '\r');
  line.erase(std::unique(line.begin(), line.end(),
                         [](char left, char right) { return left == ' ' && right == ' '; }),
             line.end());
  std::vector<std::string_view> labels;
  SplitAtBlanks(Trimmed(line), labels);
  if (labels.size() != columns && CountFields(label_line, separator) == columns) return columns;
  return labels.size();
}

std::string UnevenRecord(const std::string& place, std::size_t fields, std::int64_t first_line,
                         std::size_t first_fields) {
  return fmt::format("{} has {} field{}, but the first record, on line {}, has {}", place, fields,
                     fields == 1 ? "" : "s", first_line, first_fields);
}

}  // namespace tslm5::host
