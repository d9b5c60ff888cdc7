#include "host/preparation/gap_column.h"

#include <string_view>

#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/platform/dictionary.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

[[noreturn]] void RaiseUnreadable(const std::string& text) {
  throw Failure(ExitCode::kTrouble, "the run's missing values cannot be read: " + text);
}

std::int32_t WholeNumber(std::string_view text, const std::string& mapping) {
  double number = 0.0;
  if (!ParseNumber(text, '.', number)) RaiseUnreadable(mapping);
  return Variant(number).ToInteger();
}

/// From "Id|ColumnIndex|MissingCount|OriginalValue|Replacement|ReplacementType"; the token may hold
/// bars itself.
GapToken ParseToken(const std::string& mapping) {
  std::size_t front = std::string::npos;  // the bar before the count, then the one behind it
  for (int i = 0; i < 2; ++i) front = mapping.find('|', front + 1);
  const std::size_t count_end = mapping.find('|', front + 1);
  const std::size_t last = mapping.rfind('|');
  const std::size_t replacement = mapping.rfind('|', last - 1);
  if (count_end == std::string::npos || replacement <= count_end) RaiseUnreadable(mapping);
  const std::string_view text = mapping;
  GapToken token;
  token.cells = WholeNumber(text.substr(front + 1, count_end - front - 1), mapping);
  token.text = text.substr(count_end + 1, replacement - count_end - 1);
  token.type = WholeNumber(text.substr(last + 1), mapping);
  double number = 0.0;
  if (ParseNumber(text.substr(replacement + 1, last - replacement - 1), '.', number)) {
    token.replacement = number;
  }
  return token;
}

void CountOpenCells(const RunSession& session, GapColumn& column) {
  std::vector<RunTextCount> texts;
  for (const std::int32_t type : {data_set_type::kTraining, data_set_type::kTesting}) {
    session.MissingValues().CountOpenTexts(type, column.index, texts);
    for (const RunTextCount& one : texts) {
      for (GapToken& token : column.tokens) {
        if (token.text == one.text) token.open += one.count;
      }
    }
  }
}

}  // namespace

std::vector<std::string> GapColumn::Texts() const {
  std::vector<std::string> texts;
  texts.reserve(tokens.size());
  for (const GapToken& token : tokens) texts.push_back(token.text);
  return texts;
}

std::vector<GapToken> ReadTokens(const Ref<IDataSet>& data_set, std::int32_t index) {
  std::vector<GapToken> tokens;
  const auto mappings = data_set.As<IMissingMetadata>()->GetMissingFixedValues(index).ToArray();
  for (const Variant& mapping : mappings->Elements()) {
    tokens.push_back(ParseToken(mapping.ToString()));
  }
  return tokens;
}

GapColumn ReadGapColumn(const RunSession& session, const Ref<IDataSet>& data_set,
                        std::int32_t index) {
  GapColumn column;
  column.index = index;
  column.label = data_set->GetLabel(index);
  column.is_categorical = data_set.As<INominalDataSetMetadata>()->GetIsCategorical(index);
  column.cells = data_set.As<IMissingMetadata>()->GetMissingCount(index);
  column.tokens = ReadTokens(data_set, index);
  if (!column.tokens.empty()) CountOpenCells(session, column);
  return column;
}

std::vector<GapColumn> ReadGapColumns(const RunSession& session, const Ref<IDataSet>& data_set) {
  std::vector<GapColumn> columns;
  const auto indexes = data_set.As<IMissingMetadata>()->GetIndexes().ToMap();
  for (const auto& [key, index] : indexes->Entries()) {
    StopIfInterrupted();
    columns.push_back(ReadGapColumn(session, data_set, index.ToInteger()));
  }
  return columns;
}

}  // namespace tslm5::host
