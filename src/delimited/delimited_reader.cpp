#include "delimited/delimited_reader.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "delimited/dialect_detection.h"
#include "tslm5/platform/error.h"

namespace tslm5::delimited {
namespace {

/// A longer record is a quote that nobody closed, or no delimited text.
constexpr std::size_t kMostRecordBytes = std::size_t{4} << 20;

void RequireMeaning(const ReadOptions& options) {
  constexpr std::string_view kSeparators(",;\t| \0", 6);
  const char* reason = nullptr;
  if (options.separator && kSeparators.find(*options.separator) == std::string_view::npos) {
    reason = "unknown separator; use a comma, semicolon, tab, bar, blank or none";
  } else if (options.decimal && *options.decimal != '.' && *options.decimal != ',') {
    reason = "unknown decimal sign; use a point or a comma";
  } else if (options.preamble_lines && *options.preamble_lines < 0) {
    reason = "the number of lines to skip is negative";
  }
  if (reason != nullptr) throw Error(error_number::kInvalidArgument, "DelimitedReader", reason);
}

/// The dialect of the text in the window, which grows until it holds two lines.
Dialect Detect(TextWindow& window, const ReadOptions& options, FindingList& findings) {
  RequireMeaning(options);
  const auto line_ends = [&window] {
    return std::count_if(window.Data(), window.Data() + window.Size(),
                         [](char c) { return c == '\n' || c == '\r'; });
  };
  while (!window.IsFinal() && window.Size() < kMostRecordBytes && line_ends() < 2) {
    window.Advance(0);
  }
  return DetectDialect({{window.Data(), window.Size()}, window.IsFinal()}, options, findings);
}

}  // namespace

DelimitedReader::DelimitedReader(std::unique_ptr<ByteSource> source, const ReadOptions& options,
                                 MaskWay way)
    : stream_(std::move(source), options.encoding),
      window_(stream_),
      dialect_(Detect(window_, options, findings_)),
      index_({dialect_.separator, dialect_.has_quotes}, way),
      scanner_(index_.Rules(), dialect_.decimal, options.missing_tokens) {
  record_begin_ = OffsetOfLine({window_.Data(), window_.Size()}, dialect_.preamble_lines);
  line_ += dialect_.preamble_lines;
  if (dialect_.has_header) ReadHeader();
  dialect_.encoding = stream_.Encoding();
}

void DelimitedReader::ReadHeader() {
  do {
    while (!SplitNext()) {
      if (!IndexMore() && !MoveOn()) return;
    }
    if (ranges_.fields.empty()) PassRecord();
  } while (ranges_.fields.empty());

  TextArena arena;
  std::vector<std::string_view> texts;
  if (dialect_.has_row_names) texts.emplace_back();
  for (const FieldRange& range : ranges_.fields) {
    Field field;
    scanner_.Scan(range.first, range.last, field, arena);
    texts.push_back(field.Text());
  }
  if (texts.size() == dialect_.columns) {
    header_ = MakeHeader(texts, dialect_.has_row_names, line_, findings_);
  } else {
    findings_.Add(FindingCode::kUnevenHeader, line_, -1, std::to_string(texts.size()));
  }
  PassRecord();
}

bool DelimitedReader::Next(FieldBlock& block) {
  const bool has_columns = dialect_.columns != 0 || LearnColumns();
  block.Begin(dialect_.columns, counts_.records);
  while (has_columns && !block.IsFull()) {
    if (TakeEvenRecord(block)) continue;
    if (SplitNext()) {
      TakeAnyRecord(block);
      continue;
    }
    if (IndexMore()) continue;
    if (block.Records() != 0 || !MoveOn()) break;  // its fields are views into the window
  }
  if (block.Records() == 0) Finish();
  return block.Records() != 0;
}

/// Takes the width of the first record behind a beginning that had none.
bool DelimitedReader::LearnColumns() {
  for (;;) {
    if (!SplitNext()) {
      if (!IndexMore() && !MoveOn()) return false;
    } else if (ranges_.fields.empty()) {
      ++counts_.empty_lines;
      PassRecord();
    } else {
      dialect_.columns = ranges_.fields.size();
      return true;
    }
  }
}

/// Indexes the window from the next record on. False where it does not hold the whole record.
bool DelimitedReader::IndexMore() {
  const char* const text = window_.Data();
  const std::size_t size = window_.Size();
  if (record_begin_ == size) return false;
  if (fast_from_ != record_begin_) {
    fast_from_ = record_begin_;
    index_.Clear();
    next_place_ = 0;
    fast_to_ = index_.AddFast(text, record_begin_, size);
    if (SplitNext()) return true;
  }
  const bool must_end = window_.IsFinal() || size - record_begin_ >= kMostRecordBytes;
  if (fast_to_ == size && !must_end) return false;
  index_.Clear();
  next_place_ = 0;
  const auto result = index_.AddRecord(text, record_begin_, size);
  if (must_end && result.end == DelimiterIndex::RecordEnd::kUnclosed) {
    NoteUnclosed(result.opening_quote);
    index_.Clear();
    index_.AddRecord(text, record_begin_, size, result.opening_quote);
  }
  return SplitNext();
}

/// Moves the window on to the next record. False at the end of the text.
bool DelimitedReader::MoveOn() {
  if (window_.IsFinal()) return false;
  if (window_.Size() - record_begin_ >= kMostRecordBytes) {
    throw Error(error_number::kInvalidData, "DelimitedReader",
                Name() + ": line " + std::to_string(line_) +
                    " does not end within 4 MiB: this is no delimited text");
  }
  LocateBadBytes();
  window_.Advance(record_begin_);
  window_line_ = line_;
  record_begin_ = 0;
  index_.Clear();
  next_place_ = 0;
  fast_from_ = SIZE_MAX;
  return true;
}

/// Splits the next record, where the index holds all of it.
bool DelimitedReader::SplitNext() {
  SplitRecord(window_.Data(), record_begin_, index_.Places() + next_place_,
              index_.Count() - next_place_, index_.Rules(), ranges_);
  if (ranges_.places_used == 0) return false;
  const bool may_go_on = ranges_.end == window_.Size() && !window_.IsFinal();
  return !may_go_on || window_.Data()[ranges_.end - 1] != '\r';  // of a "\r\n" that is cut in two
}

/// The usual record: as many fields as columns, which one pass reads. False for any other.
bool DelimitedReader::TakeEvenRecord(FieldBlock& block) {
  const std::size_t columns = dialect_.columns;
  if (columns < 2 || dialect_.separator == ' ' || index_.Count() - next_place_ < columns) {
    return false;
  }
  const char* const text = window_.Data();
  const std::uint32_t* const places = index_.Places() + next_place_;
  const std::size_t end = places[columns - 1];
  if (text[end] != '\n') return false;
  bool is_even = true;
  for (std::size_t i = 0; i + 1 < columns; ++i) is_even &= text[places[i]] == dialect_.separator;
  if (!is_even) return false;

  Field* const fields = block.Next();
  const char* first = text + record_begin_;
  bool has_quoted = false;
  for (std::size_t i = 0; i < columns; ++i) {
    const char* const last = text + places[i];
    scanner_.Scan(first, last, fields[i], block.arena_);
    if (fields[i].field_class == FieldClass::kText) NoteText(fields[i], i);
    has_quoted |= fields[i].is_quoted;
    first = last + 1;
  }
  Commit(block);
  next_place_ += columns;
  line_ += has_quoted ? static_cast<std::int64_t>(CountLineEnds(text + record_begin_, first)) : 1;
  record_begin_ = end + 1;
  return true;
}

/// Any record that `SplitNext` has found.
void DelimitedReader::TakeAnyRecord(FieldBlock& block) {
  if (ranges_.fields.empty()) {
    ++counts_.empty_lines;
    if (gap_line_ == 0 && counts_.records != 0) gap_line_ = line_;
  } else if (ranges_.fields.size() != dialect_.columns) {
    NoteUneven();
  } else {
    Field* const fields = block.Next();
    for (std::size_t i = 0; i < ranges_.fields.size(); ++i) {
      scanner_.Scan(ranges_.fields[i].first, ranges_.fields[i].last, fields[i], block.arena_);
      if (fields[i].field_class == FieldClass::kText) NoteText(fields[i], i);
    }
    Commit(block);
  }
  PassRecord();
}

void DelimitedReader::Commit(FieldBlock& block) {
  block.Commit(line_);
  ++counts_.records;
  counts_.first_gap = gap_line_;
}

/// Goes behind the record that `SplitNext` has found.
void DelimitedReader::PassRecord() {
  const char* const text = window_.Data();
  line_ += static_cast<std::int64_t>(CountLineEnds(text + record_begin_, text + ranges_.end));
  next_place_ += ranges_.places_used;
  record_begin_ = ranges_.end;
}

void DelimitedReader::NoteUnclosed(std::size_t quote) {
  const char* const text = window_.Data();
  const char* const shown_end = text + std::min(quote + kLongestValue, window_.Size());
  const char* const line_end =
      std::find_if(text + quote, shown_end, [](char c) { return c == '\n' || c == '\r'; });
  const auto line =
      line_ + static_cast<std::int64_t>(CountLineEnds(text + record_begin_, text + quote));
  findings_.Add(FindingCode::kUnclosedQuote, line, static_cast<std::int64_t>(index_.Count()),
                {text + quote, static_cast<std::size_t>(line_end - (text + quote))});
}

void DelimitedReader::NoteUneven() {
  ++counts_.uneven_records;
  findings_.Add(FindingCode::kUnevenRecord, line_, -1, std::to_string(ranges_.fields.size()));
}

void DelimitedReader::NoteText(const Field& field, std::size_t column) {
  const std::string_view text = field.Text();
  const char first = text[0];
  if (first == '"') {
    if (dialect_.has_quotes || text.size() < 2 || text.back() != '"') return;
    findings_.Add(FindingCode::kQuotesContradicted, line_, static_cast<std::int64_t>(column), text);
  } else if (((first >= '0' && first <= '9') || first == '-' || first == '+' || first == '.' ||
              first == ',') &&
             scanner_.IsNumberOtherwise(text)) {
    findings_.Add(FindingCode::kDecimalContradicted, line_, static_cast<std::int64_t>(column),
                  text);
  }
}

/// Finds the lines of the first bytes that are no text, as long as the window holds them.
void DelimitedReader::LocateBadBytes() {
  const auto locate = [this](std::int64_t count, std::int64_t offset, std::int64_t& line) {
    if (count == 0 || line != 0) return;
    const std::int64_t place = offset - window_.Offset();
    if (place >= static_cast<std::int64_t>(record_begin_)) return;
    line = window_line_ +
           static_cast<std::int64_t>(CountLineEnds(window_.Data(), window_.Data() + place));
  };
  locate(stream_.InvalidCount(), stream_.FirstInvalidOffset(), invalid_line_);
  locate(stream_.NulCount(), stream_.FirstNulOffset(), nul_line_);
}

void DelimitedReader::Finish() {
  if (std::exchange(is_finished_, true)) return;
  LocateBadBytes();
  counts_.lines = line_ - 1;
  dialect_.encoding = stream_.Encoding();
  if (invalid_line_ != 0) {
    findings_.Add(FindingCode::kInvalidText, invalid_line_, -1,
                  std::to_string(stream_.InvalidCount()));
  }
  if (nul_line_ != 0) {
    findings_.Add(FindingCode::kNulByte, nul_line_, -1, std::to_string(stream_.NulCount()));
  }
}

}  // namespace tslm5::delimited
