#include "tslm5/platform/variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/raised.h"
#include "platform/test_objects.h"
#include "tslm5/platform/dictionary.h"

namespace tslm5 {
namespace {

using Kind = Variant::Kind;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

static_assert(!std::is_constructible_v<Variant, IUnknown*>);
static_assert(!std::is_constructible_v<Variant, const IFirst*>);

/// Variants that no conversion to a value takes.
std::vector<Variant> Valueless() {
  return {Null{}, MakeObject<OneFace>(), Ref<IUnknown>(), std::make_shared<VariantArray>(),
          std::make_shared<Dictionary>()};
}

TEST(Variant, KnowsItsKind) {
  EXPECT_EQ(Variant().GetKind(), Kind::kEmpty);
  EXPECT_EQ(Variant(Null{}).GetKind(), Kind::kNull);
  EXPECT_EQ(Variant(true).GetKind(), Kind::kBoolean);
  EXPECT_EQ(Variant(7).GetKind(), Kind::kInteger);
  EXPECT_EQ(Variant(7.0).GetKind(), Kind::kDouble);
  EXPECT_EQ(Variant("7").GetKind(), Kind::kString);
  EXPECT_EQ(Variant(std::string("7")).GetKind(), Kind::kString);
  EXPECT_EQ(Variant(std::string_view("7")).GetKind(), Kind::kString);
  EXPECT_EQ(Variant(MakeObject<OneFace>()).GetKind(), Kind::kObject);
  EXPECT_EQ(Variant(Ref<IFirst>()).GetKind(), Kind::kObject);
  EXPECT_EQ(Variant(std::make_shared<VariantArray>()).GetKind(), Kind::kArray);
  EXPECT_EQ(Variant(std::make_shared<Dictionary>()).GetKind(), Kind::kMap);
}

TEST(Variant, TellsEmptyNullAndNumbersApart) {
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_FALSE(Variant(0).IsEmpty());
  EXPECT_FALSE(Variant(Null{}).IsEmpty());
  EXPECT_TRUE(Variant(Null{}).IsNull());
  EXPECT_FALSE(Variant().IsNull());
  EXPECT_TRUE(Variant(0).IsNumber());
  EXPECT_TRUE(Variant(0.5).IsNumber());
  EXPECT_FALSE(Variant("1").IsNumber());
  EXPECT_FALSE(Variant(true).IsNumber());
  EXPECT_FALSE(Variant().IsNumber());
}

TEST(Variant, ConvertsToDouble) {
  EXPECT_EQ(Variant().ToDouble(), 0.0);
  EXPECT_EQ(Variant(true).ToDouble(), -1.0);
  EXPECT_EQ(Variant(false).ToDouble(), 0.0);
  EXPECT_EQ(Variant(-7).ToDouble(), -7.0);
  EXPECT_EQ(Variant(1.25).ToDouble(), 1.25);
  EXPECT_EQ(Variant(" -2.5e1 ").ToDouble(), -25.0);
  EXPECT_TRUE(std::isnan(Variant(kNan).ToDouble()));
}

TEST(Variant, WhatIsNoNumberRaisesThirteen) {
  for (const char* text : {"", " ", "abc", "1,5", "True", "nan", "inf", "0x10", "1e400"}) {
    const Error error = Raised([text] { (void)Variant(text).ToDouble(); });
    EXPECT_EQ(error.Number(), 13) << text;
    EXPECT_EQ(error.Description(), "Type mismatch") << text;
    EXPECT_EQ(RaisedNumber([text] { (void)Variant(text).ToInteger(); }), 13) << text;
  }
  for (const Variant& variant : Valueless()) {
    const int kind = static_cast<int>(variant.GetKind());
    EXPECT_EQ(RaisedNumber([&] { (void)variant.ToDouble(); }), 13) << kind;
    EXPECT_EQ(RaisedNumber([&] { (void)variant.ToInteger(); }), 13) << kind;
    EXPECT_EQ(RaisedNumber([&] { (void)variant.ToBoolean(); }), 13) << kind;
    EXPECT_EQ(RaisedNumber([&] { (void)variant.ToString(); }), 13) << kind;
  }
}

TEST(Variant, ConvertsToInteger) {
  EXPECT_EQ(Variant().ToInteger(), 0);
  EXPECT_EQ(Variant(true).ToInteger(), -1);
  EXPECT_EQ(Variant(false).ToInteger(), 0);
  EXPECT_EQ(Variant(2147483647).ToInteger(), 2147483647);
  EXPECT_EQ(Variant("-12").ToInteger(), -12);
}

TEST(Variant, AFractionGoesToTheNearestIntegerAndAHalfToTheEvenOne) {
  EXPECT_EQ(Variant(1.4).ToInteger(), 1);
  EXPECT_EQ(Variant(1.6).ToInteger(), 2);
  EXPECT_EQ(Variant(0.5).ToInteger(), 0);
  EXPECT_EQ(Variant(1.5).ToInteger(), 2);
  EXPECT_EQ(Variant(2.5).ToInteger(), 2);
  EXPECT_EQ(Variant(-1.5).ToInteger(), -2);
  EXPECT_EQ(Variant("2.5").ToInteger(), 2);
}

TEST(Variant, AnIntegerOutside32BitsRaisesSix) {
  EXPECT_EQ(Variant(2147483647.4).ToInteger(), 2147483647);
  EXPECT_EQ(Variant(-2147483648.4).ToInteger(), -2147483647 - 1);
  for (const double number : {2147483647.5, -2147483649.0, 1e300, kInfinity, -kInfinity, kNan}) {
    const Error error = Raised([number] { (void)Variant(number).ToInteger(); });
    EXPECT_EQ(error.Number(), 6) << number;
    EXPECT_EQ(error.Description(), "Overflow") << number;
  }
  EXPECT_EQ(RaisedNumber([] { (void)Variant("3000000000").ToInteger(); }), 6);
}

TEST(Variant, ConvertsToBoolean) {
  EXPECT_FALSE(Variant().ToBoolean());
  EXPECT_TRUE(Variant(true).ToBoolean());
  EXPECT_FALSE(Variant(false).ToBoolean());
  EXPECT_FALSE(Variant(0).ToBoolean());
  EXPECT_TRUE(Variant(2).ToBoolean());
  EXPECT_FALSE(Variant(0.0).ToBoolean());
  EXPECT_TRUE(Variant(0.25).ToBoolean());
  EXPECT_TRUE(Variant("True").ToBoolean());
  EXPECT_TRUE(Variant("true").ToBoolean());
  EXPECT_FALSE(Variant("False").ToBoolean());
  EXPECT_FALSE(Variant("false").ToBoolean());
  EXPECT_TRUE(Variant("0.5").ToBoolean());
  EXPECT_FALSE(Variant("0").ToBoolean());
  EXPECT_EQ(RaisedNumber([] { (void)Variant("yes").ToBoolean(); }), 13);
  EXPECT_EQ(RaisedNumber([] { (void)Variant("").ToBoolean(); }), 13);
}

TEST(Variant, ConvertsToString) {
  EXPECT_EQ(Variant().ToString(), "");
  EXPECT_EQ(Variant(true).ToString(), "True");
  EXPECT_EQ(Variant(false).ToString(), "False");
  EXPECT_EQ(Variant(-12).ToString(), "-12");
  EXPECT_EQ(Variant(1.5).ToString(), "1.5");
  EXPECT_EQ(Variant(2.0).ToString(), "2");
  EXPECT_EQ(Variant(1e15).ToString(), "1E+15");
  EXPECT_EQ(Variant(" a ").ToString(), " a ");
}

TEST(Variant, GivesTheIdentityOfItsObject) {
  const Ref<ISecond> facet = MakeObject<TwoFaces>().As<ISecond>();
  const Variant variant = facet;
  EXPECT_EQ(variant.ToObject().get(), facet.As<IUnknown>().get());
  EXPECT_EQ(CountOf(*facet), 2u);
  EXPECT_FALSE(Variant(Ref<IFirst>()).ToObject());
}

TEST(Variant, WhatIsNoObjectArrayOrMapRaisesThirteen) {
  const std::vector<Variant> variants = {Variant(),
                                         Null{},
                                         true,
                                         1,
                                         1.5,
                                         "x",
                                         MakeObject<OneFace>(),
                                         std::make_shared<VariantArray>(),
                                         std::make_shared<Dictionary>()};
  for (const Variant& variant : variants) {
    const Kind kind = variant.GetKind();
    const int number = static_cast<int>(kind);
    EXPECT_EQ(RaisedNumber([&] { (void)variant.ToObject(); }), kind == Kind::kObject ? 0 : 13)
        << number;
    EXPECT_EQ(RaisedNumber([&] { (void)variant.ToArray(); }), kind == Kind::kArray ? 0 : 13)
        << number;
    EXPECT_EQ(RaisedNumber([&] { (void)variant.ToMap(); }), kind == Kind::kMap ? 0 : 13) << number;
  }
}

TEST(Variant, CopiesShareArraysMapsAndObjectsOnly) {
  const auto array = std::make_shared<VariantArray>(std::vector<Variant>{1, 2});
  const Variant variant = array;
  const Variant copy = variant;
  (*array)[0] = 9;
  EXPECT_EQ((*copy.ToArray())[0], Variant(9));

  Variant text = "a";
  const Variant text_copy = text;
  text = "b";
  EXPECT_EQ(text_copy.ToString(), "a");
}

TEST(Variant, IsEqualWhenKindAndValueAre) {
  EXPECT_TRUE(Variant() == Variant());
  EXPECT_TRUE(Variant(Null{}) == Variant(Null{}));
  EXPECT_TRUE(Variant(1) == Variant(1));
  EXPECT_TRUE(Variant("a") == Variant("a"));
  EXPECT_FALSE(Variant(1) == Variant(2));
  EXPECT_FALSE(Variant(1) == Variant(1.0));
  EXPECT_FALSE(Variant(1) == Variant("1"));
  EXPECT_FALSE(Variant() == Variant(0));
  EXPECT_FALSE(Variant() == Variant(""));
  EXPECT_FALSE(Variant() == Variant(Null{}));
}

TEST(Variant, ObjectsAndArraysAreEqualWhenTheyAreTheSameOne) {
  const Ref<TwoFaces> object = MakeObject<TwoFaces>();
  EXPECT_TRUE(Variant(object.As<IFirst>()) == Variant(object.As<ISecond>()));
  EXPECT_FALSE(Variant(object) == Variant(MakeObject<TwoFaces>()));
  const auto array = std::make_shared<VariantArray>();
  EXPECT_TRUE(Variant(array) == Variant(array));
  EXPECT_FALSE(Variant(array) == Variant(std::make_shared<VariantArray>()));
}

}  // namespace
}  // namespace tslm5
