#include "host/preparation/delimited_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <utility>

#include "host/preparation/record_reader.h"
#include "host/preparation/text_arena.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/progress.h"
#include "host/program/shown_text.h"
#include "tslm5/component/class_factory.h"
#include "tslm5/component/create_object.h"

namespace tslm5::host {
namespace {

constexpr FindingCode kTold[] = {FindingCode::kUnclosedQuote,
                                 FindingCode::kInvalidText,
                                 FindingCode::kNoHeader,
                                 FindingCode::kRowNames,
                                 FindingCode::kRepeatedLabel,
                                 FindingCode::kEmptyLabel,
                                 FindingCode::kSeparatorContradicted,
                                 FindingCode::kDecimalContradicted,
                                 FindingCode::kHeaderContradicted,
                                 FindingCode::kPreambleContradicted,
                                 FindingCode::kQuotesContradicted};

/// Whether no line ends with a carriage return alone.
bool HasUsualLineEnds(std::string_view bytes) {
  for (std::size_t at = bytes.find('\r'); at != std::string_view::npos;
       at = bytes.find('\r', at + 1)) {
    if (at + 1 == bytes.size() || bytes[at + 1] != '\n') return false;
  }
  return true;
}

/// Does what may fail because of the text; an error of the reader becomes one of the file.
template <class Work>
void Reading(Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const Error& error) {
    switch (error.Number()) {
      case error_number::kInvalidData:
        Refuse(Escaped(error.what()));
      case error_number::kInvalidArgument:
        throw Failure(ExitCode::kUsage, Escaped(error.what()));
      default:
        throw FailureOf(error);
    }
  }
}

const DelimitedFinding* First(IDelimitedReader& reader, FindingCode code) {
  const std::vector<DelimitedFinding>& all = reader.Findings();
  const auto found = std::find_if(all.begin(), all.end(),
                                  [code](const DelimitedFinding& one) { return one.code == code; });
  return found == all.end() ? nullptr : &*found;
}

bool IsPlainLabel(std::string_view label) {
  const auto is_letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  return !label.empty() && is_letter(label.front()) &&
         std::all_of(label.begin(), label.end(),
                     [&](char c) { return is_letter(c) || c == '_' || (c >= '0' && c <= '9'); });
}

class FileSurveyor {
 public:
  FileSurveyor(std::shared_ptr<TextSource> source, const DelimitedOptions& options) {
    file_.source = std::move(source);
    file_.options = options;
    has_header_option_ = options.has_header.has_value();
  }

  DelimitedFile Run() {
    try {
      file_.source->RequireText();
    } catch (const Failure& failure) {
      Fault(0, failure.what());
      return std::move(file_);
    }
    reader_ = CreateObject<IDelimitedReader>(class_id::kDelimitedReader);
    Reading([&] {
      Open();
      NotePreamble();
      Walk();
    });
    TakeDialect();
    TakeCounts();
    NoteFaults();
    TellFindings();
    file_.is_plain = IsPlain();
    return std::move(file_);
  }

 private:
  /// A first line of texts above texts is taken for the labels where there are several columns: a
  /// table without labels is the rarer one, and the note tells.
  void Open() {
    const std::string_view bytes = file_.source->Bytes();
    reader_->OpenText(bytes, file_.source->Name(), file_.options);
    const DelimitedFinding* unclear = First(*reader_, FindingCode::kNoHeader);
    if (unclear == nullptr || reader_->Dialect().columns < 2) return;
    AddNote(FindingCode::kNoHeader,
            fmt::format("line {}: taken for the labels, though it could be a record "
                        "(--no-labels takes it for one)",
                        unclear->line));
    file_.options.has_header = true;
    reader_->OpenText(bytes, file_.source->Name(), file_.options);
  }

  void Walk() {
    const std::string_view bytes = file_.source->Bytes();
    Progress progress(Terminal::OfStandardError());
    progress.Begin("Checking", std::count(bytes.begin(), bytes.end(), '\n'));
    DelimitedBlock block;
    while (reader_->Next(block)) {
      StopIfInterrupted();
      progress.Step(block.first_record);
      if (file_.survey.columns == 0) TakeWidth(block);
      Note(block);
    }
  }

  void AddNote(FindingCode code, std::string words) {
    file_.notes.push_back({code, std::move(words)});
  }

  void Fault(std::int64_t line, std::string words) {
    ++file_.fault_count;
    file_.faults.push_back({line, std::move(words)});
  }

