#ifndef TSLM5_TESTS_BOUNDARY_CALLBACKS_H_
#define TSLM5_TESTS_BOUNDARY_CALLBACKS_H_

#include <functional>
#include <string>
#include <vector>

#include "tslm5/platform/unknown.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// What a callback may need beside the set.
struct CallbackScene {
  Variant run;         ///< a run object; empty for a set without one
  std::string file;    ///< the path of a text of two records and two columns
  IUnknown* source{};  ///< an `InMemorySet` of two records
};

/// An operation of a set that a handler calls in the middle of another one.
struct Callback {
  const char* name;
  /// It may change what the set holds, or what the operation around it is working on. Any other one
  /// must leave no trace.
  bool changes;
  std::function<void(IUnknown* set, const CallbackScene& scene)> call;
};

/// Every operation of every interface of the dataset classes. One of an interface that a set does
/// not have does nothing; one that cannot be done raises.
const std::vector<Callback>& Callbacks();

}  // namespace tslm5

#endif  // TSLM5_TESTS_BOUNDARY_CALLBACKS_H_
