// `INominalDataSetMetadata`: which columns are coded, and by which codes.
#include <gmock/gmock.h>

#include "datasetlite/prepared_set.h"

namespace tslm5 {
namespace {

using NominalMetadata = PreparedSetTest;

TEST_F(NominalMetadata, NamesTheCodedColumns) {
  EXPECT_EQ(Entries(Nominal()->GetCategoricalIndexes()), (Lines{"d0=0", "d2=2"}));
  EXPECT_EQ(Entries(Nominal()->GetCategoricalNames()), (Lines{"d0=colour", "d2=answer"}));
  EXPECT_EQ(Nominal()->GetCategoricalIndexes().ToMap()->Item("d2"), Variant(2));
  EXPECT_EQ(run_.Log().statements.front(),
            "SELECT Name, ColumnIndex FROM DataSetColumn WHERE IsNominal = 1 ORDER BY Id");
  EXPECT_EQ(run_.Log().statements[1],
            "SELECT Name, OriginalLabel FROM DataSetColumn WHERE IsNominal = 1 ORDER BY Id");
}

TEST_F(NominalMetadata, NamesNothingWithoutARun) {
  const auto alone = LiteSet().As<INominalDataSetMetadata>();
  EXPECT_EQ(alone->GetCategoricalIndexes().ToMap()->Count(), 0U);
  EXPECT_EQ(alone->GetCategoricalNames().ToMap()->Count(), 0U);
  EXPECT_EQ(alone->GetCategories(0).ToMap()->Count(), 0U);
  EXPECT_FALSE(alone->GetIsCategorical(0));
}

TEST_F(NominalMetadata, WithoutARunTheOthersRaise41001) {
  const auto alone = LiteSet().As<INominalDataSetMetadata>();
  std::string text = "as it came";
  double number = 5.0;
  EXPECT_EQ(RaisedNumber([&] { alone->UpdateCategory("d0", "red", 5); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { alone->AnalyseResponseCategories(text); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { alone->GetModeMapping(0); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { alone->IsResponseMerging(); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { alone->UpdateMergingResponseCategories(); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { alone->GetResponseEncoding(text, number, number); }), 41001);
  EXPECT_EQ(RaisedNumber([&] { alone->SavePositiveClass("yes"); }), 41001);
  EXPECT_EQ(text, "as it came");
  EXPECT_EQ(number, 5.0);
}

TEST_F(NominalMetadata, ARunThatLendsNoConnectionIsNone) {
  struct ClosedRun final : CountedObject<IConnectionService> {
    std::string_view TypeName() override { return "Run"; }
    Variant GetConnection() override { return Variant(); }

   private:
    ~ClosedRun() override = default;
  };
  const LiteSet closed;
  closed.As<IConstructor>()->Init(VariantArray({Variant(MakeObject<ClosedRun>()), Variant(1)}));
  EXPECT_EQ(closed.As<INominalDataSetMetadata>()->GetCategories(0).ToMap()->Count(), 0U);
}

TEST_F(NominalMetadata, KnowsTheFlagsOfTheLoad) {
  EXPECT_TRUE(Nominal()->GetIsCategorical(0));
  EXPECT_FALSE(Nominal()->GetIsCategorical(1));
  EXPECT_FALSE(Nominal()->GetIsCategorical(-1));
  EXPECT_FALSE(Nominal()->GetIsCategorical(99));
  Execute("UPDATE DataSetColumn SET IsNominal = 1");
  EXPECT_FALSE(Nominal()->GetIsCategorical(1));
  set_.Load(run_, 1);
  EXPECT_TRUE(Nominal()->GetIsCategorical(1));
}

TEST_F(NominalMetadata, ShowsValueCodeAndCountOfEachCategory) {
  Execute("UPDATE DataSetColumnCategories SET NumericValue = 2.5 WHERE NominalValue = 'blue'");
  EXPECT_EQ(Entries(Nominal()->GetCategories(0)),
            (Lines{"blue=blue 2.5 2", "green=green 3 1", "red=red 1 3"}));
  EXPECT_THAT(
      run_.Log().statements,
      testing::ElementsAre("SELECT NominalValue, NominalValue || ' ' || NumericValue || ' ' "
                           "|| CategoryCount FROM DataSetColumnCategories WHERE Name = "
                           "'d0' ORDER BY NominalValue"));
  EXPECT_TRUE(Entries(Nominal()->GetCategories(1)).empty());
}

TEST_F(NominalMetadata, OrdersCategoriesByTextOrByNumber) {
  Execute("INSERT INTO DataSetColumnCategories VALUES ('d1', '10', 1, 1), ('d1', '9', 2, 1)");
  EXPECT_EQ(Entries(Nominal()->GetCategories(1)), (Lines{"9=9 2 1", "10=10 1 1"}));
  EXPECT_EQ(run_.Log().statements.back(),
            "SELECT NominalValue, NominalValue || ' ' || NumericValue || ' ' || CategoryCount FROM "
            "DataSetColumnCategories WHERE Name = 'd1' ORDER BY CAST(NominalValue AS float)");
  Execute("UPDATE DataSetColumn SET IsNominal = 1");
  set_.Load(run_, 1);
  EXPECT_EQ(Entries(Nominal()->GetCategories(1)), (Lines{"10=10 1 1", "9=9 2 1"}));
}

TEST_F(NominalMetadata, TellsCategoriesApartByCase) {
  Execute("INSERT INTO DataSetColumnCategories VALUES ('d0', 'Red', 4, 1)");
  EXPECT_EQ(Nominal()->GetCategories(0).ToMap()->Item("Red"), Variant("Red 4 1"));
  EXPECT_EQ(Nominal()->GetCategories(0).ToMap()->Item("red"), Variant("red 1 3"));
}

TEST_F(NominalMetadata, RefusesACategoryThatIsThereTwice) {
  Execute("INSERT INTO DataSetColumnCategories VALUES ('d0', 'red', 4, 1)");
  EXPECT_EQ(RaisedNumber([&] { Nominal()->GetCategories(0); }), error_number::kKeyPresent);
}

TEST_F(NominalMetadata, RefusesACategoryWithoutAValue) {
  Execute("INSERT INTO DataSetColumnCategories VALUES ('d0', NULL, 4, 1)");
  EXPECT_EQ(RaisedNumber([&] { Nominal()->GetCategories(0); }), error_number::kTypeMismatch);
}

TEST_F(NominalMetadata, GivesTheCodeOfTheMostFrequentCategory) {
  EXPECT_EQ(Nominal()->GetModeMapping(0), 1.0);
  Execute("UPDATE DataSetColumnCategories SET CategoryCount = 50 WHERE NominalValue = 'blue'");
  EXPECT_EQ(Nominal()->GetModeMapping(0), 2.0);
  EXPECT_EQ(run_.Log().statements.back(),
            "SELECT NumericValue FROM DataSetColumnCategories WHERE Name = 'd0' ORDER BY "
            "CategoryCount DESC LIMIT 1");
  EXPECT_EQ(RaisedNumber([&] { Nominal()->GetModeMapping(1); }), error_number::kNoCurrentRecord);
}

TEST_F(NominalMetadata, KnowsWhetherTheResponseIsMerged) {
  EXPECT_EQ(RaisedNumber([&] { Nominal()->IsResponseMerging(); }), error_number::kNoCurrentRecord);
  Execute("INSERT INTO RunParameters VALUES ('other', 'Merging', 0, 0), ('data', 'Merging', 1, 0)");
  EXPECT_TRUE(Nominal()->IsResponseMerging());
  Execute("UPDATE RunParameters SET intvalue = 2 WHERE namespace = 'data'");
  EXPECT_FALSE(Nominal()->IsResponseMerging());
  EXPECT_EQ(run_.Log().statements.back(),
            "SELECT intvalue FROM RunParameters WHERE namespace='data' AND element='Merging'");
}

}  // namespace
}  // namespace tslm5
