// The statements that an open sends, and their order.
#include "original/original_run.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

constexpr const char* kMaximum1 =
    "SELECT Maximum FROM DataSetStatistics WHERE  DataSetId = 1 AND ColumnIndex = (SELECT "
    "ColumnIndex FROM DataSetColumn WHERE IsResponse = 1)";
constexpr const char* kMaximum2 =
    "SELECT Maximum FROM DataSetStatistics WHERE  DataSetId = 2 AND ColumnIndex = (SELECT "
    "ColumnIndex FROM DataSetColumn WHERE IsResponse = 1)";
constexpr const char* kProbe = "SELECT * FROM OriginalData WHERE 0 = 1";
constexpr const char* kJoin1 =
    "SELECT od.* FROM OriginalData od INNER JOIN TrainingSet ts ON od.row = ts.row ORDER BY "
    "ts.rowid";
constexpr const char* kJoin2 =
    "SELECT od.* FROM OriginalData od INNER JOIN TestingSet ts ON od.row = ts.row ORDER BY "
    "ts.rowid";
constexpr const char* kCategory =
    "SELECT intvalue FROM RunParameters WHERE namespace = 'set_gen' AND element='ProblemCategory'";
constexpr const char* kResponse = "SELECT Name FROM DataSetColumn WHERE IsResponse = 1";
constexpr const char* kRelabelled =
    "SELECT COUNT(*) FROM DataSetColumn WHERE Name <> OriginalLabel";
constexpr const char* kLabels =
    "SELECT Label, ColumnIndex FROM OriginalDataLabels WHERE SetId=1 ORDER BY ColumnIndex";
constexpr const char* kNominal = "SELECT IsNominal FROM DataSetColumn ORDER BY Id";
constexpr const char* kMissing = "SELECT ColumnIndex, MissingCount FROM DataSetColumn ORDER BY Id";
constexpr const char* kCount1 = "SELECT COUNT(*) FROM TrainingSet";
constexpr const char* kCount2 = "SELECT COUNT(*) FROM TestingSet";
constexpr const char* kCountAll = "SELECT COUNT(*) FROM OriginalData";

class OriginalStatements : public OriginalDataSetTest {
 protected:
  const Lines& Sent(std::int32_t set_type, bool binarise) const {
    run_.Log().Clear();
    view_.Open(run_, set_type, binarise);
    return run_.Log().statements;
  }
};

TEST_F(OriginalStatements, OfATrainingSetWithClasses) {
  EXPECT_THAT(Sent(1, true), ElementsAre(kCount1, kProbe, kJoin1, kCategory, kResponse, kMaximum1,
                                         "SELECT d2 FROM TrainingSet", kRelabelled, kLabels,
                                         kNominal, kMissing, kMaximum1, kCount1, kCount2));
}

TEST_F(OriginalStatements, OfATestingSetWithClassesAndWithoutStatistics) {
  EXPECT_THAT(Sent(2, true),
              ElementsAre(kCount2, kProbe, kJoin2, kCategory, kResponse, kMaximum2, kMaximum1,
                          "SELECT d2 FROM TestingSet", kRelabelled, kLabels, kNominal, kMissing,
                          kMaximum2, kMaximum1, kCount1, kCount2));
}

TEST_F(OriginalStatements, OfASetThatIsNotClassified) {
  run_.PutCategory(0);
  EXPECT_THAT(Sent(1, true), ElementsAre(kCount1, kProbe, kJoin1, kCategory, kRelabelled, kLabels,
                                         kNominal, kMissing, kMaximum1, kCount1, kCount2));
}

TEST_F(OriginalStatements, OfASetWithoutClasses) {
  EXPECT_THAT(Sent(1, false), ElementsAre(kCount1, kProbe, kJoin1, kRelabelled, kLabels, kNominal,
                                          kMissing, kMaximum1, kCount1, kCount2));
}

TEST_F(OriginalStatements, OfAllRecords) {
  EXPECT_THAT(
      Sent(1000, true),
      ElementsAre(
          kCountAll, kProbe, "SELECT * FROM OriginalData", kRelabelled, kLabels, kNominal, kMissing,
          "SELECT Maximum FROM DataSetStatistics WHERE  DataSetId = 1000 AND ColumnIndex = (SELECT "
          "ColumnIndex FROM DataSetColumn WHERE IsResponse = 1)",
          kMaximum1, kCount1, kCount2));
}

TEST_F(OriginalStatements, OfBothSetsTogether) {
  run_.Execute("UPDATE OriginalData SET d2 = '1'");
  EXPECT_THAT(
      Sent(100, true),
      ElementsAre(kCountAll, kProbe, kJoin1, kJoin2,
                  "SELECT Maximum FROM DataSetStatistics WHERE   ColumnIndex = (SELECT ColumnIndex "
                  "FROM DataSetColumn WHERE IsResponse = 1)",
                  kCount1, kCount2));
}

TEST_F(OriginalStatements, AskForNoTestingTableThatIsNotThere) {
  run_.Execute("DROP TABLE TestingSet");
  const Lines both = Sent(100, false);
  EXPECT_THAT(both, testing::Not(testing::Contains(kJoin2)));
  EXPECT_THAT(both, testing::Not(testing::Contains(kCount2)));
}

TEST_F(OriginalStatements, NeverWrite) {
  for (const std::int32_t type : {1, 2, 100, 1000}) {
    for (const std::string& statement : Sent(type, false)) {
      EXPECT_EQ(statement.rfind("SELECT ", 0), 0U) << statement;
    }
  }
}

}  // namespace
}  // namespace tslm5
