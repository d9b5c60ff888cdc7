#include "delimited/encoding_guess.h"

#include <unicode/ucsdet.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace tslm5::delimited {
namespace {

constexpr char kWestern[] = "windows-1252";
constexpr std::int32_t kSureConfidence = 15;
constexpr std::ptrdiff_t kTellingBytes = 12;  // outside ASCII: fewer say nothing of a language

struct CloseDetector {
  void operator()(UCharsetDetector* detector) const { ucsdet_close(detector); }
};

/// Whether the detector means Western European text; windows-1252 holds all of it.
bool IsWestern(std::string_view name) {
  return name == "ISO-8859-1" || name == kWestern;
}

/// What no file of delimited text is in that has no mark.
bool IsOutOfPlace(std::string_view name) {
  return name.starts_with("UTF-16") || name.starts_with("UTF-32") || name.starts_with("IBM4") ||
         name.starts_with("ISO-2022");
}

}  // namespace

Mark FindMark(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) return {"UTF-8", 3};
  if (bytes.starts_with("\xFF\xFE")) return {"UTF-16LE", 2};
  if (bytes.starts_with("\xFE\xFF")) return {"UTF-16BE", 2};
  return {};
}

const char* GuessUtf16(std::string_view bytes) {
  const std::size_t pairs = bytes.size() / 2;
  std::size_t zeros[2] = {0, 0};
  for (std::size_t i = 0; i < 2 * pairs; ++i) zeros[i % 2] += bytes[i] == '\0' ? 1 : 0;
  const std::size_t most = pairs - pairs / 4;
  if (pairs == 0) return nullptr;
  if (zeros[0] == 0 && zeros[1] >= most) return "UTF-16LE";
  if (zeros[1] == 0 && zeros[0] >= most) return "UTF-16BE";
  return nullptr;
}

std::string GuessEncoding(std::string_view bytes) {
  const auto is_telling = [](char c) { return static_cast<signed char>(c) < 0; };
  if (std::count_if(bytes.begin(), bytes.end(), is_telling) < kTellingBytes) return kWestern;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<UCharsetDetector, CloseDetector> detector(ucsdet_open(&status));
  ucsdet_setText(detector.get(), bytes.data(), static_cast<std::int32_t>(bytes.size()), &status);
  std::int32_t count = 0;
  const UCharsetMatch** const matches = ucsdet_detectAll(detector.get(), &count, &status);
  if (U_FAILURE(status)) return kWestern;
  for (std::int32_t i = 0; i < count; ++i) {  // the likeliest first
    const std::string name = ucsdet_getName(matches[i], &status);
    if (U_FAILURE(status)) return kWestern;
    if (IsOutOfPlace(name)) continue;
    const bool is_sure = ucsdet_getConfidence(matches[i], &status) >= kSureConfidence;
    return is_sure && !IsWestern(name) ? name : kWestern;
  }
  return kWestern;
}

}  // namespace tslm5::delimited
