// `FormatDataAs`: the embedding of a series in its run.
#include <gtest/gtest.h>

#include <cmath>

#include "datasetlite/lite_set.h"
#include "tslm5/contracts/extra_set.h"

namespace tslm5 {
namespace {

class DataSetLiteEmbed : public DataSetLiteTest {
 protected:
  /// Embeds the set under these properties; "" leaves one out.
  bool Embed(const char* dimension, const char* delay, const char* samples = "") const {
    set_->ResetProperties();
    if (*dimension != '\0') set_->SetProperty(dimension, "EmbeddingDimension");
    if (*delay != '\0') set_->SetProperty(delay, "DelayTime");
    if (*samples != '\0') set_->SetProperty(samples, "TestingSamples");
    return set_->FormatDataAs(0);
  }

  /// Parses the series 1, 2, ..., n.
  void ParseCount(int n) const {
    std::string text;
    for (int value = 1; value <= n; ++value) text += std::to_string(value) + "\n";
    Parse(text, {.separator = separator_code::kNone});
  }

  Ref<IExtraSet> extra_ = set_.As<IExtraSet>();
};

TEST_F(DataSetLiteEmbed, MakesARecordOfEveryValueThatHasAllItsLags) {
  Parse("10\n20\n30\n40\n50\n60\n", {.separator = separator_code::kNone});
  EXPECT_TRUE(Embed("2", "2", "0"));
  EXPECT_EQ(set_.Records(), (Lines{"10,30,50", "20,40,60"}));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"10|30|50|1", "20|40|60|2"}));
  EXPECT_FALSE(extra_->Exists());
}

TEST_F(DataSetLiteEmbed, KeepsTestingSamplesOutOfTheRecords) {
  ParseCount(8);
  EXPECT_TRUE(Embed("2", "1", "2"));
  EXPECT_EQ(set_.Records(), (Lines{"1,2,3", "2,3,4", "3,4,5", "4,5,6"}));
  EXPECT_TRUE(extra_->Exists());
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"7|1", "8|2"}));
}

TEST_F(DataSetLiteEmbed, TakesTestingSamplesADelayApart) {
  ParseCount(10);
  EXPECT_TRUE(Embed("1", "2", "3"));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"6|1", "8|2", "10|3"}));
  EXPECT_EQ(set_.Records(), (Lines{"1,3", "2,4", "3,5"}));
}

TEST_F(DataSetLiteEmbed, RefusesASeriesThatIsTooShort) {
  ParseCount(4);
  const Lines before = run_.Schema();
  run_.Log().Clear();
  EXPECT_FALSE(Embed("2", "2", "0"));
  EXPECT_FALSE(Embed("1", "1", "4"));
  EXPECT_FALSE(Embed("1", "2", "3"));
  EXPECT_TRUE(run_.Log().statements.empty()) << "refused before anything was sent";
  EXPECT_EQ(set_.Records(), (Lines{"1", "2", "3", "4"}));
  EXPECT_EQ(run_.Schema(), before);
}

TEST_F(DataSetLiteEmbed, TwiceChangesNothingTheSecondTime) {
  ParseCount(6);
  EXPECT_TRUE(Embed("2", "1"));
  const Lines records = set_.Records();
  EXPECT_FALSE(set_->FormatDataAs(0));
  EXPECT_EQ(set_.Records(), records);
  EXPECT_EQ(records.size(), 4U);
}

TEST_F(DataSetLiteEmbed, RefusesATableOfTwoColumns) {
  Parse("1,2\n3,4\n5,6\n7,8\n");
  run_.Log().Clear();
  EXPECT_FALSE(Embed("1", "1"));
  EXPECT_TRUE(run_.Log().statements.empty()) << "refused before anything was sent";
  EXPECT_EQ(set_.Records(), (Lines{"1,2", "3,4", "5,6", "7,8"}));
}

TEST_F(DataSetLiteEmbed, RefusesPropertiesWithoutMeaning) {
  ParseCount(6);
  const char* const cases[][3] = {
      {"", "1", ""},          {"1", "", ""},           {"", "", ""},     {"0", "1", ""},
      {"1", "0", ""},         {"-1", "-1", ""},        {"1", "1", "-1"}, {"two", "1", ""},
      {"1", "x", ""},         {"1", "1", "x"},         {"1e9", "9", ""}, {"4294967297", "1", ""},
      {"65536", "65536", ""}, {"1", "65536", "65537"}, {"1", "1", " "}};
  for (const auto& c : cases) {
    EXPECT_FALSE(Embed(c[0], c[1], c[2])) << c[0] << '/' << c[1] << '/' << c[2];
  }
  EXPECT_EQ(set_->Rows(), 6);
  EXPECT_EQ(set_->Columns(), 1);
}

