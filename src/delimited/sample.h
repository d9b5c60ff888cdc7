#ifndef TSLM5_DELIMITED_SAMPLE_H_
#define TSLM5_DELIMITED_SAMPLE_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "delimited/field.h"
#include "delimited/field_scanner.h"
#include "delimited/text_arena.h"

namespace tslm5::delimited {

/// The beginning of a text from which its dialect is found.
struct SampleText {
  /// Behind it `kReadableBehind` bytes can be read.
  std::string_view text;
  /// Whether it is the whole text, the last line ended.
  bool is_whole = false;
  /// Lines to be passed over at its beginning.
  std::int64_t skipped_lines = 0;
};

/// The records at the beginning of a text, split in one way. Empty lines are passed over.
class Sample {
 public:
  struct Record {
    std::int64_t line;  ///< 1-based
    std::vector<Field> fields;
  };
  static constexpr std::size_t kMostRecords = 1000;

  Sample(const SampleText& source, const DelimiterRules& rules, const FieldScanner& scanner);

  const std::vector<Record>& Records() const { return records_; }

  /// Classifies the fields again, under another decimal sign.
  void Classify(const FieldScanner& scanner);

 private:
  std::vector<Record> records_;
  TextArena arena_;
};

/// Where the text begins behind its first `lines` lines.
std::size_t OffsetOfLine(std::string_view text, std::int64_t lines);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_SAMPLE_H_
