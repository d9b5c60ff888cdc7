// A number is taken by the grammar alone and becomes the double next to it; the reference computes
// with whole numbers of any size and calls no reader of floating-point text.
#include "exact_number.h"
#include "fuzz_input.h"
#include "tslm5/platform/number_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tslm5;
  constexpr std::size_t kLongest = 1200;  // the reference's time grows with its square
  const fuzz::Input input(data, size < kLongest ? size : kLongest);
  const std::string& text = input.text;
  double value = -1.5;
  const bool is_taken = ParseNumber(text, input.decimal, value);
  const std::string padded = text + "0000000000000000";
  double fast = -1.5;
  const bool is_taken_fast = ParseNumber(std::string_view(padded).substr(0, text.size()),
                                         input.decimal, fast, padded.data() + padded.size());
  fuzz::Require(is_taken == is_taken_fast && (value == fast), "the short way reads another number");
  const auto number = fuzz::ReadDecimal(text, input.decimal);
  if (!number || fuzz::IsBeyondDoubles(*number)) {
    fuzz::Require(!is_taken, "taken against the grammar or the range");
    fuzz::Require(value == -1.5, "a refused number changed the value");
    return 0;
  }
  fuzz::Require(is_taken, "a number is refused");
  fuzz::Require(fuzz::IsNearest(*number, value), "another double is nearer");
  return 0;
}
