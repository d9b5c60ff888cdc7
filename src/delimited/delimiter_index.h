#ifndef TSLM5_DELIMITED_DELIMITER_INDEX_H_
#define TSLM5_DELIMITED_DELIMITER_INDEX_H_

#include <cstddef>
#include <cstdint>
#include <vector>

#include "delimited/chunk_masks.h"

namespace tslm5::delimited {

/// How far behind a text memory must be readable.
inline constexpr std::size_t kReadableBehind = 64;

/// How the delimiters of a text are told from its other characters.
struct DelimiterRules {
  char separator = ',';  ///< '\0' for none; ' ' stands for tabs as well
  bool has_quotes = true;

  SeparatorPair Separators() const {
    if (separator == '\0') return {'\n', '\n'};
    return {separator, separator == ' ' ? '\t' : separator};
  }
  bool IsSeparator(char c) const {
    const SeparatorPair pair = Separators();
    return separator != '\0' && (c == pair.first || c == pair.second);
  }
};

/// Where fields end in a text: at separators and line ends outside quotes. A line end is "\n" or
/// "\r"; of "\r\n" both have an entry. By RFC 4180 a quote opens a quoted field where nothing but
/// blanks stands before it in the field, and two quotes in such a field are one of its characters;
/// what follows the closing quote is text, and so are quotes anywhere else.
///
/// Two ways lead there. The fast one takes 64 bytes at a time and finds the quoted parts by the
/// parity of quotes; it stops where a quote stands in an unusual place. The careful one goes letter
/// by letter and takes one record at a time. A randomised test holds them to the same result.
class DelimiterIndex {
 public:
  explicit DelimiterIndex(const DelimiterRules& rules, MaskWay way = BestMaskWay())
      : rules_(rules), masks_of_(MaskFunctionOf(way)) {}

  const DelimiterRules& Rules() const { return rules_; }

  /// The places found, ascending, relative to the text; good until the next call.
  const std::uint32_t* Places() const { return places_.data(); }
  std::size_t Count() const { return count_; }
  void Clear() { count_ = 0; }

  /// Appends the delimiters of `text` from `from`, where a record begins, in the fast way, and
  /// returns up to where it has looked: `size`, or less before a quote in an unusual place. The
  /// places then are right as far as they go, and end anywhere in a record.
  /// REQUIRES: `size` < 2^32; [text, text + size + kReadableBehind) can be read.
  std::size_t AddFast(const char* text, std::size_t from, std::size_t size);

  enum class RecordEnd {
    kFound,     ///< its line end is the last place
    kTextEnd,   ///< the text ended outside quotes
    kUnclosed,  ///< the text ended within quotes
  };
  struct CarefulResult {
    RecordEnd end;
    std::size_t opening_quote;  ///< of `kUnclosed`: where the quotes began
  };

  /// Appends the delimiters of the record that begins at `from`, its line end included, letter by
  /// letter. A quote at `literal_quote` opens no field.
  CarefulResult AddRecord(const char* text, std::size_t from, std::size_t size,
                          std::size_t literal_quote = SIZE_MAX);

 private:
  class QuoteState;

  void Add(std::size_t place);

  DelimiterRules rules_;
  MaskFunction masks_of_;
  std::vector<std::uint32_t> places_;  // of which the first count_ are filled
  std::size_t count_ = 0;
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_DELIMITER_INDEX_H_
