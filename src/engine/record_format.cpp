#include "engine/record_format.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace tslm5 {
namespace {

// Kinds of cells. Those of integers say the size of the content, which has its sign.
constexpr unsigned char kInteger8 = 6;
constexpr unsigned char kReal = 7;
constexpr unsigned char kZero = 8;  // and 9 is one; neither has a content
constexpr unsigned char kOne = 9;
constexpr std::uint64_t kTextOfNoBytes = 13;  // two more a byte
constexpr std::size_t kIntegerSizes[] = {0, 1, 2, 3, 4, 6, 8};

constexpr double kLargestWhole = 140737488355327.0;  // 2^47 - 1, the largest of six bytes

std::uint64_t ToBigEndian(std::uint64_t value) {
  if constexpr (std::endian::native == std::endian::little) return __builtin_bswap64(value);
  return value;
}

std::int64_t ReadInteger(const unsigned char* content, std::size_t size) {
  std::uint64_t value = (content[0] & 0x80) != 0 ? ~std::uint64_t{0} : 0;
  for (std::size_t i = 0; i < size; ++i) value = value << 8 | content[i];
  return static_cast<std::int64_t>(value);
}

}  // namespace

std::size_t VarintSize(std::uint64_t value) {
  std::size_t size = 1;
  while (size < kLongestVarint && (value >>= 7) != 0) ++size;
  return size;
}

unsigned char* WriteVarint(unsigned char* out, std::uint64_t value) {
  if (value < 0x80) {
    *out = static_cast<unsigned char>(value);
    return out + 1;
  }
  const std::size_t size = VarintSize(value);
  std::size_t place = size;
  if (size == kLongestVarint) {  // the last byte of the longest form holds eight bits
    out[--place] = static_cast<unsigned char>(value);
    value >>= 8;
  }
  unsigned char more = size == kLongestVarint ? 0x80 : 0;
  while (place-- > 0) {
    out[place] = static_cast<unsigned char>((value & 0x7F) | more);
    value >>= 7;
    more = 0x80;
  }
  return out + size;
}

const unsigned char* ReadVarint(const unsigned char* at, std::uint64_t& value) {
  value = 0;
  for (std::size_t i = 0; i + 1 < kLongestVarint; ++i) {
    value = value << 7 | (*at & 0x7F);
    if ((*at++ & 0x80) == 0) return at;
  }
  value = value << 8 | *at;
  return at + 1;
}

void RecordEncoder::Begin(std::size_t cells) {
  if (kinds_.size() < (cells + 1) * kLongestVarint) kinds_.resize((cells + 1) * kLongestVarint);
  if (body_.size() < cells * sizeof(double)) body_.resize(cells * sizeof(double));
  kinds_end_ = kLongestVarint;
  body_end_ = 0;
}

void RecordEncoder::AddNumber(double number) {
  if (number >= -kLargestWhole - 1 && number <= kLargestWhole) {
    const auto whole = static_cast<std::int64_t>(number);
    if (static_cast<double>(whole) == number) return AddInteger(whole);
  }
  AddReal(number);
}

void RecordEncoder::AddReal(double number) {
  kinds_[kinds_end_++] = kReal;
  const std::uint64_t bits = ToBigEndian(std::bit_cast<std::uint64_t>(number));
  std::memcpy(&body_[body_end_], &bits, sizeof bits);
  body_end_ += sizeof bits;
}

void RecordEncoder::AddInteger(std::int64_t number) {
  if (number == 0 || number == 1) {
    kinds_[kinds_end_++] = number == 0 ? kZero : kOne;
    return;
  }
  const auto bits = static_cast<std::uint64_t>(number);
  // Bits that the content must hold, without the sign.
  const auto width = static_cast<std::size_t>(std::bit_width(number < 0 ? ~bits : bits));
  unsigned char kind = 1;
  while (kind < kInteger8 && width >= kIntegerSizes[kind] * 8) ++kind;  // one bit is the sign's
  kinds_[kinds_end_++] = kind;
  WriteBigEndian(&body_[body_end_], bits, kIntegerSizes[kind]);
  body_end_ += kIntegerSizes[kind];
}

void RecordEncoder::AddText(std::string_view text) {
  unsigned char* const kind = &kinds_[kinds_end_];
  kinds_end_ +=
      static_cast<std::size_t>(WriteVarint(kind, kTextOfNoBytes + 2 * text.size()) - kind);
  // Room for the numbers that may still come stays.
  if (body_.size() - body_end_ < text.size() + kinds_.size()) {
    body_.resize(std::max(2 * body_.size(), body_end_ + text.size() + kinds_.size()));
  }
  std::copy(text.begin(), text.end(), body_.begin() + static_cast<std::ptrdiff_t>(body_end_));
  body_end_ += text.size();
}

void RecordEncoder::End() {
  // The size of the header counts the bytes that hold it.
  const std::size_t kinds = kinds_end_ - kLongestVarint;
  std::size_t size = 1;
  while (VarintSize(kinds + size) > size) ++size;
  header_start_ = kLongestVarint - size;
  WriteVarint(&kinds_[header_start_], kinds + size);
}

RecordDecoder::RecordDecoder(std::string_view record) {
  const auto* const start = reinterpret_cast<const unsigned char*>(record.data());
  std::uint64_t size = 0;
  kind_ = ReadVarint(start, size);
  kinds_end_ = start + size;
  content_ = kinds_end_;
}

bool RecordDecoder::Next(RecordFormatCell& cell) {
  if (kind_ == kinds_end_) return false;
  std::uint64_t kind = 0;
  kind_ = ReadVarint(kind_, kind);
  if (kind == 0) {
    cell.kind = RecordFormatCell::Kind::kNull;
  } else if (kind == kReal) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, content_, sizeof bits);
    cell.kind = RecordFormatCell::Kind::kReal;
    cell.real = std::bit_cast<double>(ToBigEndian(bits));
    content_ += sizeof bits;
  } else if (kind >= kTextOfNoBytes) {
    const auto size = static_cast<std::size_t>((kind - kTextOfNoBytes) / 2);
    cell.kind = RecordFormatCell::Kind::kText;
    cell.text = {reinterpret_cast<const char*>(content_), size};
    content_ += size;
  } else {
    cell.kind = RecordFormatCell::Kind::kInteger;
    if (kind >= kZero) {
      cell.integer = static_cast<std::int64_t>(kind - kZero);
    } else {
      cell.integer = ReadInteger(content_, kIntegerSizes[kind]);
      content_ += kIntegerSizes[kind];
    }
  }
  return true;
}

}  // namespace tslm5
