#ifndef TSLM5_TESTS_PLATFORM_RAISED_H_
#define TSLM5_TESTS_PLATFORM_RAISED_H_

#include <cstdint>

#include "tslm5/platform/error.h"

namespace tslm5 {

/// The error that `action` raises; number 0, which no error has, when it raises none.
template <class Action>
Error Raised(Action&& action) {
  try {
    action();
  } catch (const Error& error) {
    return error;
  }
  return Error(0, "", "nothing was raised");
}

/// The number of the error that `action` raises; 0 when it raises none.
template <class Action>
std::int32_t RaisedNumber(Action&& action) {
  return Raised(action).Number();
}

}  // namespace tslm5

#endif  // TSLM5_TESTS_PLATFORM_RAISED_H_
