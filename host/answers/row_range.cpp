#include "host/answers/row_range.h"

#include <fmt/format.h>

#include <charconv>

#include "host/program/failure.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

[[noreturn]] void RefuseRange(std::string_view text, std::string_view why) {
  Misuse(
      fmt::format("--rows: {} {}; expected A:B, A:, :B or A, counted from 1", Quoted(text), why));
}

std::int32_t ParseRow(std::string_view part, std::string_view whole) {
  std::int32_t row = 0;
  const auto [end, code] = std::from_chars(part.data(), part.data() + part.size(), row);
  if (code != std::errc{} || end != part.data() + part.size()) {
    RefuseRange(whole, "is no range of rows");
  }
  if (row < 1) RefuseRange(whole, "begins before the first row");
  return row;
}

}  // namespace

RowRange ParseRowRange(std::string_view text) {
  RowRange range;
  range.is_given = true;
  const std::size_t colon = text.find(':');
  const std::string_view first = text.substr(0, colon);
  if (colon == std::string_view::npos) {
    range.first = ParseRow(first, text);
    range.last = range.first;
    return range;
  }
  const std::string_view last = text.substr(colon + 1);
  if (first.empty() && last.empty()) RefuseRange(text, "is no range of rows");
  if (!first.empty()) range.first = ParseRow(first, text);
  if (!last.empty()) range.last = ParseRow(last, text);
  if (range.last && *range.last < range.first) RefuseRange(text, "ends before it begins");
  return range;
}

}  // namespace tslm5::host
