#ifndef TSLM5_INMEMORY_RECORD_CONVERTER_H_
#define TSLM5_INMEMORY_RECORD_CONVERTER_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "inmemory/record_walker.h"

namespace tslm5 {

/// Converts the lines of a text into records of numbers, one after the other, where they stand.
class RecordConverter {
 public:
  /// The text, its separator (which must outlive the converter) and its width as `RecordWalker`
  /// takes them.
  RecordConverter(std::string_view text, std::string_view separator, std::int32_t columns,
                  char decimal);

  /// Converts the next line, which must be there, into `cells` (`columns` of them) and returns its
  /// last field, a view into the text. Raises 41020 for a line of another width and 41011 for a
  /// field that is no number, see `ParseErrors`.
  std::string_view Next(double* cells);

 private:
  struct Other {
    std::int32_t column;
    double value;
  };

  std::string_view NextInOnePass(double* cells);
  std::string_view NextInTwoPasses(double* cells);
  bool TakeOther(std::int32_t column, const char* first, const char* last);
  [[noreturn]] void RefuseLine() const;

  std::string_view separator_;
  std::int32_t columns_;
  char decimal_;
  RecordWalker walker_;
  std::vector<delimited::ExactParts> parts_;  // of the record under way
  std::vector<Other> others_;                 // its fields that have no such parts
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_RECORD_CONVERTER_H_
