#ifndef TSLM5_FUZZ_FUZZ_INPUT_H_
#define TSLM5_FUZZ_FUZZ_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/locale.h"

namespace tslm5::fuzz {

/// How a text is read and the text, made from the bytes of the fuzzer: the first two bytes choose,
/// as README.md tells, and the others are the text.
struct Input {
  Input(const std::uint8_t* data, std::size_t size);

  std::int32_t separator = 0;  ///< `separator_code`
  bool has_labels = false;
  std::int32_t layout = 0;   ///< `layout_code`
  std::int32_t problem = 0;  ///< `problem_category`
  char decimal = '.';
  std::string text;

  /// What makes `decimal` the user's decimal sign. Keep it for the input's whole time.
  ScopedLocale Locale() const { return ScopedLocale(decimal == ',' ? "de_DE" : "en_US"); }
};

/// A regular file in memory that holds a text.
class MemoryFile {
 public:
  explicit MemoryFile(std::string_view text);
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  const std::string& Path() const { return path_; }

 private:
  int descriptor_;
  std::string path_;
};

/// Ends the program with `what`, a finding, unless `holds`.
void Require(bool holds, std::string_view what);

}  // namespace tslm5::fuzz

#endif  // TSLM5_FUZZ_FUZZ_INPUT_H_
