#include "delimited/plain_records.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tslm5::delimited {
namespace {

constexpr std::size_t kMostChunksAtOnce = 32;
constexpr std::uint64_t kAll = ~std::uint64_t{0};

/// The grammar of a number, for all of 64 bytes at once. What one chunk leaves open, the next one
/// decides: a bit that is shifted out at the top comes in again at the bottom.
class NumberGrammar {
 public:
  /// Where the chunk breaks the grammar: the lowest bit is in the line that breaks it, at its line
  /// feed or before.
  std::uint64_t Breaches(const NumberMasks& masks) {
    const std::uint64_t delimiters = masks.separators | masks.feeds;
    const std::uint64_t inside = ~delimiters;
    const std::uint64_t behind_delimiter = after_delimiter_.Shift(delimiters);
    const std::uint64_t behind_digit = after_digit_.Shift(masks.digits);
    const std::uint64_t behind_point = after_point_.Shift(masks.points);
    const std::uint64_t behind_exponent = after_exponent_.Shift(masks.exponents);

    std::uint64_t breaches =
        inside & ~(masks.digits | masks.points | masks.signs | masks.exponents);
    breaches |= masks.signs & ~(behind_delimiter | behind_exponent);
    // A field, and a mantissa, ends with a digit or a point, and a point has a digit beside it.
    breaches |= (delimiters | masks.exponents) & ~(behind_digit | behind_point);
    breaches |= after_bare_point_.Shift(masks.points & ~behind_digit) & ~masks.digits;
    // A field has one point and one exponent at most. Added to the bits of the fields, the bit of
    // the first one in a field carries to the field's end, and that of a second one stays.
    const std::uint64_t from_point = Add(inside, masks.points, open_point_);
    const std::uint64_t from_exponent = Add(inside, masks.exponents, open_exponent_);
    const std::uint64_t in_exponent = inside & ~from_exponent;
    breaches |= from_point & masks.points;
    breaches |= from_exponent & masks.exponents;
    breaches |= in_exponent & masks.points;
    // With two digits in its exponent, a number of less than two hundred characters is finite.
    const std::uint64_t digits = masks.digits & in_exponent;
    const std::uint64_t seconds = after_exponent_digit_.Shift(digits) & digits;
    breaches |= after_two_digits_.Shift(seconds) & digits;
    return delimiters == 0 ? kAll : breaches;
  }

 private:
  /// The bit that leaves one chunk for the next.
  class Carry {
   public:
    explicit Carry(std::uint64_t bit = 0) : bit_(bit) {}
    std::uint64_t Shift(std::uint64_t bits) {
      const std::uint64_t shifted = bits << 1 | bit_;
      bit_ = bits >> 63;
      return shifted;
    }

   private:
    std::uint64_t bit_;
  };

  static std::uint64_t Add(std::uint64_t bits, std::uint64_t starts, std::uint64_t& carry) {
    const std::uint64_t with_starts = bits + starts;
    const std::uint64_t sum = with_starts + carry;
    carry =
        static_cast<std::uint64_t>(with_starts < bits) | static_cast<std::uint64_t>(sum < carry);
    return sum;
  }

  Carry after_delimiter_{1};
  Carry after_digit_;
  Carry after_point_;
  Carry after_exponent_;
  Carry after_bare_point_;
  Carry after_exponent_digit_;
  Carry after_two_digits_;
  std::uint64_t open_point_ = 0;
  std::uint64_t open_exponent_ = 0;
};

/// Counts the lines that have so many separators.
class LineCounter {
 public:
  LineCounter(const char* first, std::int64_t separators)
      : separators_(separators), run_{0, first} {}

  /// Takes the separators and line feeds of a chunk at `chunk`, as far as the grammar goes. False
  /// at a line of another width.
  bool Take(const char* chunk, std::uint64_t separators, std::uint64_t feeds) {
    std::uint64_t counted = 0;  // bits of the chunk that are behind
    for (; feeds != 0; feeds &= feeds - 1) {
      const std::uint64_t before = (feeds & (~feeds + 1)) - 1;
      if (in_line_ + std::popcount(separators & before & ~counted) != separators_) return false;
      in_line_ = 0;
      counted = before;
      ++run_.records;
      run_.end = chunk + std::countr_zero(feeds) + 1;
    }
    in_line_ += std::popcount(separators & ~counted);
    return true;
  }

  const PlainRecords::Run& Result() const { return run_; }

 private:
  std::int64_t separators_;
  std::int64_t in_line_ = 0;
  PlainRecords::Run run_;
};

/// The bits below the lowest one of `bits`; all of them where there is none.
std::uint64_t BitsBelow(std::uint64_t bits) {
  return bits == 0 ? kAll : (bits & (~bits + 1)) - 1;
}

}  // namespace

PlainRecords::PlainRecords(const PlainShape& shape, MaskWay way)
    : signs_{shape.separator == '\0' ? '\n' : shape.separator, shape.decimal},
      possible_points_(shape.decimal == shape.separator ? 0 : kAll),
      separators_(shape.fields - 1),
      masks_of_(NumberMaskFunctionOf(way)) {}

PlainRecords::Run PlainRecords::Count(const char* first, const char* last) const {
  NumberGrammar grammar;
  LineCounter lines(first, separators_);
  std::array<NumberMasks, kMostChunksAtOnce> masks;
  const auto take = [this, &grammar, &lines](const char* chunk, NumberMasks& found) {
    found.separators &= ~found.feeds;  // of lines that are single fields
    found.points &= possible_points_;
    const std::uint64_t breaches = grammar.Breaches(found);
    const std::uint64_t sound = BitsBelow(breaches);
    return lines.Take(chunk, found.separators & sound, found.feeds & sound) && breaches == 0;
  };

  // More and more at once, so that a short run costs little.
  for (std::size_t at_once = 1; static_cast<std::size_t>(last - first) >= kChunkBytes;
       at_once = std::min(2 * at_once, kMostChunksAtOnce)) {
    const std::size_t chunks =
        std::min(at_once, static_cast<std::size_t>(last - first) / kChunkBytes);
    masks_of_(first, chunks, signs_, masks.data());
    for (std::size_t i = 0; i < chunks; ++i, first += kChunkBytes) {
      if (!take(first, masks[i])) return lines.Result();
    }
  }
  std::array<char, 2 * kChunkBytes> rest{};  // ends with bytes of no class
  std::copy(first, last, rest.begin());
  const auto size = static_cast<std::size_t>(last - first);
  const bool lacks_feed = size == 0 || last[-1] != '\n';
  if (lacks_feed) rest[size] = '\n';
  masks_of_(rest.data(), 1, signs_, masks.data());
  take(first, masks[0]);
  Run run = lines.Result();
  if (run.end > last) run.end = last;
  return run;
}

}  // namespace tslm5::delimited
