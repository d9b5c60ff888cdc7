#ifndef TSLM5_CONTRACTS_DELIMITED_FINDING_H_
#define TSLM5_CONTRACTS_DELIMITED_FINDING_H_

#include <cstdint>
#include <string>

namespace tslm5 {

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

/// One thing found, as data.
struct DelimitedFinding {
  FindingCode code;          ///< what it is
  std::int64_t line = 0;     ///< of the file, 1-based; 0 where it concerns the whole text
  std::int64_t column = -1;  ///< 0-based; -1 where it concerns the whole line
  std::string value;         ///< the text in question, cut to 200 bytes
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DELIMITED_FINDING_H_
