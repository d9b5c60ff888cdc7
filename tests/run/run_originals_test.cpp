#include <limits>

#include "run/run_catalog_fixture.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kTraining = data_set_type::kTraining;
constexpr std::int32_t kTesting = data_set_type::kTesting;

class RunOriginalsTest : public RunCatalogFixture {
 protected:
  IRunOriginals& Originals() const { return Face<IRunOriginals>(); }

  void Append(std::initializer_list<std::string_view> texts, std::int32_t key) const {
    Originals().Append(std::vector<std::string_view>(texts), key);
  }

  /// Every record of a reader, its fields joined by "|".
  static Lines All(const Ref<IDataReader>& reader) {
    Lines lines;
    while (reader->Read()) {
      std::string& line = lines.emplace_back();
      for (std::int32_t i = 0; i < reader->FieldCount(); ++i) {
        line += (i > 0 ? "|" : "") + (reader->IsNull(i) ? "NULL" : reader->GetString(i));
      }
    }
    return lines;
  }
};

TEST_F(RunOriginalsTest, KeepsTextsAsTheyAre) {
  Originals().Create(2);
  EXPECT_EQ(Originals().Columns(), 2);
  Append({"O'Brien", ""}, 4);
  EXPECT_THAT(Rows("OriginalData"), ElementsAre("O'Brien||4"));
}

TEST_F(RunOriginalsTest, AppendsManyTextsToTheRunThatIsOpen) {
  const TestRun first;
  const TestRun second;
  for (const TestRun* run : {&first, &second}) {
    Catalog().Open(run->Real().get());  // the engine itself, with all its faces
    Originals().Create(2);
    run->Connection()->BeginTrans();
    for (std::int32_t key = 1; key <= 1000; ++key) {
      Append({std::to_string(key), run == &first ? "one" : "two"}, key);
    }
    run->Connection()->CommitTrans();
  }
  const std::string_view sql = "SELECT count(*), min(d1), max(d1) FROM OriginalData WHERE d0 = row";
  EXPECT_THAT(first.Select(sql), ElementsAre("1000|one|one"));
  EXPECT_THAT(second.Select(sql), ElementsAre("1000|two|two"));
}

TEST_F(RunOriginalsTest, FitsTheTableToAnotherWidth) {
  Originals().Create(2);
  Append({"a", "b"}, 1);
  Originals().Fit(3);
  EXPECT_THAT(Rows("OriginalData"), ElementsAre("a|b|NULL|1"));
  Originals().Fit(1);
  EXPECT_THAT(Rows("OriginalData"), ElementsAre("a|1"));
}

TEST_F(RunOriginalsTest, MovesTestingRecordsBehindNewTrainingOnes) {
  MakeSet("TrainingSet", {"1, 1", "2, 2", "3, 3"});
  MakeSet("TestingSet", {"8, 2", "9, 3"});
  Originals().Create(1);
  Append({"former"}, 1);
  Append({"x"}, 2);
  Append({"y"}, 3);
  EXPECT_EQ(Originals().MakeRoom(kTraining, 3, 1), 1);
  EXPECT_THAT(Rows("TestingSet"), ElementsAre("8|4", "9|5"));
  EXPECT_THAT(Rows("OriginalData"), ElementsAre("x|4", "y|5"));
}

TEST_F(RunOriginalsTest, PutsNewTestingRecordsBehindTrainingOnes) {
  MakeSet("TrainingSet", {"1, 1", "2, 2"});
  MakeSet("TestingSet", {"8, 1", "9, 2"});
  MakeSet("TrainingSetBackup", {"7, 9"});
  Originals().Create(1);
  Append({"a"}, 1);
  Append({"b"}, 2);
  Append({"former"}, 3);
  Append({"of before a reset"}, 9);
  EXPECT_EQ(Originals().MakeRoom(kTesting, 2, 1), 3);
  EXPECT_THAT(Rows("TestingSet"), ElementsAre("8|3", "9|4"));
  EXPECT_THAT(Rows("OriginalData"), ElementsAre("a|1", "b|2", "of before a reset|9"));
}

TEST_F(RunOriginalsTest, BeginsAnewForWiderRecords) {
  MakeSet("TestingSet", {"8, 1"});
  Originals().Create(1);
  Append({"narrow"}, 1);
  EXPECT_EQ(Originals().MakeRoom(kTesting, 1, 2), 1);
  EXPECT_EQ(Originals().Columns(), 2);
  EXPECT_THAT(Rows("OriginalData"), IsEmpty());
}

