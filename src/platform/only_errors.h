#ifndef TSLM5_PLATFORM_ONLY_ERRORS_H_
#define TSLM5_PLATFORM_ONLY_ERRORS_H_

#include <utility>

#include "tslm5/platform/error.h"

namespace tslm5 {

/// Raises the exception that is being handled as an `Error`: an `Error` as it is, the failure of an
/// allocation as 7, anything else as 51 with its words. Allocates nothing that it needs.
[[noreturn]] void RaiseAsError();

/// The boundary of an interface, where nothing but `Error` may pass: what `operation()` gives, or
/// its failure raised by `RaiseAsError`. Every operation of an interface stands behind it, or,
/// where it has more than one statement, behind a `try` of its whole body that ends in
/// `RaiseAsError`; only those that read or write a plain value need none.
template <class Operation>
inline decltype(auto) OnlyErrors(Operation&& operation) {
  try {
    return std::forward<Operation>(operation)();
  } catch (...) {
    RaiseAsError();
  }
}

/// The boundary of an operation that never raises: what `operation()` gives, or the empty value of
/// its type where it fails.
template <class Operation>
inline auto OrEmpty(Operation&& operation) noexcept -> decltype(operation()) {
  try {
    return std::forward<Operation>(operation)();
  } catch (...) {
    return {};
  }
}

}  // namespace tslm5

#endif  // TSLM5_PLATFORM_ONLY_ERRORS_H_
