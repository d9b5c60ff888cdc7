// A file parsed into a run becomes the set, or is refused and the set is as it was.
#include "fuzz_input.h"
#include "run_set.h"
#include "tslm5/platform/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tslm5;
  const fuzz::Input input(data, size);
  const ScopedLocale locale = input.Locale();
  const fuzz::MemoryFile file(input.text);
  static const fuzz::RunSet run;
  static const fuzz::MemoryFile plain("1 2\n3 4\n");
  IDataSet& set = run.Set();
  set.Parse(plain.Path(), separator_code::kSpace, false, data_set_type::kTraining,
            layout_code::kRecordsInRows);
  const std::vector<std::uint64_t> before = fuzz::Bits(set);
  try {
    set.Parse(file.Path(), input.separator, input.has_labels, data_set_type::kTraining,
              input.layout);
  } catch (const Error&) {
    fuzz::Require(fuzz::Bits(set) == before, "a refused file changed the set");
    return 0;
  }
  fuzz::Bits(set);  // every cell can be read
  return 0;
}
