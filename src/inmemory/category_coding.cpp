#include "inmemory/category_coding.h"

#include <functional>
#include <limits>

#include "support/null_helper.h"
#include "support/numeric_test.h"

namespace tslm5 {
namespace {

constexpr std::size_t kFirstSlots = 64;

static_assert(CategoryCoding::kMostCategories <=
              std::numeric_limits<RawColumn::Position>::max() + std::size_t{1});

}  // namespace

bool IsMissingCell(std::string_view text, char decimal) {
  return NullHelper::IsMissingValue(text, decimal) && !IsNumeric(text, decimal);
}

CategoryCoding::CategoryCoding(bool is_response, char decimal)
    : decimal_(decimal), first_code_(is_response ? 0.0 : 1.0), slots_(kFirstSlots) {}

std::optional<RawColumn::Position> CategoryCoding::Enter(std::string_view text) {
  const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = hash & mask;
  for (; slots_[place].number != 0; place = (place + 1) & mask) {
    const std::uint32_t position = slots_[place].number - 1;
    if (slots_[place].hash == hash && texts_[position] == text) {
      return static_cast<RawColumn::Position>(position);
    }
  }
  const std::size_t position = texts_.Count();
  if (position == kMostCategories) return std::nullopt;
  texts_.Add(text);
  codes_.push_back(IsMissingCell(text, decimal_) ? std::numeric_limits<double>::quiet_NaN()
                                                 : first_code_ + static_cast<double>(position));
  slots_[place] = {hash, static_cast<std::uint32_t>(position + 1)};
  if (texts_.Count() * 2 > slots_.size()) Grow();
  return static_cast<RawColumn::Position>(position);
}

void CategoryCoding::Grow() {
  std::vector<Slot> wider(slots_.size() * 2);
  const std::size_t mask = wider.size() - 1;
  for (const Slot& slot : slots_) {
    if (slot.number == 0) continue;
    std::size_t place = slot.hash & mask;
    while (wider[place].number != 0) place = (place + 1) & mask;
    wider[place] = slot;
  }
  slots_ = std::move(wider);
}

}  // namespace tslm5
