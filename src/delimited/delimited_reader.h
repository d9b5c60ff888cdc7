#ifndef TSLM5_DELIMITED_DELIMITED_READER_H_
#define TSLM5_DELIMITED_DELIMITED_READER_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "delimited/byte_source.h"
#include "delimited/delimiter_index.h"
#include "delimited/dialect.h"
#include "delimited/field_block.h"
#include "delimited/field_scanner.h"
#include "delimited/findings.h"
#include "delimited/header.h"
#include "delimited/record_ranges.h"
#include "delimited/text_window.h"
#include "delimited/utf8_stream.h"

namespace tslm5::delimited {

using ReadCounts = DelimitedCounts;

/// Reads a delimited text once, from front to back, as blocks of records. A cell is what stands
/// between two separators, without the blanks around it; empty ones keep their place. Records of
/// another width than the table are left out and told. Memory is a window of the text and a block
/// of fields, whatever the size of the text; a record may have 4 MiB. Caller's thread only.
class DelimitedReader {
 public:
  /// Reads the beginning of `source`, from which the dialect is found, and the header. Raises what
  /// the source raises, and 41001 for options that mean nothing.
  explicit DelimitedReader(std::unique_ptr<ByteSource> source, const ReadOptions& options = {},
                           MaskWay way = BestMaskWay());

  const Dialect& TextDialect() const { return dialect_; }
  const Header& TextHeader() const { return header_; }

  /// Fills `block` with the next records; false, and none, at the end. Raises what the source
  /// raises, and 41011 for a record that is too long.
  bool Next(FieldBlock& block);

  /// What was found so far; complete once `Next` has given false.
  const FindingList& Findings() const { return findings_; }
  const ReadCounts& Counts() const { return counts_; }
  /// What a message calls the text.
  const std::string& Name() const { return stream_.Name(); }

 private:
  void ReadHeader();
  bool LearnColumns();
  bool IndexMore();
  bool MoveOn();
  bool SplitNext();
  bool TakeEvenRecord(FieldBlock& block);
  void TakeAnyRecord(FieldBlock& block);
  void Commit(FieldBlock& block);
  void PassRecord();
  void NoteUnclosed(std::size_t quote);
  void NoteUneven();
  void NoteText(const Field& field, std::size_t column);
  void LocateBadBytes();
  void Finish();

  Utf8Stream stream_;
  TextWindow window_;
  FindingList findings_;
  Dialect dialect_;
  Header header_;
  DelimiterIndex index_;
  FieldScanner scanner_;
  ReadCounts counts_;

  RecordRanges ranges_;               // of the record that `SplitNext` found
  std::size_t next_place_ = 0;        // in the index
  std::size_t record_begin_ = 0;      // in the window, of the next record
  std::size_t fast_from_ = SIZE_MAX;  // where the fast way was last begun in this window
  std::size_t fast_to_ = 0;           // and how far it looked
  std::int64_t line_ = 1;             // where the next record begins
  std::int64_t window_line_ = 1;      // where the window begins
  std::int64_t gap_line_ = 0;         // the first empty line behind a record
  std::int64_t invalid_line_ = 0;
  std::int64_t nul_line_ = 0;
  bool is_finished_ = false;
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_DELIMITED_READER_H_
