// A component library whose own start fails.
#include <stdexcept>

#include "tslm5/component/entry_points.h"

namespace {

struct Start {
  Start() { throw std::runtime_error("there is no licence"); }
};
const Start kStart;

}  // namespace

int32_t DllGetClassObject(const void*, const void*, void**) {
  return TSLM5_CLASS_NOT_AVAILABLE;
}

int32_t DllCanUnloadNow(void) {
  return TSLM5_FALSE;
}
