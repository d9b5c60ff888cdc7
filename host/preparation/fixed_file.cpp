#include "host/preparation/fixed_file.h"

#include "host/program/failure.h"

namespace tslm5::host {
namespace {

SeparatorChoice ChooseSeparator(const LoadOptions& options, std::string_view text,
                                bool comma_is_decimal) {
  if (options.separator != nullptr) return {options.separator, "as asked for"};
  SeparatorChoice choice = GuessSeparator(text, comma_is_decimal);
  RequireGuess(choice);
  const bool is_none = choice.separator->code == separator_code::kNone;
  if (is_none && options.layout == layout_code::kRecordsInColumns) {
    throw Failure(ExitCode::kRefused,
                  "no separator gives the same number of fields in every line; with the layout "
                  "columns one is needed (--separator)");
  }
  return choice;
}

}  // namespace

void RequireGuess(const SeparatorChoice& choice) {
  if (!choice.is_comma_passed_over) return;
  throw Failure(ExitCode::kRefused,
                "every line holds commas, but in your locale they are decimal separators; say "
                "--separator comma, or --separator none for one column");
}

FixedFile ReadFixedFile(const LoadOptions& options, bool comma_is_decimal) {
  FixedFile read;
  read.source = std::make_shared<TextSource>(options.file);
  read.source->RequireText();
  DelimitedText& text = read.text;
  text.text = read.source->Text();
  text.path = read.source->Path();
  read.separator = ChooseSeparator(options, text.text, comma_is_decimal);
  text.separator = read.separator.separator;
  text.has_label_line = options.has_labels;
  text.is_transposed = options.layout == layout_code::kRecordsInColumns;
  if (text.is_transposed) {
    read.transposed = std::make_shared<std::string>(Transposed(text.text, *text.separator));
    text.text = *read.transposed;
  }
  return read;
}

}  // namespace tslm5::host
