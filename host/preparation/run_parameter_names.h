#ifndef TSLM5_HOST_PREPARATION_RUN_PARAMETER_NAMES_H_
#define TSLM5_HOST_PREPARATION_RUN_PARAMETER_NAMES_H_

#include <string_view>

namespace tslm5::host {

/// The namespace of the run parameters that a preparation writes.
inline constexpr std::string_view kDataSpace = "data";
/// The namespace of the words that the user named as missing values: each is an element.
inline constexpr std::string_view kTokenSpace = "missing_token";
/// 1 where the user named the positive class, so that every other class is one.
inline constexpr std::string_view kPositiveClassNamed = "PositiveClassNamed";

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_PARAMETER_NAMES_H_
