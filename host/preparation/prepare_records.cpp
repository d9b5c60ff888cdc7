#include "host/preparation/prepare_records.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "host/preparation/response_classes.h"
#include "host/preparation/training_codes.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {
namespace {

using Records = std::vector<std::size_t>;

constexpr std::size_t kRecordsBetweenLooks = 4096;
constexpr std::int64_t kFewWordsIn = 10;  // fewer than one word in so many cells is worth a warning

void RequireResponse(const FieldTable& table, const Records& records, const CellRule& rule) {
  const std::size_t response = table.columns - 1;
  for (const std::size_t record : records) {
    const std::string_view cell = table.Field(record, response);
    if (rule.Classify(cell) != CellClass::kMissing) continue;
    Refuse(fmt::format("{}: the response is missing: {}; a record without it cannot be used",
                       table.PlaceOf(record, response), Quoted(cell)));
  }
}

std::vector<double> ColumnOf(const std::vector<double>& values, std::size_t columns,
                             std::size_t column) {
  std::vector<double> cells;
  cells.reserve(values.size() / columns);
  for (std::size_t i = column; i < values.size(); i += columns) cells.push_back(values[i]);
  return cells;
}

std::int64_t CountMissing(const std::vector<double>& cells) {
  std::int64_t missing = 0;
  for (const double cell : cells) missing += std::isnan(cell) ? 1 : 0;
  return missing;
}

/// A column of numbers that a few words have made categorical may be a slip of the file.
void WarnOfFewWords(const FieldTable& table, const Records& records, std::size_t column,
                    const CellRule& rule, std::vector<std::string>& warnings) {
  std::int64_t words = 0;
  std::int64_t numbers = 0;
  std::optional<std::size_t> first;
  for (const std::size_t record : records) {
    const CellClass kind = rule.Classify(table.Field(record, column));
    if (kind == CellClass::kNumber) ++numbers;
    if (kind == CellClass::kWord && words++ == 0) first = record;
  }
  if (!first || words * kFewWordsIn >= numbers + words) return;
  warnings.push_back(fmt::format(
      "the column {} is coded as categories for {} of its {} cells, the others being numbers; the "
      "first: {}: {}",
      Cut(table.LabelOf(column)), words, numbers + words, table.PlaceOf(*first, column),
      Quoted(table.Field(*first, column))));
}

/// Brings an input column into the run's scale and keeps the figures that replacements go by.
void ScaleColumn(std::vector<double>& values, std::size_t columns, std::size_t index,
                 const RunScale& scale, PreparedColumn& column,
                 std::vector<std::string>& warnings) {
  const bool is_response = index + 1 == columns;
  column.figures = ComputeFigures(ColumnOf(values, columns, index));
  if (scale.type == normalization_type::kNone) return;
  const bool is_number = !column.is_nominal && !is_response;
  column.is_scaled = is_number && CanScale(scale, column.figures);
  if (is_number && !column.is_scaled) {
    const char* reason = !column.figures.average ? "it has no number in the training set"
                         : column.figures.minimum == column.figures.maximum
                             ? "its training values are all the same"
                             : "its values are too large";
    warnings.push_back(
        fmt::format("the column {} is not normalised: {}", Cut(column.label), reason));
  }
  if (!column.is_scaled) {
    column.figures = IdentityFigures(scale);
    return;
  }
  for (std::size_t i = index; i < values.size(); i += columns) {
    values[i] = Scaled(values[i], scale, column.figures);
  }
}

/// The code of a testing cell in a column that has categories. A new text is entered.
class CategoryCoder {
 public:
  CategoryCoder(PreparedColumn& column, std::size_t index, bool is_response,
                const Preparation& preparation)
      : column_(column), index_(index) {
    if (is_response && preparation.has_positive_class && preparation.two_classes) {
      has_other_code_ = true;
      other_code_ = preparation.two_classes->negative;
    }
  }

  /// `number` is the cell's own; not a number for a word.
  double CodeOf(std::string_view text, double number, std::vector<UnseenCategory>& unseen) {
    if (const Category* known = column_.categories.Find(text)) {
      if (known->count == 0) CountAgain(text, unseen);
      return known->code;
    }
    const double code = has_other_code_      ? other_code_
                        : column_.is_nominal ? column_.categories.NextCode()
                                             : number;
    if (!IsOtherSpelling(code)) unseen.push_back({index_, std::string(text), code, 1});
    column_.categories.Add(text, code, 0);
    return code;
  }

 private:
  /// Whether a number that is no word is among the classes under another text, as 1.0 beside 1.
  bool IsOtherSpelling(double code) const {
    if (column_.is_nominal || has_other_code_) return false;
    const std::vector<Category>& all = column_.categories.All();
    return std::any_of(all.begin(), all.end(),
                       [code](const Category& one) { return one.code == code; });
  }

  void CountAgain(std::string_view text, std::vector<UnseenCategory>& unseen) const {
    for (UnseenCategory& one : unseen) {
      if (one.column == index_ && one.text == text) ++one.count;
    }
  }

