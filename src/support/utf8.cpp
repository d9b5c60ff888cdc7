#include "support/utf8.h"

#include "support/byte_block.h"

namespace tslm5::Utf8 {
namespace {

bool InRange(const char* p, unsigned char low, unsigned char high) {
  const auto byte = static_cast<unsigned char>(*p);
  return byte >= low && byte <= high;
}

bool IsTrail(const char* p) {
  return InRange(p, 0x80, 0xBF);
}

/// The length of the well-formed sequence of two or more bytes at `p`, 0 when there is none.
std::size_t SequenceLength(const char* p, const char* last) {
  const auto available = static_cast<std::size_t>(last - p);
  const auto lead = static_cast<unsigned char>(*p);
  if (lead < 0xC2 || lead > 0xF4) return 0;
  if (lead < 0xE0) return available >= 2 && IsTrail(p + 1) ? 2 : 0;
  if (lead < 0xF0) {
    const unsigned char low = lead == 0xE0 ? 0xA0 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : 0xBF;
    return available >= 3 && InRange(p + 1, low, high) && IsTrail(p + 2) ? 3 : 0;
  }
  const unsigned char low = lead == 0xF0 ? 0x90 : 0x80;
  const unsigned char high = lead == 0xF4 ? 0x8F : 0xBF;
  return available >= 4 && InRange(p + 1, low, high) && IsTrail(p + 2) && IsTrail(p + 3) ? 4 : 0;
}

bool IsAscii(const char* p) {
  return static_cast<unsigned char>(*p) < 0x80;
}

const char* FindNotAscii(const char* first, const char* last) {
  return ByteScan::Find(
      first, last, [](const char* p) { return ByteScan::ByteBlock(p).NotAscii(); },
      [](const char* p) { return !IsAscii(p); });
}

}  // namespace

std::size_t ValidPrefixSize(std::string_view text) {
  const char* p = text.data();
  const char* const last = p + text.size();
  while ((p = FindNotAscii(p, last)) != last) {
    do {
      const std::size_t length = SequenceLength(p, last);
      if (length == 0) return static_cast<std::size_t>(p - text.data());
      p += length;
    } while (p != last && !IsAscii(p));
  }
  return text.size();
}

bool IsValid(std::string_view text) {
  return ValidPrefixSize(text) == text.size();
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (; end != text.size(); ++end) {
    if (IsTrail(text.data() + end)) continue;
    if (count == 0) break;
    --count;
  }
  return text.substr(0, end);
}

}  // namespace tslm5::Utf8
