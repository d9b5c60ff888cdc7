#include "inmemory/label_line.h"

#include <algorithm>
#include <unordered_set>

#include "platform/collection.h"
#include "support/numeric_test.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "support/utf8.h"

namespace tslm5::LabelLine {
namespace {

constexpr char kBlankInLabel = '\x05';

std::string Label(std::string_view word) {
  std::string label(word);
  std::replace(label.begin(), label.end(), kBlankInLabel, ' ');
  if (label == "d" || label == "D") label += label;
  return label;
}

}  // namespace

std::vector<std::string> Read(std::string_view text, std::string_view separator) {
  std::vector<std::string> labels;
  const std::size_t end = text.find('\n');
  if (end == std::string_view::npos) return labels;
  std::string line(text.substr(0, end));
  if (separator.empty()) {
    std::erase(line, kBlankInLabel);
  } else {
    TextCleanup::ReplaceSeparator(line, separator);
  }
  TextCleanup::CollapseRuns(line, ' ');
  FieldCursor words(Utf8::TrimBlanks(line), " ");
  for (std::string_view word; words.Next(word);) labels.push_back(Label(word));
  return labels;
}

bool AreLabels(const std::vector<std::string>& labels, char decimal) {
  std::unordered_set<std::string> seen;
  return std::all_of(labels.begin(), labels.end(), [&seen, decimal](const std::string& label) {
    return !IsNumeric(label, decimal) && seen.insert(FoldKey(label)).second;
  });
}

}  // namespace tslm5::LabelLine
