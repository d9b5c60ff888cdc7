// A text parsed in memory is refused in words or becomes finite numbers, row by row.
#include <cmath>

#include "fuzz_input.h"
#include "inmemory/in_memory_set.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/platform/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tslm5;
  fuzz::Input input(data, size);
  const ScopedLocale locale = input.Locale();
  const Ref<IDataSet> set = MakeInMemorySet().As<IDataSet>();
  try {
    set->ParseString(input.text, input.separator, input.has_labels, data_set_type::kTraining,
                     input.layout, nullptr);
  } catch (const Error& error) {
    fuzz::Require(error.Number() != 0, "an error without a number");
    return 0;
  }
  for (std::int32_t row = 0; row < set->Rows(); ++row) {
    for (std::int32_t column = 0; column < set->Columns(); ++column) {
      fuzz::Require(std::isfinite(set->GetItem(column, row)), "a cell is not finite");
      fuzz::Require(!set->GetItemString(column, row).empty(), "a cell without text");
    }
  }
  return 0;
}
