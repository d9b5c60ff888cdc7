// Calls one operation of the public interface, with the shim counting that call alone.
//
//     trust_api OPERATION RUN FILE [--again|--look]     RUN and FILE may be ""
//     trust_api --list
//
// Prints how the call ended, and what the set holds then. With --again a call that failed is tried
// once more, in the same process, the shim looking away. With --look there is no call. Exit code 0
// when the last call was done.
#include <dlfcn.h>

#include <bit>
#include <cstdio>
#include <cstring>
#include <exception>

#include "trust/api_operations.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5::trust {
namespace {

/// Tells the shim, where there is one.
void CallShim(const char* name) {
  using Function = void();
  if (auto* const function = reinterpret_cast<Function*>(::dlsym(RTLD_DEFAULT, name))) function();
}

/// FNV-1a of all that a set serves.
class Hash {
 public:
  void Add(std::string_view text) {
    for (const char byte : text) {
      value_ = (value_ ^ static_cast<unsigned char>(byte)) * 0x100000001b3ULL;
    }
    value_ = (value_ ^ 0xFFU) * 0x100000001b3ULL;
  }
  void Add(double number) { Add(std::to_string(std::bit_cast<std::uint64_t>(number))); }
  std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 0xcbf29ce484222325ULL;
};

void PrintSet(const Ref<IDataSet>& set) {
  if (!set) return;
  const std::int32_t rows = set->Rows();
  const std::int32_t columns = set->Columns();
  Hash hash;
  std::string labels;
  for (std::int32_t column = 0; column < columns; ++column) {
    labels += (column > 0 ? "," : "") + set->GetLabel(column);
    for (std::int32_t row = 0; row < rows; ++row) hash.Add(set->GetItem(column, row));
  }
  const auto extra = set.As<IExtraSet>();
  const std::int32_t extra_rows = extra && extra->Columns() > 0 ? extra->Rows() : 0;
  for (std::int32_t row = 0; row < extra_rows; ++row) hash.Add(extra->GetItem(0, row));
  std::printf("set: %d x %d + %d, labels %d %s, ready %d, %016llx\n", rows, columns, extra_rows,
              static_cast<int>(set->HasLabels()), labels.c_str(), static_cast<int>(set->IsReady()),
              static_cast<unsigned long long>(hash.Value()));
}

enum class Ending { kDone, kStored, kFailed };  // stored: but told as not safe from a power loss

Ending Attempt(const Operation& operation, Subject& subject, bool with_faults) {
  // Kept on the stack: nothing is to be allocated while the shim fails allocations.
  char words[512] = "done";
  auto ending = Ending::kFailed;
  if (with_faults) CallShim("TrustStart");
  try {
    if (operation.perform(subject)) {
      ending = Ending::kDone;
    } else {
      std::strcpy(words, "false");
    }
  } catch (const Error& error) {
    if (IsStored(error)) ending = Ending::kStored;
    std::snprintf(words, sizeof words, "error %d: %s", error.Number(), error.what());
  } catch (const std::exception& exception) {
    std::snprintf(words, sizeof words, "exception %s", exception.what());
  }
  CallShim("TrustStop");
  std::printf("attempt: %s\n", words);
  try {
    PrintSet(subject.set);
  } catch (const std::exception& exception) {
    std::printf("set: unreadable, %s\n", exception.what());
  }
  return ending;
}

int Run(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--list") == 0) {
    for (const Operation& operation : Operations()) std::printf("%s\n", operation.name);
    return 0;
  }
  const bool again = argc == 5 && std::strcmp(argv[4], "--again") == 0;
  const bool only_looks = argc == 5 && std::strcmp(argv[4], "--look") == 0;
  if (argc != 4 && !again && !only_looks) {
    std::fprintf(stderr, "usage: trust_api OPERATION RUN FILE [--again|--look]\n");
    return 2;
  }
  for (const Operation& operation : Operations()) {
    if (std::strcmp(operation.name, argv[1]) != 0) continue;
    Subject subject;
    subject.run_path = argv[2];
    subject.file = argv[3];
    operation.prepare(subject);
    if (only_looks) {
      PrintSet(subject.set);
      return 0;
    }
    Ending ending = Attempt(operation, subject, true);
    if (ending == Ending::kFailed && again) ending = Attempt(operation, subject, false);
    return ending == Ending::kDone ? 0 : 3;
  }
  std::fprintf(stderr, "trust_api: no operation %s\n", argv[1]);
  return 2;
}

}  // namespace
}  // namespace tslm5::trust

int main(int argc, char** argv) {
  try {
    return tslm5::trust::Run(argc, argv);
  } catch (const std::exception& exception) {
    std::fprintf(stderr, "trust_api: before the call: %s\n", exception.what());
    return 4;
  }
}
