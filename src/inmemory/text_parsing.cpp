#include "inmemory/text_parsing.h"

#include <algorithm>
#include <limits>
#include <type_traits>
#include <utility>

#include "contracts/event_args_objects.h"
#include "inmemory/class_tracker.h"
#include "inmemory/label_line.h"
#include "inmemory/parse_errors.h"
#include "inmemory/record_converter.h"
#include "support/file_helpers.h"
#include "support/label_test.h"
#include "support/locale.h"
#include "support/separators.h"
#include "support/shared_functions.h"
#include "support/string_helpers.h"
#include "support/text_cleanup.h"
#include "support/text_split.h"
#include "support/utf8.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// Trims the blanks around a text in place.
void Trim(std::string& text) {
  const std::size_t end = text.find_last_not_of(' ');
  text.resize(end == std::string::npos ? 0 : end + 1);
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view WithoutEmptyLinesAtEnd(std::string_view text) {
  while (text.ends_with('\n')) text.remove_suffix(1);
  return text;
}

std::int32_t AsRowCount(std::size_t count) {
  if (count > std::size_t{std::numeric_limits<std::int32_t>::max()}) RaiseOverflow();
  return static_cast<std::int32_t>(count);
}

/// Deletes the blank that begins a line, but not one that is all of the line: it is no record, and
/// will be refused.
void DropLeadingBlanks(std::string& text) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool leads = text[i] == ' ' && i > 0 && text[i - 1] == '\n';
    if (leads && i + 1 < text.size() && text[i + 1] != '\n') continue;
    text[kept++] = text[i];
  }
  text.resize(kept);
}

/// Readies lines that begin with the response for its move to their end: blanks in front of it are
/// nothing, as everywhere; one that is left out becomes a token, or the last input would pass for
/// it.
void KeepFirstFields(std::string& text, std::string_view separator) {
  if (separator == " ") {
    SharedFunctions::MergeRepeats(separator, text);
    DropLeadingBlanks(text);
  } else if (!separator.empty() &&
             text.find(std::string("\n").append(separator)) != std::string::npos) {
    std::string kept;
    kept.reserve(text.size() + text.size() / 8);
    for (const char c : text) {
      if (c == separator[0] && kept.ends_with('\n')) kept += '?';
      kept += c;
    }
    text = std::move(kept);
  }
}

/// Gives a set back all that it held before a parse that fails. What a handler has loaded into the
/// set meanwhile stays.
class ContentGuard {
 public:
  explicit ContentGuard(InMemoryState& state) : state_(state), before_(state) {}
  ContentGuard(const ContentGuard&) = delete;
  ContentGuard& operator=(const ContentGuard&) = delete;
  ~ContentGuard() {
    if (kept_ || state_.is_ready) return;
    static_cast<InMemoryContent&>(state_) = std::move(before_);
  }

  void Keep() noexcept { kept_ = true; }

 private:
  static_assert(std::is_nothrow_move_assignable_v<InMemoryContent>);

  InMemoryState& state_;
  InMemoryContent before_;
  bool kept_ = false;
};

/// No more rows than a text of this size can fill: one that promises more has a row that is too
/// short, and will be refused there; its array need not be paid for.
std::int32_t RowsToHold(std::int32_t rows, std::int32_t columns, std::size_t text_size) {
  const std::size_t most = (text_size + 1) / (2 * static_cast<std::size_t>(columns)) + 1;
  return static_cast<std::int32_t>(std::min(static_cast<std::size_t>(rows), most));
}

}  // namespace

