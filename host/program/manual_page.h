#ifndef TSLM5_HOST_PROGRAM_MANUAL_PAGE_H_
#define TSLM5_HOST_PROGRAM_MANUAL_PAGE_H_

#include <string>

namespace CLI {
class App;
}

namespace tslm5::host {

/// The program's manual page, section 1, in the man macros of roff.
std::string ManualPage(const CLI::App& program, const std::string& version);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_MANUAL_PAGE_H_
