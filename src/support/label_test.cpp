#include "support/label_test.h"

#include <algorithm>
#include <unordered_set>

#include "platform/collection.h"
#include "support/numeric_test.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "support/utf8.h"

namespace tslm5 {

std::string PlainLabel(std::string label) {
  std::replace(label.begin(), label.end(), kLabelBlank, ' ');
  return label;
}

std::vector<std::string> LabelWords(std::string line, std::string_view separator) {
  TextCleanup::ReplaceSeparator(line, separator);
  TextCleanup::CollapseRuns(line, ' ');
  std::vector<std::string> words;
  FieldCursor cursor(Utf8::TrimBlanks(line), " ");
  for (std::string_view word; cursor.Next(word);) words.push_back(PlainLabel(std::string(word)));
  return words;
}

bool AreLabels(const std::vector<std::string>& labels, char decimal) {
  std::unordered_set<std::string> seen;
  return std::all_of(labels.begin(), labels.end(), [&seen, decimal](const std::string& label) {
    return !IsNumeric(label, decimal) && seen.insert(FoldKey(label)).second;
  });
}

}  // namespace tslm5
