#include "inmemory/label_line.h"

#include "support/label_test.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "support/utf8.h"

namespace tslm5::LabelLine {
namespace {

std::string Label(std::string_view word) {
  std::string label = PlainLabel(std::string(word));
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
    std::erase(line, kLabelBlank);
  } else {
    TextCleanup::ReplaceSeparator(line, separator);
  }
  TextCleanup::CollapseRuns(line, ' ');
  FieldCursor words(Utf8::TrimBlanks(line), " ");
  for (std::string_view word; words.Next(word);) labels.push_back(Label(word));
  return labels;
}

}  // namespace tslm5::LabelLine
