// A program that links the component and the engine: makes a run from a file and reads it back.
#include <cstdio>

#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/engine/open_run.h"

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  tslm5::RunOptions options;
  options.mode = tslm5::RunOptions::Mode::kReadWriteCreate;
  const auto run = tslm5::OpenRun(argv[2], options);
  tslm5::CreateObject<tslm5::IRunSchema>(tslm5::class_id::kRunSchema)->CreateSchema(run.get());
  const auto set = tslm5::CreateObject<tslm5::IDataSet>(tslm5::class_id::kDataSetLite);
  tslm5::Query<tslm5::IConstructor>(set)->Init(tslm5::VariantArray(
      std::vector<tslm5::Variant>{tslm5::Variant(run), tslm5::data_set_type::kTraining}));
  set->Parse(argv[1], tslm5::separator_code::kComma, true, tslm5::data_set_type::kTraining,
             tslm5::layout_code::kRecordsInRows);
  std::printf("%d x %d, %s, %g\n", set->Rows(), set->Columns(), set->GetLabel(1).c_str(),
              set->GetItem(1, 2));
  return 0;
}
