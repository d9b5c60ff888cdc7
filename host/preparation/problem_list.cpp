#include "host/preparation/problem_list.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/preparation/record_reader.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kSetName = "Training";

std::string EmptyRows() {
  return fmt::format("Invalid {}. The data contains empty rows.", kSetName);
}

std::string ColumnCount(std::int64_t record) {
  return fmt::format(
      "Unable to proceed: Row number {} has an invalid number of columns.\r\n\r\nPlease make sure "
      "this is a valid record or remove it from the dataset.",
      record);
}

std::string MissingResponse(std::int64_t record, std::size_t column) {
  return fmt::format(
      "Unable to proceed: Invalid input in row {}, column {}.\r\n\r\nThe response variable has "
      "missing values, which is not supported.\r\nPlease make sure you remove all missing values "
      "from the response.",
      record, column);
}

std::string Grouped(std::int64_t number) {
  std::string text = std::to_string(number);
  for (auto place = static_cast<std::ptrdiff_t>(text.size()) - 3; place > 0; place -= 3) {
    text.insert(static_cast<std::size_t>(place), 1, ',');
  }
  return text;
}

/// The first 15 code points.
std::string_view Beginning(std::string_view text) {
  std::size_t end = 0;
  for (int count = 0; count < 15 && end < text.size(); ++count) {
    ++end;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  }
  return text.substr(0, end);
}

/// The line as the data check sees it: separators as blanks, runs of blanks as one, and only then
/// tabs and semicolons deleted; without the blanks around it.
std::string_view CheckedLine(std::string_view raw, char separator, std::string& buffer) {
  buffer.clear();
  for (char c : raw) {
    if (c == separator) c = ' ';
    if (c != ' ' || buffer.empty() || buffer.back() != ' ') buffer += c;
  }
  std::erase_if(buffer, [](char c) { return IsDeleted(c); });
  return Trimmed(buffer);
}

/// One walk through the text.
class Finder {
 public:
  /// With `wanted`, only problems with that message are kept.
  Finder(const DelimitedText& text, const CheckRequest& request, std::size_t most_kept,
         bool comma_is_decimal, std::string wanted)
      : text_(text),
        decimal_(comma_is_decimal ? ',' : '.'),
        checks_response_(request.problem_category == problem_category::kClassification ||
                         request.problem_category == problem_category::kFurtherClassification),
        most_kept_(most_kept),
        wanted_(std::move(wanted)) {
    if (text.has_label_line) {
      const std::string_view first = std::string_view(text.text).substr(0, text.text.find('\n'));
      std::vector<std::string_view> labels;
      SplitLine(first, *text.separator, labels);
      labels_.assign(labels.begin(), labels.end());
      last_line_ = 1;
    }
  }

  ProblemList Find() {
    RecordReader reader(text_);
    while (reader.Next()) {
      if (list_.records % 4096 == 0) StopIfInterrupted();
      NoteEmptyLines(reader.LineNumber());
      last_line_ = reader.LineNumber();
      NoteChangedCells(reader);
      if (++list_.records == 1) list_.columns = ColumnsOf(reader.Raw());
      CheckRecord(reader.Raw());
    }
    return std::move(list_);
  }

 private:
  std::int64_t ColumnsOf(std::string_view raw) const {
    const char separator = text_.separator->character;
    return separator == '\0' ? 1 : std::count(raw.begin(), raw.end(), separator) + 1;
  }

  /// Counts a problem; makes and keeps it when there is room and it is one that is wanted.
  template <class Make>
  void Note(Make make) {
    ++list_.count;
    if (list_.first.size() >= most_kept_) return;
    Problem problem = make();
    if (wanted_.empty() || problem.message == wanted_) list_.first.push_back(std::move(problem));
  }

  /// Empty lines between two others, up to the line before `line`.
  void NoteEmptyLines(std::int64_t line) {
    if (last_line_ == 0) return;
    for (std::int64_t empty = last_line_ + 1; empty < line; ++empty) {
      Note([empty] { return Problem{empty, {}, {}, {}, "", EmptyRows()}; });
    }
  }

  void NoteChangedCells(const RecordReader& reader) {
    if (!reader.IsChanged()) return;
    SplitLine(reader.Raw(), *text_.separator, fields_);
    for (std::size_t column = 0; column < fields_.size(); ++column) {
      if (std::any_of(fields_[column].begin(), fields_[column].end(), IsDeleted)) {
        list_.changed.Note(reader.LineNumber(), column, fields_[column]);
      }
    }
  }

