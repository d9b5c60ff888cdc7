#include "support/embedding.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/raised.h"

namespace tslm5 {
namespace {

constexpr const char* kLargest = "2147483647";

PropertyBag Properties(const std::string& dimension, const std::string& delay,
                       const std::string& samples) {
  PropertyBag properties;
  properties.Put("EmbeddingDimension", dimension);
  properties.Put("DelayTime", delay);
  properties.Put("TestingSamples", samples);
  return properties;
}

/// What the words of the contract say, worked out one value at a time.
struct Expected {
  std::vector<std::vector<std::int64_t>> records;  // series rows
  std::vector<std::int64_t> testing;
};

Expected Expect(std::int64_t rows, std::int64_t dimension, std::int64_t delay,
                std::int64_t samples) {
  Expected expected;
  for (std::int64_t back = samples - 1; back >= 0; --back) {
    expected.testing.push_back(rows - 1 - back * delay);
  }
  const std::int64_t end = samples == 0 ? rows : expected.testing.front();
  for (std::int64_t t = 0; t < end; ++t) {
    if (t - dimension * delay < 0) continue;
    std::vector<std::int64_t> record;
    for (std::int64_t input = 0; input < dimension; ++input) {
      record.push_back(t - (dimension - input) * delay);
    }
    record.push_back(t);
    expected.records.push_back(record);
  }
  return expected;
}

void ExpectEmbedding(std::int32_t rows, std::int32_t dimension, std::int32_t delay,
                     std::int32_t samples) {
  SCOPED_TRACE(std::to_string(rows) + " rows, E " + std::to_string(dimension) + ", D " +
               std::to_string(delay) + ", T " + std::to_string(samples));
  const Expected expected = Expect(rows, dimension, delay, samples);
  const auto embedding = Embedding::Of(
      Properties(std::to_string(dimension), std::to_string(delay), std::to_string(samples)), rows);
  ASSERT_EQ(embedding.has_value(), !expected.records.empty());
  if (!embedding) return;
  EXPECT_EQ(embedding->SeriesRows(), rows);
  ASSERT_EQ(embedding->TestingSamples(), samples);
  for (std::int32_t sample = 0; sample < samples; ++sample) {
    const auto place = static_cast<std::size_t>(sample);
    EXPECT_EQ(embedding->TestingRow(sample), static_cast<std::size_t>(expected.testing[place]));
  }
  ASSERT_EQ(embedding->Columns(), dimension + 1);
  ASSERT_EQ(static_cast<std::size_t>(embedding->Records()), expected.records.size());
  for (std::int32_t record = 0; record < embedding->Records(); ++record) {
    for (std::int32_t column = 0; column <= dimension; ++column) {
      const std::int64_t row =
          expected.records[static_cast<std::size_t>(record)][static_cast<std::size_t>(column)];
      EXPECT_EQ(embedding->SeriesRow(record, column), static_cast<std::size_t>(row));
    }
  }
}

TEST(Embedding, PutsEveryValueWhereItsLagSays) {
  for (std::int32_t rows = 0; rows <= 14; ++rows) {
    for (std::int32_t dimension = 1; dimension <= 4; ++dimension) {
      for (std::int32_t delay = 1; delay <= 4; ++delay) {
        for (std::int32_t samples = 0; samples <= 4; ++samples) {
          ExpectEmbedding(rows, dimension, delay, samples);
        }
      }
    }
  }
}

TEST(Embedding, TakesTheLastSeriesThatIsLongEnough) {
  EXPECT_FALSE(Embedding::Of(Properties("2", "2", ""), 4));
  EXPECT_EQ(Embedding::Of(Properties("2", "2", ""), 5)->Records(), 1);
  EXPECT_FALSE(Embedding::Of(Properties("2", "1", "2"), 4));
  EXPECT_EQ(Embedding::Of(Properties("2", "1", "2"), 5)->Records(), 1);
}

TEST(Embedding, RefusesParametersWithoutMeaning) {
  const std::vector<PropertyBag> refused = {
      Properties("0", "1", "0"),          Properties("-1", "1", "0"), Properties("1", "0", "0"),
      Properties("1", "-1", "0"),         Properties("-2", "-2", ""), Properties("1", "1", "-1"),
      Properties("1", "1", "-2147483648")};
  for (const PropertyBag& properties : refused) {
    EXPECT_FALSE(Embedding::Of(properties, 100))
        << properties.Find("EmbeddingDimension") << ' ' << properties.Find("DelayTime") << ' '
        << properties.Find("TestingSamples");
  }
}

TEST(Embedding, CountsBeyond32Bits) {
  // In 32 bits each of these products wraps round to a number that would pass.
  EXPECT_FALSE(Embedding::Of(Properties("65536", "65536", "0"), 100));
  EXPECT_FALSE(Embedding::Of(Properties("1", "65536", "65537"), 100));
  EXPECT_FALSE(Embedding::Of(Properties(kLargest, kLargest, kLargest), 2147483647));
  EXPECT_FALSE(Embedding::Of(Properties(kLargest, "1", "0"), 2147483647));
  EXPECT_EQ(Embedding::Of(Properties("2147483646", "1", "0"), 2147483647)->Records(), 1);
  EXPECT_EQ((EmbeddingStep{.dimension = 65536, .delay_time = 65536}.Lag(0)), 4294967296);
}

TEST(Embedding, RaisesForWhatIsNoWholeNumber) {
  EXPECT_EQ(RaisedNumber([] { Embedding::Of(PropertyBag(), 100); }), 13);
  EXPECT_EQ(RaisedNumber([] { Embedding::Of(Properties("", "1", "0"), 100); }), 13);
  EXPECT_EQ(RaisedNumber([] { Embedding::Of(Properties("2", "two", "0"), 100); }), 13);
  EXPECT_EQ(RaisedNumber([] { Embedding::Of(Properties("2", "1", "many"), 100); }), 13);
  EXPECT_EQ(RaisedNumber([] { Embedding::Of(Properties("2", "1", " "), 100); }), 13);
  EXPECT_EQ(RaisedNumber([] { Embedding::Of(Properties("2147483648", "1", "0"), 100); }), 6);
}

TEST(Embedding, DoesNotNeedTestingSamples) {
  PropertyBag properties;
  properties.Put("embeddingdimension", "1");
  properties.Put("DELAYTIME", " 2 ");
  const auto embedding = Embedding::Of(properties, 3);
  ASSERT_TRUE(embedding);
  EXPECT_EQ(embedding->TestingSamples(), 0);
  EXPECT_EQ(embedding->Records(), 1);
}

TEST(Embedding, LagsShrinkToTheResponse) {
  const EmbeddingStep step{.dimension = 3, .delay_time = 2};
  EXPECT_EQ(step.Lag(0), 6);
  EXPECT_EQ(step.Lag(1), 4);
  EXPECT_EQ(step.Lag(2), 2);
  EXPECT_EQ(step.Lag(3), 0);
}

}  // namespace
}  // namespace tslm5
