#ifndef TSLM5_HOST_PREPARATION_DELIMITED_FILE_H_
#define TSLM5_HOST_PREPARATION_DELIMITED_FILE_H_

#include <memory>
#include <string>
#include <vector>

#include "host/preparation/cell_survey.h"
#include "host/preparation/field_table.h"
#include "host/preparation/text_source.h"
#include "tslm5/contracts/delimited_reader.h"

namespace tslm5::host {

/// What keeps a file from being loaded.
struct TextFault {
  std::int64_t line = 0;  ///< of the file, 1-based; 0 where it concerns all of it
  std::string words;      ///< the place included
};

/// What there is to tell of a file that is no fault.
struct TextNote {
  FindingCode code;
  std::string words;  ///< the place included
};

/// A file, read once, and what a walk over all its records has shown.
struct DelimitedFile {
  std::shared_ptr<TextSource> source;
  DelimitedOptions options;  ///< the dialect as it is settled: another walk finds the same
  DelimitedDialect dialect;
  std::vector<std::string> labels;  ///< empty where there are none
  CellSurvey survey;
  std::vector<TextFault> faults;  ///< the first hundred of a kind
  std::int64_t fault_count = 0;
  std::vector<TextNote> notes;
  /// Whether the contract's own loader reads just these records: numbers alone, plainly written.
  bool is_plain = false;
  bool is_decoded = false;  ///< the bytes have become a text; the records are read no more
};

/// Reads the file, finds the dialect where `options` leave it open, and walks over all records.
/// Raises `Failure`: file trouble where it cannot be read; refused, with the place, for a text
/// without records, for more columns than a run holds, for a record or a header of another width
/// than the table, for lines before the table that nobody asked to skip, and for a NUL byte.
DelimitedFile SurveyFile(const std::string& path, const DelimitedOptions& options);

/// The same, but what is wrong with the records is noted among the faults and not raised.
DelimitedFile ExamineFile(const std::string& path, const DelimitedOptions& options);

/// The records of the file, in a table that keeps their texts itself.
FieldTable ReadTable(const DelimitedFile& file);

/// The table with its lines as columns and its columns as records; with `has_labels`, what was the
/// first column are the labels.
FieldTable Turned(const FieldTable& table, bool has_labels);

/// The separator as the user names it.
const Separator& SeparatorOf(const DelimitedDialect& dialect);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_DELIMITED_FILE_H_
