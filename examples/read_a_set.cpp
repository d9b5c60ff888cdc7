// Loads a comma-separated file into a new run, reads the set, saves it and opens it again.
//
//     read_a_set FILE RUN.db
//
// An application compiles against include/tslm5/ and links TSLM5DataManager and TSLMRep5.
#include <cstdint>
#include <cstdio>
#include <string>

#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/event_handlers.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/run_schema.h"
#include "tslm5/engine/open_run.h"
#include "tslm5/platform/connection_point.h"

namespace {

void LoadAndPrint(const std::string& file, const std::string& path) {
  using namespace tslm5;

  // The run: a database file with the tables that the component expects.
  RunOptions options;
  options.mode = RunOptions::Mode::kReadWriteCreate;
  const Ref<IConnectionService> run = OpenRun(path, options);
  CreateObject<IRunSchema>(class_id::kRunSchema)->CreateSchema(run.get());

  // The dataset, attached to the run as its training set.
  const auto set = CreateObject<IDataSet>(class_id::kDataSetLite);
  set.As<IConstructor>()->Init(VariantArray({Variant(run), Variant(data_set_type::kTraining)}));

  // Events tell what happens while the file is loaded; a handler could cancel it.
  const auto events = MakeObject<EventHandlers>();
  events->on_after_data_load = [](IDataSet&, IParseEventArgs& arguments) {
    std::printf("%s %d rows\n", arguments.Message().c_str(), arguments.Rows());
  };
  set.As<IConnectionPoint>()->Advise(events.get());
  set->Parse(file, separator_code::kComma, /*pHasLabels=*/true, data_set_type::kTraining,
             layout_code::kRecordsInRows);
  // Until here the labels are in the set alone.
  set.As<IPersistable>()->Save(Variant(run), Variant(data_set_type::kTraining));

  // The set: columns come before rows, both count from 0, and the last column is the response.
  for (std::int32_t column = 0; column < set->Columns(); ++column) {
    double sum = 0.0;
    for (std::int32_t row = 0; row < set->Rows(); ++row) sum += set->GetItem(column, row);
    std::printf("%s: mean %.3f\n", set->GetLabel(column).c_str(), sum / set->Rows());
  }
}

/// What anybody finds who opens the run later.
void Reopen(const std::string& path) {
  using namespace tslm5;
  RunOptions options;
  options.mode = RunOptions::Mode::kReadOnly;
  const auto set = CreateObject<IDataSet>(class_id::kDataSetLite);
  set.As<IPersistable>()->Load(Variant(OpenRun(path, options)), Variant(data_set_type::kTraining));
  std::printf("opened again: %d rows,", set->Rows());
  for (std::int32_t column = 0; column < set->Columns(); ++column) {
    std::printf(" %s", set->GetLabel(column).c_str());
  }
  std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: read_a_set FILE RUN.db\n");
    return 2;
  }
  try {
    LoadAndPrint(argv[1], argv[2]);
    Reopen(argv[2]);
    return 0;
  } catch (const tslm5::Error& error) {
    std::fprintf(stderr, "error %d: %s\n", error.Number(), error.what());
    return 1;
  }
}
