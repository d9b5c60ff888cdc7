#include "host/record_reader.h"

#include <algorithm>
#include <vector>

namespace tslm5::host {

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
  char previous = '\0';
  for (const char c : Trimmed(raw_)) {
    if (c == separator_ && separator_ != '\0') {
      const bool is_repeat = c == ' ' && previous == ' ';
      if (!is_repeat) *to++ = ' ';
      separator_count_ += is_repeat ? 0 : 1;
    } else if (IsDeleted(c)) {
      is_changed_ = true;
    } else {
      *to++ = c;
    }
    previous = c;
  }
  clean_ = Trimmed({buffer_.data(), static_cast<std::size_t>(to - buffer_.data())});
}

std::string WithBlanks(std::string_view raw, const Separator& separator) {
  std::string line;
  for (const char c : Trimmed(raw)) {
    const bool is_separator = c == separator.character && separator.character != '\0';
    if (is_separator && separator.code == separator_code::kSpace && line.ends_with(' ')) continue;
    line += is_separator ? ' ' : c;
  }
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

}  // namespace tslm5::host
