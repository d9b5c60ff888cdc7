#include "datasetlite/label_row.h"

#include "support/label_test.h"
#include "support/text_split.h"
#include "support/utf8.h"

namespace tslm5 {
namespace {

std::vector<std::string> Fields(std::string_view line, std::string_view separator) {
  std::vector<std::string> fields;
  FieldCursor cursor(line, separator);
  for (std::string_view field; cursor.Next(field);) {
    fields.push_back(PlainLabel(std::string(Utf8::TrimBlanks(field))));
  }
  return fields;
}

}  // namespace

std::vector<std::string> SplitLabelRow(std::string_view line, std::string_view separator,
                                       std::int32_t columns) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  std::vector<std::string> words = LabelWords(std::string(line), separator);
  const auto wanted = static_cast<std::size_t>(columns);
  if (words.size() != wanted) {
    std::vector<std::string> fields = Fields(line, separator);
    if (fields.size() == wanted) return fields;
  }
  return words;
}

}  // namespace tslm5
