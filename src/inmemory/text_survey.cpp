#include "inmemory/text_survey.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>

#include "support/byte_block.h"

namespace tslm5 {
namespace {

using ByteScan::ByteBlock;

constexpr std::size_t kBytes = 64;

/// Looks at 64 bytes after the other.
class Surveyor {
 public:
  explicit Surveyor(char separator) : separator_(separator) {
    constexpr std::array<char, 5> kAll = {' ', '\t', ',', ';', '|'};
    // In the place of the separator stands another one, so that there are always five.
    const char any = separator == ' ' ? '\t' : ' ';
    std::replace_copy(kAll.begin(), kAll.end(), others_.begin(), separator, any);
  }

  /// Takes the first `size` of 64 bytes.
  void Take(const char* bytes, std::size_t size) {
    std::uint64_t separators = 0;
    std::uint64_t feeds = 0;
    std::uint64_t others = 0;
    for (std::size_t i = 0; i < kBytes; i += ByteBlock::kSize) {
      const ByteBlock block(bytes + i);
      separators |= std::uint64_t{block.Equal(separator_)} << i;
      feeds |= std::uint64_t{block.Equal('\n')} << i;
      unsigned found = 0;
      for (const char c : others_) found |= block.Equal(c);
      others |= std::uint64_t{found} << i;
    }
    const std::uint64_t in_text = ~std::uint64_t{0} >> (kBytes - size);
    separators &= in_text;
    feeds &= in_text;
    separators_ |= separators;
    others_found_ |= others & in_text;
    separator_runs_ |= separators & (separators << 1 | last_separator_);
    feed_runs_ |= feeds & (feeds << 1 | last_feed_);
    last_separator_ = separators >> 63;
    last_feed_ = feeds >> 63;
    for (; feeds != 0; feeds &= feeds - 1) ++feeds_;
  }

  TextSurvey Result() const {
    const bool has_separator = separator_ != '\0' && separators_ != 0;
    return {has_separator, others_found_ != 0, has_separator && separator_runs_ != 0,
            feed_runs_ != 0, feeds_};
  }

 private:
  char separator_;
  std::array<char, 5> others_{};
  std::uint64_t separators_ = 0;
  std::uint64_t others_found_ = 0;
  std::uint64_t separator_runs_ = 0;
  std::uint64_t feed_runs_ = 0;
  std::uint64_t last_separator_ = 0;
  std::uint64_t last_feed_ = 0;
  std::size_t feeds_ = 0;
};

}  // namespace

TextSurvey SurveyText(std::string_view text, char separator) {
  Surveyor surveyor(separator);
  for (; text.size() >= kBytes; text.remove_prefix(kBytes)) surveyor.Take(text.data(), kBytes);
  if (!text.empty()) {
    std::array<char, kBytes> rest{};
    std::copy(text.begin(), text.end(), rest.begin());
    surveyor.Take(rest.data(), text.size());
  }
  return surveyor.Result();
}

}  // namespace tslm5
