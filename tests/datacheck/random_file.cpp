#include "datacheck/random_file.h"

#include <iterator>
#include <string_view>

namespace tslm5 {
namespace {

constexpr std::string_view kSeparators("\0 \t,;|", 6);  // of the codes -1 to 4
constexpr std::string_view kFaults[] = {"x",   "?",     "NA", "1.2.3", "1,2,3",
                                        "nan", "1e999", "-",  "1e"};
constexpr std::string_view kEmptyLines[] = {"", " ", "\t", ";", " ; "};

}  // namespace

std::string RandomFiles::Digits(std::uint32_t most) {
  std::string digits;
  for (std::uint32_t count = 1 + Draw(most); count > 0; --count) {
    digits += static_cast<char>('0' + Draw(10));
  }
  return digits;
}

std::string RandomFiles::Number() {
  std::string number = OneIn(3) ? OneIn(3) ? "+" : "-" : "";
  const bool has_point = separator_ != decimal_ && !OneIn(3);
  const bool has_whole = !has_point || !OneIn(5);
  if (has_whole) number += Digits(OneIn(6) ? 22 : 6);
  if (has_point) number += decimal_;
  if (has_point && !(has_whole && OneIn(8))) number += Digits(OneIn(6) ? 22 : 5);
  if (OneIn(4)) {
    number += OneIn(2) ? "e" : "E";
    number += OneIn(3) ? "-" : OneIn(3) ? "+" : "";
    number += std::to_string(Draw(OneIn(4) ? 270 : 12));
  }
  return number;
}

std::string RandomFiles::Value() {
  if (has_faults_ && OneIn(15)) return std::string(kFaults[Draw(std::size(kFaults))]);
  std::string value = Number();
  const char stray = OneIn(2) ? '\t' : ';';
  if (OneIn(40) && stray != separator_) value.insert(1 + Draw(2) % value.size(), 1, stray);
  return value;
}

std::string RandomFiles::Labels() {
  std::string labels;
  for (std::uint32_t i = 0; i < columns_; ++i) {
    if (i > 0) labels += separator_;
    labels += "label" + std::to_string(i);
  }
  return labels;
}

std::string RandomFiles::Row(bool is_first) {
  const auto separator = [this, is_first] {
    std::string text(1, separator_);
    if (!is_first && traits_.doubled_separators && OneIn(12)) text += separator_;
    if (!is_first && separator_ == ' ' && OneIn(10)) text += ' ';
    if (traits_.blanks_beside_separators && OneIn(6)) text += ' ';
    if (traits_.blanks_beside_separators && OneIn(6)) text.insert(0, 1, ' ');
    return text;
  };
  std::uint32_t values = columns_;
  if (has_faults_ && OneIn(20)) values = columns_ == 1 || OneIn(2) ? columns_ + 1 : columns_ - 1;
  std::string row;
  for (std::uint32_t i = 0; i < values; ++i) {
    if (i > 0) row += separator_ == '\0' ? " " : separator();
    row += Value();
  }
  if (separator_ == '\0') return row;
  if (!is_first && OneIn(15)) row += separator_;
  if (!is_first && OneIn(15)) row.insert(0, 1, separator_);
  return row;
}

RandomFile RandomFiles::Next() {
  RandomFile file;
  file.separator = static_cast<std::int32_t>(Draw(kSeparators.size())) - 1;
  separator_ = kSeparators[static_cast<std::size_t>(file.separator + 1)];
  columns_ = separator_ == '\0' ? 1 : 1 + Draw(6);
  has_faults_ = OneIn(4);
  file.has_labels = (separator_ == '\0' || columns_ > 1) && OneIn(3);
  if (file.has_labels) file.text = Labels() + "\n";
  const std::uint32_t rows = 1 + Draw(25);
  for (std::uint32_t i = 0; i < rows; ++i) {
    if (i > 0) file.text += '\n';
    if (i > 0 && has_faults_ && OneIn(40)) file.text += "\n";
    file.text += Row(i == 0);
  }
  for (std::uint32_t lines = Draw(3); lines > 0; --lines) {
    file.text += '\n';
    if (OneIn(3)) file.text += kEmptyLines[Draw(std::size(kEmptyLines))];
  }
  return file;
}

}  // namespace tslm5
