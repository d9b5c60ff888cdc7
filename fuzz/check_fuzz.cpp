// The check ends, says the same in both classes and names a place when it refuses.
#include "datasetlite/data_set_lite.h"
#include "fuzz_input.h"
#include "inmemory/in_memory_set.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/platform/error.h"

namespace tslm5::fuzz {
namespace {

struct Answer {
  bool is_valid = false;
  std::int32_t separator = 0;
  std::string message;
  std::int32_t error = 0;

  bool operator==(const Answer&) const = default;
};

Answer Ask(IDataSet& set, const Input& input, const std::string& path) {
  Answer answer{false, input.separator, {}, 0};
  try {
    answer.is_valid = set.IsValidDataSet(path, input.has_labels, answer.separator, answer.message);
  } catch (const Error& error) {
    answer.error = error.Number();
  }
  return answer;
}

}  // namespace
}  // namespace tslm5::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tslm5;
  const fuzz::Input input(data, size);
  const ScopedLocale locale = input.Locale();
  const fuzz::MemoryFile file(input.text);
  static const Ref<IDataSet> run_set = MakeDataSetLite().As<IDataSet>();
  static const Ref<IDataSet> memory_set = MakeInMemorySet().As<IDataSet>();
  const fuzz::Answer answer = fuzz::Ask(*run_set, input, file.Path());
  fuzz::Require(answer == fuzz::Ask(*memory_set, input, file.Path()), "the classes disagree");
  fuzz::Require(answer.is_valid || answer.error != 0 || !answer.message.empty(),
                "a refusal without a word");
  return 0;
}
