// A text of categories is refused in words or becomes cells that can all be read.
#include "fuzz_input.h"
#include "inmemory/in_memory_set.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/nominal_data_set.h"
#include "tslm5/platform/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tslm5;
  fuzz::Input input(data, size);
  const ScopedLocale locale = input.Locale();
  const Ref<INominalDataSet> set = MakeInMemorySet().As<INominalDataSet>();
  try {
    set->ParseString(input.text, input.separator, input.has_labels, data_set_type::kTraining,
                     input.layout, input.problem, nullptr);
  } catch (const Error& error) {
    fuzz::Require(error.Number() != 0, "an error without a number");
    return 0;
  }
  for (std::int32_t row = 0; row < set->Rows(); ++row) {
    for (std::int32_t column = 0; column < set->Columns(); ++column) {
      const Variant::Kind kind = set->GetItem(column, row).GetKind();
      fuzz::Require(kind == Variant::Kind::kDouble || kind == Variant::Kind::kString,
                    "a cell is neither a number nor a text");
    }
  }
  return 0;
}
