#ifndef TSLM5_TESTS_DATACHECK_RANDOM_FILE_H_
#define TSLM5_TESTS_DATACHECK_RANDOM_FILE_H_

#include <cstdint>
#include <random>
#include <string>

namespace tslm5 {

/// What a random file may have besides rows of numbers.
struct FileTraits {
  bool blanks_beside_separators = false;
  bool doubled_separators = false;
};

/// A random delimited text file: most often one that the check passes, or nearly so.
struct RandomFile {
  std::string text;  ///< its lines end at "\n"
  std::int32_t separator = 0;
  bool has_labels = false;
};

/// Makes random files, the same ones in every run.
class RandomFiles {
 public:
  RandomFiles(std::uint32_t seed, char decimal, const FileTraits& traits)
      : generator_(seed), decimal_(decimal), traits_(traits) {}

  RandomFile Next();

 private:
  std::uint32_t Draw(std::uint32_t below) {
    return static_cast<std::uint32_t>(generator_() % below);
  }
  bool OneIn(std::uint32_t count) { return Draw(count) == 0; }
  std::string Digits(std::uint32_t most);
  std::string Number();
  std::string Value();
  std::string Labels();
  std::string Row(bool is_first);

  std::mt19937 generator_;
  char decimal_;
  FileTraits traits_;

  // Of the file under way.
  char separator_ = ' ';
  std::uint32_t columns_ = 1;
  bool has_faults_ = false;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_DATACHECK_RANDOM_FILE_H_
