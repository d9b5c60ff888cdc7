#include "platform/only_errors.h"

#include <exception>
#include <new>
#include <stdexcept>

namespace tslm5 {
namespace {

[[noreturn]] void RaiseInnerAsError() {
  try {
    throw;
  } catch (const Error&) {
    throw;
  } catch (const std::bad_alloc&) {
    RaiseOutOfMemory();
  } catch (const std::length_error&) {  // a text or a vector larger than any can be
    RaiseOutOfMemory();
  } catch (const std::exception& exception) {
    throw Error(error_number::kForeignException, "", exception.what());
  } catch (...) {
    throw Error(error_number::kForeignException, "", "An exception that tells nothing of itself.");
  }
}

}  // namespace

void RaiseAsError() {
  try {
    RaiseInnerAsError();
  } catch (const std::bad_alloc&) {  // no memory for its words
    RaiseOutOfMemory();
  }
}

}  // namespace tslm5
