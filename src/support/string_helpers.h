#ifndef TSLM5_SUPPORT_STRING_HELPERS_H_
#define TSLM5_SUPPORT_STRING_HELPERS_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tslm5::StringHelpers {

/// Re-arranges the fields of a delimited text after its layout code (`layout_code`).
/// 2: the transposition; its line k holds field k of every line, and there are as many lines as
/// the first line has fields. A shorter line leaves the output lines past its fields short; a
/// longer one raises 9 with its line number, so that no value is lost.
/// 3: the first field of every line moved to its end.
/// Any other code: the text as it is. Pass the text by move to spare the copy.
std::string RearrangeText(std::string text, std::string_view separator, std::int32_t layout);

}  // namespace tslm5::StringHelpers

#endif  // TSLM5_SUPPORT_STRING_HELPERS_H_
