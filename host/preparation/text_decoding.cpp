#include "host/preparation/text_decoding.h"

#include <unicode/ucnv.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "host/program/code_points.h"
#include "host/program/failure.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::size_t kPieceBytes = 1 << 16;
constexpr std::uint64_t kHighBits = 0x8080808080808080ULL;

/// The number of ASCII bytes at the beginning of `text`, at least as far as whole words of 8 go.
std::size_t AsciiPrefix(std::string_view text) {
  std::size_t at = 0;
  std::uint64_t word = 0;
  while (at + sizeof word <= text.size()) {
    std::memcpy(&word, text.data() + at, sizeof word);
    if ((word & kHighBits) != 0) break;
    at += sizeof word;
  }
  return at;
}

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

Converter OpenConverter(const char* name, UErrorCode& status) {
  return Converter(ucnv_open(name, &status));
}

/// `bytes` in the code page `name` as UTF-8, piece by piece.
std::string Convert(const char* name, std::string_view bytes) {
  UErrorCode status = U_ZERO_ERROR;
  const Converter from = OpenConverter(name, status);
  const Converter to = OpenConverter("UTF-8", status);
  std::string text;
  const auto pivot = std::make_unique<UChar[]>(kPieceBytes);
  const auto piece = std::make_unique<char[]>(kPieceBytes);
  UChar* pivot_source = pivot.get();
  UChar* pivot_target = pivot.get();
  const char* source = bytes.data();
  bool first = true;
  do {
    if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) {
      throw Failure(ExitCode::kTrouble,
                    std::string("the file's text cannot be converted: ") + u_errorName(status));
    }
    status = U_ZERO_ERROR;
    char* target = piece.get();
    ucnv_convertEx(to.get(), from.get(), &target, piece.get() + kPieceBytes, &source,
                   bytes.data() + bytes.size(), pivot.get(), &pivot_source, &pivot_target,
                   pivot.get() + kPieceBytes, first, true, &status);
    first = false;
    text.append(piece.get(), target);
  } while (U_FAILURE(status));
  return text;
}

/// Walks the 16-bit units of a text without its mark.
BrokenCharacters CountBroken(std::string_view bytes, bool is_little) {
  BrokenCharacters broken;
  std::int64_t line = 1;
  const auto note = [&broken, &line] {
    if (broken.count++ == 0) broken.first_line = line;
  };
  bool has_lead = false;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[is_little ? at : at + 1]);
    const auto high = static_cast<unsigned char>(bytes[is_little ? at + 1 : at]);
    const bool is_lead = (high & 0xFC) == 0xD8;
    const bool is_trail = (high & 0xFC) == 0xDC;
    if (has_lead != is_trail) note();
    has_lead = is_lead;
    if (high == 0 && low == '\n') ++line;
  }
  if (has_lead) note();
  if (bytes.size() % 2 != 0) note();
  return broken;
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    at += AsciiPrefix(bytes.substr(at));
    for (bool ascii = false; at < bytes.size() && !ascii;) {
      const std::int32_t c = NextCodePoint(bytes, at);
      if (c < 0) return false;
      ascii = c < 0x80;
    }
  }
  return true;
}

std::size_t MarkSize(std::string_view bytes) {
  return bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0;
}

bool HasUtf16Mark(std::string_view bytes) {
  return bytes.starts_with(kUtf16LittleMark) || bytes.starts_with(kUtf16BigMark);
}

std::string DecodeText(std::string bytes, BrokenCharacters* broken) {
  const std::string_view view = bytes;
  if (HasUtf16Mark(view)) {
    const bool is_little = view.starts_with(kUtf16LittleMark);
    const std::string_view units = view.substr(kUtf16LittleMark.size());
    if (broken != nullptr) *broken = CountBroken(units, is_little);
    return Convert(is_little ? "UTF-16LE" : "UTF-16BE", units);
  }
  bytes.erase(0, MarkSize(view));
  return IsUtf8(bytes) ? std::move(bytes) : Convert("windows-1252", bytes);
}

}  // namespace tslm5::host
