#include "tslm5/platform/object.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>

#include "platform/test_objects.h"

namespace tslm5 {
namespace {

static_assert(!std::is_destructible_v<OneFace>);
static_assert(!std::is_destructible_v<TwoFaces>);
static_assert(!std::is_copy_constructible_v<CountedObject<IFirst>>);
static_assert(!std::is_copy_constructible_v<FacetOwner>);
static_assert(!std::is_copy_constructible_v<Facet<IFirst>>);

TEST(RefCount, StartsAtOneAndReturnsTheNewCount) {
  RefCount count;
  EXPECT_EQ(count.Increment(), 2u);
  EXPECT_EQ(count.Increment(), 3u);
  EXPECT_EQ(count.Decrement(), 2u);
  EXPECT_EQ(count.Decrement(), 1u);
  EXPECT_EQ(count.Decrement(), 0u);
  count.Park();
  EXPECT_EQ(count.Increment(), 2u);
}

TEST(CountedObject, AddRefAndReleaseReturnTheNewCount) {
  OneFace* const object = MakeObject<OneFace>().Detach();
  EXPECT_EQ(object->AddRef(), 2u);
  EXPECT_EQ(object->AddRef(), 3u);
  EXPECT_EQ(object->Release(), 2u);
  EXPECT_EQ(object->Release(), 1u);
  EXPECT_EQ(object->Release(), 0u);
}

TEST(CountedObject, AnswersItsInterfaceAndTheRootWithOnePointer) {
  const Ref<OneFace> object = MakeObject<OneFace>();
  const Ref<IFirst> first = object.As<IFirst>();
  const Ref<IUnknown> root = object.As<IUnknown>();
  EXPECT_EQ(first.get(), object.get());
  EXPECT_EQ(root.get(), object.get());
  EXPECT_EQ(CountOf(*object), 3u);
}

TEST(CountedObject, AnAbsentInterfaceGivesNullAndCountsNothing) {
  const Ref<OneFace> object = MakeObject<OneFace>();
  void* face = object.get();
  EXPECT_FALSE(object->QueryInterface(ISecond::kId, &face));
  EXPECT_EQ(face, nullptr);
  EXPECT_EQ(CountOf(*object), 1u);
}

TEST(CountedObject, IsDestroyedOnceThoughItsDestructorPassesItAround) {
  int destroyed = 0;
  {
    const Ref<OneFace> object = MakeObject<OneFace>([&destroyed](OneFace& self) {
      ++destroyed;
      EXPECT_EQ(self.AddRef(), 2u);
      EXPECT_EQ(self.Release(), 1u);
    });
  }
  EXPECT_EQ(destroyed, 1);
}

TEST(FacetOwner, QueryThereAndBackGivesTheSamePointer) {
  const Ref<IFirst> first = MakeObject<TwoFaces>().As<IFirst>();
  const Ref<ISecond> second = first.As<ISecond>();
  ASSERT_TRUE(second);
  EXPECT_EQ(second.As<IFirst>().get(), first.get());
  EXPECT_EQ(first.As<IFirst>().get(), first.get());
}

TEST(FacetOwner, TheRootIsOnePointerFromEveryFacet) {
  const Ref<TwoFaces> owner = MakeObject<TwoFaces>();
  const Ref<IFirst> first = owner.As<IFirst>();
  const Ref<ISecond> second = owner.As<ISecond>();
  IUnknown* const root = owner.As<IUnknown>().get();
  EXPECT_EQ(root, static_cast<IUnknown*>(owner.get()));
  EXPECT_EQ(first.As<IUnknown>().get(), root);
  EXPECT_EQ(second.As<IUnknown>().get(), root);
}

TEST(FacetOwner, AFacetNeverAnswersTheRootIdWithItself) {
  const Ref<IFirst> first = MakeObject<TwoFaces>().As<IFirst>();
  const Ref<ISecond> second = first.As<ISecond>();
  EXPECT_NE(first.As<IUnknown>().get(), static_cast<IUnknown*>(first.get()));
  EXPECT_NE(second.As<IUnknown>().get(), static_cast<IUnknown*>(second.get()));
}

TEST(FacetOwner, TwoObjectsHaveTwoRoots) {
  const Ref<IFirst> one = MakeObject<TwoFaces>().As<IFirst>();
  const Ref<IFirst> other = MakeObject<TwoFaces>().As<IFirst>();
  EXPECT_NE(one.As<IUnknown>().get(), other.As<IUnknown>().get());
}

TEST(FacetOwner, TheLastReferenceToAFacetKeepsTheOwnerAlive) {
  bool gone = false;
  Ref<TwoFaces> owner = MakeObject<TwoFaces>([&gone](TwoFaces&) { gone = true; });
  Ref<ISecond> second = owner.As<ISecond>();
  owner.Reset();
  ASSERT_FALSE(gone);
  EXPECT_EQ(second->Second(), 22);
  EXPECT_EQ(second->TypeName(), "TwoFaces");
  second.Reset();
  EXPECT_TRUE(gone);
}

TEST(FacetOwner, FacetsShareOneCount) {
  const Ref<TwoFaces> owner = MakeObject<TwoFaces>();
  const Ref<IFirst> first = owner.As<IFirst>();
  EXPECT_EQ(first->AddRef(), 3u);
  EXPECT_EQ(owner->AddRef(), 4u);
  EXPECT_EQ(owner->Release(), 3u);
  EXPECT_EQ(first->Release(), 2u);
}

TEST(FacetOwner, AnAbsentInterfaceGivesNullAndCountsNothing) {
  const Ref<TwoFaces> owner = MakeObject<TwoFaces>();
  void* face = owner.get();
  EXPECT_FALSE(owner->QueryInterface(IFirstAndMore::kId, &face));
  EXPECT_EQ(face, nullptr);
  EXPECT_EQ(CountOf(*owner), 1u);
}

TEST(FacetOwner, IsDestroyedOnceThoughItsDestructorQueriesItsFacets) {
  int destroyed = 0;
  {
    const Ref<IFirst> first = MakeObject<TwoFaces>([&destroyed](TwoFaces& self) {
                                ++destroyed;
                                EXPECT_EQ(Query<ISecond>(&self)->Second(), 22);
                              }).As<IFirst>();
  }
  EXPECT_EQ(destroyed, 1);
}

}  // namespace
}  // namespace tslm5
