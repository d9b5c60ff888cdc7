#include "host/program/shown_text.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

#include <cstdint>
#include <iterator>
#include <limits>

#include "host/program/code_points.h"

namespace tslm5::host {
namespace {

constexpr std::size_t kShownCharacters = 60;

bool MustBeEscaped(UChar32 c) {
  switch (u_charType(c)) {
    case U_CONTROL_CHAR:
    case U_FORMAT_CHAR:
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
    case U_SURROGATE:
      return true;
    default:
      return false;
  }
}

bool IsCombining(UChar32 c) {
  const int type = u_charType(c);
  return type == U_NON_SPACING_MARK || type == U_ENCLOSING_MARK;
}

bool IsWide(UChar32 c) {
  const int kind = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
  return kind == U_EA_WIDE || kind == U_EA_FULLWIDTH;
}

void AppendEscape(std::string& shown, UChar32 c) {
  switch (c) {
    case '\n':
      shown += "\\n";
      return;
    case '\r':
      shown += "\\r";
      return;
    case '\t':
      shown += "\\t";
      return;
    default:
      fmt::format_to(std::back_inserter(shown), "\\u{{{:04X}}}", static_cast<std::uint32_t>(c));
  }
}

std::string Show(std::string_view text, std::size_t limit) {
  std::string shown;
  std::size_t characters = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (characters++ == limit) return shown + "...";
    const std::size_t from = at;
    const UChar32 c = NextCodePoint(text, at);
    const std::string_view bytes = text.substr(from, at - from);
    if (c < 0) {
      for (const char byte : bytes) {
        fmt::format_to(std::back_inserter(shown), "\\x{:02X}", static_cast<unsigned char>(byte));
      }
    } else if (MustBeEscaped(c)) {
      AppendEscape(shown, c);
    } else {
      shown += bytes;
    }
  }
  return shown;
}

}  // namespace

std::string Escaped(std::string_view text) {
  return Show(text, std::numeric_limits<std::size_t>::max());
}

std::string Cut(std::string_view text) {
  return Show(text, kShownCharacters);
}

std::string Quoted(std::string_view text) {
  return '"' + Cut(text) + '"';
}

std::size_t DisplayWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) {
    const UChar32 c = NextCodePoint(text, at);
    if (c >= 0 && IsCombining(c)) continue;
    width += c >= 0 && IsWide(c) ? 2 : 1;
  }
  return width;
}

}  // namespace tslm5::host
