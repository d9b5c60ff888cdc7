// Reads the public headers themselves, so that no interface or identifier escapes.
// The working directory is the root of the source tree.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tslm5/component/class_factory.h"
#include "tslm5/contracts/data_set.h"

namespace tslm5 {
namespace {

using testing::Contains;
using testing::IsEmpty;

/// The text of every file under `folder`, one after the other.
std::string TextOf(const std::filesystem::path& folder) {
  std::string text;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    text.append(std::istreambuf_iterator<char>(file), {});
    text += '\n';
  }
  return text;
}

/// Every match of `pattern`, by its first group, in the order of the text.
std::vector<std::string> FindAll(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
    found.push_back((*match)[1]);
  }
  return found;
}

TEST(PublicInterfaces, EveryOneHasItsSlotsPinned) {
  const auto interfaces =
      FindAll(TextOf("include/tslm5"), R"(class (I[A-Z]\w*) (?:final )?: public)");
  const auto pinned = FindAll(TextOf("tests/contracts/slots"), R"(ExpectSlots<(I[A-Z]\w*)>\()");
  std::set<std::string> missing(interfaces.begin(), interfaces.end());
  for (const std::string& name : pinned) missing.erase(name);
  EXPECT_THAT(interfaces, Contains("IDataSet"));
  EXPECT_THAT(missing, IsEmpty());
}

TEST(PublicInterfaces, EveryOneHasAnIdentifier) {
  const std::string text = TextOf("include/tslm5");
  const auto interfaces = FindAll(text, R"(class (I[A-Z]\w*) (?:final )?(?::|\{))");
  const auto identifiers = FindAll(text, R"(static constexpr Uuid (kId)\{)");
  EXPECT_THAT(interfaces, Contains("IUnknown"));
  EXPECT_EQ(identifiers.size(), interfaces.size());
}

TEST(PublicInterfaces, AllInterfaceAndClassIdentifiersAreDistinct) {
  const auto texts =
      FindAll(TextOf("include/tslm5"), R"(constexpr Uuid \w+\{\s*(\w+\s*,\s*\w+)\s*\})");
  std::map<std::pair<std::uint64_t, std::uint64_t>, int> uses;
  for (const std::string& text : texts) {
    const std::string low = text.substr(text.find_first_not_of(", ", text.find(',')));
    ++uses[{std::stoull(text, nullptr, 16), std::stoull(low, nullptr, 16)}];
  }
  for (const auto& [identifier, count] : uses) {
    EXPECT_EQ(count, 1) << std::hex << identifier.first << ", " << identifier.second;
  }
  for (const Uuid& known : {IUnknown::kId, IDataSet::kId, class_id::kRunSchema}) {
    EXPECT_EQ(uses.count({known.high, known.low}), 1u) << "the headers were not read";
  }
}

}  // namespace
}  // namespace tslm5
