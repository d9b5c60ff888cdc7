#ifndef TSLM5_BENCH_BENCH_FILE_H_
#define TSLM5_BENCH_BENCH_FILE_H_

#include <cstdint>
#include <string>

namespace tslm5::bench {

/// A folder of its own under the system's temporary folder, removed with what is in it.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string File(const std::string& name) const { return path_ + "/" + name; }

 private:
  std::string path_;
};

/// Writes a comma-separated file of numbers without labels: 30% whole numbers, 60% with a decimal
/// point, 10% with an exponent, 4 to 8 digits, mixed; the same for the same shape. 1,000,000 x 10
/// are 80 MB.
void WriteNumberFile(const std::string& path, std::int64_t rows, std::int64_t columns);

/// The same with words in three columns: column 2 has 50 categories, column 5 has 5,000, the last
/// one has 5. Needs 7 columns or more.
void WriteWordFile(const std::string& path, std::int64_t rows, std::int64_t columns);

/// The path of such a file, made once a process and shape.
const std::string& NumberFile(std::int64_t rows, std::int64_t columns);
const std::string& WordFile(std::int64_t rows, std::int64_t columns);

}  // namespace tslm5::bench

#endif  // TSLM5_BENCH_BENCH_FILE_H_
