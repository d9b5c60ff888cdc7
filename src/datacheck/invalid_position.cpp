#include "datacheck/invalid_position.h"

namespace tslm5 {

InvalidPosition& LastInvalidPosition() {
  static InvalidPosition position;
  return position;
}

}  // namespace tslm5
