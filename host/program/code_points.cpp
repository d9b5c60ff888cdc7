#include "host/program/code_points.h"

#include <unicode/utf8.h>

namespace tslm5::host {

std::int32_t NextCodePoint(std::string_view text, std::size_t& at) {
  UChar32 c = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // inside the macro
  U8_NEXT(text.data(), at, text.size(), c);
#pragma GCC diagnostic pop
  return c;
}

}  // namespace tslm5::host
