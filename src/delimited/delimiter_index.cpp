#include "delimited/delimiter_index.h"

#include <algorithm>
#include <array>
#include <bit>

namespace tslm5::delimited {
namespace {

constexpr std::size_t kChunksAtOnce = 32;

/// Bit i of the result is the parity of the bits 0 to i.
constexpr std::uint64_t PrefixParity(std::uint64_t bits) {
  for (unsigned shift = 1; shift < 64; shift *= 2) bits ^= bits << shift;
  return bits;
}

bool IsLineEnd(char c) {
  return c == '\n' || c == '\r';
}

/// Writes `base` plus the number of each bit that is set to `out`, which has room for 64. Eight are
/// written at once, needed or not, so that few branches depend on the text.
void AddBits(std::uint64_t bits, std::size_t base, std::uint32_t* out) {
  while (bits != 0) {
    for (int i = 0; i < 8; ++i) {
      *out++ =
          static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(std::countr_zero(bits));
      bits &= bits - 1;
    }
  }
}

}  // namespace

/// What the chunks before leave behind for the quotes of the next one.
class DelimiterIndex::QuoteState {
 public:
  /// Takes the quoted parts out of the delimiters of the next chunk. False, and nothing changed,
  /// where a quote stands neither around a field nor doubled within one. `in_text` has the bits of
  /// the chunk that belong to the text.
  bool Apply(ChunkMasks& masks, std::uint64_t in_text) {
    if ((masks.quotes | inside_ | after_closing_) == 0) {
      after_delimiter_ = masks.delimiters >> 63;
      return true;
    }
    const std::uint64_t inside = PrefixParity(masks.quotes) ^ inside_;  // opening quotes included
    const std::uint64_t outside_delimiters = masks.delimiters & ~inside;
    const std::uint64_t opening = masks.quotes & inside;
    const std::uint64_t closing = masks.quotes & ~inside;
    const std::uint64_t behind_closing = closing << 1 | after_closing_;
    const std::uint64_t may_open = outside_delimiters << 1 | after_delimiter_ | behind_closing;
    const std::uint64_t may_follow = masks.delimiters | masks.quotes | ~in_text;
    if ((opening & ~may_open) != 0 || (behind_closing & ~may_follow) != 0) return false;
    masks.delimiters = outside_delimiters;
    inside_ = std::uint64_t{0} - (inside >> 63);
    after_closing_ = closing >> 63;
    after_delimiter_ = outside_delimiters >> 63;
    return true;
  }

 private:
  std::uint64_t inside_ = 0;           // all ones within quotes
  std::uint64_t after_closing_ = 0;    // bit 0: the last character closed quotes
  std::uint64_t after_delimiter_ = 1;  // bit 0: a field begins
};

std::size_t DelimiterIndex::AddFast(const char* text, std::size_t from, std::size_t size) {
  const std::size_t most = count_ + (size - from) + kChunkBytes;
  if (places_.size() < most) places_.resize(most);
  std::array<ChunkMasks, kChunksAtOnce> masks;
  QuoteState quotes;
  std::size_t at = from;
  while (at < size) {
    const std::size_t chunks = std::min(kChunksAtOnce, (size - at + kChunkBytes - 1) / kChunkBytes);
    masks_of_(text + at, chunks, rules_.Separators(), masks.data());
    for (std::size_t i = 0; i < chunks; ++i) {
      ChunkMasks& chunk = masks[i];
      const std::size_t left = std::min(kChunkBytes, size - at);
      const std::uint64_t in_text = ~std::uint64_t{0} >> (kChunkBytes - left);
      chunk.delimiters &= in_text;
      chunk.quotes &= in_text;
      if (rules_.has_quotes && !quotes.Apply(chunk, in_text)) return at;
      AddBits(chunk.delimiters, at, places_.data() + count_);
      count_ += static_cast<std::size_t>(std::popcount(chunk.delimiters));
      at += left;
    }
  }
  return at;
}

void DelimiterIndex::Add(std::size_t place) {
  if (count_ == places_.size()) places_.resize(2 * count_ + kChunkBytes);
  places_[count_++] = static_cast<std::uint32_t>(place);
}

DelimiterIndex::CarefulResult DelimiterIndex::AddRecord(const char* text, std::size_t from,
                                                        std::size_t size,
                                                        std::size_t literal_quote) {
  std::size_t at = from;
  while (at < size) {
    while (at < size && (text[at] == ' ' || text[at] == '\t') && !rules_.IsSeparator(text[at])) {
      ++at;
    }
    if (rules_.has_quotes && at < size && text[at] == '"' && at != literal_quote) {
      const std::size_t opening = at++;
      for (;; at += 2) {  // over one doubled quote after the other
        while (at < size && text[at] != '"') ++at;
        if (at == size) return {RecordEnd::kUnclosed, opening};
        if (at + 1 >= size || text[at + 1] != '"') break;
      }
      ++at;
    }
    while (at < size && !rules_.IsSeparator(text[at]) && !IsLineEnd(text[at])) ++at;
    if (at == size) break;
    Add(at);
    if (IsLineEnd(text[at])) {
      if (text[at] == '\r' && at + 1 < size && text[at + 1] == '\n') {
        Add(at + 1);
      }
      return {RecordEnd::kFound, 0};
    }
    ++at;
  }
  return {RecordEnd::kTextEnd, 0};
}

}  // namespace tslm5::delimited
