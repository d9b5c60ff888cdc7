#ifndef TSLM5_TESTS_ENGINE_UNSYNCED_FOLDER_H_
#define TSLM5_TESTS_ENGINE_UNSYNCED_FOLDER_H_

#include <sqlite3.h>

namespace tslm5 {

/// While it stands, no folder can be synced after a file of a database was removed from it. Reaches
/// the databases that are opened meanwhile, and those alone; let them go first.
class UnsyncedFolder {
 public:
  UnsyncedFolder() : vfs_(*System()) {
    vfs_.zName = "unsynced";
    vfs_.pNext = nullptr;
    vfs_.xDelete = [](sqlite3_vfs* vfs, const char* path, int syncs_folder) {
      const int code = System()->xDelete(vfs, path, syncs_folder);
      return code == SQLITE_OK && syncs_folder != 0 ? SQLITE_IOERR_DIR_FSYNC : code;
    };
    sqlite3_vfs_register(&vfs_, 1);
  }
  ~UnsyncedFolder() { sqlite3_vfs_unregister(&vfs_); }
  UnsyncedFolder(const UnsyncedFolder&) = delete;
  UnsyncedFolder& operator=(const UnsyncedFolder&) = delete;

 private:
  static sqlite3_vfs* System() { return sqlite3_vfs_find("unix"); }

  sqlite3_vfs vfs_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_ENGINE_UNSYNCED_FOLDER_H_
