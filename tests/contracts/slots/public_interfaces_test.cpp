// Reads the public headers themselves, so that no interface or identifier escapes.
// The working directory is the root of the source tree.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tslm5/component/class_factory.h"
#include "tslm5/contracts/data_set.h"

namespace tslm5 {
namespace {

using testing::Contains;
using testing::ElementsAre;

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

struct Found {
  std::string word;
  std::string_view after;  // the text that follows the word
};

/// Every word of `text` that stands behind `before`.
std::vector<Found> WordsBehind(std::string_view before, std::string_view text) {
  std::vector<Found> found;
  for (auto place = text.find(before); place != std::string_view::npos;
       place = text.find(before, place + 1)) {
    const std::string_view rest = text.substr(place + before.size());
    const auto end = std::find_if_not(rest.begin(), rest.end(), [](char c) {
      return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
    });
    const auto length = static_cast<std::size_t>(end - rest.begin());
    found.push_back({std::string(rest.substr(0, length)), rest.substr(length)});
  }
  return found;
}

/// The names of the interfaces that `text` defines.
std::vector<std::string> InterfacesOf(std::string_view text) {
  std::vector<std::string> names;
  for (const Found& found : WordsBehind("class ", text)) {
    const bool named_so = found.word.size() > 1 && found.word[0] == 'I' && found.word[1] < 'a';
    const bool defined = found.after.starts_with(" :") || found.after.starts_with(" {");
    if (named_so && defined) names.push_back(found.word);
  }
  return names;
}

TEST(PublicInterfaces, EveryOneHasItsSlotsPinned) {
  const auto interfaces = InterfacesOf(TextOf("include/tslm5"));
  std::set<std::string> missing(interfaces.begin(), interfaces.end());
  EXPECT_THAT(missing, Contains("IDataSet"));
  const std::string tests = TextOf("tests/contracts/slots");
  for (const Found& pinned : WordsBehind("ExpectSlots<", tests)) missing.erase(pinned.word);
  EXPECT_THAT(missing, ElementsAre("IUnknown"));  // the root has a test of its own
}

TEST(PublicInterfaces, EveryOneHasAnIdentifier) {
  const std::string text = TextOf("include/tslm5");
  const auto interfaces = InterfacesOf(text);
  EXPECT_THAT(interfaces, Contains("IUnknown"));
  EXPECT_EQ(WordsBehind("static constexpr Uuid kId{", text).size(), interfaces.size());
}

TEST(PublicInterfaces, AllInterfaceAndClassIdentifiersAreDistinct) {
  const std::string text = TextOf("include/tslm5");
  std::map<std::pair<std::uint64_t, std::uint64_t>, int> uses;
  for (const Found& found : WordsBehind("constexpr Uuid ", text)) {
    const std::string value(found.after.substr(1, found.after.find('}')));
    const auto low = value.find_first_not_of(", ", value.find(','));
    ++uses[{std::stoull(value, nullptr, 16), std::stoull(value.substr(low), nullptr, 16)}];
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
