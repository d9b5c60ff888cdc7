#ifndef TSLM5_HOST_COMMANDS_CATEGORIES_COMMAND_H_
#define TSLM5_HOST_COMMANDS_CATEGORIES_COMMAND_H_

#include <optional>
#include <string>
#include <vector>

#include "host/preparation/code_changes.h"
#include "host/program/invocation.h"

namespace tslm5::host {

struct CategoriesOptions {
  std::string run;
  std::optional<std::string> column;
  std::vector<CodeChange> codes;
  bool checks = false;
  bool encodes = false;
  std::optional<std::string> positive_class;
  bool statistics = true;
  bool json = false;

  bool Changes() const { return !codes.empty() || encodes || positive_class.has_value(); }
  bool ConcernsResponse() const { return checks || encodes || positive_class.has_value(); }
};

/// `tslm5 categories`.
void AddCategoriesCommand(CommandSpec& app, Invocation& invocation);

ExitCode RunCategories(const CategoriesOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_CATEGORIES_COMMAND_H_
