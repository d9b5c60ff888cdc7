#include "engine/hot_journal.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <system_error>

#include "engine/run_path.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// The file that `path` leads to, since the journal stands beside that; `path` when that is
/// unknown.
std::string RealPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                         &std::free);
  return real == nullptr ? path : real.get();
}

/// Opens the database and reads its first page, which undoes what the journal holds if the
/// connection may write. SQLite's extended result code.
int ReadFirstPage(const std::string& path, int open_flags, std::int32_t busy_timeout_ms) {
  sqlite3* database = nullptr;
  int code = sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_NOMUTEX | open_flags, nullptr);
  if (code == SQLITE_OK) {
    sqlite3_busy_timeout(database, busy_timeout_ms);
    code = sqlite3_exec(database, "PRAGMA user_version", nullptr, nullptr, nullptr);
  }
  if (code != SQLITE_OK && database != nullptr) code = sqlite3_extended_errcode(database);
  sqlite3_close(database);
  return code;
}

/// Why the run at `path` cannot be written, or "" when it can.
std::string WhyNotWritable(const std::string& path) {
  const auto reason = [] {
    return " cannot be written: " + std::generic_category().message(errno);
  };
  if (access(path.c_str(), R_OK | W_OK) != 0) return "the file" + reason();
  const std::string folder = FolderOf(path);
  if (access(folder.c_str(), W_OK | X_OK) != 0) return "its folder " + folder + reason();
  return {};
}

[[noreturn]] void RaiseInterrupted(std::int32_t number, const std::string& path,
                                   const std::string& reason, const std::string& real) {
  throw Error(number, "OpenRun",
              "The run " + path +
                  " holds a change that was interrupted, which must be undone"
                  " before the run can be read, but " +
                  reason + ". Open it once where it can be written, or copy " + real + " and " +
                  real + "-journal together to a folder that can be written and open the copy.");
}

}  // namespace

Recovery RecoverRun(const std::string& path, std::int32_t busy_timeout_ms) {
  const std::string real = RealPath(path);
  struct stat journal {};
  if (stat((real + "-journal").c_str(), &journal) != 0 || journal.st_size == 0) return {};
  if (ReadFirstPage(real, SQLITE_OPEN_READONLY, busy_timeout_ms) != SQLITE_READONLY_ROLLBACK) {
    return {};
  }
  const std::string obstacle = WhyNotWritable(real);
  if (!obstacle.empty()) RaiseInterrupted(error_number::kFileAccess, path, obstacle, real);
  const int code = ReadFirstPage(real, SQLITE_OPEN_READWRITE, busy_timeout_ms);
  if (code != SQLITE_OK) {
    RaiseInterrupted(code, path, std::string("undoing it failed: ") + sqlite3_errstr(code), real);
  }
  return {true, static_cast<std::int64_t>(journal.st_mtime)};
}

}  // namespace tslm5