  void NotePreamble() {
    const DelimitedFinding* found = First(*reader_, FindingCode::kPreamble);
    if (found == nullptr || file_.options.skips_preamble) return;
    Fault(1,
          fmt::format("line 1: {} before the table (--skip-lines {} passes over {}, --skip-lines "
                      "0 takes {} for records)",
                      found->value == "1" ? "a line stands" : found->value + " lines stand",
                      found->value, found->value == "1" ? "it" : "them",
                      found->value == "1" ? "it" : "them"));
  }

  void TakeWidth(const DelimitedBlock& block) {
    CellSurvey& survey = file_.survey;
    survey.columns = block.columns;
    survey.missing_by_column.assign(block.columns, 0);
    first_record_line_ = block.lines[0];
    if (block.columns > kMostColumns) {
      Fault(block.lines[0], fmt::format("line {} has {} columns; a run holds {} at most",
                                        block.lines[0], block.columns, kMostColumns));
    }
  }

  void Note(const DelimitedBlock& block) {
    CellSurvey& survey = file_.survey;
    const DelimitedField* field = block.fields;
    for (std::size_t record = 0; record < block.records; ++record) {
      for (std::size_t column = 0; column < block.columns; ++column, ++field) {
        if (field->is_quoted) ++survey.quoted.count;
        if (field->field_class == FieldClass::kNumber) continue;
        const bool is_missing = field->field_class == FieldClass::kMissing;
        (is_missing ? survey.missing : survey.text)
            .Note(block.lines[record], column, field->Text());
        if (is_missing) ++survey.missing_by_column[column];
      }
    }
  }

  void TakeDialect() {
    file_.dialect = reader_->Dialect();
    file_.labels = reader_->Header().labels;
    DelimitedOptions& settled = file_.options;
    settled.separator = file_.dialect.separator;
    settled.has_quotes = file_.dialect.has_quotes;
    settled.decimal = file_.dialect.decimal;
    settled.has_header = file_.dialect.has_header;
    settled.preamble_lines = file_.dialect.preamble_lines;
  }

  void TakeCounts() {
    const DelimitedCounts& counts = reader_->Counts();
    CellSurvey& survey = file_.survey;
    survey.lines = counts.lines;
    survey.records = counts.records;
    survey.label_lines = reader_->Header().line == 0 ? 0 : 1;
    survey.empty_lines = counts.empty_lines;
    if (const std::int64_t line = reader_->Header().line; line > 1) {
      survey.empty_lines += line - 1 - reader_->Dialect().preamble_lines;
    }
  }

  void NoteFaults() {
    for (const DelimitedFinding& found : reader_->Findings()) {
      if (found.code == FindingCode::kNulByte) {
        Fault(found.line, reader_->MessageOf(found));
      } else if (found.code == FindingCode::kUnevenRecord) {
        Fault(found.line, UnevenRecord(fmt::format("line {}", found.line), std::stoull(found.value),
                                       first_record_line_, file_.survey.columns));
      } else if (found.code == FindingCode::kUnevenHeader) {
        Fault(found.line, fmt::format("line {}: the header has {} labels, but the records have {} "
                                      "columns (--no-labels takes it for a record)",
                                      found.line, found.value, reader_->Dialect().columns));
      }
    }
    const auto held = std::count_if(
        reader_->Findings().begin(), reader_->Findings().end(),
        [](const DelimitedFinding& one) { return one.code == FindingCode::kUnevenRecord; });
    file_.fault_count += reader_->FindingCount(FindingCode::kUnevenRecord) - held;
    CellSurvey& survey = file_.survey;
    const bool is_lone_label_line =
        survey.records == 1 && !file_.options.has_header.value_or(true) && !has_header_option_ &&
        survey.text.count == static_cast<std::int64_t>(survey.columns);
    if (is_lone_label_line) {
      survey.records = 0;
      survey.label_lines = 1;
    }
    if (survey.records > 0 || file_.fault_count > 0) return;
    Fault(0,
          fmt::format(
              "there are no records: {} lines, {} of them the label line and {} empty{}",
              survey.lines, survey.label_lines, survey.empty_lines,
              survey.label_lines == 0 ? "" : " (--no-labels takes the first line for a record)"));
  }

