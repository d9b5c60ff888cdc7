#ifndef TSLM5_HOST_PROGRAM_SHOWN_TEXT_H_
#define TSLM5_HOST_PROGRAM_SHOWN_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace tslm5::host {

/// `text` with everything that could disturb a terminal made visible: control and direction
/// characters, line ends and bytes that are no UTF-8 become \n, \t, \r, \xNN or \u{NNNN}.
std::string Escaped(std::string_view text);

/// `Escaped`, cut after 60 characters, the cut marked by "...".
std::string Cut(std::string_view text);

/// `Cut` between double quotes: how a foreign value is named in a message.
std::string Quoted(std::string_view text);

/// The columns that `text` takes on a terminal: wide characters take two, combining ones none.
std::size_t DisplayWidth(std::string_view text);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_SHOWN_TEXT_H_
