#include "inmemory/parse_errors.h"

#include <cstddef>
#include <string>

#include "support/utf8.h"
#include "tslm5/platform/error.h"

namespace tslm5::ParseErrors {
namespace {

constexpr std::size_t kCharactersShown = 15;

}  // namespace

void RaiseColumnCount(std::int64_t row) {
  throw Error(error_number::kColumnCount, "Parse",
              "Unable to proceed: Row number " + std::to_string(row) +
                  " has an invalid number of columns.\r\n\r\nPlease make sure this is a valid "
                  "record or remove it from the dataset.");
}

void RaiseInvalidField(std::string_view field, std::int64_t row, std::int64_t column) {
  std::string text = "Sample " + std::to_string(column) + " in row " + std::to_string(row);
  if (field.empty()) {
    text += " is empty.";
  } else {
    text += " is invalid: ";
    text += Utf8::FirstCharacters(field, kCharactersShown);
  }
  throw Error(error_number::kInvalidData, "ParseString", text);
}

void RaiseSingleClass(bool binary) {
  std::string text = "Unable to proceed: The Response Variable has only 1 kind of class.\r\n\r\n";
  text += binary ? "Please make sure that the response variable is binary."
                 : "Please make sure that your dataset has at least 2 different classes.";
  throw Error(error_number::kSingleClass, "ParseString", text);
}

}  // namespace tslm5::ParseErrors