  void TellFindings() {
    for (const FindingCode code : kTold) {
      const DelimitedFinding* found = First(*reader_, code);
      if (found == nullptr) continue;
      const std::int64_t others = reader_->FindingCount(code) - 1;
      AddNote(code, Escaped(reader_->MessageOf(*found)) +
                        (others == 0 ? "" : fmt::format(" ({} more like it)", others)));
    }
  }

  bool IsPlain() const {
    const CellSurvey& survey = file_.survey;
    const DelimitedDialect& dialect = file_.dialect;
    return survey.empty_lines == 0 && survey.missing.count == 0 && survey.text.count == 0 &&
           survey.quoted.count == 0 && dialect.decimal == '.' && dialect.preamble_lines == 0 &&
           !dialect.has_row_names && dialect.encoding == "UTF-8" && reader_->Findings().empty() &&
           file_.notes.empty() && !file_.source->IsCompressed() &&
           dialect.has_header == (survey.label_lines != 0) &&
           std::all_of(file_.labels.begin(), file_.labels.end(), IsPlainLabel) &&
           file_.source->Bytes().find('"') == std::string_view::npos &&
           HasUsualLineEnds(file_.source->Bytes());
  }

  DelimitedFile file_;
  Ref<IDelimitedReader> reader_;
  std::int64_t first_record_line_ = 0;
  bool has_header_option_ = false;
};

}  // namespace

DelimitedFile ExamineFile(const std::string& path, const DelimitedOptions& options) {
  return FileSurveyor(std::make_shared<TextSource>(path, TextSource::Content::kBytes), options)
      .Run();
}

DelimitedFile SurveyFile(const std::string& path, const DelimitedOptions& options) {
  DelimitedFile file = ExamineFile(path, options);
  if (file.fault_count == 0) return file;
  Refuse(file.faults.front().words +
         (file.fault_count == 1
              ? ""
              : fmt::format("; {} more (tslm5 check --all tells them)", file.fault_count - 1)));
}

FieldTable ReadTable(const DelimitedFile& file) {
  FieldTable table;
  table.columns = file.survey.columns;
  table.file_columns.resize(table.columns);
  std::iota(table.file_columns.begin(), table.file_columns.end(), std::size_t{0});
  table.labels = file.labels;
  table.decimal = file.dialect.decimal;
  table.lines = file.survey.lines;
  table.label_lines = file.survey.label_lines;
  table.empty_lines = file.survey.empty_lines;
  table.places.reserve(static_cast<std::size_t>(file.survey.records));
  table.fields.reserve(static_cast<std::size_t>(file.survey.records) * table.columns);
  auto texts = std::make_shared<TextArena>();
  const Ref<IDelimitedReader> reader = CreateObject<IDelimitedReader>(class_id::kDelimitedReader);
  Reading([&] {
    reader->OpenText(file.source->Bytes(), file.source->Name(), file.options);
    DelimitedBlock block;
    while (reader->Next(block)) {
      StopIfInterrupted();
      table.places.insert(table.places.end(), block.lines, block.lines + block.records);
      const std::size_t fields = block.records * block.columns;
      for (std::size_t i = 0; i < fields; ++i) {
        table.fields.push_back(texts->Keep(block.fields[i].Text()));
      }
    }
  });
  table.text = std::move(texts);
  return table;
}

FieldTable Turned(const FieldTable& table, bool has_labels) {
  FieldTable turned;
  const std::size_t first = has_labels ? 1 : 0;
  turned.place_word = "transposed line";
  turned.columns = table.Records();
  turned.text = table.text;
  turned.decimal = table.decimal;
  turned.file_columns.resize(turned.columns);
  std::iota(turned.file_columns.begin(), turned.file_columns.end(), std::size_t{0});
  turned.lines = static_cast<std::int64_t>(table.columns);
  turned.label_lines = has_labels ? 1 : 0;
  for (std::size_t line = 0; line < table.Records() && has_labels; ++line) {
    turned.labels.emplace_back(table.Field(line, 0));
  }
  for (std::size_t column = first; column < table.columns; ++column) {
    turned.places.push_back(static_cast<std::int64_t>(column) + 1);
    for (std::size_t line = 0; line < table.Records(); ++line) {
      turned.fields.push_back(table.Field(line, column));
    }
  }
  return turned;
}

const Separator& SeparatorOf(const DelimitedDialect& dialect) {
  return *std::find_if(
      std::begin(kSeparators), std::end(kSeparators),
      [&dialect](const Separator& one) { return one.character == dialect.separator; });
}

}  // namespace tslm5::host
