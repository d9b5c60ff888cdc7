#ifndef TSLM5_HOST_PROGRAM_COMMON_OPTIONS_H_
#define TSLM5_HOST_PROGRAM_COMMON_OPTIONS_H_

#include <cstdint>
#include <string>

#include "host/program/command_spec.h"

namespace tslm5::host {

// The options that several commands have in common, so that they are told in the same words.

/// The run database as the command's first word. `RunName` of it gives the options' value.
void AddRun(CommandSpec& command, std::string& run);

/// `--set`, of the training and the testing set.
void AddDataSet(CommandSpec& command, std::string& set, const std::string& purpose);

/// The same, of every set that a run can hold.
void AddAnyDataSet(CommandSpec& command, std::string& set, const std::string& purpose);

/// `--separator`; "auto" means to be found out.
void AddSeparator(CommandSpec& command, std::string& separator);

/// `--problem`; `ProblemCategory` of it gives the code. `purpose` is its help text.
void AddProblem(CommandSpec& command, std::string& problem, const std::string& purpose);

/// `--json`. Returns the option.
OptionSpec AddJson(CommandSpec& command, bool& json);

/// The code (`problem_category`) of a problem as the user names it.
std::int32_t ProblemCategory(const std::string& name);

/// The name of a problem's code, as the user names it.
std::string ProblemName(std::int32_t code);

/// The whole number that `word`, the value of `option`, is. Raises `Failure`, wrong usage, for one
/// outside [`lowest`, `highest`] and for what is none.
std::int32_t ParseWhole(const char* option, const std::string& word, std::int32_t lowest,
                        std::int32_t highest);

/// `run`, when it is the path of a file. Raises `Failure`, wrong usage, for what only the database
/// engine would understand.
std::string RunName(const std::string& run);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_COMMON_OPTIONS_H_
