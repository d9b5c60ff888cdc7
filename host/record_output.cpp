#include "host/record_output.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/interruption.h"
#include "host/json_text.h"
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

/// The width of every column, the row numbers first.
std::vector<std::size_t> MeasureColumns(const Selection& selection,
                                        const std::vector<std::string>& titles) {
  std::vector<std::size_t> widths = {
      std::max(kRowTitle.size(), fmt::formatted_size("{}", selection.end_row))};
  for (const std::string& title : titles) widths.push_back(DisplayWidth(title));
  for (std::int32_t row = selection.first_row; row < selection.end_row; ++row) {
    StopIfInterrupted();
    for (std::size_t i = 0; i < selection.columns.size(); ++i) {
      const double value = selection.data_set.GetItem(selection.columns[i], row);
      widths[i + 1] = std::max(widths[i + 1], CellText(value).size());
    }
  }
  return widths;
}

}  // namespace

void WriteTable(const Selection& selection, Output& output) {
  std::vector<std::string> titles;
  for (const std::string& label : selection.labels) titles.push_back(Cut(label));
  const std::vector<std::size_t> widths = MeasureColumns(selection, titles);

  std::string line;
  AppendRight(line, kRowTitle, widths[0]);
  for (std::size_t i = 0; i < titles.size(); ++i) {
    line += kGap;
    AppendRight(line, titles[i], widths[i + 1]);
  }
  output.Write(line + '\n');
  for (std::int32_t row = selection.first_row; row < selection.end_row; ++row) {
    StopIfInterrupted();
    line.clear();
    AppendRight(line, fmt::format("{}", row + 1), widths[0]);
    for (std::size_t i = 0; i < selection.columns.size(); ++i) {
      line += kGap;
      AppendRight(line, CellText(selection.data_set.GetItem(selection.columns[i], row)),
                  widths[i + 1]);
    }
    line += '\n';
    output.Write(line);
  }
}

void WriteCsv(const Selection& selection, Output& output) {
  std::string line;
  for (std::size_t i = 0; i < selection.labels.size(); ++i) {
    if (i > 0) line += ',';
    line += CsvField(selection.labels[i]);
  }
  output.Write(line + '\n');
  for (std::int32_t row = selection.first_row; row < selection.end_row; ++row) {
    StopIfInterrupted();
    line.clear();
    for (std::size_t i = 0; i < selection.columns.size(); ++i) {
      if (i > 0) line += ',';
      const double value = selection.data_set.GetItem(selection.columns[i], row);
      if (!std::isnan(value)) AppendNumber(line, value);
    }
    line += '\n';
    output.Write(line);
  }
}

void WriteJson(const Selection& selection, Output& output) {
  const nlohmann::ordered_json head = {{"set", selection.set_name},
                                       {"labels", selection.labels},
                                       {"firstRow", selection.first_row + 1}};
  std::string line = JsonText(head);
  line.resize(line.rfind('}'));  // the rows follow inside the same object
  line += ",\"rows\":[";
  for (std::int32_t row = selection.first_row; row < selection.end_row; ++row) {
    StopIfInterrupted();
    line += row == selection.first_row ? "[" : ",[";
    for (std::size_t i = 0; i < selection.columns.size(); ++i) {
      if (i > 0) line += ',';
      AppendJsonNumber(line, selection.data_set.GetItem(selection.columns[i], row));
    }
    line += ']';
    output.Write(line);
    line.clear();
  }
  output.Write(line + "]}\n");
}

std::string CsvField(const std::string& label) {
  if (label.find_first_of(",\"\r\n") == std::string::npos) return label;
  std::string field = "\"";
  for (const char c : label) {
    if (c == '"') field += c;
    field += c;
  }
  return field + '"';
}

}  // namespace tslm5::host
