// The host's reading of a file it knows nothing of: bytes to text, and the separator found.
#include <iterator>

#include "fuzz_input.h"
#include "host/preparation/separators.h"
#include "host/preparation/text_decoding.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tslm5;
  const fuzz::Input input(data, size);
  const std::string text = host::DecodeText(input.text);
  const bool comma_is_decimal = input.decimal == ',';
  const host::SeparatorChoice choice = host::GuessSeparator(text, comma_is_decimal);
  if (choice.separator == nullptr) return 0;
  fuzz::Require(choice.separator >= std::begin(host::kSeparators) &&
                    choice.separator < std::end(host::kSeparators),
                "a separator that is not in the table");
  fuzz::Require(!comma_is_decimal || choice.separator->character != ',',
                "a decimal comma was taken for a separator");
  const char character = choice.separator->character;
  fuzz::Require(character == '\0' || text.find(character) != std::string::npos,
                "a separator that the text does not have");
  return 0;
}
