#include "tslm5/platform/uuid.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace tslm5 {
namespace {

TEST(Uuid, IsSixteenPlainBytes) {
  EXPECT_EQ(sizeof(Uuid), 16u);
  EXPECT_TRUE(std::is_trivially_copyable_v<Uuid>);
  EXPECT_TRUE(std::is_standard_layout_v<Uuid>);
}

TEST(Uuid, IsEqualOnlyWhenBothHalvesAre) {
  constexpr Uuid kId{1, 2};
  EXPECT_TRUE(kId == (Uuid{1, 2}));
  EXPECT_FALSE(kId == (Uuid{1, 3}));
  EXPECT_FALSE(kId == (Uuid{3, 2}));
  EXPECT_FALSE(kId == (Uuid{2, 1}));
  EXPECT_TRUE(kId != (Uuid{1, 3}));
}

TEST(Uuid, StartsAtZero) {
  EXPECT_TRUE(Uuid() == (Uuid{0, 0}));
}

}  // namespace
}  // namespace tslm5