void TextParsing::Parse(std::string_view path, std::int32_t separator, bool has_labels,
                        std::int32_t data_set_type, std::int32_t layout,
                        IParseEventArgs* arguments) {
  if (path.empty()) throw Error(error_number::kInvalidArgument);
  FileHelpers::TextFile file = SharedFunctions::ReadFile(path);
  if (file.kind == FileHelpers::TextFile::Kind::kForbidden) FileHelpers::RaiseForbidden(path);
  if (file.kind != FileHelpers::TextFile::Kind::kRead) throw Error(error_number::kFileMissing);
  Ref<IParseEventArgs> own;
  if (arguments == nullptr) {
    own = MakeParseEventArgs();
    own->put_Source(path);
    own->put_ParseType(0);
    arguments = own.get();
  }
  ParseString(file.text, separator, has_labels, data_set_type, layout, arguments);
}

void TextParsing::ParseString(std::string& text, std::int32_t separator, bool has_labels,
                              std::int32_t data_set_type, std::int32_t layout,
                              IParseEventArgs* arguments) {
  const Ref<IDataSet> keep_alive(state_.sender);  // a handler may let go of the set
  const Ref<IParseEventArgs> keep_arguments =
      arguments == nullptr ? MakeParseEventArgs() : Ref<IParseEventArgs>(arguments);
  ContentGuard before(state_);
  state_.is_ready = false;
  state_.has_labels = false;
  state_.data.reset();
  state_.EndExtraSet();
  state_.replaced_missing_count = 0;
  state_.SetType(data_set_type);
  Begin(text, data_set_type);
  TakeText(text, separator);
  const std::int32_t error = Run(text, has_labels, layout, *keep_arguments);
  before.Keep();
  if (error > 0) throw Error(error);
}

/// Checks the text and notes its separator.
void TextParsing::TakeText(std::string& text, std::int32_t separator) {
  if (separator == separator_code::kNone) SharedFunctions::StripSeparators(text);
  Trim(text);
  if (text.empty()) throw Error(error_number::kEmptyText);
  separator_ = SharedFunctions::SeparatorToString(separator);
  survey_ = SurveyOf(text);
  if (!separator_.empty() && !survey_.has_separator) throw Error(error_number::kUnknownSeparator);
  if (survey_.has_other_separator && SharedFunctions::HasMixedSeparators(text, separator)) {
    RefuseMixedSeparators();  // a decimal comma is none
  }
  state_.separator = separator;
  state_.SetProperty(property_key::kSeparator, separator_);
}

TextSurvey TextParsing::SurveyOf(std::string_view text) const {
  return SurveyText(text, separator_.empty() ? '\0' : separator_.front());
}

void TextParsing::TakeLabels(const std::string& text) {
  state_.labels = LabelLine::Read(text, separator_);
  if (!AreLabels(state_.labels, CurrentLocale().DecimalSymbol())) {
    ParseErrors::RaiseColumnCount(1);
  }
  state_.has_labels = true;
}

/// The error by which a handler stopped the parse, which has emptied the set; 0 for any other end.
std::int32_t TextParsing::Run(std::string& text, bool has_labels, std::int32_t layout,
                              IParseEventArgs& arguments) {
  if (Rearranges(layout)) {
    if (layout == layout_code::kRecordsInColumns && separator_.empty()) {
      throw Error(error_number::kInvalidArgument, "ParseString",
                  "Text without a separator cannot be transposed: its lines would run together.");
    }
    if (layout == layout_code::kResponseFirst) KeepFirstFields(text, separator_);
    text = StringHelpers::RearrangeText(std::move(text), separator_, layout);
    survey_ = SurveyOf(text);
  }
  if (has_labels) TakeLabels(text);
  if (survey_.has_separator_runs) SharedFunctions::MergeRepeats(separator_, text);
  if (survey_.has_feed_runs) SharedFunctions::MergeRepeats("\n", text);
  std::size_t feeds_gone = 0;
  if (text.starts_with('\n')) {
    text.erase(0, 1);
    ++feeds_gone;
  }
  if (has_labels && text.find('\n') != std::string::npos) {
    TextCleanup::DropFirstLine(text);
    ++feeds_gone;
  }

  const std::string_view lines = WithoutEmptyLinesAtEnd(text);
  if (lines.empty()) throw Error(error_number::kEmptyText);
  feeds_gone += text.size() - lines.size();
  const std::int32_t rows = AsRowCount(survey_.has_feed_runs ? TextCleanup::CountLines(lines)
                                                             : survey_.feeds - feeds_gone + 1);
  state_.column_count = SharedFunctions::CountColumns(lines, separator_);
  if (!state_.has_labels) state_.MakeDefaultLabels();

  arguments.put_Rows(rows);
  arguments.put_Columns(state_.column_count);
  state_.sinks.Fire([this, &arguments](IInMemorySetEvents& sink) {
    sink.BeforeDataLoad(state_.sender, &arguments);
  });
  if (arguments.Cancel()) {
    state_.Reset();
    return 0;
  }
  if (!TakeRecords(lines, rows, arguments)) return handlers_error_;

  state_.is_dirty = true;
  arguments.put_Message("Data load succeded.");
  arguments.put_Rows(rows);
  state_.sinks.Fire([this, &arguments](IInMemorySetEvents& sink) {
    sink.AfterDataLoad(state_.sender, &arguments);
  });
  state_.is_ready = true;
  return 0;
}

