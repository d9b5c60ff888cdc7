// What the check accepts, the load stores as those numbers or refuses: in a run with words, in
// memory at least with a number.
#include <algorithm>
#include <charconv>
#include <optional>

#include "fuzz_input.h"
#include "inmemory/in_memory_set.h"
#include "run_set.h"
#include "tslm5/platform/error.h"

namespace tslm5::fuzz {
namespace {

/// Whether the whole text is of the characters whose meaning `PlainBits` knows.
bool IsPlain(std::string_view text) {
  return text.find_first_not_of("0123456789.,+-eE \n;|\t") == std::string_view::npos;
}

std::optional<double> PlainNumber(std::string text, char decimal) {
  std::replace(text.begin(), text.end(), decimal, '.');
  const char* first = text.data() + (text.starts_with('+') ? 1 : 0);
  double value = 0;
  const auto [end, code] = std::from_chars(first, text.data() + text.size(), value);
  if (code != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

/// The numbers of the lines, read the simple way: what stands between separators and blanks,
/// without stray tabs and semicolons. Nothing where a number is out of every double's range.
std::optional<std::vector<std::uint64_t>> PlainBits(const Input& input) {
  const char separator = input.separator < 0 ? ' ' : " \t,;|"[input.separator];
  std::vector<std::uint64_t> bits = {0};
  std::string value;
  std::size_t columns = 0;
  bool is_label = input.has_labels;
  for (const char c : input.text + "\n") {
    if (c == '\n' || c == separator || c == ' ') {
      if (!value.empty() && !is_label) {
        const std::optional<double> number = PlainNumber(value, input.decimal);
        if (!number) return std::nullopt;
        bits.push_back(std::bit_cast<std::uint64_t>(*number));
        ++columns;
      }
      value.clear();
      if (c == '\n') {
        is_label = false;
        if (columns > 0) bits[0] = columns;
        columns = 0;
      }
    } else if (c != '\t' && c != ';') {
      value += c;
    }
  }
  return bits;
}

bool Passes(IDataSet& set, const Input& input, const std::string& path) {
  std::int32_t separator = input.separator;
  std::string message;
  try {
    return set.IsValidDataSet(path, input.has_labels, separator, message) &&
           separator == input.separator;
  } catch (const Error&) {
    return false;
  }
}

enum class Refusal { kNumber, kWords };  // what an error must hold

/// Whether the set takes the file; a refusal has a number, and words where they are due.
bool Takes(IDataSet& set, const Input& input, const std::string& path, Refusal refusal) {
  try {
    set.Parse(path, input.separator, input.has_labels, data_set_type::kTraining,
              layout_code::kRecordsInRows);
    return true;
  } catch (const Error& error) {
    Require(error.Number() != 0, "a refusal without a number");
    Require(refusal == Refusal::kNumber || !error.Description().empty(), "a refusal without words");
    return false;
  }
}

}  // namespace
}  // namespace tslm5::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tslm5;
  const fuzz::Input input(data, size);
  const ScopedLocale locale = input.Locale();
  const fuzz::MemoryFile file(input.text);
  static const fuzz::RunSet run;
  if (!fuzz::Passes(run.Set(), input, file.Path())) return 0;
  std::optional<std::vector<std::uint64_t>> stored;
  if (fuzz::Takes(run.Set(), input, file.Path(), fuzz::Refusal::kWords)) {
    stored = fuzz::Bits(run.Set());
  }
  const Ref<IDataSet> memory_set = MakeInMemorySet().As<IDataSet>();
  if (fuzz::Takes(*memory_set, input, file.Path(), fuzz::Refusal::kNumber) && stored) {
    fuzz::Require(fuzz::Bits(*memory_set) == *stored, "the classes store different numbers");
  }
  if (!stored || !fuzz::IsPlain(input.text)) return 0;
  const std::optional<std::vector<std::uint64_t>> plain = fuzz::PlainBits(input);
  if (plain) fuzz::Require(*plain == *stored, "the run holds other numbers than the file");
  return 0;
}
