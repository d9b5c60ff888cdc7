#ifndef TSLM5_HOST_LOAD_COMMAND_H_
#define TSLM5_HOST_LOAD_COMMAND_H_

#include <cstdint>
#include <string>
#include <vector>

#include "host/invocation.h"
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

/// `tslm5 load`.
void AddLoadCommand(CLI::App& app, Invocation& invocation);

/// The words of the command line that loads the same again, `separator` having been found out.
std::vector<std::string> LoadWords(const LoadOptions& options, const Separator& separator);

void RunLoad(const LoadOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_LOAD_COMMAND_H_
