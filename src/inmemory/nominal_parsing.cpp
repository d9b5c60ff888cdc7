#include "inmemory/nominal_parsing.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <memory>
#include <utility>

#include "inmemory/category_coding.h"
#include "inmemory/nominal_converter.h"
#include "inmemory/parse_errors.h"
#include "support/locale.h"
#include "support/text_cleanup.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {
namespace {

/// One categorical column while its cells are coded.
struct CodedColumn {
  CodedColumn(std::int32_t column, bool is_response, std::int32_t rows, char decimal)
      : index(column), coding(is_response, decimal) {
    positions.resize(static_cast<std::size_t>(rows));
  }

  std::int32_t index;
  CategoryCoding coding;
  std::vector<RawColumn::Position> positions;
  std::int64_t missing = 0;
};

}  // namespace

void NominalParsing::Begin(std::string& text, std::int32_t data_set_type) {
  State().problem_category = problem_category_;
  is_training_ = data_set_type == data_set_type::kTraining;
  TextCleanup::ReplaceToken(text, "\r\n", "\n");  // else the last cell of a line would end in it
}

void NominalParsing::RefuseMixedSeparators() const {
  ParseErrors::RaiseMixedSeparators();
}

bool NominalParsing::Rearranges(std::int32_t layout) const {
  return layout == layout_code::kRecordsInColumns || layout == layout_code::kResponseFirst;
}

bool NominalParsing::FillCells(const Lines& lines, IParseEventArgs& arguments) {
  const char decimal = CurrentLocale().DecimalSymbol();
  const bool must_vary = is_training_ && (problem_category_ == problem_category::kRegression ||
                                          ClassTracker::AreClasses(problem_category_));
  NominalConverter converter(lines.text, Separator(), lines.columns, decimal);
  if (!ConvertRecords(converter, ClassTracker(must_vary, problem_category_), lines.rows,
                      arguments)) {
    return false;
  }
  const std::int64_t missing =
      converter.CountMissing() + CodeColumns(lines, converter.CategoricalColumns(), decimal);
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  State().replaced_missing_count = static_cast<std::int32_t>(std::min(missing, kMost));
  return true;
}

/// Walks over the text again, writes the codes of these columns and keeps their raw texts. Returns
/// how many of their cells are missing.
std::int64_t NominalParsing::CodeColumns(const Lines& lines,
                                         const std::vector<std::int32_t>& columns, char decimal) {
  if (columns.empty()) return 0;
  std::vector<std::unique_ptr<CodedColumn>> coded(static_cast<std::size_t>(lines.columns));
  for (const std::int32_t column : columns) {
    coded[static_cast<std::size_t>(column)] =
        std::make_unique<CodedColumn>(column, column == lines.columns - 1, lines.rows, decimal);
  }
  // The first column with too many categories is told of, whichever shows it first: behind one
  // that has too many, no other matters.
  std::int32_t end = lines.columns;
  RecordWalker walker(lines.text, Separator(), lines.columns);
  for (std::int32_t row = 0; row < lines.rows && columns.front() < end; ++row) {
    double* const cells = Row(row);
    std::string_view response;
    walker.Next(response, [&](std::int32_t index, const char* first, const char* last) {
      CodedColumn* const column = coded[static_cast<std::size_t>(index)].get();
      if (column == nullptr || index >= end) return true;
      const auto position = column->coding.Enter({first, static_cast<std::size_t>(last - first)});
      if (!position) {
        end = index;
        return true;
      }
      column->positions[static_cast<std::size_t>(row)] = *position;
      cells[index] = column->coding.Code(*position);
      column->missing += std::isnan(cells[index]);
      return true;
    });
  }
  if (end != lines.columns) {
    const auto index = static_cast<std::size_t>(end);
    const std::vector<std::string>& labels = State().labels;  // a handler may have changed them
    ParseErrors::RaiseTooManyCategories(index < labels.size() ? labels[index] : std::string(),
                                        CategoryCoding::kMostCategories);
  }

  auto raw_cells = std::make_shared<RawCells>(lines.columns);
  std::int64_t missing = 0;
  for (const std::int32_t index : columns) {
    CodedColumn& column = *coded[static_cast<std::size_t>(index)];
    missing += column.missing;
    raw_cells->Put(index, {column.coding.TakeTexts(), std::move(column.positions)});
  }
  PutTexts(std::move(raw_cells));
  return missing;
}

}  // namespace tslm5
