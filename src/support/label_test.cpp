#include "support/label_test.h"

#include <algorithm>
#include <unordered_set>

#include "platform/collection.h"
#include "support/numeric_test.h"

namespace tslm5 {

std::string PlainLabel(std::string label) {
  std::replace(label.begin(), label.end(), kLabelBlank, ' ');
  return label;
}

bool AreLabels(const std::vector<std::string>& labels, char decimal) {
  std::unordered_set<std::string> seen;
  return std::all_of(labels.begin(), labels.end(), [&seen, decimal](const std::string& label) {
    return !IsNumeric(label, decimal) && seen.insert(FoldKey(label)).second;
  });
}

}  // namespace tslm5
