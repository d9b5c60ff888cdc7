#ifndef TSLM5_DELIMITED_BYTE_SOURCE_H_
#define TSLM5_DELIMITED_BYTE_SOURCE_H_

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tslm5::delimited {

/// The bytes of a text, read once from front to back. Caller's thread only.
class ByteSource {
 public:
  explicit ByteSource(std::string name) : name_(std::move(name)) {}
  virtual ~ByteSource() = default;
  ByteSource(const ByteSource&) = delete;
  ByteSource& operator=(const ByteSource&) = delete;

  /// Copies up to `room` bytes to `to` and returns how many; 0 at the end alone. It may give fewer
  /// than there is room for, as a pipe does. Raises 75 with the name and the system's reason.
  virtual std::size_t Read(char* to, std::size_t room) = 0;

  /// What a message calls it: a path, or "standard input".
  const std::string& Name() const { return name_; }

 private:
  std::string name_;
};

/// The file, pipe or device at `path`; "-" is the standard input. What is compressed by gzip is
/// decompressed. Raises 53 when there is no such file, 75 when it is a directory or cannot be read.
std::unique_ptr<ByteSource> OpenSource(const std::string& path);

/// What an open descriptor gives from its present place on, decompressed likewise. The descriptor
/// is borrowed: it stays open, and must stay so as long as the source.
std::unique_ptr<ByteSource> OpenSource(int descriptor, std::string name);

/// A text in memory, as it stands; it must outlive the source.
std::unique_ptr<ByteSource> MemorySource(std::string_view bytes, std::string name = "the text");

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_BYTE_SOURCE_H_