TEST_F(RunOriginalsTest, NarrowsTheTableForNarrowerRecords) {
  MakeSet("TrainingSet", {"1, 1"});
  MakeSet("TestingSet", {"8, 1"});
  Originals().Create(2);
  Append({"a", "b"}, 1);
  EXPECT_EQ(Originals().MakeRoom(kTesting, 1, 1), 2);
  EXPECT_THAT(Rows("OriginalData"), ElementsAre("a|1"));
}

TEST_F(RunOriginalsTest, OpensTextsInTheOrderOfTheSet) {
  MakeSet("TrainingSet", {"1, 1", "2, 2", "3, 3"});
  Originals().Create(2);
  Append({"a", "A"}, 1);
  Append({"c", "C"}, 3);
  EXPECT_THAT(All(Originals().OpenTexts(kTraining, {1, 0}, 1)),
              ElementsAre("NULL|NULL|NULL", "C|c|3"));
  EXPECT_THAT(All(Originals().OpenRecords(kTraining)), ElementsAre("a|A|1", "c|C|3"));
}

TEST_F(RunOriginalsTest, CountsTextsAndLeavesTokensOut) {
  MakeSet("TrainingSet", {"1, 1", "NULL, 2", "NULL, 3", "2, 4"});
  Originals().Create(1);
  Append({"z"}, 1);
  Append({"?"}, 2);
  Append({""}, 3);
  Append({"a"}, 4);
  Face<IRunMissingValues>().WriteTokens({{0, "?", 1, {}, 0}, {0, "", 1, {}, 0}});
  EXPECT_THAT(All(Originals().OpenTrainingColumn(0)), ElementsAre("z", "a"));
  std::vector<RunTextCount> texts;
  Face<IRunMissingValues>().CountTrainingTexts(0, texts);
  ASSERT_EQ(texts.size(), 4u);
  EXPECT_EQ(texts[0].text, "z") << "in the order of the records";
  EXPECT_EQ(texts[3].text, "a");
  Face<IRunMissingValues>().CountOpenTexts(kTraining, 0, texts);
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts[1].text, "?");
  EXPECT_EQ(texts[1].count, 1);
  Face<IRunMissingValues>().CountOpenTexts(kTesting, 0, texts);
  EXPECT_THAT(texts, IsEmpty());
}

TEST_F(RunOriginalsTest, FillsCellsByTheirText) {
  MakeSet("TrainingSet", {"1, 1", "NULL, 2", "NULL, 3"});
  Originals().Create(1);
  Append({"z"}, 1);
  Append({"n'a"}, 2);
  Append({"?"}, 3);
  Catalog().FillCells(kTraining, 0, "n'a", 4.5);
  EXPECT_THAT(Rows("TrainingSet"), ElementsAre("1|1", "4.5|2", "NULL|3"));
  Catalog().FillCells(kTraining, 0, "n'a", std::numeric_limits<double>::quiet_NaN());
  EXPECT_THAT(Rows("TrainingSet"), ElementsAre("1|1", "NULL|2", "NULL|3"));
  Catalog().FillCells(kTesting, 0, "n'a", 4.5);
}

TEST_F(RunOriginalsTest, EmbedsTheTextsOfASeries) {
  MakeSet("TrainingSet", {"1, 1", "2, 2", "3, 3", "4, 4", "5, 5"});
  MakeSet("TestingSet", {"9, 6"});
  EXPECT_FALSE(Originals().WriteEmbedded(1, 2, 3)) << "the run keeps no texts";
  Originals().Create(1);
  const char* const texts[] = {"a", "b", "c", "d", "e", "t"};
  for (std::int32_t i = 0; i < 6; ++i) Append({texts[i]}, i + 1);
  EXPECT_TRUE(Originals().WriteEmbedded(1, 2, 3));
  Originals().TakeEmbedded();
  EXPECT_THAT(Rows("OriginalData"), ElementsAre("a|c|1", "b|d|2", "c|e|3", "t|NULL|6"));
  EXPECT_THAT(Rows("TestingSet"), ElementsAre("9|6"));
}

}  // namespace
}  // namespace tslm5
