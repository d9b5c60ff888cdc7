#ifndef TSLM5_CONTRACTS_DELIMITED_READER_H_
#define TSLM5_CONTRACTS_DELIMITED_READER_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/contracts/delimited_finding.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// What a cell is.
enum class FieldClass : std::uint8_t { kNumber, kMissing, kText };

/// A cell of a table: its text and what it is. A view: `DelimitedBlock` says how long it lives.
struct DelimitedField {
  const char* data = nullptr;                     ///< of the text
  std::uint32_t size = 0;                         ///< in bytes
  FieldClass field_class = FieldClass::kMissing;  ///< what it is
  bool is_quoted = false;                         ///< quotes stood around it in the file
  double value = 0.0;  ///< of a number, correctly rounded; of no meaning otherwise

  /// Without the blanks around it and, where it was quoted, without the quotes; blanks inside the
  /// quotes are part of it.
  std::string_view Text() const { return {data, size}; }
};

/// Consecutive records. Everything that it points to is good until the reader is asked for the next
/// block, opens another text, or is gone.
struct DelimitedBlock {
  const DelimitedField* fields = nullptr;  ///< record by record, one field a column
  const std::int64_t* lines = nullptr;     ///< of the file, where each record begins, 1-based
  std::size_t records = 0;                 ///< how many
  std::size_t columns = 0;                 ///< of each record
  std::int64_t first_record = 0;           ///< its number in the table, 0-based

  /// The fields of a record of the block, 0-based.
  const DelimitedField* Record(std::size_t record) const { return fields + record * columns; }
};

/// How a delimited text is written, as it was set or found from the data. The locale of the process
/// has no part in it.
struct DelimitedDialect {
  char separator = ',';             ///< one of , ; tab | blank; '\0' for one field a line
  bool has_quotes = true;           ///< double quotes around a field are no part of it (RFC 4180)
  char decimal = '.';               ///< or ','
  bool has_header = false;          ///< the first line of the table holds the labels
  bool has_row_names = false;       ///< the header has no label for the first column
  std::int64_t preamble_lines = 0;  ///< lines before the table
  std::size_t columns = 0;          ///< the fields of a record; 0 where there is none
  std::string encoding = "UTF-8";   ///< by its usual name
};

/// What of a dialect is set; the rest is found from the data.
struct DelimitedOptions {
  std::optional<char> separator = {};   ///< as `DelimitedDialect` has it
  std::optional<bool> has_quotes = {};  ///< true where nothing is set
  std::optional<char> decimal = {};     ///< the same
  std::optional<bool> has_header = {};  ///< the same
  /// Lines to be passed over before the table, empty ones included; 0 says that there are none.
  std::optional<std::int64_t> preamble_lines = {};
  /// Without `preamble_lines`: whether lines before the table that were found are no fault.
  bool skips_preamble = false;
  std::string encoding = {};                     ///< an ICU name; empty to find it
  std::vector<std::string> missing_tokens = {};  ///< beside the system's own, letter for letter
};

/// The labels of a table's columns, each of them there once without regard to case.
struct DelimitedHeader {
  std::vector<std::string> labels;  ///< one a column; none where the table has no header
  std::int64_t line = 0;            ///< of the file, 1-based; 0 where there is none
};

/// What a reader has met so far.
struct DelimitedCounts {
  std::int64_t lines = 0;           ///< of the file, as far as it is read
  std::int64_t records = 0;         ///< that were given
  std::int64_t uneven_records = 0;  ///< that were left out
  std::int64_t empty_lines = 0;     ///< or of blanks alone; behind the header
  std::int64_t first_gap = 0;       ///< the first empty line before a record; 0 for none
};

/// Reads delimited text as people have it, once, from front to back: the dialect is found from the
/// data, quotes go by RFC 4180, an empty field keeps its place, and nothing depends on the locale.
/// Caller's thread only. What is asked before a text is open raises 41001.
class IDelimitedReader : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000029ULL, 0x8a1f4c0b6d2e7329ULL};

  /// Opens the file or pipe at `pPath`, "-" for the standard input; what gzip compressed is
  /// decompressed. Raises 53 when there is no such file, 75 when it cannot be read, 41001 for
  /// options that mean nothing.
  virtual void OpenFile(const std::string& pPath, const DelimitedOptions& pOptions) = 0;
  /// Opens the bytes of a text in memory, or of a compressed one; they must outlive the reading.
  /// `pName` is what a message calls the text. Raises as `OpenFile` does.
  virtual void OpenText(std::string_view pBytes, const std::string& pName,
                        const DelimitedOptions& pOptions) = 0;
  /// How the text is written, as far as it has been read.
  virtual const DelimitedDialect& Dialect() = 0;
  /// The labels and where they stand.
  virtual const DelimitedHeader& Header() = 0;
  /// Gives the next records; false, and none, at the end. Raises 75 where the text cannot be read,
  /// 41011 for a record of more than 4 MiB.
  virtual bool Next(DelimitedBlock& pBlock) = 0;
  /// What was found so far, in the order in which it was met; of each code the first hundred.
  /// Complete once `Next` has given false.
  virtual const std::vector<DelimitedFinding>& Findings() = 0;
  /// How many there were of a code, those not held included.
  virtual std::int64_t FindingCount(FindingCode pCode) = 0;
  /// A finding in words, on one line: what and where, why, and what to do about it.
  virtual std::string MessageOf(const DelimitedFinding& pFinding) = 0;
  /// What was counted so far.
  virtual const DelimitedCounts& Counts() = 0;

 protected:
  ~IDelimitedReader() = default;
};

}  // namespace tslm5

#endif  // TSLM5_CONTRACTS_DELIMITED_READER_H_