  PreparedColumn& column_;
  std::size_t index_;
  bool has_other_code_ = false;  ///< every text that is new belongs to the other class
  double other_code_ = 0.0;
};

void CountCategories(const FieldTable& table, const Records& records,
                     const std::vector<double>& values, std::size_t index,
                     CategoryList& categories) {
  for (std::size_t i = 0; i < records.size(); ++i) {
    const double code = values[i * table.columns + index];
    if (std::isnan(code)) continue;
    const std::string_view text = table.Field(records[i], index);
    if (Category* known = categories.Find(text)) {
      ++known->count;
    } else {
      categories.Add(text, code, 1);
    }
  }
}

}  // namespace

PreparedRecords PrepareTraining(const FieldTable& table, const Records& records,
                                const CellRule& rule, const PreparationWishes& wishes,
                                Preparation& preparation) {
  RequireResponse(table, records, rule);
  const std::size_t response = table.columns - 1;
  bool has_words = false;
  for (const std::size_t record : records) {
    has_words = has_words || rule.Classify(table.Field(record, response)) == CellClass::kWord;
  }
  preparation.problem = wishes.problem.value_or(has_words ? problem_category::kClassification
                                                          : problem_category::kRegression);
  preparation.scale = wishes.scale;
  preparation.missing_tokens = wishes.missing_tokens;
  CodedRecords coded = CodeTraining(table, records, rule, preparation.problem);

  PreparedRecords prepared;
  prepared.values = std::move(coded.values);
  preparation.columns.resize(table.columns);
  for (std::size_t i = 0; i < table.columns; ++i) {
    PreparedColumn& column = preparation.columns[i];
    column.label = table.LabelOf(i);
    column.is_nominal = coded.is_nominal[i];
    column.missing = CountMissing(ColumnOf(prepared.values, table.columns, i));
    const bool has_classes =
        i == response && HasClasses(preparation.problem, wishes.positive_class);
    if (column.is_nominal || has_classes) {
      CountCategories(table, records, prepared.values, i, column.categories);
    }
    if (column.is_nominal) WarnOfFewWords(table, records, i, rule, prepared.warnings);
  }
  SettleClasses(table, wishes.positive_class, preparation);
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Category* own =
        std::as_const(preparation.Response().categories).Find(table.Field(records[i], response));
    if (own != nullptr) prepared.values[i * table.columns + response] = own->code;
  }
  for (std::size_t i = 0; i < table.columns; ++i) {
    ScaleColumn(prepared.values, table.columns, i, preparation.scale, preparation.columns[i],
                prepared.warnings);
  }
  CountTokens(table, records, rule, preparation);
  return prepared;
}

PreparedRecords PrepareTesting(const FieldTable& table, const Records& records,
                               const CellRule& rule, Preparation& preparation) {
  RequireResponse(table, records, rule);
  PreparedRecords prepared;
  prepared.values.assign(records.size() * table.columns, std::numeric_limits<double>::quiet_NaN());
  for (std::size_t index = 0; index < table.columns; ++index) {
    PreparedColumn& column = preparation.columns[index];
    const bool is_response = index + 1 == table.columns;
    CategoryCoder coder(column, index, is_response, preparation);
    for (std::size_t i = 0; i < records.size(); ++i) {
      if (i % kRecordsBetweenLooks == 0) StopIfInterrupted();
      const std::string_view cell = table.Field(records[i], index);
      double number = std::numeric_limits<double>::quiet_NaN();
      const CellClass kind = rule.Classify(cell, number);
      if (kind == CellClass::kMissing) continue;
      if (kind == CellClass::kWord && !column.is_nominal) {
        Refuse(
            fmt::format("{}: {} is a word, but the column held numbers alone in the training set",
                        table.PlaceOf(records[i], index), Quoted(cell)));
      }
      double& value = prepared.values[i * table.columns + index];
      if (column.is_nominal || !column.categories.IsEmpty()) {
        value = coder.CodeOf(cell, number, prepared.unseen);
      } else {
        value = is_response ? number : Scaled(number, preparation.scale, column.figures);
      }
    }
  }
  CountTokens(table, records, rule, preparation);
  return prepared;
}

void CountTokens(const FieldTable& table, const Records& records, const CellRule& rule,
                 Preparation& preparation) {
  for (std::size_t index = 0; index + 1 < table.columns; ++index) {
    std::vector<MissingToken>& tokens = preparation.columns[index].tokens;
    for (const std::size_t record : records) {
      const std::string_view cell = table.Field(record, index);
      if (rule.Classify(cell) != CellClass::kMissing) continue;
      const auto known =
          std::find_if(tokens.begin(), tokens.end(),
                       [cell](const MissingToken& token) { return token.text == cell; });
      if (known != tokens.end()) {
        ++known->count;
      } else {
        tokens.push_back({std::string(cell), 1});
      }
    }
  }
}

}  // namespace tslm5::host
