// Where the shim wakes up: at main(), so that the loader and static objects are not counted. The
// library's own SQLite pragma for the page cache can be overruled here, so that a small run spills.
#include <cstdlib>
#include <cstring>

#include "trust/disk_log.h"
#include "trust/fault_plan.h"
#include "trust/next_function.h"

namespace tslm5::trust {
namespace {

using Main = int(int, char**, char**);
Main* real_main = nullptr;

int CountedMain(int argc, char** argv, char** environment) {
  FaultPlan::Read();
  DiskLog::Open();
  const char* const start = std::getenv("TRUST_START");
  if (start == nullptr || std::strcmp(start, "call") != 0) FaultPlan::Start();
  return real_main(argc, argv, environment);
}

[[gnu::destructor]] void AtTheEnd() {
  FaultPlan::Stop();
  FaultPlan::WriteCounts();
}

constexpr char kCachePragma[] = "PRAGMA cache_size";

}  // namespace
}  // namespace tslm5::trust

struct sqlite3;
struct sqlite3_stmt;

extern "C" {

#define TRUST_EXPORT __attribute__((visibility("default")))

TRUST_EXPORT void TrustStart() {
  tslm5::trust::FaultPlan::Start();
}

TRUST_EXPORT void TrustStop() {
  tslm5::trust::FaultPlan::Stop();
}

TRUST_EXPORT int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv,
                                   void (*init)(), void (*finish)(), void (*loader)(),
                                   void* stack_end) {
  using Start =
      int(int (*)(int, char**, char**), int, char**, void (*)(), void (*)(), void (*)(), void*);
  tslm5::trust::real_main = main;
  return tslm5::trust::NextFunction<Start>("__libc_start_main")(
      tslm5::trust::CountedMain, argc, argv, init, finish, loader, stack_end);
}

/// TRUST_CACHE_PAGES replaces the page cache that the engine asks for.
TRUST_EXPORT int sqlite3_prepare_v2(sqlite3* database, const char* sql, int size,
                                    sqlite3_stmt** statement, const char** tail) {
  using Prepare = int(sqlite3*, const char*, int, sqlite3_stmt**, const char**);
  static Prepare* const next = tslm5::trust::NextFunction<Prepare>("sqlite3_prepare_v2");
  const char* const pages = std::getenv("TRUST_CACHE_PAGES");
  const std::size_t length = sizeof tslm5::trust::kCachePragma - 1;
  if (pages == nullptr || std::strncmp(sql, tslm5::trust::kCachePragma, length) != 0) {
    return next(database, sql, size, statement, tail);
  }
  static char text[64];
  std::strcpy(text, "PRAGMA cache_size = ");
  std::strncat(text, pages, 20);
  const char* own_tail = nullptr;
  const int code = next(database, text, -1, statement, &own_tail);
  if (tail != nullptr) *tail = size >= 0 ? sql + size : sql + std::strlen(sql);
  return code;
}

}  // extern "C"
