#include "host/preparation/load_target.h"

#include <fmt/format.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "host/program/failure.h"
#include "host/program/file_placing.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr mode_t kMode = 0644;  // as the database engine makes a file

bool IsMissing(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) != 0 && errno == ENOENT;
}

[[noreturn]] void FailToMake(const std::string& run, int error) {
  throw Failure(ExitCode::kTrouble, fmt::format("The run {} cannot be made: {}", Escaped(run),
                                                std::generic_category().message(error)));
}

/// A journal without its run is that of another one, which was moved or deleted: a run that comes
/// to stand beside it would be overwritten from it.
void RefuseForeignJournal(const std::string& run, const std::string& place) {
  for (const char* ending : {"-journal", "-wal"}) {
    const std::string journal = place + ending;
    struct stat status {};
    if (::stat(journal.c_str(), &status) != 0) {
      if (errno == ENOENT) continue;
      FailToMake(run, errno);  // as for a name that leaves no room for that of its journal
    }
    throw Failure(
        ExitCode::kTrouble,
        fmt::format("The run {} cannot be made, because {} is left of another run of that "
                    "name: put that run back beside it, or remove it",
                    Escaped(run), Escaped(journal)));
  }
}

}  // namespace

LoadTarget::LoadTarget(const std::string& run) : run_(run), place_(EndOfLinks(run)) {
  if (!IsMissing(place_)) {
    session_.emplace(run_, RunOptions::Mode::kReadWrite);
    return;
  }
  MakeNew();
}

void LoadTarget::MakeNew() {
  RefuseForeignJournal(run_, place_);
  try {
    made_.emplace(place_, kMode);
  } catch (const std::system_error& error) {
    const std::filesystem::path folder = std::filesystem::path(place_).parent_path();
    if (folder.empty() || !IsMissing(folder)) FailToMake(run_, error.code().value());
    throw Failure(ExitCode::kTrouble,
                  fmt::format("The run {} cannot be made: there is no folder {}", Escaped(run_),
                              Escaped(folder.string())));
  }
  session_.emplace(made_->Path(), RunOptions::Mode::kReadWriteCreate);
}

void LoadTarget::Finish(Transaction& transaction) {
  // A new run has its name only later.
  OnceStored([&] { made_ ? transaction.Commit() : CommitChange(*session_, transaction); },
             [this] {
               session_.reset();
               if (made_) MoveToName();
             });
}

void LoadTarget::MoveToName() {
  if (IsMissing(place_)) RefuseForeignJournal(run_, place_);
  bool is_placed = false;
  try {
    is_placed = made_->Place();
  } catch (const std::system_error& error) {
    FailToMake(run_, error.code().value());
  }
  if (!is_placed) {
    throw Failure(
        ExitCode::kTrouble,
        fmt::format("{} was made by another program while this load was running; that run "
                    "stays as it is, and nothing of this load is in it; load again to "
                    "load into it",
                    Escaped(run_)));
  }
  if (const int error = SyncFolderOf(place_); error != 0) {
    throw Failure(ExitCode::kTrouble,
                  fmt::format("the load is stored in {}, but a power loss may still undo it: its "
                              "folder cannot be written to the disk: {}",
                              Escaped(run_), std::generic_category().message(error)));
  }
}

}  // namespace tslm5::host