  void CheckRecord(std::string_view raw) {
    SplitAtBlanks(CheckedLine(raw, text_.separator->character, buffer_), fields_);
    if (static_cast<std::int64_t>(fields_.size()) != list_.columns) {
      return Note([this, raw] {
        return Problem{last_line_, list_.records, {}, {}, Cut(raw), ColumnCount(list_.records)};
      });
    }
    const std::size_t last = fields_.size() - 1;
    for (std::size_t column = 0; column <= last; ++column) {
      double value = 0.0;
      if (ParseNumber(fields_[column], decimal_, value)) continue;
      const bool is_missing_response =
          column == last && checks_response_ && IsMissing(fields_[column]);
      Note(
          [this, column, is_missing_response] { return CellProblem(column, is_missing_response); });
    }
  }

  Problem CellProblem(std::size_t column, bool is_missing_response) const {
    Problem problem;
    problem.line = last_line_;
    problem.record = list_.records;
    problem.column = static_cast<std::int64_t>(column) + 1;
    if (column < labels_.size()) problem.label = labels_[column];
    problem.value = Cut(fields_[column]);
    problem.message =
        is_missing_response
            ? MissingResponse(list_.records, column + 1)
            : fmt::format("Invalid {}. Value in row {}, column {}. is invalid: {}", kSetName,
                          Grouped(list_.records), column + 1, Beginning(fields_[column]));
    return problem;
  }

  const DelimitedText& text_;
  char decimal_;
  bool checks_response_;
  std::size_t most_kept_;
  std::string wanted_;
  std::vector<std::string> labels_;
  std::int64_t last_line_ = 0;
  std::vector<std::string_view> fields_;
  std::string buffer_;
  ProblemList list_;
};

bool Holds(const CheckAnswer& answer, std::string_view words) {
  return answer.message.find(words) != std::string::npos;
}

/// Whether the check got as far as the rows, or was refused for what stands in the first of them.
bool RowsTellWhy(const CheckAnswer& answer) {
  return answer.row || answer.message == EmptyRows() ||
         Holds(answer, "The response variable has missing values") ||
         Holds(answer, "non-numeric values in the first data row");
}

/// Whether the labels were refused, so that the rows may have problems of their own.
bool LabelsTellWhy(const CheckAnswer& answer) {
  return Holds(answer, "The number of labels") || Holds(answer, "in the labels row");
}

ProblemList Find(const DelimitedText& text, const CheckRequest& request, const CheckAnswer& answer,
                 std::size_t most_kept, bool comma_is_decimal, std::string wanted) {
  ProblemList list = Finder(text, request, most_kept, comma_is_decimal, std::move(wanted)).Find();
  const bool labels_tell = LabelsTellWhy(answer);
  if (answer.is_valid || (!RowsTellWhy(answer) && !labels_tell)) {
    list.count = 0;
    list.first.clear();
  }
  if (!answer.is_valid && (list.first.empty() || labels_tell)) {
    Problem problem;
    if (labels_tell) problem.line = 1;
    problem.message = answer.message;
    if (labels_tell || list.count == 0) ++list.count;
    list.first.insert(list.first.begin(), std::move(problem));
  }
  if (list.first.size() > most_kept) list.first.resize(most_kept);
  return list;
}

}  // namespace

ProblemList FindProblems(const DelimitedText& text, const CheckRequest& request,
                         const CheckAnswer& answer, std::size_t most_kept, bool comma_is_decimal) {
  return Find(text, request, answer, most_kept, comma_is_decimal, "");
}

ProblemList FindAnsweredProblem(const DelimitedText& text, const CheckRequest& request,
                                const CheckAnswer& answer, bool comma_is_decimal) {
  return Find(text, request, answer, 1, comma_is_decimal, answer.message);
}

std::string PlaceOf(const Problem& problem) {
  std::string text;
  if (problem.line) text += fmt::format("line {}", *problem.line);
  if (problem.record) text += fmt::format(", record {}", *problem.record);
  if (problem.column) text += fmt::format(", column {}", *problem.column);
  if (problem.label) text += fmt::format(" ({})", Cut(*problem.label));
  if (problem.column || problem.record) text += fmt::format(": \"{}\"", problem.value);
  if (!text.empty()) text += ": ";
  return text;
}

std::string OneLine(const std::string& message) {
  std::string line;
  for (const char c : message) {
    if (c == '\r') continue;
    if (c != '\n') {
      line += c;
    } else if (!line.ends_with(' ')) {
      line += ' ';
    }
  }
  return line;
}

}  // namespace tslm5::host
