#include "inmemory/in_memory_nominal_facet.h"

#include <gmock/gmock.h>

#include "inmemory/nominal_set.h"

namespace tslm5 {
namespace {

using testing::ElementsAre;

TEST(InMemoryNominalFacet, IsAFaceOfTheSet) {
  const Ref<IUnknown> object = MakeInMemorySet();
  const Ref<INominalDataSet> face = object.As<INominalDataSet>();
  ASSERT_TRUE(face);
  EXPECT_EQ(Query<IUnknown>(face), object);
  EXPECT_EQ(face->TypeName(), "InMemorySet");
  EXPECT_TRUE(Query<IDataSet>(face));
}

TEST(InMemoryNominalFacet, StartsEmpty) {
  const NominalSet set;
  EXPECT_EQ(set.Nominal().Rows(), 0);
  EXPECT_EQ(set.Nominal().Columns(), 0);
  EXPECT_FALSE(set.Nominal().IsReady());
  EXPECT_THAT(Raised([&] { set.Nominal().GetItem(0, 0); }), IsSubscriptError());
}

TEST(InMemoryNominalFacet, GivesTheTextWhereTheOtherFaceGivesTheCode) {
  const NominalSet set("red,7,no\nblue,8,yes\nred,9,no");
  EXPECT_EQ(set.Nominal().GetItem(0, 2), Variant("red"));
  EXPECT_EQ(set->GetItem(0, 2), 1);
  EXPECT_EQ(set.Nominal().GetItem(1, 2), Variant(9.0));
  EXPECT_EQ(set.Nominal().GetItem(2, 1), Variant("yes"));
  EXPECT_EQ(set->GetItem(2, 1), 1);
  EXPECT_EQ(set.Nominal().Rows(), 3);
  EXPECT_EQ(set.Nominal().Columns(), 3);
}

TEST(InMemoryNominalFacet, RefusesACellOutsideTheData) {
  const NominalSet set("red,7\nblue,8");
  const std::int32_t cells[][2] = {{-1, 0}, {0, -1}, {2, 0}, {0, 2}, {1, 2}};
  for (const auto& [column, row] : cells) {
    EXPECT_THAT(Raised([&, c = column, r = row] { set.Nominal().GetItem(c, r); }),
                IsSubscriptError());
  }
}

TEST(InMemoryNominalFacet, SharesThePropertiesOfTheSet) {
  const NominalSet set("red,7\nblue,8");
  set.SetDirty(false);
  EXPECT_EQ(set.Nominal().SetProperty("5", "DelayTime"), "DelayTime");
  EXPECT_TRUE(set.IsDirty());
  EXPECT_EQ(set->GetProperty("DelayTime"), "5");
  EXPECT_EQ(set.Nominal().GetProperty("Separator"), ",");
  set.SetDirty(false);
  set.Nominal().ResetProperties();
  EXPECT_TRUE(set.IsDirty());
  EXPECT_THAT(Raised([&] { set.Nominal().GetProperty("DelayTime"); }).Number(), 5);
}

TEST(InMemoryNominalFacet, FormatsDataAsTheSetDoes) {
  const NominalSet set("1,7\n2,8");
  const NominalSet other("1,7\n2,8");
  std::int32_t expected_result = -1;
  std::int32_t result = -1;
  const Error expected = Raised([&] { expected_result = set->FormatDataAs(0); });
  const Error error = Raised([&] { result = other.Nominal().FormatDataAs(0); });
  EXPECT_THAT(error, IsError(expected.Number(), expected.Source(), expected.Description()));
  EXPECT_EQ(result, expected_result);
}

TEST(InMemoryNominalFacet, LosesItsTextsToAPlainParse) {
  const NominalSet set("red,7\n?,8");
  std::string text = "1,2\n3,4";
  set->ParseString(text, 2, false, 1, 1, nullptr);
  EXPECT_THAT(set.Texts(), ElementsAre("#1,#2", "#3,#4"));
  EXPECT_EQ(set.Missing(), "0");
}

TEST(InMemoryNominalFacet, LosesItsTextsToOtherData) {
  const NominalSet set("red,7\nblue,8");
  const MemorySet source;
  source.State().extra_set = CellArray(2, 1);
  source.State().column_count = 1;
  ASSERT_TRUE(set->SetData(source.Object().get(), 5));
  EXPECT_THAT(set.Texts(), ElementsAre("#0", "#0"));
  set.Parse("red\nblue", {.separator = -1});
  set.State().data = std::make_shared<CellArray>(1, 3);
  set.State().column_count = 3;
  EXPECT_THAT(set.Texts(), ElementsAre("#0,#0,#0"));
}

TEST(InMemoryNominalFacet, LosesItsTextsToClear) {
  const NominalSet set("red,7\nblue,8");
  set->Clear();
  EXPECT_EQ(set.Nominal().Rows(), 0);
  EXPECT_EQ(set.State().data, nullptr);
  EXPECT_THAT(Raised([&] { set.Nominal().GetItem(0, 0); }), IsSubscriptError());
}

TEST(InMemoryNominalFacet, IsClonedWithItsTexts) {
  const NominalSet original;
  original.Parse("?,7\nred,8\nblue,9", {.category = 2});
  const NominalSet clone(Query<IUnknown>(original.As<IInMemorySet>()->Clone()));
  original.Parse("x,1");
  EXPECT_THAT(clone.Texts(), ElementsAre("?,#7", "red,#8", "blue,#9"));
  EXPECT_THAT(clone.Records(), ElementsAre(",7", "2,8", "3,9"));
  EXPECT_EQ(clone.Missing(), "1");
  clone->Clear();
  EXPECT_THAT(original.Texts(), ElementsAre("x,#1"));
}

}  // namespace
}  // namespace tslm5
