#include "engine/run_path.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

[[noreturn]] void Raise(std::int32_t number, const std::string& description) {
  throw Error(number, "OpenRun", description);
}

std::string Reason(int error) {
  return std::generic_category().message(error);
}

void CheckFile(const std::string& path, const RunOptions& options) {
  const bool writes = options.mode != RunOptions::Mode::kReadOnly;
  if (access(path.c_str(), writes ? R_OK | W_OK : R_OK) != 0) {
    Raise(error_number::kFileAccess, "The run " + path + " cannot be " +
                                         (writes ? "written: " : "read: ") + Reason(errno) + ".");
  }
  const std::string folder = FolderOf(path);
  if (writes && access(folder.c_str(), W_OK) != 0) {
    Raise(error_number::kFileAccess, "The run " + path + " cannot be written, because its folder " +
                                         folder + " cannot: " + Reason(errno) + ".");
  }
}

void CheckNewFile(const std::string& path, const RunOptions& options) {
  if (options.mode != RunOptions::Mode::kReadWriteCreate) {
    Raise(error_number::kFileNotFound, "There is no run " + path + ".");
  }
  const std::string folder = FolderOf(path);
  struct stat status {};
  if (stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
    Raise(error_number::kFileNotFound,
          "The run " + path + " cannot be made: there is no folder " + folder + ".");
  }
  if (access(folder.c_str(), W_OK | X_OK) != 0) {
    Raise(error_number::kFileAccess, "The run " + path + " cannot be made, because its folder " +
                                         folder + " cannot be written: " + Reason(errno) + ".");
  }
}

}  // namespace

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

void CheckRunPath(const std::string& path, const RunOptions& options) {
  if (options.in_memory) {
    if (!path.empty()) {
      Raise(error_number::kInvalidArgument,
            "A run in memory has no path, but one was given: " + path);
    }
    return;
  }
  if (path.empty() || path.starts_with(":") || path.starts_with("file:") ||
      path.find('\0') != std::string::npos) {
    Raise(error_number::kInvalidArgument,
          "The path of a run must name a file; \"" + path + "\" does not.");
  }
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT) return CheckNewFile(path, options);
    Raise(error_number::kFileAccess, "The run " + path + " cannot be read: " + Reason(errno) + ".");
  }
  if (S_ISDIR(status.st_mode)) {
    Raise(error_number::kFileAccess, "The run " + path + " is a folder; a file was expected.");
  }
  if (!S_ISREG(status.st_mode))
    Raise(error_number::kFileAccess, "The run " + path + " is not a file.");
  CheckFile(path, options);
}

void CheckOpenedRun(const std::string& path, const RunOptions& options, bool is_read_only,
                    std::int32_t schema_version) {
  if (is_read_only && options.mode != RunOptions::Mode::kReadOnly) {
    Raise(error_number::kFileAccess, "The run " + path + " can only be read, not written.");
  }
  if (options.newest_schema_version > 0 && schema_version > options.newest_schema_version) {
    Raise(error_number::kInvalidArgument,
          "The run " + path + " has schema version " + std::to_string(schema_version) +
              ", which is newer than " + std::to_string(options.newest_schema_version) +
              ", the newest that this program understands.");
  }
}

void RaiseCannotOpen(const std::string& path, std::int32_t number) {
  Raise(number, "The run " + path + " cannot be opened: " + sqlite3_errstr(number) + ".");
}

}  // namespace tslm5
