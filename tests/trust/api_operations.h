#ifndef TSLM5_TESTS_TRUST_API_OPERATIONS_H_
#define TSLM5_TESTS_TRUST_API_OPERATIONS_H_

#include <span>
#include <string>

#include "tslm5/contracts/data_set.h"
#include "tslm5/engine/open_run.h"

namespace tslm5::trust {

/// What an operation works on.
struct Subject {
  std::string run_path;         ///< "" for a set in memory alone
  std::string file;             ///< a text to be loaded; "" where none is
  Ref<IConnectionService> run;  ///< empty for a set in memory alone
  Ref<IDataSet> set;            ///< the set whose content is looked at afterwards
  Ref<IUnknown> source;         ///< what the operation reads, where it needs it
};

/// One operation of the public interface that changes something.
struct Operation {
  const char* name;
  void (*prepare)(Subject&);  ///< up to the call that is tried
  bool (*perform)(Subject&);  ///< the call; false when it says itself that it did nothing
};

/// Every operation that is tried.
std::span<const Operation> Operations();

}  // namespace tslm5::trust

#endif  // TSLM5_TESTS_TRUST_API_OPERATIONS_H_
