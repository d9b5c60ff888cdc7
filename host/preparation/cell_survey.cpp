#include "host/preparation/cell_survey.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/preparation/record_reader.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/missing_tokens.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kSpace = "\r\v\f";

/// Without what the database takes for blanks around a number: a carriage return left over at the
/// end of a line does not make its last number a text.
std::string_view WithoutSpace(std::string_view cell) {
  const std::size_t first = cell.find_first_not_of(kSpace);
  if (first == std::string_view::npos) return cell;
  return cell.substr(first, cell.find_last_not_of(kSpace) - first + 1);
}

class Surveyor {
 public:
  Surveyor(const DelimitedText& text, bool comma_is_decimal)
      : text_(text), comma_is_decimal_(comma_is_decimal), reader_(text) {}

  CellSurvey Run() {
    while (reader_.Next()) {
      StopIfInterrupted();
      SplitAtBlanks(reader_.Clean(), cells_);
      if (found_.records++ == 0) TakeWidth();
      if (cells_.size() != found_.columns) RefuseWidth();
      NoteCells();
      if (reader_.IsChanged()) NoteChanges();
      NoteBlanks();
    }
    found_.lines = reader_.Lines();
    found_.label_lines = reader_.LabelLines();
    found_.empty_lines = reader_.EmptyLines();
    if (found_.records == 0) RefuseNothing();
    CheckLabels();
    return std::move(found_);
  }

 private:
  const char* Kind() const { return text_.is_transposed ? "transposed line" : "line"; }

  void TakeWidth() {
    found_.columns = cells_.size();
    found_.missing_by_column.assign(found_.columns, 0);
    first_record_line_ = reader_.LineNumber();
    if (found_.columns > kMostColumns) {
      Refuse(fmt::format("{} {} has {} columns; a run holds {} at most", Kind(),
                         reader_.LineNumber(), found_.columns, kMostColumns));
    }
  }

  void NoteCells() {
    for (std::size_t column = 0; column < cells_.size(); ++column) {
      const std::string_view cell = cells_[column];
      double number = 0.0;
      if (ParseNumber(cell, '.', number)) continue;
      if (comma_is_decimal_ && ParseNumber(cell, ',', number)) continue;
      if (!IsMissing(cell) && ParseNumber(WithoutSpace(cell), '.', number)) continue;
      if (IsMissing(cell)) {
        ++found_.missing_by_column[column];
        found_.missing.Note(reader_.LineNumber(), column, cell);
        continue;
      }
      found_.text.Note(reader_.LineNumber(), column, cell);
      if (!found_.first_apostrophe && cell.find('\'') != std::string_view::npos) {
        found_.first_apostrophe = CellPlace{reader_.LineNumber(), column, std::string(cell)};
      }
    }
  }

  void NoteChanges() {
    const std::string line = WithBlanks(reader_.Raw(), *text_.separator);
    std::vector<std::string_view> cells;
    SplitAtBlanks(line, cells);
    for (std::size_t column = 0; column < cells.size(); ++column) {
      if (std::any_of(cells[column].begin(), cells[column].end(), IsDeleted)) {
        found_.changed.Note(reader_.LineNumber(), std::min(column, found_.columns - 1),
                            cells[column]);
      }
    }
  }

  void NoteBlanks() {
    if (reader_.SeparatorCount() + 1 >= cells_.size()) return;
    if (text_.separator->code == separator_code::kNone) return;
    found_.blanks.Note(reader_.LineNumber(), 0, Trimmed(reader_.Raw()));
  }

  [[noreturn]] void RefuseWidth() const {
    std::string words = UnevenRecord(fmt::format("{} {}", Kind(), reader_.LineNumber()),
                                     cells_.size(), first_record_line_, found_.columns);
    std::vector<std::string_view> fields;
    SplitLine(reader_.Raw(), *text_.separator, fields);
    const bool fits = fields.size() == found_.columns;
    if (fits && cells_.size() > fields.size()) {
      const auto field = std::find_if(fields.begin(), fields.end(), [](std::string_view one) {
        return one.find(' ') != std::string_view::npos;
      });
      if (field != fields.end()) {
        words += fmt::format("; the blank in {} counts as a separator too", Quoted(*field));
      }
    } else if (fits) {
      words += "; an empty field at the beginning or the end of a line is not seen: write NA there";
    }
    Refuse(words);
  }

  [[noreturn]] void RefuseNothing() const { Refuse(NoRecords(reader_, text_)); }

  void CheckLabels() const {
    if (found_.label_lines == 0 || text_.is_transposed) return;
    std::string_view line;
    LineCursor(text_.text).Next(line);
    const std::size_t labels = CountLabels(line, *text_.separator, found_.columns);
    if (labels == found_.columns) return;
    Refuse(fmt::format("the label line has {} labels, but the records have {} columns: {}", labels,
                       found_.columns, Quoted(line)));
  }

  const DelimitedText& text_;
  const bool comma_is_decimal_;
  RecordReader reader_;
  std::vector<std::string_view> cells_;
  std::int64_t first_record_line_ = 0;
  CellSurvey found_;
};

}  // namespace

bool IsMissing(std::string_view cell) {
  return cell.empty() || IsMissingToken(cell);
}

std::string NoRecords(const RecordReader& reader, const DelimitedText& text) {
  const bool has_labels = reader.LabelLines() > 0;
  const bool has_lone_returns = text.text.find('\r') != std::string::npos;
  return fmt::format("there are no records: {} lines, {} of them the label line and {} empty{}",
                     reader.Lines(), reader.LabelLines(), reader.EmptyLines(),
                     has_lone_returns ? "; a carriage return alone does not end a line"
                     : has_labels     ? " (--no-labels takes the first line for a record)"
                                      : "");
}

CellSurvey SurveyCells(const DelimitedText& text, bool comma_is_decimal) {
  return Surveyor(text, comma_is_decimal).Run();
}

}  // namespace tslm5::host
