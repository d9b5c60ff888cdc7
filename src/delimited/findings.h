#ifndef TSLM5_DELIMITED_FINDINGS_H_
#define TSLM5_DELIMITED_FINDINGS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5::delimited {

/// What a reader has to tell of a text beside its records.
enum class FindingCode {
  kUnclosedQuote,          ///< a quoted field without its closing quote; its line is read as text
  kUnevenRecord,           ///< a record of another width than the table; it is left out
  kUnevenHeader,           ///< a header that does not fit the records; it is not used
  kInvalidText,            ///< bytes that stand for no character in the encoding; U+FFFD instead
  kNulByte,                ///< a NUL byte, kept as part of the text
  kPreamble,               ///< lines before the table; `value` is their number
  kNoHeader,               ///< a first line of texts that is taken for data: worth a look
  kRowNames,               ///< one label too few: the first column holds row names
  kRepeatedLabel,          ///< a label that was made unique; `value` is what it has become
  kEmptyLabel,             ///< a column without a label; `value` is the name that it has got
  kSeparatorContradicted,  ///< the separator that was set splits nothing; `value` would
  kDecimalContradicted,    ///< a number with the other decimal sign, read as text
  kHeaderContradicted,     ///< the header that was set, or none, against what the first line shows
  kPreambleContradicted,   ///< lines to skip were set, but others come before the table
  kQuotesContradicted,     ///< quotes were set to mean nothing, but stand around a whole field
};
inline constexpr std::size_t kFindingCodes = 15;

/// One thing found, as data: the sentence is made last, by `Message`.
struct Finding {
  FindingCode code;
  std::int64_t line = 0;     ///< of the file, 1-based; 0 where it concerns the whole text
  std::int64_t column = -1;  ///< 0-based; -1 where it concerns the whole line
  std::string value;         ///< the text in question, cut to `kLongestValue` bytes
};
inline constexpr std::size_t kLongestValue = 200;

/// What failed and where, why, and what to do about it, in one line. Control characters in the
/// value are shown as "\n" and the like.
std::string Message(const Finding& finding);

/// Findings in the order in which they were met. The first `kMostOfAKind` of each code are held;
/// the counts are exact.
class FindingList {
 public:
  static constexpr std::size_t kMostOfAKind = 100;

  void Add(FindingCode code, std::int64_t line, std::int64_t column, std::string_view value);

  const std::vector<Finding>& All() const { return findings_; }
  /// How many there were of a code, those not held included.
  std::int64_t Count(FindingCode code) const { return counts_[static_cast<std::size_t>(code)]; }
  /// The first of a code; nullptr when there is none.
  const Finding* First(FindingCode code) const;

 private:
  std::vector<Finding> findings_;
  std::array<std::int64_t, kFindingCodes> counts_{};
};

/// The name of a code, as tests and tools show it: "uneven record".
const char* Name(FindingCode code);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_FINDINGS_H_
