#ifndef TSLM5_TESTS_TRUST_NEXT_FUNCTION_H_
#define TSLM5_TESTS_TRUST_NEXT_FUNCTION_H_

#include <dlfcn.h>

namespace tslm5::trust {

/// The function `name` that the program would have called without the shim.
template <class Function>
Function* NextFunction(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace tslm5::trust

#endif  // TSLM5_TESTS_TRUST_NEXT_FUNCTION_H_
