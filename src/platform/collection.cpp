#include "platform/collection.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/stringoptions.h>
#include <unicode/stringpiece.h>

#include <cstdint>
#include <limits>

#include "tslm5/platform/error.h"

namespace tslm5 {

std::string FoldKey(std::string_view key) {
  if (key.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    RaiseOverflow();
  }
  std::string folded;
  folded.reserve(key.size());
  icu::StringByteSink<std::string> sink(&folded);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8Fold(U_FOLD_CASE_DEFAULT,
                         icu::StringPiece(key.data(), static_cast<std::int32_t>(key.size())), sink,
                         nullptr, status);
  if (U_FAILURE(status)) {
    throw Error(error_number::kInvalidCall, "Collection",
                std::string("The key cannot be case-folded: ") + u_errorName(status));
  }
  return folded;
}

void RaiseKeyPresent(std::string_view key) {
  throw Error(error_number::kKeyPresent, "Collection",
              "The key \"" + std::string(key) + "\" is already present.");
}

void RaiseKeyAbsent(std::string_view key, std::string_view source) {
  throw Error(error_number::kInvalidCall, std::string(source),
              "The key \"" + std::string(key) + "\" is not present.");
}

}  // namespace tslm5
