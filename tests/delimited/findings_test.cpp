#include "delimited/findings.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tslm5::delimited {
namespace {

TEST(Findings, SayWhatIsWrongAndWhere) {
  EXPECT_EQ(Message({FindingCode::kUnevenRecord, 7, -1, "3"}),
            "line 7: the record has 3 fields, another number than the table has columns: add or "
            "remove separators, or quote the fields that hold one");
  EXPECT_EQ(Message({FindingCode::kRepeatedLabel, 1, 2, "a_2"}),
            "line 1, column 3: the label is there already and was made \"a_2\": rename it");
  EXPECT_EQ(Message({FindingCode::kSeparatorContradicted, 0, -1, "comma"}),
            "the separator that was set splits no line: the text looks separated by \"comma\"");
  EXPECT_EQ(Message({FindingCode::kNoHeader, 1, 0, "a\n\x1B"}),
            "line 1, column 1: the first line, beginning with \"a\\n\\x1b\", was read as data: say "
            "so if it is a header");
  EXPECT_EQ(Message({FindingCode::kRowNames, 1, 0, ""}),
            "line 1, column 1: the header has no label for the first column: it was taken for row "
            "names");
}

TEST(Findings, HaveANameAndWordsEach) {
  std::set<std::string> names;
  std::set<std::string> messages;
  for (std::size_t i = 0; i < kFindingCodes; ++i) {
    const auto code = static_cast<FindingCode>(i);
    names.insert(Name(code));
    messages.insert(Message({code, 1, -1, "x"}));
  }
  EXPECT_EQ(names.size(), kFindingCodes);
  EXPECT_EQ(messages.size(), kFindingCodes);
}

TEST(Findings, AreHeldUpToABoundAndCountedBeyondIt) {
  FindingList findings;
  for (int i = 0; i < 250; ++i) findings.Add(FindingCode::kUnevenRecord, i, -1, "1");
  std::string long_value(199, 'x');
  long_value += "é";
  findings.Add(FindingCode::kNulByte, 9, -1, long_value);
  EXPECT_EQ(findings.All().size(), FindingList::kMostOfAKind + 1);
  EXPECT_EQ(findings.Count(FindingCode::kUnevenRecord), 250);
  EXPECT_EQ(findings.First(FindingCode::kUnevenRecord)->line, 0);
  EXPECT_EQ(findings.First(FindingCode::kNulByte)->value, std::string(199, 'x'))
      << "never half a character";
  EXPECT_EQ(findings.First(FindingCode::kPreamble), nullptr);
}

}  // namespace
}  // namespace tslm5::delimited
