#include "host/preparation/recoding.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/preparation/gap_column.h"
#include "host/preparation/lines.h"
#include "host/preparation/run_change.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/nearest_texts.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

/// The category that a change names; the blanks around a name do not matter.
const CodedCategory& RequireCategory(const CodedColumn& column, const std::string& value) {
  if (const CodedCategory* category = column.Find(value)) return *category;
  if (const CodedCategory* category = column.Find(std::string(Trimmed(value)))) return *category;
  Misuse(fmt::format("{} has no category {}; it has {}", ColumnTitle(column.index, column.label),
                     Quoted(value), NearestList(value, column.Values())));
}

/// The figures of the column's codes, gaps left out. A run that is normalised keeps others of it:
/// those that leave codes as they are.
void UpdateFigures(const RunSession& session, std::int32_t column) {
  if (NormalizationType(session) != 0) return;
  session.Figures().RenewScaleFigures(column);
}

void UpdateMerging(const RunSession& session, bool is_merging) {
  session.Parameters().ReplaceWhole(parameter_space::kData, run_parameter::kMerging,
                                    is_merging ? 1 : 0);
}

/// The component fills in the encoding that is there.
void RequireEncoding(const RunSession& session) {
  ResponseEncoding encoding;
  if (!session.Categories().ReadEncoding(encoding)) session.Categories().WriteEncoding({});
}

/// The code that the classes other than `positive` have, when they have but one.
const CodedCategory* OtherClass(const CodedColumn& response, const CodedCategory& positive) {
  for (const CodedCategory& one : response.categories) {
    if (one.code != positive.code) return &one;
  }
  return nullptr;
}

}  // namespace

void Recode(const RunSession& session, const Ref<IDataSet>& data_set, const CodedColumn& column,
            const std::vector<CodeChange>& changes) {
  std::vector<CodeChange> resolved;
  for (const CodeChange& change : changes) {
    const CodedCategory& category = RequireCategory(column, change.value);
    RefuseApostrophe("the category", category.value);
    AddCodeChange({category.value, change.code}, resolved);
  }
  const auto metadata = data_set.As<INominalDataSetMetadata>();
  for (const CodeChange& change : resolved) {
    StopIfInterrupted();
    metadata->UpdateCategory(fmt::format("d{}", column.index), change.value, change.code);
  }
  UpdateFigures(session, column.index);
  if (!column.is_response) return;
  const CodedColumn after = ReadCodedColumn(session, data_set, column.index);
  UpdateMerging(session, after.Codes() < after.categories.size());
}

void EncodeResponse(const RunSession& session, const Ref<IDataSet>& data_set,
                    const CodedColumn& response) {
  RequireEncoding(session);
  try {
    data_set.As<INominalDataSetMetadata>()->UpdateMergingResponseCategories();
  } catch (const Error& error) {
    if (error.Number() != error_number::kBrokenStatement) throw;
    for (const CodedCategory& one : response.categories) {
      RefuseApostrophe("the class", one.value);
    }
    throw;
  }
}

void NamePositiveClass(const RunSession& session, const Ref<IDataSet>& data_set,
                       const CodedColumn& response, const std::string& name) {
  const CodedCategory& positive = RequireCategory(response, name);
  RefuseApostrophe("the class", positive.value);
  const CodedCategory* other = OtherClass(response, positive);
  if (response.Codes() != 2 || positive.is_merged || other == nullptr) {
    Refuse(
        fmt::format("{} cannot be the positive class: the response must have two codes, "
                    "one of them for this class alone (--merge gives several one code)",
                    Quoted(positive.value)));
  }
  RequireEncoding(session);
  data_set.As<INominalDataSetMetadata>()->SavePositiveClass(positive.value);
  ResponseEncoding encoding;
  session.Categories().ReadEncoding(encoding);
  session.Categories().WriteEncoding({encoding.positive_class, positive.code, other->code});
}

std::vector<std::string> WarningsOfFilledGaps(const Ref<IDataSet>& data_set,
                                              const CodedColumn& before, const CodedColumn& after) {
  const auto has = [](const CodedColumn& column, double code) {
    return std::any_of(column.categories.begin(), column.categories.end(),
                       [code](const auto& one) { return one.code == code; });
  };
  std::vector<std::string> warnings;
  for (const GapToken& token : ReadTokens(data_set, after.index)) {
    if (!token.replacement || !has(before, *token.replacement)) continue;
    if (has(after, *token.replacement)) continue;
    warnings.push_back(fmt::format(
        "{}: the replacement {} of the token {} is no category's code any more (tslm5 missing "
        "chooses another)",
        ColumnTitle(after.index, after.label), NumberText(*token.replacement), Quoted(token.text)));
  }
  return warnings;
}

}  // namespace tslm5::host
