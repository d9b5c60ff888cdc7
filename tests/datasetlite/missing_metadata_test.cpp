// `IMissingMetadata`: which values are missing, and what is to stand in for them.
#include <gtest/gtest.h>

#include <limits>

#include "datasetlite/prepared_set.h"
#include "support/locale_variables.h"

namespace tslm5 {
namespace {

class MissingMetadata : public PreparedSetTest {
 protected:
  /// The texts of an array.
  static Lines Texts(const Variant& array) {
    Lines lines;
    for (const Variant& text : array.ToArray()->Elements()) lines.push_back(text.ToString());
    return lines;
  }
  Lines Fixed(std::int32_t column) const { return Texts(Missing()->GetMissingFixedValues(column)); }
};

TEST_F(MissingMetadata, ListsTheTokensOfAColumn) {
  Execute("INSERT INTO MissingMappings VALUES (3, 1, 12, 'a|b', NULL, 0)");
  EXPECT_EQ(Fixed(1), (Lines{"3|1|12|a|b||0", "7|1|2|?|5|2", "8|1|1|NA|7.5|3"}));
  EXPECT_EQ(run_.Log().statements,
            (Lines{"SELECT * FROM MissingMappings WHERE ColumnIndex = 1 ORDER BY Id"}));
  EXPECT_EQ(Missing()->GetMissingFixedValues(1).ToArray()->LowerBound(), 0);
}

TEST_F(MissingMetadata, ShowsAMappingInTheOrderOfItsTable) {
  Execute(
      "INSERT INTO MissingMappings (Id, ColumnIndex, MissingCount, OriginalValue, Replacement, "
      "ReplacementType) VALUES (17, 3, 12, '?', 5.0, 2)");
  EXPECT_EQ(Fixed(3), (Lines{"17|3|12|?|5|2"}));
}

TEST_F(MissingMetadata, OfAColumnWithoutGapsIsEmpty) {
  EXPECT_EQ(Fixed(0), Lines());
  EXPECT_EQ(Fixed(-1), Lines());
  EXPECT_EQ(Missing()->GetMissingCount(0), 0);
}

TEST_F(MissingMetadata, CountsTheGapsOfAColumn) {
  EXPECT_EQ(Missing()->GetMissingCount(1), 3);
  EXPECT_EQ(run_.Log().statements,
            (Lines{"SELECT SUM(MissingCount) FROM MissingMappings WHERE ColumnIndex = 1 ORDER BY "
                   "Id"}));
}

TEST_F(MissingMetadata, NamesTheColumnsWithGaps) {
  Execute("INSERT INTO MissingMappings VALUES (1, 4, 1, '?', NULL, 0), (2, 0, 1, '?', NULL, 0)");
  EXPECT_EQ(Entries(Missing()->GetIndexes()), (Lines{"0=0", "1=1", "4=4"}));
  EXPECT_EQ(Missing()->GetIndexes().ToMap()->Item(4), Variant(4));
  EXPECT_EQ(run_.Log().statements.front(),
            "SELECT ColumnIndex, ColumnIndex FROM MissingMappings GROUP BY ColumnIndex ORDER BY "
            "ColumnIndex");
}

TEST_F(MissingMetadata, WithoutARunNamesNothingAndRaises41001) {
  const auto alone = LiteSet().As<IMissingMetadata>();
  EXPECT_EQ(alone->GetIndexes().ToMap()->Count(), 0U);
  EXPECT_FALSE(alone->ApplyMissing(1));
  EXPECT_EQ(RaisedNumber([&] { alone->GetMissingCount(1); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { alone->GetMissingFixedValues(1); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { alone->UpdateMissing(1, "?", 5, 2); }), 41001);
}

TEST_F(MissingMetadata, KeepsTheChosenReplacement) {
  Missing()->UpdateMissing(1, "?", "12.5", 4);
  EXPECT_EQ(Fixed(1), (Lines{"7|1|2|?|12.5|4", "8|1|1|NA|7.5|3"}));
  EXPECT_EQ(run_.Log().statements.front(),
            "UPDATE MissingMappings SET Replacement = 12.5, ReplacementType = 4 WHERE ColumnIndex "
            "= 1 and OriginalValue = '?'");
  EXPECT_EQ(Training("d1"), (Lines{"10", "NULL", "NULL", "30"})) << "nothing is applied yet";
}

TEST_F(MissingMetadata, KeepsAReplacementTypeAsGiven) {
  Missing()->UpdateMissing(1, "NA", 1, -77);
  EXPECT_EQ(Fixed(1).back(), "8|1|1|NA|1|-77");
}

TEST_F(MissingMetadata, TakesTokensByCaseAndAsText) {
  Execute("INSERT INTO MissingMappings VALUES (9, 1, 1, 'na', 1, 1), (10, 1, 1, '999', 2, 1)");
  Missing()->UpdateMissing(1, "na", 50, 6);
  Missing()->UpdateMissing(1, 999, 60, 7);
  EXPECT_EQ(Fixed(1), (Lines{"7|1|2|?|5|2", "8|1|1|NA|7.5|3", "9|1|1|na|50|6", "10|1|1|999|60|7"}));
}

TEST_F(MissingMetadata, OfAnUnknownTokenChangesNothing) {
  const Lines before = run_.TableRows("MissingMappings");
  Missing()->UpdateMissing(1, "nope", 5, 2);
  Missing()->UpdateMissing(0, "?", 50, 2);
  EXPECT_EQ(run_.TableRows("MissingMappings"), before);
}

TEST_F(MissingMetadata, RefusesAReplacementThatIsNoNumber) {
  const Lines before = run_.TableRows("MissingMappings");
  const auto update = [this](const Variant& token, const Variant& value) {
    return RaisedNumber([&] { Missing()->UpdateMissing(1, token, value, 2); });
  };
  EXPECT_EQ(update("?", "mean"), error_number::kTypeMismatch);
  EXPECT_EQ(update("?", "1,5"), error_number::kTypeMismatch);
  EXPECT_EQ(update("?", Null{}), error_number::kTypeMismatch);
  EXPECT_EQ(update(Null{}, 5), error_number::kTypeMismatch);
  EXPECT_EQ(update("?", std::numeric_limits<double>::infinity()), error_number::kOverflow);
  EXPECT_TRUE(run_.Log().statements.empty());
  for (const char* token : {"it's", "?' OR 'a'='a", "?'--"})
    EXPECT_EQ(update(token, 5), 1) << token;
  EXPECT_TRUE(run_.Log().statements.empty());
  EXPECT_EQ(run_.TableRows("MissingMappings"), before);
}

TEST_F(MissingMetadata, TakesAChoiceBackByNotANumber) {
  Missing()->UpdateMissing(1, "?", std::numeric_limits<double>::quiet_NaN(), 0);
  EXPECT_EQ(run_.TableRows("MissingMappings"), (Lines{"7|1|2|?|NULL|0", "8|1|1|NA|7.5|3"}));
}

TEST_F(MissingMetadata, WritesANumberWithAPointInEveryLocale) {
  const LocaleVariables german("de_DE.UTF-8", nullptr, nullptr);
  Missing()->UpdateMissing(1, "?", 1.5, 2);
  EXPECT_TRUE(Missing()->ApplyMissing(1));
  EXPECT_EQ(Fixed(1).front(), "7|1|2|?|1.5|2");
  EXPECT_EQ(Training("d1"), (Lines{"10", "1.5", "7.5", "30"}));
}

TEST_F(MissingMetadata, PassesTheEnginesErrorsOn) {
  Execute("DROP TABLE MissingMappings");
  EXPECT_EQ(RaisedNumber([&] { Missing()->GetMissingCount(1); }), 1);
  EXPECT_EQ(RaisedNumber([&] { Missing()->GetMissingFixedValues(1); }), 1);
  EXPECT_EQ(RaisedNumber([&] { Missing()->GetIndexes(); }), 1);
  EXPECT_EQ(RaisedNumber([&] { Missing()->UpdateMissing(1, "?", 5, 2); }), 1);
}

}  // namespace
}  // namespace tslm5
