// Linked into a test program, it fails every test that leaves a counted object behind.

#include <gtest/gtest.h>

#include <cstdint>

#include "tslm5/platform/live_objects.h"

namespace tslm5 {
namespace {

class LiveObjectsCheck : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo&) override { before_ = LiveObjects::Count(); }

  void OnTestEnd(const testing::TestInfo&) override {
    EXPECT_EQ(LiveObjects::Count(), before_) << "objects outlive the test";
  }

  std::int64_t before_ = 0;
};

[[maybe_unused]] const bool kAttached = [] {
  testing::UnitTest::GetInstance()->listeners().Append(new LiveObjectsCheck);
  return true;
}();

}  // namespace
}  // namespace tslm5
