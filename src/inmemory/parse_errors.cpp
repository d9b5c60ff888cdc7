#include "inmemory/parse_errors.h"

#include <cstddef>
#include <string>

#include "support/utf8.h"
#include "tslm5/contracts/codes.h"
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

void RaiseMixedSeparators() {
  throw Error(error_number::kMixedSeparators, "",
              "Unable to proceed: This file contains more than one type of separator.\r\n\r\n"
              "Please remove any hidden or duplicated separators.");
}

void RaiseMissingResponse(std::int64_t row, std::int64_t column) {
  throw Error(error_number::kMissingResponse, "ParseString",
              "Unable to proceed: Invalid input in row " + std::to_string(row) + ", column " +
                  std::to_string(column) +
                  ".\r\n\r\nThe response variable has missing values, which is not supported.\r\n"
                  "Please make sure you remove all missing values from the response.");
}

void RaiseSingleClass(std::int32_t problem_category) {
  const bool is_constant = problem_category == problem_category::kRegression;
  std::string text = "Unable to proceed: The Response Variable ";
  text += is_constant ? "is a constant in the Training data." : "has only 1 kind of class.";
  text += "\r\n\r\nPlease make sure ";
  if (is_constant) {
    text += "to include at least two different values in the dataset.";
  } else if (problem_category == problem_category::kBinary) {
    text += "that the response variable is binary.";
  } else {
    text += "that your dataset has at least 2 different classes.";
  }
  throw Error(error_number::kSingleClass, "ParseString", text);
}

void RaiseTooManyCategories(std::string_view label, std::int64_t limit) {
  const std::string count = std::to_string(limit);
  std::string text = "Unable to proceed: The variable ";
  text += label;
  text += " has more than " + count +
          " categories.\r\n\r\nPlease make sure that the variable is correct as Tessaloom only "
          "supports up " +
          count + " categories.";
  throw Error(error_number::kTooManyCategories, "ParseString", text);
}

}  // namespace tslm5::ParseErrors
