#include "host/text_decoding.h"

#include <unicode/ucnv.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>

#include "host/code_points.h"
#include "host/failure.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
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

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    at += AsciiPrefix(text.substr(at));
    for (bool ascii = false; at < text.size() && !ascii;) {
      const std::int32_t c = NextCodePoint(text, at);
      if (c < 0) return false;
      ascii = c < 0x80;
    }
  }
  return true;
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

}  // namespace

std::string DecodeText(std::string bytes) {
  const std::string_view view = bytes;
  if (view.starts_with(kUtf16LittleMark)) {
    return Convert("UTF-16LE", view.substr(kUtf16LittleMark.size()));
  }
  if (view.starts_with(kUtf16BigMark)) {
    return Convert("UTF-16BE", view.substr(kUtf16BigMark.size()));
  }
  if (view.starts_with(kUtf8Mark)) bytes.erase(0, kUtf8Mark.size());
  return IsUtf8(bytes) ? std::move(bytes) : Convert("windows-1252", bytes);
}

}  // namespace tslm5::host
