#include "inmemory/label_line.h"

#include <utility>

#include "support/label_test.h"

namespace tslm5::LabelLine {

std::vector<std::string> Read(std::string_view text, std::string_view separator) {
  const std::size_t end = text.find('\n');
  if (end == std::string_view::npos) return {};
  std::string line(text.substr(0, end));
  if (separator.empty()) std::erase(line, kLabelBlank);
  std::vector<std::string> labels = LabelWords(std::move(line), separator);
  for (std::string& label : labels) {
    if (label == "d" || label == "D") label += label;
  }
  return labels;
}

}  // namespace tslm5::LabelLine
