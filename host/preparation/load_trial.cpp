#include "host/preparation/load_trial.h"

#include "host/preparation/field_table.h"
#include "host/preparation/load_files.h"
#include "host/preparation/prepare_records.h"
#include "host/preparation/record_split.h"
#include "host/program/failure.h"

namespace tslm5::host {
namespace {

/// Whether the check has seen all that a load could stumble over. Labels between blanks are counted
/// in another way.
bool HoldsPlainNumbers(const DataCheckResult& checked, const Separator& separator) {
  return checked.is_plain && checked.columns <= static_cast<std::int64_t>(kMostColumns) &&
         separator.code != separator_code::kSpace;
}

}  // namespace

std::optional<std::string> LoadRefusal(const DelimitedText& text, const SeparatorChoice& choice,
                                       const DataCheckResult& checked, bool comma_is_decimal) {
  try {
    RequireGuess(choice);
    if (HoldsPlainNumbers(checked, *text.separator)) return std::nullopt;
    if (SurveyNumbers(text, comma_is_decimal)) return std::nullopt;
    const FieldTable table = ReadFields(text, comma_is_decimal);
    Preparation preparation;
    PrepareTraining(table, NoSplit(table.Records()).training, CellRule(comma_is_decimal, {}), {},
                    preparation);
    return std::nullopt;
  } catch (const Failure& failure) {
    if (failure.Code() != ExitCode::kRefused) throw;
    return failure.what();
  }
}

}  // namespace tslm5::host
