#include "datasetlite/label_row.h"

#include <algorithm>
#include <unordered_set>

#include "platform/collection.h"
#include "support/numeric_test.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "support/utf8.h"

namespace tslm5 {
namespace {

std::vector<std::string> Fields(std::string_view line, std::string_view separator) {
  std::vector<std::string> fields;
  FieldCursor cursor(line, separator);
  for (std::string_view field; cursor.Next(field);) {
    fields.push_back(PlainLabel(Utf8::TrimBlanks(field)));
  }
  return fields;
}

}  // namespace

std::string PlainLabel(std::string_view label) {
  std::string plain(label);
  std::replace(plain.begin(), plain.end(), kLabelBlank, ' ');
  return plain;
}

std::vector<std::string> SplitLabelRow(std::string_view line, std::string_view separator,
                                       std::int32_t columns) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  std::string blanked(line);
  TextCleanup::ReplaceSeparator(blanked, separator);
  TextCleanup::CollapseRuns(blanked, ' ');
  std::vector<std::string> words = Fields(Utf8::TrimBlanks(blanked), " ");

  const auto wanted = static_cast<std::size_t>(columns);
  if (words.size() != wanted) {
    std::vector<std::string> fields = Fields(line, separator);
    if (fields.size() == wanted) return fields;
  }
  return words;
}

bool AreLabels(const std::vector<std::string>& labels, char decimal) {
  std::unordered_set<std::string> seen;
  return std::all_of(labels.begin(), labels.end(), [&seen, decimal](const std::string& label) {
    return !IsNumeric(label, decimal) && seen.insert(FoldKey(label)).second;
  });
}

}  // namespace tslm5
