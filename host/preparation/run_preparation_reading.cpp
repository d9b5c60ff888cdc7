// The half of run_preparation.h that reads.
#include <string>
#include <utility>
#include <vector>

#include "host/preparation/cell_rule.h"
#include "host/preparation/run_preparation.h"
#include "tslm5/run/run_records.h"

namespace tslm5::host {
namespace {

std::vector<std::string> ReadNamedTokens(const RunSession& session) {
  std::vector<std::string> tokens;
  session.Parameters().ReadNames(parameter_space::kToken, tokens);
  return tokens;
}

void ReadColumns(const RunSession& session, Preparation& preparation) {
  std::vector<ScaleFigures> figures;
  session.Figures().ReadScaleFigures(figures);
  const std::vector<RunColumn> columns = ColumnsOf(session);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    PreparedColumn column;
    column.label = columns[i].label;
    column.is_nominal = columns[i].is_nominal;
    column.missing = columns[i].missing;
    if (i < figures.size()) column.figures = figures[i];
    if (preparation.scale.type != normalization_type::kNone) {
      const bool can_scale = CanScale(preparation.scale, column.figures);
      if (!can_scale) column.figures = IdentityFigures(preparation.scale);
      column.is_scaled = can_scale && !ChangesNothing(preparation.scale, column.figures);
    }
    preparation.columns.push_back(std::move(column));
  }
}

void ReadCategories(const RunSession& session, Preparation& preparation) {
  std::vector<RunCategory> categories;
  session.Categories().ReadCategories(categories);
  for (const RunCategory& one : categories) {
    const auto column = static_cast<std::size_t>(one.column);
    if (one.count <= 0 || column >= preparation.columns.size()) continue;
    preparation.columns[column].categories.Add(one.text, one.code, one.count);
  }
}

/// Counts the tokens of the training records, in the order of the records.
void ReadTrainingTokens(const RunSession& session, Preparation& preparation) {
  const auto columns = static_cast<std::int32_t>(preparation.columns.size());
  if (session.Originals().Columns() != columns) return;
  const CellRule rule('.', preparation.missing_tokens);
  std::vector<RunTextCount> texts;
  for (std::int32_t i = 0; i + 1 < columns; ++i) {
    PreparedColumn& column = preparation.columns[static_cast<std::size_t>(i)];
    if (column.missing == 0) continue;
    session.MissingValues().CountTrainingTexts(i, texts);
    for (const RunTextCount& one : texts) {
      if (rule.Classify(one.text) != CellClass::kMissing) continue;
      column.tokens.push_back({one.text, one.count});
    }
  }
}

}  // namespace

bool TestingHasDecimalComma(const RunSession& session) {
  return session.Parameters().ReadWhole(parameter_space::kData,
                                        run_parameter::kTestingDecimalComma) == 1;
}

bool IsPrepared(const RunSession& session) {
  std::vector<RunCategory> categories;
  session.Categories().ReadCategories(categories);
  std::vector<RunToken> tokens;
  session.MissingValues().ReadTokens(tokens);
  return session.Parameters().ReadWhole(parameter_space::kData, run_parameter::kNormalization) !=
             0 ||
         !categories.empty() || !tokens.empty() || !ReadNamedTokens(session).empty();
}

Preparation ReadPreparation(const RunSession& session) {
  IRunParameters& parameters = session.Parameters();
  Preparation preparation;
  preparation.scale = ReadScale(session);
  preparation.problem = ReadProblem(session);
  preparation.has_positive_class =
      parameters.ReadWhole(parameter_space::kData, run_parameter::kPositiveClassNamed) == 1;
  preparation.testing_has_decimal_comma = TestingHasDecimalComma(session);
  preparation.missing_tokens = ReadNamedTokens(session);
  ResponseEncoding encoding;
  if (session.Categories().ReadEncoding(encoding)) {
    preparation.two_classes = TwoClasses{encoding.positive_class, encoding.positive.value_or(0.0),
                                         encoding.negative.value_or(0.0)};
  }
  ReadColumns(session, preparation);
  ReadCategories(session, preparation);
  ReadTrainingTokens(session, preparation);
  return preparation;
}

RunScale ReadScale(const RunSession& session) {
  IRunParameters& parameters = session.Parameters();
  RunScale scale;
  scale.type = parameters.ReadWhole(parameter_space::kData, run_parameter::kNormalization);
  scale.new_minimum = parameters.ReadNumber(parameter_space::kData, run_parameter::kNewMinimum);
  scale.new_maximum = parameters.ReadNumber(parameter_space::kData, run_parameter::kNewMaximum);
  return scale;
}

}  // namespace tslm5::host
