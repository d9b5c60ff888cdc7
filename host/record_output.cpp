#include "host/record_output.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "host/interruption.h"
#include "host/json_text.h"
#include "host/original_cells.h"
#include "host/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kMissing = "NA";
constexpr std::string_view kRowTitle = "row";
constexpr std::string_view kGap = "  ";

std::string CellText(double value) {
  return std::isnan(value) ? std::string(kMissing) : NumberText(value);
}

void AppendRight(std::string& line, std::string_view text, std::size_t width) {
  line.append(width - std::min(width, DisplayWidth(text)), ' ');
  line += text;
}

/// The records of a selection one after the other: its numbers, and its originals if wanted.
class RecordWalk {
 public:
  explicit RecordWalk(const Selection& selection)
      : selection_(selection), row_(selection.first_row - 1) {
    if (selection.originals_of) {
      originals_.emplace(*selection.originals_of, selection.table, selection.columns,
                         selection.first_row);
    }
  }

  bool Next() {
    StopIfInterrupted();
    if (++row_ >= selection_.end_row) return false;
    if (originals_) originals_->Next();
    return true;
  }

  bool HasOriginals() const { return originals_.has_value(); }
  std::int32_t Row() const { return row_; }
  double Number(std::size_t i) const {
    return selection_.data_set.GetItem(selection_.columns[i], row_);
  }
  std::optional<std::string> Original(std::size_t i) const { return originals_->Text(i); }

 private:
  const Selection& selection_;
  std::int32_t row_;
  std::optional<OriginalCells> originals_;
};

/// The labels of all that is written of a record.
std::vector<std::string> Titles(const Selection& selection) {
  std::vector<std::string> titles;
  for (const std::string& label : selection.labels) {
    titles.push_back(label);
    if (selection.originals_of) titles.push_back(label + " (original)");
  }
  return titles;
}

/// What a table shows of the record that the walk is at.
std::vector<std::string> TableCells(const RecordWalk& walk, std::size_t columns) {
  std::vector<std::string> cells;
  for (std::size_t i = 0; i < columns; ++i) {
    cells.push_back(CellText(walk.Number(i)));
    if (walk.HasOriginals()) cells.push_back(Cut(walk.Original(i).value_or("")));
  }
  return cells;
}

/// The width of every column, the row numbers first.
std::vector<std::size_t> MeasureColumns(const Selection& selection,
                                        const std::vector<std::string>& titles) {
  std::vector<std::size_t> widths = {
      std::max(kRowTitle.size(), fmt::formatted_size("{}", selection.end_row))};
  for (const std::string& title : titles) widths.push_back(DisplayWidth(title));
  for (RecordWalk walk(selection); walk.Next();) {
    const std::vector<std::string> cells = TableCells(walk, selection.columns.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
      widths[i + 1] = std::max(widths[i + 1], DisplayWidth(cells[i]));
    }
  }
  return widths;
}

void AppendTableLine(std::string& line, const std::vector<std::string>& cells,
                     const std::vector<std::size_t>& widths) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    line += kGap;
    AppendRight(line, cells[i], widths[i + 1]);
  }
  line += '\n';
}

void AppendJsonText(std::string& line, const std::optional<std::string>& text) {
  nlohmann::ordered_json value = nullptr;
  if (text) value = *text;
  line += JsonText(value);
  line.pop_back();
}

}  // namespace

void WriteTable(const Selection& selection, Output& output) {
  std::vector<std::string> titles = Titles(selection);
  for (std::string& title : titles) title = Cut(title);
  const std::vector<std::size_t> widths = MeasureColumns(selection, titles);

  std::string line;
  AppendRight(line, kRowTitle, widths[0]);
  AppendTableLine(line, titles, widths);
  output.Write(line);
  for (RecordWalk walk(selection); walk.Next();) {
    line.clear();
    AppendRight(line, fmt::format("{}", walk.Row() + 1), widths[0]);
    AppendTableLine(line, TableCells(walk, selection.columns.size()), widths);
    output.Write(line);
  }
}

void WriteCsv(const Selection& selection, Output& output) {
  std::string line;
  const std::vector<std::string> titles = Titles(selection);
  for (std::size_t i = 0; i < titles.size(); ++i) {
    if (i > 0) line += ',';
    line += CsvField(titles[i]);
  }
  output.Write(line + '\n');
  for (RecordWalk walk(selection); walk.Next();) {
    line.clear();
    for (std::size_t i = 0; i < selection.columns.size(); ++i) {
      if (i > 0) line += ',';
      const double value = walk.Number(i);
      if (!std::isnan(value)) AppendNumber(line, value);
      if (walk.HasOriginals()) line += ',' + CsvField(walk.Original(i).value_or(""));
    }
    line += '\n';
    output.Write(line);
  }
}

void WriteJson(const Selection& selection, Output& output) {
  const nlohmann::ordered_json head = {{"set", selection.set_name},
                                       {"labels", Titles(selection)},
                                       {"firstRow", selection.first_row + 1}};
  std::string line = JsonText(head);
  line.resize(line.rfind('}'));  // the rows follow inside the same object
  line += ",\"rows\":[";
  for (RecordWalk walk(selection); walk.Next();) {
    line += walk.Row() == selection.first_row ? "[" : ",[";
    for (std::size_t i = 0; i < selection.columns.size(); ++i) {
      if (i > 0) line += ',';
      AppendJsonNumber(line, walk.Number(i));
      if (!walk.HasOriginals()) continue;
      line += ',';
      AppendJsonText(line, walk.Original(i));
    }
    line += ']';
    output.Write(line);
    line.clear();
  }
  output.Write(line + "]}\n");
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string field = "\"";
  for (const char c : text) {
    if (c == '"') field += c;
    field += c;
  }
  return field + '"';
}

}  // namespace tslm5::host
