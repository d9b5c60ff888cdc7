#include "engine/record_format.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <string>
#include <vector>

namespace tslm5 {
namespace {

std::string Varint(std::uint64_t value) {
  unsigned char bytes[kLongestVarint] = {};
  const unsigned char* const end = WriteVarint(bytes, value);
  return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(end - bytes)};
}

TEST(Varint, HoldsSevenBitsAByteTheHighestFirst) {
  EXPECT_EQ(Varint(0), std::string(1, '\0'));
  EXPECT_EQ(Varint(127), "\x7F");
  EXPECT_EQ(Varint(128), std::string("\x81\x00", 2));
  EXPECT_EQ(Varint(16383), "\xFF\x7F");
  EXPECT_EQ(Varint(16384), std::string("\x81\x80\x00", 3));
}

TEST(Varint, HoldsEightBitsInTheNinthByte) {
  EXPECT_EQ(Varint(~std::uint64_t{0}), "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
  EXPECT_EQ(Varint(std::uint64_t{1} << 56), std::string("\x80\xC0\x80\x80\x80\x80\x80\x80\x00", 9));
}

TEST(Varint, ReadsBackWhatItWrote) {
  for (int bit = 0; bit < 64; ++bit) {
    for (const std::uint64_t less : {std::uint64_t{0}, std::uint64_t{1}}) {
      const std::uint64_t value = (std::uint64_t{1} << bit) - less;
      const std::string bytes = Varint(value);
      EXPECT_EQ(bytes.size(), VarintSize(value)) << value;
      std::uint64_t read = 0;
      const auto* const start = reinterpret_cast<const unsigned char*>(bytes.data());
      EXPECT_EQ(ReadVarint(start, read), start + bytes.size()) << value;
      EXPECT_EQ(read, value);
    }
  }
}

/// A record of one number as a column of REAL affinity stores it.
std::string RecordOf(double number) {
  RecordEncoder encoder;
  encoder.Begin(1);
  encoder.AddNumber(number);
  encoder.End();
  return std::string(encoder.Header()) + std::string(encoder.Body());
}

TEST(RecordEncoder, StoresWholeNumbersAsTheSmallestIntegers) {
  EXPECT_EQ(RecordOf(0), "\x02\x08");
  EXPECT_EQ(RecordOf(-0.0), "\x02\x08");
  EXPECT_EQ(RecordOf(1), "\x02\x09");
  EXPECT_EQ(RecordOf(-1), "\x02\x01\xFF");
  EXPECT_EQ(RecordOf(127), "\x02\x01\x7F");
  EXPECT_EQ(RecordOf(128), std::string("\x02\x02\x00\x80", 4));
  EXPECT_EQ(RecordOf(-32769), "\x02\x03\xFF\x7F\xFF");
  EXPECT_EQ(RecordOf(2147483647), "\x02\x04\x7F\xFF\xFF\xFF");
  EXPECT_EQ(RecordOf(2147483648), std::string("\x02\x05\x00\x00\x80\x00\x00\x00", 8));
}

TEST(RecordEncoder, StoresOtherNumbersAsEightBytes) {
  EXPECT_EQ(RecordOf(0.5), std::string("\x02\x07\x3F\xE0\x00\x00\x00\x00\x00\x00", 10));
  EXPECT_EQ(RecordOf(140737488355328.0),
            std::string("\x02\x07\x42\xE0\x00\x00\x00\x00\x00\x00", 10));
}

TEST(RecordEncoder, CountsTheHeadersSizeInTheHeader) {
  constexpr std::size_t kCounts[] = {1, 126, 127, 2000};
  for (const std::size_t cells : kCounts) {
    RecordEncoder encoder;
    encoder.Begin(cells);
    for (std::size_t i = 0; i < cells; ++i) encoder.AddNull();
    encoder.End();
    std::uint64_t size = 0;
    ReadVarint(reinterpret_cast<const unsigned char*>(encoder.Header().data()), size);
    EXPECT_EQ(size, encoder.Header().size()) << cells;
    EXPECT_EQ(size, cells + (cells < 127 ? 1 : 2));
    EXPECT_EQ(encoder.Body(), "");
  }
}

TEST(RecordEncoder, MakesTheNextRecordInTheSameRoom) {
  RecordEncoder encoder;
  encoder.Begin(3);
  encoder.AddText(std::string(5000, 'x'));
  encoder.AddNumber(0.5);
  encoder.AddText("y");
  encoder.End();
  EXPECT_EQ(encoder.Body().size(), 5009U);
  encoder.Begin(1);
  encoder.AddText("abc");
  encoder.End();
  EXPECT_EQ(encoder.Header(), "\x02\x13");
  EXPECT_EQ(encoder.Body(), "abc");
}

TEST(RecordDecoder, ReadsWhatWasEncoded) {
  const std::vector<double> numbers = {
      -1,    128, -32769, 8388608, -2147483649.0,     0.1,
      1e300, 0,   1,      -0.25,   140737488355327.0, std::numeric_limits<double>::denorm_min()};
  RecordEncoder encoder;
  encoder.Begin(numbers.size() + 3);
  for (const double number : numbers) encoder.AddNumber(number);
  encoder.AddNull();
  encoder.AddText("");
  encoder.AddText(std::string(20000, 'z'));
  encoder.End();
  const std::string record = std::string(encoder.Header()) + std::string(encoder.Body());

  RecordDecoder decoder(record);
  RecordFormatCell cell;
  for (const double number : numbers) {
    ASSERT_TRUE(decoder.Next(cell));
    const double read = cell.kind == RecordFormatCell::Kind::kInteger
                            ? static_cast<double>(cell.integer)
                            : cell.real;
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(number)) << number;
  }
  ASSERT_TRUE(decoder.Next(cell));
  EXPECT_EQ(cell.kind, RecordFormatCell::Kind::kNull);
  ASSERT_TRUE(decoder.Next(cell));
  EXPECT_EQ(cell.kind, RecordFormatCell::Kind::kText);
  EXPECT_EQ(cell.text, "");
  ASSERT_TRUE(decoder.Next(cell));
  EXPECT_EQ(cell.text, std::string(20000, 'z'));
  EXPECT_FALSE(decoder.Next(cell));
}

}  // namespace
}  // namespace tslm5
