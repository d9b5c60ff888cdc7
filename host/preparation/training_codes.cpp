#include "host/preparation/training_codes.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/preparation/file_check.h"
#include "host/preparation/user_locale.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"
#include "tslm5/component/class_factory.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/nominal_data_set.h"

namespace tslm5::host {
namespace {

constexpr char kEscape = '\x0f';

/// Appends a word: a separator in it becomes the escape and a letter, as does the escape itself.
void AppendWord(std::string& text, std::string_view word) {
  constexpr std::string_view kSpecial = " \t,;|\x0f\r\n\v\f";
  for (const char c : word) {
    const std::size_t place = kSpecial.find(c);
    if (place == std::string_view::npos) {
      text += c;
    } else {
      text += kEscape;
      text += static_cast<char>('a' + place);
    }
  }
}

/// Appends a number, with the decimal sign that the component expects.
void AppendNumberCell(std::string& text, std::string_view cell, char from, char to) {
  const std::size_t begin = text.size();
  text += cell;
  std::replace(text.begin() + static_cast<std::ptrdiff_t>(begin), text.end(), from, to);
}

void AppendCell(std::string& text, std::string_view cell, const CellRule& rule, char decimal) {
  if (cell.empty() || rule.IsNamedToken(cell)) {
    text += '?';
  } else if (rule.Classify(cell) == CellClass::kNumber) {
    AppendNumberCell(text, cell, rule.Decimal(), decimal);
  } else {
    AppendWord(text, cell);
  }
}

/// The component's words with a column's label in the place of the name it knew.
std::string WithLabels(std::string words, const FieldTable& table) {
  constexpr std::string_view kBefore = "The variable ";
  const std::size_t from = words.find(kBefore);
  if (from == std::string::npos) return words;
  const std::size_t name = from + kBefore.size();
  const std::size_t size = std::min(words.find(' ', name), words.size()) - name;
  std::size_t column = table.columns - 1;  // the response's name is another one
  for (std::size_t i = 0; i + 1 < table.columns; ++i) {
    if (words.substr(name, size) == fmt::format("d{}", i)) column = i;
  }
  return words.replace(name, size, table.LabelOf(column));
}

void Parse(INominalDataSet& set, const FieldTable& table, std::string& text, std::int32_t problem) {
  const std::int32_t separator = table.columns == 1 ? separator_code::kNone : separator_code::kTab;
  try {
    set.ParseString(text, separator, false, data_set_type::kTraining, layout_code::kRecordsInRows,
                    problem, nullptr);
  } catch (const Error& error) {
    if (error.Number() < error_number::kInvalidArgument) throw;
    Refuse(Escaped(WithLabels(OneLine(error.what()), table)));
  }
  StopIfInterrupted();
}

}  // namespace

std::string ComposeTraining(const FieldTable& table, const std::vector<std::size_t>& records,
                            const CellRule& rule) {
  const char decimal = UserHasDecimalComma() ? ',' : '.';
  std::string text;
  for (const std::size_t record : records) {
    for (std::size_t column = 0; column < table.columns; ++column) {
      if (column > 0) text += '\t';
      AppendCell(text, table.Field(record, column), rule, decimal);
    }
    text += '\n';
  }
  return text;
}

CodedRecords CodeTraining(const FieldTable& table, const std::vector<std::size_t>& records,
                          const CellRule& rule, std::int32_t problem) {
  std::string text = ComposeTraining(table, records, rule);
  const auto set = CreateObject<INominalDataSet>(class_id::kInMemorySet);
  Parse(*set, table, text, problem);

  CodedRecords coded;
  const Ref<IDataSet> numbers = set.As<IDataSet>();
  const auto columns = static_cast<std::int32_t>(table.columns);
  const std::int32_t rows = numbers->Rows();
  coded.values.reserve(records.size() * table.columns);
  for (std::int32_t row = 0; row < rows; ++row) {
    for (std::int32_t column = 0; column < columns; ++column) {
      coded.values.push_back(numbers->GetItem(column, row));
    }
  }
  for (std::int32_t column = 0; column < columns; ++column) {
    coded.is_nominal.push_back(set->GetItem(column, 0).GetKind() == Variant::Kind::kString);
  }
  return coded;
}

}  // namespace tslm5::host
