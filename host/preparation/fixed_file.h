#ifndef TSLM5_HOST_PREPARATION_FIXED_FILE_H_
#define TSLM5_HOST_PREPARATION_FIXED_FILE_H_

#include <memory>
#include <optional>
#include <string>

#include "host/preparation/cell_survey.h"
#include "host/preparation/delimited_text.h"
#include "host/preparation/load_options.h"
#include "host/preparation/text_source.h"

namespace tslm5::host {

/// A file as the contract's loader sees it.
struct FixedFile {
  std::shared_ptr<const TextSource> source;
  std::shared_ptr<const std::string> transposed;  ///< the text, where its lines are columns
  DelimitedText text;
  SeparatorChoice separator;
};

/// Reads the file, once; its separator is found out where none was asked for.
FixedFile ReadFixedFile(const LoadOptions& options, bool comma_is_decimal);

/// Raises `Failure`, refused, where every line holds commas that the user's locale takes for
/// decimal separators.
void RequireGuess(const SeparatorChoice& choice);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_FIXED_FILE_H_
