#include "support/separators.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "support/byte_block.h"
#include "support/in_place_writer.h"
#include "support/locale.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5::SharedFunctions {
namespace {

using ByteScan::ByteBlock;

constexpr std::array<std::string_view, 5> kSeparatorTexts = {" ", "\t", ",", ";", "|"};

constexpr bool HasText(std::int32_t code) {
  return code >= 0 && code < static_cast<std::int32_t>(kSeparatorTexts.size());
}

/// The separators looked for in a scan: all, but for one that is left out and the comma where it
/// is the user's decimal separator. In the place of one left out stands another, so that there are
/// always five.
class SeparatorSet {
 public:
  explicit SeparatorSet(std::int32_t code_left_out) {
    const bool comma_is_decimal = DecimalSeparatorIsComma();
    const auto is_wanted = [=](std::size_t code) {
      return static_cast<std::int32_t>(code) != code_left_out &&
             !(code == separator_code::kComma && comma_is_decimal);
    };
    std::size_t any = 0;
    while (!is_wanted(any)) ++any;
    for (std::size_t code = 0; code < characters_.size(); ++code) {
      characters_[code] = kSeparatorTexts[is_wanted(code) ? code : any][0];
    }
  }

  bool Contains(char c) const {
    return std::find(characters_.begin(), characters_.end(), c) != characters_.end();
  }

  const char* Find(const char* first, const char* last) const {
    return ByteScan::Find(
        first, last,
        [this](const char* p) {
          const ByteBlock block(p);
          unsigned bits = 0;
          for (const char c : characters_) bits |= block.Equal(c);
          return bits;
        },
        [this](const char* p) { return Contains(*p); });
  }

 private:
  std::array<char, kSeparatorTexts.size()> characters_{};
};

}  // namespace

std::string_view SeparatorToString(std::int32_t code) {
  if (code == separator_code::kNone) return {};
  if (!HasText(code)) throw Error(error_number::kUnknownSeparator);
  return kSeparatorTexts[static_cast<std::size_t>(code)];
}

std::int32_t CountColumns(std::string_view text, std::string_view separator) {
  if (separator.empty()) return 1;
  text.remove_prefix(std::min(text.find_first_not_of('\n'), text.size()));
  const std::string_view line = text.substr(0, text.find('\n'));
  std::int32_t count = 1;
  for (std::size_t place = line.find(separator); place != std::string_view::npos;
       place = line.find(separator, place + separator.size())) {
    ++count;
  }
  return count;
}

bool DecimalSeparatorIsComma() {
  return CurrentLocale().DecimalSymbol() == ',';
}

bool TextContainsSeparator(std::string_view text, std::int32_t code) {
  return text.find(SeparatorToString(code)) != std::string_view::npos;
}

bool HasMixedSeparators(std::string_view text, std::int32_t code) {
  if (!HasText(code)) return false;
  const char* const last = text.data() + text.size();
  return SeparatorSet(code).Find(text.data(), last) != last;
}

void StripSeparators(std::string& text) {
  const SeparatorSet separators(separator_code::kNone);
  const char* read = text.data();
  const char* const last = read + text.size();
  InPlaceWriter writer(text);
  while (read != last) {
    const char* const separator = separators.Find(read, last);
    writer.Keep(read, separator);
    for (read = separator; read != last && separators.Contains(*read);) ++read;
  }
  writer.Finish();
}

}  // namespace tslm5::SharedFunctions
