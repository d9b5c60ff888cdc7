#include "delimited/header.h"

#include <unordered_set>

#include "platform/collection.h"

namespace tslm5::delimited {
namespace {

using Labels = std::unordered_set<std::string>;

/// `label` where `is_free(label)`, else it with the first number behind it that makes it so.
template <class IsFree>
std::string MakeUnique(const std::string& label, IsFree is_free) {
  std::string unique = label;
  for (int number = 2; !is_free(FoldKey(unique)); ++number) {
    unique = label + "_" + std::to_string(number);
  }
  return unique;
}

}  // namespace

Header MakeHeader(const std::vector<std::string_view>& texts, bool has_row_names, std::int64_t line,
                  FindingList& findings) {
  Header header;
  header.line = line;
  Labels given;  // as the file has them: what is made must not look like one of them
  for (const std::string_view text : texts) given.insert(FoldKey(text));
  Labels taken;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const auto column = static_cast<std::int64_t>(i);
    const bool is_empty = texts[i].empty();
    std::string wanted(texts[i]);
    if (is_empty) wanted.append("d").append(std::to_string(i));
    const std::string own_key = is_empty ? std::string() : FoldKey(wanted);
    const std::string label = MakeUnique(wanted, [&](const std::string& key) {
      return !taken.contains(key) && (key == own_key || !given.contains(key));
    });
    if (is_empty && (i != 0 || !has_row_names)) {
      findings.Add(FindingCode::kEmptyLabel, line, column, label);
    } else if (!is_empty && label != wanted) {
      findings.Add(FindingCode::kRepeatedLabel, line, column, label);
    }
    taken.insert(FoldKey(label));
    header.labels.push_back(label);
  }
  return header;
}

}  // namespace tslm5::delimited
