// Whole files: one folder a case in tests/delimited/cases/, with the file as `input`, the options
// it is read with in `options.json` (none without it) and what is expected in `expected.json`. What
// is not named there is not compared.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "delimited/described_text.h"

namespace tslm5::delimited {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

const fs::path kCases = "tests/delimited/cases";  // from the project's folder

std::vector<std::string> CaseNames() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(kCases)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

json ReadJson(const fs::path& path) {
  std::ifstream file(path);
  return file ? json::parse(file) : json::object();
}

/// What `actual` has of the members that `expected` names, at any depth of objects.
json Named(const json& actual, const json& expected) {
  if (!expected.is_object()) return actual;
  json named = json::object();
  for (const auto& [key, value] : expected.items()) {
    named[key] = actual.contains(key) ? Named(actual[key], value) : json("(nothing)");
  }
  return named;
}

TEST(DelimitedCases, AreReadAsExpected) {
  const std::vector<std::string> names = CaseNames();
  EXPECT_GE(names.size(), 40U);
  for (const std::string& name : names) {
    SCOPED_TRACE(name);
    const json expected = ReadJson(kCases / name / "expected.json");
    ASSERT_TRUE(expected.contains("records"));
    for (const MaskWay way : {MaskWay::kPortable, BestMaskWay()}) {
      DelimitedReader reader(OpenSource((kCases / name / "input").string()),
                             OptionsFrom(ReadJson(kCases / name / "options.json")), way);
      const json actual = Describe(reader, CellForm::kByClass);
      for (const auto& [member, value] : expected.items()) {
        const json found = Named(actual.value(member, json("(nothing)")), value);
        EXPECT_TRUE(found == value) << member << " is " << found << ", expected was " << value;
      }
    }
  }
}

}  // namespace
}  // namespace tslm5::delimited
