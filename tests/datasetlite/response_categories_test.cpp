// `INominalDataSetMetadata`: a response of many categories as a binary one.
#include <gtest/gtest.h>

#include "datasetlite/prepared_set.h"
#include "support/locale_variables.h"

namespace tslm5 {
namespace {

constexpr const char* kNotBinomial = "Unable to proceed: The response variable must be binomial.";
constexpr const char* kNoSingleClass =
    "Unable to proceed: The response variable must have a unique Singled Out Class.";

class ResponseCategories : public PreparedSetTest {
 protected:
  /// Puts other categories in the place of the response's: "value", code.
  void Recode(std::initializer_list<std::pair<const char*, const char*>> categories) const {
    Execute("DELETE FROM DataSetColumnCategories WHERE Name = 'd2'");
    for (const auto& [value, code] : categories) {
      Execute("INSERT INTO DataSetColumnCategories VALUES ('d2', '" + std::string(value) + "', " +
              code + ", 1)");
    }
  }
  bool Analyse() {
    message_ = "as it came";
    return Nominal()->AnalyseResponseCategories(message_);
  }
  void Merge() const { Nominal()->UpdateMergingResponseCategories(); }
  Lines Encoding() const { return run_.TableRows("ResponseEncoding"); }

  std::string message_;
};

TEST_F(ResponseCategories, OfThreeCodesOrOfOneAreNotBinomial) {
  EXPECT_FALSE(Analyse());
  EXPECT_EQ(message_, kNotBinomial);
  Recode({{"no", "1"}, {"yes", "1"}});
  EXPECT_FALSE(Analyse());
  EXPECT_EQ(message_, kNotBinomial);
  Recode({});
  EXPECT_FALSE(Analyse());
  EXPECT_EQ(message_, kNotBinomial);
}

TEST_F(ResponseCategories, OfTwoSharedCodesHaveNoSingledOutClass) {
  Recode({{"a", "0"}, {"b", "0"}, {"c", "1"}, {"d", "1"}});
  EXPECT_FALSE(Analyse());
  EXPECT_EQ(message_, kNoSingleClass);
}

TEST_F(ResponseCategories, OfTwoCodesWithOneClassAloneAreBinary) {
  Recode({{"no", "0"}, {"yes", "1"}});
  EXPECT_TRUE(Analyse());
  EXPECT_EQ(message_, "as it came");
  Recode({{"no", "0"}, {"yes", "1"}, {"maybe", "0"}});
  EXPECT_TRUE(Analyse());
  Recode({{"no", "1"}, {"yes", "0"}, {"maybe", "1"}, {"never", "1"}});
  EXPECT_TRUE(Analyse());
}

TEST_F(ResponseCategories, AreCountedByCategoryAndNotByRecord) {
  Execute("UPDATE DataSetColumnCategories SET CategoryCount = 1, NumericValue = 0");
  Execute(
      "UPDATE DataSetColumnCategories SET CategoryCount = 500, NumericValue = 1 WHERE "
      "NominalValue = 'yes'");
  EXPECT_TRUE(Analyse());
  EXPECT_EQ(
      run_.Log().statements,
      (Lines{"SELECT COUNT(DISTINCT NumericValue) FROM DataSetColumnCategories WHERE Name='d2'",
             "SELECT NumericValue, COUNT(*) FROM DataSetColumnCategories WHERE Name='d2' GROUP BY "
             "NumericValue"}));
}

TEST_F(ResponseCategories, WithAClassWithoutACodeAreNotAnalysed) {
  Recode({{"no", "0"}, {"yes", "1"}, {"maybe", "NULL"}});
  EXPECT_EQ(RaisedNumber([&] { Analyse(); }), error_number::kTypeMismatch);
  EXPECT_EQ(message_, "as it came");
}

TEST_F(ResponseCategories, MergeIntoTheSingledOutClassAndTheRest) {
  Recode({{"no", "0"}, {"yes", "1"}, {"maybe", "0"}});
  Merge();
  EXPECT_EQ(Encoding(), (Lines{"yes|1|0"}));
  EXPECT_EQ(Training("d2"), (Lines{"0", "1", "0", "0"}));
  EXPECT_EQ(Testing("d2"), (Lines{"1", "0"}));
  EXPECT_EQ(Training("d0"), (Lines{"1", "2", "1", "3"}));
}

TEST_F(ResponseCategories, MergeByTheseStatements) {
  Recode({{"no", "-1"}, {"yes", "2.5"}, {"maybe", "-1"}});
  Merge();
  constexpr const char* kGroup =
      " FROM DataSetColumnCategories WHERE Name='d2' GROUP BY "
      "NumericValue ORDER BY COUNT(*)";
  constexpr const char* kYes = " WHERE row IN (SELECT row FROM OriginalData WHERE d2 = 'yes')";
  constexpr const char* kRest = " WHERE row IN (SELECT row FROM OriginalData WHERE d2 <> 'yes')";
  EXPECT_EQ(run_.Log().statements,
            (Lines{"SELECT NominalValue, COUNT(*)" + std::string(kGroup) + " LIMIT 1",
                   "SELECT NumericValue, COUNT(*)" + std::string(kGroup) + " LIMIT 1",
                   "SELECT NumericValue, COUNT(*)" + std::string(kGroup) + " DESC LIMIT 1",
                   "UPDATE ResponseEncoding SET PositiveClass = 'yes', NewPositiveValue = 2.5, "
                   "NewNegativeValue = -1",
                   "UPDATE TrainingSet SET d2 = 2.5" + std::string(kYes),
                   "UPDATE TrainingSet SET d2 = -1" + std::string(kRest),
                   "UPDATE TestingSet SET d2 = 2.5" + std::string(kYes),
                   "UPDATE TestingSet SET d2 = -1" + std::string(kRest)}));
}

TEST_F(ResponseCategories, MergeWithoutATestingSet) {
  Execute("DROP TABLE TestingSet");
  Recode({{"no", "0"}, {"yes", "1"}, {"maybe", "0"}});
  Merge();
  EXPECT_EQ(run_.Log().statements.size(), 6U);
  EXPECT_EQ(Training("d2"), (Lines{"0", "1", "0", "0"}));
}

TEST_F(ResponseCategories, MergeOfGroupsOfOneSizeKeepsBothCodes) {
  Recode({{"no", "0"}, {"yes", "1"}});
  Merge();
  const Lines encoding = Encoding();
  EXPECT_TRUE(encoding == Lines{"yes|1|0"} || encoding == Lines{"no|0|1"}) << encoding[0];
  EXPECT_EQ(run_.Select("SELECT COUNT(DISTINCT d2) FROM TrainingSet WHERE row < 4"), Lines{"2"});
  EXPECT_EQ(run_.Select("SELECT COUNT(DISTINCT d2) FROM TestingSet"), Lines{"2"});
}

TEST_F(ResponseCategories, MergeTakesTheOtherCodeWhenTheDatabaseGivesOneTwice) {
  // As if the groups came in one order both times.
  struct OneOrder final : CountedObject<IConnection> {
    explicit OneOrder(Ref<IConnection> real) : real_(std::move(real)) {}
    std::string_view TypeName() override { return "Connection"; }
    void Execute(std::string_view pSql) override { real_->Execute(pSql); }
    Ref<IDataReader> ExecuteReader(std::string_view pSql) override {
      std::string sql(pSql);
      const std::size_t descending = sql.find("COUNT(*) DESC LIMIT 1");
      if (descending != std::string::npos) sql.erase(descending + 8, 5);
      return real_->ExecuteReader(sql);
    }
    Ref<IRecordSet> OpenRecordSet(std::string_view pSql) override {
      return real_->OpenRecordSet(pSql);
    }
    void BeginTrans() override { real_->BeginTrans(); }
    void CommitTrans() override { real_->CommitTrans(); }
    void RollbackTrans() override { real_->RollbackTrans(); }
    bool TableExists(std::string_view pName) override { return real_->TableExists(pName); }

   private:
    ~OneOrder() override = default;
    Ref<IConnection> real_;
  };
  struct OneOrderRun final : CountedObject<IConnectionService> {
    explicit OneOrderRun(Ref<IConnection> real)
        : connection_(MakeObject<OneOrder>(std::move(real))) {}
    std::string_view TypeName() override { return "Run"; }
    Variant GetConnection() override { return Variant(connection_); }

   private:
    ~OneOrderRun() override = default;
    Ref<OneOrder> connection_;
  };
  Recode({{"no", "0"}, {"yes", "1"}});
  const LiteSet set;
  set.Load(Variant(MakeObject<OneOrderRun>(run_.Connection())), 1);
  set.As<INominalDataSetMetadata>()->UpdateMergingResponseCategories();
  EXPECT_EQ(run_.Select("SELECT NewPositiveValue + NewNegativeValue FROM ResponseEncoding"),
            Lines{"1"});
  EXPECT_EQ(run_.Select("SELECT COUNT(DISTINCT d2) FROM TrainingSet WHERE row < 4"), Lines{"2"});
}

TEST_F(ResponseCategories, OfOneCodeAreNotMerged) {
  Recode({{"no", "1"}, {"yes", "1"}});
  const Error error = Raised([&] { Merge(); });
  EXPECT_EQ(error.Number(), error_number::kInvalidData);
  EXPECT_EQ(error.Description(), "All categories of the response have the same numeric value.");
  EXPECT_EQ(Encoding(), (Lines{"yes|1|0"}));
  EXPECT_EQ(Training("d2"), (Lines{"0", "1", "0", "2"}));
}

TEST_F(ResponseCategories, OfASetWithoutDataAreNotAnalysed) {
  // The first column, coded so that it could pass, would be taken for the response.
  Execute("UPDATE DataSetColumnCategories SET NumericValue = 1 WHERE NominalValue = 'blue'");
  const LiteSet not_loaded(run_, data_set_type::kTraining);
  set_.As<IDisposable>()->Dispose(true);
  const LiteSet* const sets[] = {&not_loaded, &set_};
  for (const LiteSet* set : sets) {
    const Error error =
        Raised([&] { set->As<INominalDataSetMetadata>()->AnalyseResponseCategories(message_); });
    EXPECT_EQ(error.Number(), error_number::kInvalidData);
    EXPECT_EQ(error.Source(), "AnalyseResponseCategories");
    EXPECT_EQ(error.Description(), "The set has no data, so its response is not known.");
  }
  EXPECT_EQ(message_, "");
}

TEST_F(ResponseCategories, OfASetWithoutDataAreNotMerged) {
  // The first column would be taken for the response of a set without columns.
  Execute("UPDATE DataSetColumnCategories SET NumericValue = 1 WHERE NominalValue = 'blue'");
  const LiteSet not_loaded(run_, data_set_type::kTraining);
  set_.As<IDisposable>()->Dispose(true);
  const LiteSet* const sets[] = {&not_loaded, &set_};
  for (const LiteSet* set : sets) {
    const Error error =
        Raised([set] { set->As<INominalDataSetMetadata>()->UpdateMergingResponseCategories(); });
    EXPECT_EQ(error.Number(), error_number::kInvalidData);
    EXPECT_EQ(error.Description(), "The set has no data, so its response is not known.");
  }
  EXPECT_EQ(Encoding(), (Lines{"yes|1|0"}));
  EXPECT_EQ(Training("d0"), (Lines{"1", "2", "1", "3"}));
}

TEST_F(ResponseCategories, WithoutCategoriesOrCodesAreNotMerged) {
  Recode({});
  EXPECT_EQ(RaisedNumber([&] { Merge(); }), error_number::kNoCurrentRecord);
  Recode({{"no", "NULL"}, {"yes", "1"}, {"maybe", "1"}});
  EXPECT_EQ(RaisedNumber([&] { Merge(); }), error_number::kTypeMismatch);
  EXPECT_EQ(Training("d2"), (Lines{"0", "1", "0", "2"}));
}

TEST_F(ResponseCategories, MergeWritesNumbersWithAPointInEveryLocale) {
  Recode({{"no", "0.25"}, {"yes", "1.5"}, {"maybe", "0.25"}});
  const LocaleVariables german("de_DE.UTF-8", nullptr, nullptr);
  Merge();
  EXPECT_EQ(Encoding(), (Lines{"yes|1.5|0.25"}));
  EXPECT_EQ(Training("d2"), (Lines{"0.25", "1.5", "0.25", "0.25"}));
}

TEST_F(ResponseCategories, MergeIsSeenAtOnceAndForgetsTheStatistics) {
  Recode({{"no", "0"}, {"yes", "8"}, {"maybe", "0"}});
  set_->CalculateStatistics(nullptr);
  ASSERT_EQ(set_->GetMax(2, 0, 0), 2.0);
  Merge();
  EXPECT_EQ(set_->GetItem(2, 3), 0.0);
  EXPECT_EQ(set_->GetMax(2, 0, 0), 8.0);
  EXPECT_EQ(set_->GetGlobalCentroid(2), 0.0);
  EXPECT_TRUE(set_.As<ILRServices>()->IsBinary());
}

TEST_F(ResponseCategories, MergeThatFailsMidwayKeepsWhatWasDone) {
  Recode({{"no", "0"}, {"yes", "8"}, {"maybe", "0"}});
  set_->CalculateStatistics(nullptr);
  ASSERT_EQ(set_->GetMax(2, 0, 0), 2.0);
  run_.Log().Clear();
  run_.Log().FailAt(6, Error(1, "", "the other records"));
  EXPECT_EQ(RaisedNumber([&] { Merge(); }), 1);
  run_.Log().before = nullptr;
  EXPECT_EQ(Encoding(), (Lines{"yes|8|0"}));
  EXPECT_EQ(Training("d2"), (Lines{"0", "8", "0", "2"}));
  EXPECT_EQ(Testing("d2"), (Lines{"1", "0"}));
  EXPECT_EQ(set_->GetMax(2, 0, 0), 8.0) << "the figures of before are forgotten";
}

TEST_F(ResponseCategories, MergeFailsOnAnApostropheAndChangesNothing) {
  for (const char* positive : {"it''s", "yes'' OR ''a''=''a", "yes''--"}) {
    Recode({{"no", "0"}, {positive, "1"}, {"maybe", "0"}});
    EXPECT_EQ(RaisedNumber([&] { Merge(); }), 1) << positive;
    EXPECT_EQ(Encoding(), (Lines{"yes|1|0"})) << positive;
    EXPECT_EQ(Training("d2"), (Lines{"0", "1", "0", "2"})) << positive;
  }
}

TEST_F(ResponseCategories, TheEncodingIsRead) {
  Execute("UPDATE ResponseEncoding SET NewNegativeValue = -2.5, NewPositiveValue = 3");
  std::string positive_class;
  double zero = 9;
  double one = 9;
  Nominal()->GetResponseEncoding(positive_class, zero, one);
  EXPECT_EQ(positive_class, "yes");
  EXPECT_EQ(zero, -2.5);
  EXPECT_EQ(one, 3.0);
  EXPECT_EQ(run_.Log().statements,
            (Lines{"SELECT PositiveClass, NewNegativeValue, NewPositiveValue FROM "
                   "ResponseEncoding"}));
}

TEST_F(ResponseCategories, AnAbsentEncodingLeavesItsResultsAsTheyCame) {
  Execute("DELETE FROM ResponseEncoding");
  std::string positive_class = "mine";
  double zero = 7;
  double one = 8;
  Nominal()->GetResponseEncoding(positive_class, zero, one);
  EXPECT_EQ(positive_class, "mine");
  EXPECT_EQ(zero, 7.0);
  EXPECT_EQ(one, 8.0);
  Execute("DROP TABLE ResponseEncoding");  // no reader holds it
}

TEST_F(ResponseCategories, ThePositiveClassIsRecordedAlone) {
  Nominal()->SavePositiveClass("maybe");
  EXPECT_EQ(Encoding(), (Lines{"maybe|1|0"}));
  EXPECT_EQ(run_.Log().statements, (Lines{"UPDATE ResponseEncoding SET PositiveClass = 'maybe'"}));
  EXPECT_EQ(Training("d2"), (Lines{"0", "1", "0", "2"}));
  for (const char* text : {"it's", "no' || 'x", "no'--", "no', NewPositiveValue = '7"}) {
    EXPECT_EQ(RaisedNumber([&] { Nominal()->SavePositiveClass(text); }), 1) << text;
    EXPECT_EQ(Encoding(), (Lines{"maybe|1|0"})) << text;
  }
}

}  // namespace
}  // namespace tslm5
