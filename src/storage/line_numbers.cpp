#include "storage/line_numbers.h"

#include <cstring>
#include <limits>

#include "support/null_helper.h"
#include "tslm5/platform/number_text.h"

namespace tslm5 {
namespace {

constexpr std::size_t kLongestToken = 4;

}  // namespace

bool IsMissingField(std::string_view field) {
  if (field.empty()) return true;
  const char first = field.front();
  return field.size() <= kLongestToken &&
         (first == '.' || first == '?' || first == 'N' || first == 'n') &&
         NullHelper::IsMissingToken(field);
}

bool LineNumbers::Read(std::string_view line) {
  while (!line.empty() && line.front() == ' ') line.remove_prefix(1);
  while (!line.empty() && line.back() == ' ') line.remove_suffix(1);
  numbers_.clear();
  const char* p = line.data();
  const char* const end = p + line.size();
  for (;;) {
    const void* const blank =
        p == end ? nullptr : std::memchr(p, ' ', static_cast<std::size_t>(end - p));
    const char* const field_end = blank == nullptr ? end : static_cast<const char*>(blank);
    if (!ReadField({p, static_cast<std::size_t>(field_end - p)}, end)) return false;
    if (field_end == end) return true;
    p = field_end + 1;
  }
}

bool LineNumbers::ReadField(std::string_view field, const char* line_end) {
  double number = std::numeric_limits<double>::quiet_NaN();
  const bool is_number = ParseNumber(field, '.', number, line_end) ||
                         (decimal_is_comma_ && ParseNumber(field, ',', number, line_end));
  if (!is_number && !IsMissingField(field)) return false;
  numbers_.push_back(number);
  return true;
}

}  // namespace tslm5
