#include "host/preparation/gap_filling.h"

#include <fmt/format.h>

#include <limits>
#include <string>

#include "host/preparation/replacement_type.h"
#include "host/preparation/run_change.h"
#include "host/preparation/training_figures.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "tslm5/contracts/data_set_lite.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

double ValueOf(const RunSession& session, const Ref<IDataSet>& data_set, std::int32_t column,
               const ReplacementChoice& choice) {
  switch (choice.type) {
    case replacement_type::kNone:
      return std::numeric_limits<double>::quiet_NaN();
    case replacement_type::kNumber:
    case replacement_type::kCategory:
      return choice.value;
    default:
      return TrainingFigure(session, data_set, column, choice.type);
  }
}

/// Does in plain statements what the component could not do, without saying why: a full disk, say,
/// is then raised as what it is. The transaction is rolled back in either case.
void RaiseWhatTheRunSays(const RunSession& session, const GapColumn& column) {
  for (const GapToken& token : column.tokens) {
    if (!token.replacement) continue;
    WriteCellsOf(session, column.index, token.text, *token.replacement);
  }
}

/// Why the component may have refused to fill a column's gaps.
std::string Reason(const RunSession& session, const Ref<IDataSet>& data_set, std::int32_t column) {
  const std::int32_t type = NormalizationType(session);
  const auto lite = data_set.As<IDataSetLite>();
  const auto figure = [&lite, column](std::string_view name) {
    return lite->GetMissingStatisticsValue(column, name);
  };
  try {
    if (type == normalization_type::kZScore && figure("StandardDeviation") == 0.0) {
      return "the run is normalised, and the values of the column do not deviate";
    }
    if (type > normalization_type::kZScore && figure("Minimum") == figure("Maximum")) {
      return "the run is normalised, and the column's minimum and maximum are equal";
    }
  } catch (const Error&) {
    return "the run does not keep the column's figures, which its normalisation needs";
  }
  return "a number is too large, or the run lacks something that is needed";
}

}  // namespace

void ChooseReplacements(const RunSession& session, const Ref<IDataSet>& data_set,
                        const GapColumn& column, const std::vector<ReplacementChoice>& choices) {
  const auto metadata = data_set.As<IMissingMetadata>();
  for (const ReplacementChoice& choice : choices) {
    StopIfInterrupted();
    RefuseApostrophe("the token", choice.token);
    const double value = ValueOf(session, data_set, column.index, choice);
    metadata->UpdateMissing(column.index, choice.token, value, choice.type);
    if (choice.type != replacement_type::kNone) continue;
    WriteCellsOf(session, column.index, choice.token, std::numeric_limits<double>::quiet_NaN());
  }
}

void FillGaps(const RunSession& session, const Ref<IDataSet>& data_set, const GapColumn& column) {
  StopIfInterrupted();
  for (const GapToken& token : column.tokens) {
    if (token.replacement) RefuseApostrophe("the token", token.text);
  }
  if (!data_set.As<IMissingMetadata>()->ApplyMissing(column.index)) {
    RaiseWhatTheRunSays(session, column);
    throw Failure(
        ExitCode::kTrouble,
        fmt::format("the replacements of {} could not be applied: {}; nothing was changed",
                    ColumnTitle(column.index, column.label),
                    Reason(session, data_set, column.index)));
  }
  if (!column.is_categorical || NormalizationType(session) == 0) return;
  // Codes have no scale. The component's arithmetic leaves them as they are but for its rounding.
  for (const GapToken& token : column.tokens) {
    if (!token.replacement) continue;
    WriteCellsOf(session, column.index, token.text, *token.replacement);
  }
}

}  // namespace tslm5::host
