#include "tslm5/platform/live_objects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

#include "platform/test_objects.h"

namespace tslm5 {
namespace {

/// Fails to come into being.
class Stillborn final : public CountedObject<IFirst> {
 public:
  Stillborn() { throw std::runtime_error("not born"); }
  std::string_view TypeName() override { return "Stillborn"; }
  int First() override { return 0; }

 private:
  ~Stillborn() override = default;
};

TEST(LiveObjects, CountsObjectsNotReferences) {
  const std::int64_t before = LiveObjects::Count();
  {
    const Ref<OneFace> one = MakeObject<OneFace>();
    const Ref<OneFace> copy = one;
    EXPECT_EQ(LiveObjects::Count(), before + 1);
    const Ref<TwoFaces> two = MakeObject<TwoFaces>();
    const Ref<IFirst> facet = two.As<IFirst>();
    EXPECT_EQ(LiveObjects::Count(), before + 2);
  }
  EXPECT_EQ(LiveObjects::Count(), before);
}

TEST(LiveObjects, AnObjectWhoseConstructorThrowsDoesNotStay) {
  const std::int64_t before = LiveObjects::Count();
  EXPECT_THROW(MakeObject<Stillborn>(), std::runtime_error);
  EXPECT_EQ(LiveObjects::Count(), before);
}

#ifndef NDEBUG
TEST(LiveObjects, ListsTheLivingInDebugBuilds) {
  const Ref<OneFace> one = MakeObject<OneFace>();
  Ref<TwoFaces> two = MakeObject<TwoFaces>();
  const void* const two_address = two.get();
  EXPECT_THAT(LiveObjects::List(), testing::Contains(static_cast<const void*>(one.get())));
  EXPECT_THAT(LiveObjects::List(), testing::Contains(two_address));
  two.Reset();
  EXPECT_THAT(LiveObjects::List(), testing::Not(testing::Contains(two_address)));
}
#endif

}  // namespace
}  // namespace tslm5
