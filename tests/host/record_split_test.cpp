#include "host/preparation/record_split.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

TEST(RecordSplit, SharesOutEveryRecordOnce) {
  for (const std::size_t records : {std::size_t{2}, std::size_t{3}, std::size_t{1001}}) {
    const RecordSplit split = DrawSplit(records, 0.3, 7);
    std::vector<std::size_t> all;
    std::merge(split.training.begin(), split.training.end(), split.testing.begin(),
               split.testing.end(), std::back_inserter(all));
    EXPECT_EQ(all, NoSplit(records).training) << records;
  }
}

TEST(RecordSplit, RoundsTheShareAndLeavesNoSetEmpty) {
  EXPECT_EQ(DrawSplit(10, 0.25, 1).testing.size(), 3U);
  EXPECT_EQ(DrawSplit(10, 0.24, 1).testing.size(), 2U);
  EXPECT_EQ(DrawSplit(10, 0.001, 1).testing.size(), 1U);
  EXPECT_EQ(DrawSplit(10, 0.999, 1).testing.size(), 9U);
}

TEST(RecordSplit, IsTheSameForTheSameSeedAlone) {
  const RecordSplit split = DrawSplit(100, 0.5, 3);
  EXPECT_EQ(DrawSplit(100, 0.5, 3).testing, split.testing);
  EXPECT_NE(DrawSplit(100, 0.5, 4).testing, split.testing);
}

TEST(RecordSplit, DrawsEveryRecordAboutAsOften) {
  std::vector<int> drawn(20);
  for (std::uint32_t seed = 0; seed < 2000; ++seed) {
    for (const std::size_t record : DrawSplit(20, 0.25, seed).testing) ++drawn[record];
  }
  const auto [fewest, most] = std::minmax_element(drawn.begin(), drawn.end());
  EXPECT_GT(*fewest, 400);  // 500 are to be expected, with a deviation of 19
  EXPECT_LT(*most, 600);
}

TEST(RecordSplit, RefusesOneRecord) {
  EXPECT_THROW(DrawSplit(1, 0.5, 1), Failure);
}

}  // namespace
}  // namespace tslm5::host
