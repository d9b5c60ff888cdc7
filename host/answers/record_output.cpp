#include "host/answers/record_output.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/program/interruption.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kMissing = "NA";
constexpr std::string_view kRowTitle = "row";
constexpr std::string_view kGap = "  ";

void AppendRight(std::string& line, std::string_view text, std::size_t width) {
  line.append(width - std::min(width, DisplayWidth(text)), ' ');
  line += text;
}

std::string TableCell(const RecordCell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) {
    return std::isnan(*number) ? std::string(kMissing) : NumberText(*number);
  }
  const auto* text = std::get_if<std::string>(&cell);
  return text == nullptr ? "" : Cut(*text);
}

void AppendCsvCell(std::string& line, const RecordCell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) {
    if (!std::isnan(*number)) AppendNumber(line, *number);
  } else if (const auto* text = std::get_if<std::string>(&cell)) {
    line += CsvField(*text);
  }
}

void AppendJsonCell(std::string& line, const RecordCell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) return AppendJsonNumber(line, *number);
  nlohmann::ordered_json value = nullptr;
  if (const auto* text = std::get_if<std::string>(&cell)) value = *text;
  line += JsonText(value);
  line.pop_back();
}

/// What a table shows of the record that the walk is at.
std::vector<std::string> TableCells(const RecordCells& record, std::size_t cells) {
  std::vector<std::string> texts;
  texts.reserve(cells);
  for (std::size_t i = 0; i < cells; ++i) texts.push_back(TableCell(record.Cell(i)));
  return texts;
}

/// Moves on, unless Ctrl-C was pressed.
bool NextOf(RecordCells& records) {
  StopIfInterrupted();
  return records.Next();
}

/// The width of every column, the row numbers first.
std::vector<std::size_t> MeasureColumns(const Selection& selection,
                                        const std::vector<std::string>& titles) {
  std::vector<std::size_t> widths = {
      std::max(kRowTitle.size(), fmt::formatted_size("{}", selection.end_row))};
  for (const std::string& title : titles) widths.push_back(DisplayWidth(title));
  const std::unique_ptr<RecordCells> records =
      selection.walk(selection.first_row, selection.end_row);
  while (NextOf(*records)) {
    const std::vector<std::string> cells = TableCells(*records, titles.size());
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

}  // namespace

void WriteTable(const Selection& selection, Output& output) {
  std::vector<std::string> titles = selection.titles;
  for (std::string& title : titles) title = Cut(title);
  const std::vector<std::size_t> widths = MeasureColumns(selection, titles);

  std::string line;
  AppendRight(line, kRowTitle, widths[0]);
  AppendTableLine(line, titles, widths);
  output.Write(line);
  const std::unique_ptr<RecordCells> records =
      selection.walk(selection.first_row, selection.end_row);
  while (NextOf(*records)) {
    line.clear();
    AppendRight(line, fmt::format("{}", records->Row() + 1), widths[0]);
    AppendTableLine(line, TableCells(*records, titles.size()), widths);
    output.Write(line);
  }
}

void WriteCsv(const Selection& selection, Output& output) {
  std::string line;
  const std::size_t cells = selection.titles.size();
  for (std::size_t i = 0; i < cells; ++i) {
    if (i > 0) line += ',';
    line += CsvField(selection.titles[i]);
  }
  output.Write(line + '\n');
  const std::unique_ptr<RecordCells> records =
      selection.walk(selection.first_row, selection.end_row);
  while (NextOf(*records)) {
    line.clear();
    for (std::size_t i = 0; i < cells; ++i) {
      if (i > 0) line += ',';
      AppendCsvCell(line, records->Cell(i));
    }
    line += '\n';
    output.Write(line);
  }
}

void WriteJson(const Selection& selection, Output& output) {
  const nlohmann::ordered_json head = {{"set", selection.set_name},
                                       {"labels", selection.titles},
                                       {"firstRow", selection.first_row + 1}};
  std::string line = JsonText(head);
  line.resize(line.rfind('}'));  // the rows follow inside the same object
  line += ",\"rows\":[";
  const std::unique_ptr<RecordCells> records =
      selection.walk(selection.first_row, selection.end_row);
  while (NextOf(*records)) {
    line += records->Row() == selection.first_row ? "[" : ",[";
    for (std::size_t i = 0; i < selection.titles.size(); ++i) {
      if (i > 0) line += ',';
      AppendJsonCell(line, records->Cell(i));
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
