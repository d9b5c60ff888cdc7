#include "inmemory/nominal_converter.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "inmemory/category_coding.h"
#include "inmemory/parse_errors.h"

namespace tslm5 {

NominalConverter::NominalConverter(std::string_view text, std::string_view separator,
                                   std::int32_t columns, char decimal)
    : is_blank_separated_(separator == " "),
      decimal_(decimal),
      walker_(text, separator, columns),
      columns_(static_cast<std::size_t>(columns)) {}

std::string_view NominalConverter::Next(double* cells) {
  std::string_view response;
  const auto take = [this, cells](std::int32_t index, const char* first, const char* last) {
    Column& column = columns_[static_cast<std::size_t>(index)];
    if (!column.is_categorical &&
        ReadNumber(first, last, walker_.TextEnd(), decimal_, cells[index])) {
      return true;
    }
    cells[index] = std::numeric_limits<double>::quiet_NaN();
    if (!column.is_categorical) TakeText(column, {first, static_cast<std::size_t>(last - first)});
    return true;
  };
  const bool has_its_width = walker_.Next(response, take);
  // A separator at the end of a line is a response left out; a blank is nothing.
  if (!has_its_width || (response.empty() && is_blank_separated_)) {
    ParseErrors::RaiseColumnCount(walker_.LineNumber());
  }
  if (std::isnan(cells[columns_.size() - 1]) && IsMissingCell(response, decimal_)) {
    ParseErrors::RaiseMissingResponse(walker_.LineNumber(),
                                      static_cast<std::int64_t>(columns_.size()));
  }
  return response;
}

/// Notes a cell that is no number, in a column that was not categorical before it.
void NominalConverter::TakeText(Column& column, std::string_view text) const {
  if (IsMissingCell(text, decimal_)) {
    ++column.missing;
  } else {
    column.is_categorical = true;
  }
}

std::vector<std::int32_t> NominalConverter::CategoricalColumns() const {
  std::vector<std::int32_t> indexes;
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    if (columns_[index].is_categorical) indexes.push_back(static_cast<std::int32_t>(index));
  }
  return indexes;
}

std::int64_t NominalConverter::CountMissing() const {
  std::int64_t count = 0;
  for (const Column& column : columns_) {
    if (!column.is_categorical) count += column.missing;
  }
  return count;
}

}  // namespace tslm5
