#include "host/preparation/replacement_choice.h"

#include <gtest/gtest.h>

#include "host/preparation/replacement_type.h"
#include "host/program/failure.h"

namespace tslm5::host {
namespace {

GapColumn Column(bool is_categorical, const std::vector<std::string>& tokens) {
  GapColumn column;
  column.index = 2;
  column.label = "wind";
  column.is_categorical = is_categorical;
  for (const std::string& token : tokens) column.tokens.push_back({token, 1, 1, {}, 0});
  return column;
}

CodedColumn Categories() {
  CodedColumn column;
  column.categories = {{"north", 1.0, 5, false}, {"4", 2.0, 3, false}, {"mean", 3.0, 3, false}};
  return column;
}

std::string Refusal(std::string_view word, const GapColumn& column,
                    const CodedColumn& categories = {}) {
  try {
    ParseReplacement(word, column, categories);
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Code(), ExitCode::kUsage);
    return failure.what();
  }
  return "not refused";
}

TEST(ReplacementChoice, KnowsTheWords) {
  const GapColumn column = Column(false, {"NA"});
  const auto type = [&column](std::string_view word) {
    const ReplacementChoice choice = ParseReplacement(word, column, {});
    EXPECT_EQ(choice.token, "NA");
    return choice.type;
  };
  EXPECT_EQ(type("NA=none"), 0);
  EXPECT_EQ(type("NA=mean"), 1);
  EXPECT_EQ(type("NA=median"), 2);
  EXPECT_EQ(type("NA=min"), 3);
  EXPECT_EQ(type("NA=max"), 4);
  EXPECT_EQ(type("NA=-1.5"), 5);
  EXPECT_EQ(ParseReplacement("NA=-1.5", column, {}).value, -1.5);
}

TEST(ReplacementChoice, TakesTheLongestTokenThatFits) {
  const GapColumn column = Column(false, {"", "?", "?=", "=1"});
  const auto token = [&column](std::string_view word) {
    return ParseReplacement(word, column, {}).token;
  };
  EXPECT_EQ(token("?=2"), "?");
  EXPECT_EQ(token("?==2"), "?=");
  EXPECT_EQ(token("=2"), "");
  EXPECT_EQ(token("(empty)=2"), "");
  EXPECT_EQ(token("=1=2"), "=1");
}

TEST(ReplacementChoice, OfACategoryIsItsCode) {
  const GapColumn column = Column(true, {"?"});
  const auto choose = [&column](std::string_view word) {
    return ParseReplacement(word, column, Categories());
  };
  EXPECT_EQ(choose("?=north").type, replacement_type::kCategory);
  EXPECT_EQ(choose("?=north").value, 1.0);
  EXPECT_EQ(choose("?=4").value, 2.0);  // the category, not the number
  EXPECT_EQ(choose("?=mean").value, 3.0);
  EXPECT_EQ(choose("?=7").type, replacement_type::kNumber);
  EXPECT_EQ(choose("?=7").value, 7.0);
  EXPECT_EQ(choose("?=none").type, replacement_type::kNone);
}

TEST(ReplacementChoice, RefusesWhatIsNone) {
  const GapColumn numbers = Column(false, {"NA", ""});
  EXPECT_EQ(Refusal("NA", Column(false, {"NA"})),
            "--replace: \"NA\" has no =; expected TOKEN=mean, median, min, max, NUMBER or none");
  EXPECT_EQ(Refusal("na=mean", Column(false, {"?", "NA"})),
            "--replace: wind (d2) has no token \"na\"; it has \"?\", \"NA\"");
  EXPECT_EQ(Refusal("NA=mean", Column(false, {})), "--replace: wind (d2) has no gaps");
  EXPECT_EQ(Refusal("NA=Mean", numbers),
            "--replace: \"Mean\" cannot replace \"NA\"; expected mean, median, min, max, a number "
            "(decimals behind a point) or none");
  EXPECT_EQ(Refusal("=1,5", numbers),
            "--replace: \"1,5\" cannot replace (empty); expected mean, median, min, max, a number "
            "(decimals behind a point) or none");
}

TEST(ReplacementChoice, RefusesFiguresOfCategories) {
  const GapColumn column = Column(true, {"?"});
  EXPECT_EQ(Refusal("?=min", column, Categories()),
            "--replace: wind (d2) is categorical and has no minimum; give the name of a category "
            "or a number");
  EXPECT_EQ(Refusal("?=nort", column, Categories()),
            "--replace: \"nort\" is no number, and wind (d2) has no such category; it has "
            "\"north\", \"4\", \"mean\"");
}

}  // namespace
}  // namespace tslm5::host
