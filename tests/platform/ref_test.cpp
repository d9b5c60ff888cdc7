#include "tslm5/platform/ref.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

#include "platform/test_objects.h"

namespace tslm5 {
namespace {

TEST(Ref, MakeObjectGivesTheOnlyReference) {
  const Ref<OneFace> object = MakeObject<OneFace>();
  EXPECT_EQ(CountOf(*object), 1u);
  EXPECT_EQ(object->First(), 1);
}

TEST(Ref, IsNullByDefaultAndFromNullptr) {
  const Ref<IFirst> by_default;
  const Ref<IFirst> from_nullptr = nullptr;
  EXPECT_FALSE(by_default);
  EXPECT_EQ(by_default.get(), nullptr);
  EXPECT_TRUE(by_default == nullptr);
  EXPECT_TRUE(by_default == from_nullptr);
  EXPECT_FALSE(Ref<IFirst>(static_cast<IFirst*>(nullptr)));
}

TEST(Ref, ARawPointerIsCountedAndNeverTakenSilently) {
  const Ref<OneFace> object = MakeObject<OneFace>();
  const Ref<IFirst> second(object.get());
  EXPECT_EQ(CountOf(*object), 2u);
  EXPECT_FALSE((std::is_convertible_v<IFirst*, Ref<IFirst>>));
}

TEST(Ref, CopyCounts) {
  const Ref<OneFace> object = MakeObject<OneFace>();
  {
    const Ref<OneFace> copy = object;
    EXPECT_EQ(CountOf(*object), 2u);
    EXPECT_TRUE(copy == object);
  }
  EXPECT_EQ(CountOf(*object), 1u);
}

TEST(Ref, MoveDoesNotCount) {
  Ref<OneFace> object = MakeObject<OneFace>();
  OneFace* const raw = object.get();
  const Ref<OneFace> moved = std::move(object);
  EXPECT_EQ(moved.get(), raw);
  EXPECT_EQ(object.get(), nullptr);  // NOLINT: what a moved-from reference holds is the subject
  EXPECT_EQ(CountOf(*moved), 1u);
}

TEST(Ref, AssignmentLetsGoOfTheOldObject) {
  bool first_gone = false;
  Ref<OneFace> object = MakeObject<OneFace>([&first_gone](OneFace&) { first_gone = true; });
  const Ref<OneFace> other = MakeObject<OneFace>();
  object = other;
  EXPECT_TRUE(first_gone);
  EXPECT_TRUE(object == other);
  EXPECT_EQ(CountOf(*other), 2u);
}

TEST(Ref, AssignmentToItselfKeepsTheObject) {
  Ref<OneFace> object = MakeObject<OneFace>();
  const Ref<OneFace>& same = object;
  object = same;
  ASSERT_TRUE(object);
  EXPECT_EQ(CountOf(*object), 1u);
}

TEST(Ref, UpcastsByCopyAndByMove) {
  Ref<IFirstAndMore> object = MakeObject<LongFace>();
  const Ref<IFirst> copy = object;
  EXPECT_EQ(copy->First(), 11);
  EXPECT_EQ(CountOf(*copy), 2u);
  const Ref<IFirst> moved = std::move(object);
  EXPECT_TRUE(moved == copy);
  EXPECT_EQ(CountOf(*copy), 2u);
  EXPECT_FALSE((std::is_convertible_v<Ref<IFirst>, Ref<IFirstAndMore>>));
}

TEST(Ref, AdoptTakesACountedReferenceOver) {
  IFirst* const raw = MakeObject<OneFace>().Detach();
  const Ref<IFirst> object = Ref<IFirst>::Adopt(raw);
  EXPECT_EQ(CountOf(*object), 1u);
}

TEST(Ref, DetachGivesTheReferenceAway) {
  bool gone = false;
  Ref<OneFace> object = MakeObject<OneFace>([&gone](OneFace&) { gone = true; });
  OneFace* const raw = object.Detach();
  EXPECT_FALSE(object);
  object.Reset();
  EXPECT_FALSE(gone);
  EXPECT_EQ(raw->Release(), 0u);
  EXPECT_TRUE(gone);
}

TEST(Ref, ResetLetsGoOnce) {
  int destroyed = 0;
  Ref<OneFace> object = MakeObject<OneFace>([&destroyed](OneFace&) { ++destroyed; });
  object.Reset();
  EXPECT_FALSE(object);
  object.Reset();
  EXPECT_EQ(destroyed, 1);
}

TEST(Ref, AsGivesTheFaceCounted) {
  const Ref<TwoFaces> object = MakeObject<TwoFaces>();
  const Ref<ISecond> second = object.As<ISecond>();
  ASSERT_TRUE(second);
  EXPECT_EQ(second->Second(), 22);
  EXPECT_EQ(CountOf(*object), 2u);
}

TEST(Ref, AsOfAMissingFaceOrOfNothingIsNull) {
  const Ref<OneFace> object = MakeObject<OneFace>();
  EXPECT_FALSE(object.As<ISecond>());
  EXPECT_EQ(CountOf(*object), 1u);
  EXPECT_FALSE(Ref<IFirst>().As<ISecond>());
}

TEST(Ref, QueryWorksOnRawPointersAndReferences) {
  const Ref<TwoFaces> object = MakeObject<TwoFaces>();
  IUnknown* const raw = object.get();
  EXPECT_EQ(Query<IFirst>(raw)->First(), 21);
  EXPECT_EQ(Query<ISecond>(object)->Second(), 22);
  EXPECT_FALSE(Query<IFirst>(static_cast<IUnknown*>(nullptr)));
  EXPECT_EQ(CountOf(*object), 1u);
}

}  // namespace
}  // namespace tslm5