/// The fields of the first line, without the blanks around it.
std::int32_t TextParsing::CountFirstFields(std::string_view text) const {
  std::int32_t count = 0;
  FieldCursor fields(Utf8::TrimBlanks(text.substr(0, text.find('\n'))), separator_);
  for (std::string_view field; fields.Next(field);) ++count;
  return count;
}

/// False when a handler stopped the parse.
bool TextParsing::TakeRecords(std::string_view text, std::int32_t rows,
                              IParseEventArgs& arguments) {
  const std::int32_t columns = CountFirstFields(text);
  if (static_cast<std::size_t>(columns) != state_.labels.size()) {
    throw Error(error_number::kLabelCount);
  }
  // A blank after the first line is counted as a column, but holds no field.
  if (columns != state_.column_count) ParseErrors::RaiseColumnCount(1);
  cells_ = std::make_shared<CellArray>(RowsToHold(rows, columns, text.size()), columns);
  state_.data = cells_;
  state_.is_ready = false;  // a handler may have parsed another text
  state_.replaced_missing_count = 0;
  record_ = MakeRecordParsedEventArgs();
  record_->put_Columns(arguments.Columns());
  return FillCells({text, rows, columns}, arguments);
}

void TextParsing::Begin(std::string&, std::int32_t) {}

void TextParsing::RefuseMixedSeparators() const {
  throw Error(error_number::kMixedSeparators);
}

bool TextParsing::Rearranges(std::int32_t layout) const {
  return layout == layout_code::kRecordsInColumns;
}

bool TextParsing::FillCells(const Lines& lines, IParseEventArgs& arguments) {
  const std::int32_t category = state_.problem_category;
  RecordConverter converter(lines.text, separator_, lines.columns, CurrentLocale().DecimalSymbol());
  return ConvertRecords(converter, ClassTracker(ClassTracker::AreClasses(category), category),
                        lines.rows, arguments);
}

/// False when a handler stopped the parse, or gave the set other data or none.
bool TextParsing::TellOfRecord(IRecordParsedEventArgs& record, std::int32_t row,
                               IParseEventArgs& arguments) {
  record.put_Current(row);
  state_.sinks.Fire([&record](IInMemorySetEvents& sink) { sink.RecordParsed(&record); });
  if (state_.data != cells_) return false;
  if (!record.Cancel() && record.Error() < 1) return true;
  state_.Reset();
  handlers_error_ = record.Error();
  if (handlers_error_ > 0) return false;
  state_.sinks.Fire([this, &arguments](IInMemorySetEvents& sink) {
    sink.DataLoadCancelled(state_.sender, &arguments);
  });
  return false;
}

}  // namespace tslm5