TEST_F(DataSetLiteEmbed, RefusesMoreColumnsThanARunTakes) {
  ParseCount(2100);
  EXPECT_FALSE(Embed("1999", "1", "1"));
  EXPECT_EQ(set_->Rows(), 2100);
  EXPECT_FALSE(extra_->Exists());
  EXPECT_FALSE(run_.Connection()->TableExists("TimeSeriesTestingSet"));
  EXPECT_TRUE(Embed("1998", "1"));
  EXPECT_EQ(set_->Columns(), 1999);
  EXPECT_EQ(set_->Rows(), 102);
  EXPECT_EQ(set_->GetItem(1998, 101), 2100.0);
}

TEST_F(DataSetLiteEmbed, MarksTheSetDirtyWhateverItAnswers) {
  ParseCount(4);
  set_->SetProperty("1", "EmbeddingDimension");
  set_.SetDirty(false);
  EXPECT_FALSE(set_->FormatDataAs(0));
  EXPECT_TRUE(set_.IsDirty());
  set_->SetProperty("1", "DelayTime");
  set_.SetDirty(false);
  EXPECT_TRUE(set_->FormatDataAs(7)) << "the format code does not matter";
  EXPECT_TRUE(set_.IsDirty());
}

TEST_F(DataSetLiteEmbed, OfASetWithoutATableIsRefused) {
  EXPECT_FALSE(Embed("1", "1"));
  EXPECT_FALSE(LiteSet()->FormatDataAs(0));
  ParseCount(4);
  run_.Execute("DROP TABLE TrainingSet");
  EXPECT_FALSE(Embed("1", "1"));
}

TEST_F(DataSetLiteEmbed, LeavesMissingValuesMissingInEveryRecord) {
  Parse("1\n2\n?\n4\n5\n", {.separator = separator_code::kComma});
  EXPECT_TRUE(Embed("1", "1", "1"));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1", "2|NULL|2", "NULL|4|3"}));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"5|1"}));
}

TEST_F(DataSetLiteEmbed, KeepsAMissingTestingSample) {
  Parse("1\n2\n3\n?\n", {.separator = separator_code::kComma});
  EXPECT_TRUE(Embed("1", "1", "1"));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"NULL|1"}));
}

TEST_F(DataSetLiteEmbed, KeepsTextThatIsNoNumber) {
  Parse("1\nabc\n0.1\n?\n1e300\n7\n", {.separator = separator_code::kComma});
  EXPECT_TRUE(Embed("1", "1", "1"));
  EXPECT_EQ(run_.TableRows("TrainingSet"),
            (Lines{"1|abc|1", "abc|0.1|2", "0.1|NULL|3", "NULL|1E+300|4"}));
  EXPECT_EQ(run_.TableRows("TimeSeriesTestingSet"), (Lines{"7|1"}));
  EXPECT_TRUE(std::isnan(set_->GetItem(0, 1)));
  EXPECT_EQ(set_->GetItem(1, 3), 1e300);
}

TEST_F(DataSetLiteEmbed, StoresTheSameNumbersBesideText) {
  // 0.1 + 0.2 and its kind need all their digits.
  const double values[] = {0.1 + 0.2, -1.0 / 3, 5e-324, 1.7976931348623157e308, 123456789012345680};
  run_.Table(1);
  for (const bool has_text : {false, true}) {
    const Ref<TableLite> table = run_.Table(1);
    table->ParseDoubleArray(values);
    run_.Execute(has_text ? "INSERT INTO TrainingSet VALUES ('x', 9)"
                          : "INSERT INTO TrainingSet VALUES (NULL, 9)");
    set_.Load(run_, 1);
    ASSERT_TRUE(Embed("1", "1"));
    for (std::int32_t row = 0; row < 4; ++row) {
      EXPECT_EQ(set_->GetItem(0, row), values[row]) << has_text;
      EXPECT_EQ(set_->GetItem(1, row), values[row + 1]) << has_text;
    }
  }
}

TEST_F(DataSetLiteEmbed, RefusesAnInfiniteValue) {
  ParseCount(4);
  for (const char* other : {"3", "'abc'"}) {
    run_.Execute("UPDATE TrainingSet SET d0 = " + std::string(other) + " WHERE row = 3");
    run_.Execute("UPDATE TrainingSet SET d0 = 9e999 WHERE row = 2");
    EXPECT_FALSE(Embed("1", "1"));
    EXPECT_EQ(set_->Rows(), 4);
    EXPECT_EQ(set_->Columns(), 1);
  }
}

TEST_F(DataSetLiteEmbed, GoesByTheOrderOfTheRowKeys) {
  ParseCount(3);
  run_.Execute("UPDATE TrainingSet SET row = 70 WHERE row = 1");
  EXPECT_TRUE(Embed("1", "1"));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"2|3|1", "3|1|2"}));
}

