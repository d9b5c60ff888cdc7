#ifndef TSLM5_HOST_PREPARATION_MEMORY_FILE_H_
#define TSLM5_HOST_PREPARATION_MEMORY_FILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace tslm5::host {

/// A file in memory that no other program can name or change. It has a path, for those who take
/// their bytes from a path, and its bytes are in memory once however often they are looked at.
///
/// Every operation raises `std::system_error` with the system's reason.
class MemoryFile {
 public:
  MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  ~MemoryFile();

  /// REQUIRES: not sealed yet.
  void Append(std::string_view bytes);
  /// From now on nothing can change the bytes.
  void Seal();

  /// All bytes; they live as long as the file. REQUIRES: sealed.
  std::string_view Bytes() const { return {bytes_, size_}; }
  /// Where this program can open the file.
  std::string Path() const;

 private:
  int descriptor_;
  const char* bytes_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_MEMORY_FILE_H_
