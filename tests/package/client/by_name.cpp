// A program that is linked to no library of the component: it makes an object by its name.
#include <cstdio>

#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  try {
    const auto set = tslm5::CreateObject<tslm5::IDataSet>("TSLM5DataManager.InMemorySet");
    set->Parse(argv[1], tslm5::separator_code::kComma, true, tslm5::data_set_type::kTraining,
               tslm5::layout_code::kRecordsInRows);
    std::printf("%d x %d\n", set->Rows(), set->Columns());
  } catch (const tslm5::Error& error) {
    std::printf("%d: %s\n", error.Number(), error.Description().c_str());
    return 1;
  }
  std::printf("unloaded: %d\n", tslm5::UnloadUnusedComponents());
  return 0;
}
