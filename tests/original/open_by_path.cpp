// A program that links the data manager and not the storage engine: prints the original training
// records of the run at the path given.
#include <cstdio>
#include <string>

#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/deployment_data_set.h"

int main(int count, char** arguments) {
  if (count != 2) return 2;
  const auto view =
      tslm5::CreateObject<tslm5::IDeploymentDataSet>(tslm5::class_id::kOriginalDataSet);
  view->OpenFromFile(arguments[1], tslm5::data_set_type::kTraining, false);
  for (std::int32_t row = 0; row < view->Rows(); ++row) {
    std::string line = std::to_string(view->GetRowOriginalIndex(row));
    for (std::int32_t column = 0; column < view->Columns(); ++column) {
      line += ',' + view->GetItem(column, row);
    }
    std::puts(line.c_str());
  }
  return 0;
}
