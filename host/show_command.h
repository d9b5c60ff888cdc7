#ifndef TSLM5_HOST_SHOW_COMMAND_H_
#define TSLM5_HOST_SHOW_COMMAND_H_

#include <string>
#include <vector>

#include "host/invocation.h"
#include "host/row_range.h"
#include "host/set_names.h"

namespace tslm5::host {

struct ShowOptions {
  enum class Format { kTable, kCsv, kJson };

  std::string run;
  const SetName* set = nullptr;
  RowRange rows;
  std::vector<std::string> columns;  ///< as given; empty: all
  Format format = Format::kTable;
  bool originals = false;  ///< the untransformed texts too
};

/// `tslm5 show`.
void AddShowCommand(CLI::App& app, Invocation& invocation);

void RunShow(const ShowOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_SHOW_COMMAND_H_
