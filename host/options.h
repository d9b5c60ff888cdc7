#ifndef TSLM5_HOST_OPTIONS_H_
#define TSLM5_HOST_OPTIONS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "host/row_range.h"
#include "host/separators.h"
#include "host/set_names.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {

struct LoadOptions {
  std::string file;
  std::string run;
  const SetName* set = nullptr;
  const Separator* separator = nullptr;  ///< nullptr: to be found out
  bool has_labels = true;
  std::int32_t layout = layout_code::kRecordsInRows;
  bool checks = true;      ///< the data check comes first
  bool statistics = true;  ///< the set's figures are computed
  bool json = false;
};

struct CheckOptions {
  std::string file;
  const Separator* separator = nullptr;  ///< nullptr: to be found out
  bool has_labels = true;
  std::int32_t problem_category = problem_category::kRegression;
  bool all = false;
  std::size_t most_problems = 20;  ///< of `all`, to be shown
  bool json = false;
};

struct InfoOptions {
  std::string run;
  bool json = false;
};

struct ShowOptions {
  enum class Format { kTable, kCsv, kJson };

  std::string run;
  const SetName* set = nullptr;
  RowRange rows;
  std::vector<std::string> columns;  ///< as given; empty: all
  Format format = Format::kTable;
};

struct StatsOptions {
  std::string run;
  const SetName* set = nullptr;
  bool by_class = false;
  bool json = false;
};

/// A text that was asked for instead of a command: help or the version.
struct HelpText {
  std::string text;
};

using Invocation =
    std::variant<LoadOptions, CheckOptions, InfoOptions, ShowOptions, StatsOptions, HelpText>;

/// What the command line asks for. Raises `Failure`, wrong usage.
Invocation ParseCommandLine(int argc, const char* const* argv);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_OPTIONS_H_