TEST_F(DataSetLiteEmbed, TakesWhatIsPendingToo) {
  ParseCount(4);
  ASSERT_TRUE(Embed("1", "1", "1"));
  extra_->SetItem(0, 0, 40);
  const LiteSet testing;
  testing.Load(run_, data_set_type::kTimeSeriesTesting);
  EXPECT_EQ(testing.Records(), (Lines{"40"}));
}

TEST_F(DataSetLiteEmbed, RemakesTheBackupInTheNewWidth) {
  ParseCount(6);
  EXPECT_TRUE(Embed("3", "1", "1"));
  EXPECT_EQ(run_.ColumnNames("TrainingSet"), "d0,d1,d2,d3,row");
  EXPECT_EQ(run_.ColumnNames("TrainingSetBackup"), "d0,d1,d2,d3,row");
  EXPECT_FALSE(run_.Connection()->TableExists("TimeSeriesTestingSetBackup"));
}

TEST_F(DataSetLiteEmbed, LeavesAnOlderExtraSetWithoutTestingSamples) {
  ParseFile(LiteSet(run_, 5), File("77\n88\n"), {.type = 5});
  ParseCount(6);
  set_.Load(run_, 1);
  EXPECT_TRUE(Embed("1", "1", "0"));
  EXPECT_EQ(extra_->GetItem(0, 1), 88.0);
  ParseCount(6);
  EXPECT_TRUE(Embed("1", "1", "1"));
  EXPECT_EQ(extra_->Rows(), 1);
  EXPECT_EQ(extra_->GetItem(0, 0), 6.0);
}

TEST_F(DataSetLiteEmbed, OfTheTestingTableItselfLeavesNoRoomForTestingSamples) {
  const LiteSet set(run_, 5);
  ParseFile(set, File("1\n2\n3\n4\n"), {.type = 5});
  set->SetProperty("1", "EmbeddingDimension");
  set->SetProperty("1", "DelayTime");
  set->SetProperty("1", "TestingSamples");
  EXPECT_FALSE(set->FormatDataAs(0));
  EXPECT_EQ(set.Records(), (Lines{"1", "2", "3", "4"}));
  set->SetProperty("0", "TestingSamples");
  EXPECT_TRUE(set->FormatDataAs(0));
  EXPECT_EQ(set.Records(), (Lines{"1,2", "2,3", "3,4"}));
  EXPECT_FALSE(set.As<IExtraSet>()->Exists());
}

TEST_F(DataSetLiteEmbed, GoesByTheTableTheSetHasNotByItsTypeCode) {
  ParseCount(3);
  set_->put_DataSetType(2);
  EXPECT_TRUE(Embed("1", "1"));
  EXPECT_EQ(run_.TableRows("TrainingSet"), (Lines{"1|2|1", "2|3|2"}));
  EXPECT_FALSE(run_.Connection()->TableExists("TestingSet"));
}

TEST_F(DataSetLiteEmbed, ShowsTheNewShapeEverywhere) {
  ParseCount(6);
  set_->CalculateStatistics(nullptr);
  ASSERT_EQ(set_->GetMax(0, 0, 0), 6.0);
  const LiteSet other;
  other.Load(run_, 1);
  ASSERT_EQ(other->Rows(), 6);
  const Ref<IIterator> iterator = set_.As<IIterator>();
  iterator->ResetIterator();

  ASSERT_TRUE(Embed("2", "1"));
  EXPECT_EQ(set_->GetMax(0, 0, 0), 4.0) << "the figures of before are forgotten";
  EXPECT_FALSE(set_->HasGlobalRecordStatistics());
  Array<double> sample;
  EXPECT_TRUE(iterator->GetCurrentSample(sample));
  EXPECT_EQ(sample.Elements(), (std::vector<double>{1, 2, 3})) << "as wide as the new records";
  EXPECT_EQ(other.Records(), set_.Records());
  EXPECT_EQ(set_->Columns(), 3);
  EXPECT_EQ(set_->Rows(), 4);
  EXPECT_EQ(set_->GetRowOriginalIndex(3), 4);
}

TEST_F(DataSetLiteEmbed, AndLoadingBringTheSameData) {
  ParseCount(8);
  ASSERT_TRUE(Embed("2", "1", "2"));
  const LiteSet loaded;
  EXPECT_TRUE(loaded.Load(run_, 1));
  EXPECT_EQ(loaded.Records(), set_.Records());
  EXPECT_EQ(loaded.As<IExtraSet>()->GetItem(0, 1), 8.0);
}

}  // namespace
}  // namespace tslm5
