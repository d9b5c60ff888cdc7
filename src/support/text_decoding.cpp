#include "support/text_decoding.h"

#include <unicode/ucnv.h>
#include <unicode/utf8.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "support/utf8.h"
#include "tslm5/platform/error.h"

namespace tslm5::TextDecoding {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleEndianMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF";
constexpr std::size_t kPivotUnits = 4096;
constexpr std::size_t kOutputBytes = 16384;

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

void RequireSuccess(UErrorCode status) {
  if (U_FAILURE(status)) {
    throw Error(error_number::kInvalidCall, "ToUtf8",
                std::string("The text cannot be converted: ") + u_errorName(status) + ".");
  }
}

Converter OpenConverter(const char* name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name, &status), &ucnv_close);
  RequireSuccess(status);
  return converter;
}

std::string DecodeUtf16(std::string_view bytes, const char* encoding) {
  const Converter source = OpenConverter(encoding);
  const Converter target = OpenConverter("UTF-8");
  std::array<UChar, kPivotUnits> pivot;
  std::array<char, kOutputBytes> output;
  UChar* pivot_from = pivot.data();
  UChar* pivot_to = pivot.data();
  const char* from = bytes.data();
  std::string text;
  text.reserve(bytes.size() / 2);
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  for (bool first = true; status == U_BUFFER_OVERFLOW_ERROR; first = false) {
    status = U_ZERO_ERROR;
    char* to = output.data();
    ucnv_convertEx(target.get(), source.get(), &to, output.data() + output.size(), &from,
                   bytes.data() + bytes.size(), pivot.data(), &pivot_from, &pivot_to,
                   pivot.data() + pivot.size(), first, true, &status);
    text.append(output.data(), to);
  }
  RequireSuccess(status);
  return text;
}

/// The UTF-8 form of one byte of a single-byte encoding.
struct Sequence {
  char bytes[U8_MAX_LENGTH];
  std::uint8_t size;
};
using SequenceTable = std::array<Sequence, 256>;

SequenceTable MakeWindows1252Table() {
  const Converter converter = OpenConverter("windows-1252");
  SequenceTable table{};
  for (std::size_t byte = 0; byte < table.size(); ++byte) {
    const char source = static_cast<char>(byte);
    const char* from = &source;
    UErrorCode status = U_ZERO_ERROR;
    const UChar32 character = ucnv_getNextUChar(converter.get(), &from, from + 1, &status);
    RequireSuccess(status);
    U8_APPEND_UNSAFE(table[byte].bytes, table[byte].size, character);
  }
  return table;
}

/// Widens the text in its own buffer, from its end to its start.
std::string DecodeWindows1252(std::string bytes) {
  static const SequenceTable table = MakeWindows1252Table();
  const std::size_t old_size = bytes.size();
  std::size_t new_size = 0;
  for (const char c : bytes) new_size += table[static_cast<unsigned char>(c)].size;
  bytes.resize(new_size);
  char* to = bytes.data() + new_size;
  for (const char* from = bytes.data() + old_size; from != to;) {
    const Sequence& sequence = table[static_cast<unsigned char>(*--from)];
    for (std::size_t i = sequence.size; i != 0; --i) *--to = sequence.bytes[i - 1];
  }
  return bytes;
}

}  // namespace

std::string ToUtf8(std::string bytes) {
  const std::string_view view = bytes;
  if (view.starts_with(kUtf16LittleEndianMark)) {
    return DecodeUtf16(view.substr(kUtf16LittleEndianMark.size()), "UTF-16LE");
  }
  if (view.starts_with(kUtf16BigEndianMark)) {
    return DecodeUtf16(view.substr(kUtf16BigEndianMark.size()), "UTF-16BE");
  }
  if (view.starts_with(kUtf8Mark)) bytes.erase(0, kUtf8Mark.size());
  return Utf8::IsValid(bytes) ? std::move(bytes) : DecodeWindows1252(std::move(bytes));
}

}  // namespace tslm5::TextDecoding
