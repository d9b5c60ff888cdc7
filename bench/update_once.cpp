// One change of the cells of a run, its seconds and those of the processor:
//   update_once RUN.db category NAME NOMINAL VALUE | update_once RUN.db missing COLUMN
#include <fmt/format.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <string_view>
#include <vector>

#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/missing_metadata.h"
#include "tslm5/contracts/nominal_metadata.h"
#include "tslm5/engine/open_run.h"

namespace {

using namespace tslm5;

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void Update(int argc, char** argv) {
  const auto run = OpenRun(argv[1], {});
  const auto set = CreateObject<IConstructor>(class_id::kDataSetLite);
  set->Init(VariantArray(std::vector<Variant>{Variant(run), data_set_type::kTraining}));
  const double processor = ProcessorSeconds();
  const auto begun = std::chrono::steady_clock::now();
  if (argc == 6) {
    Query<INominalDataSetMetadata>(set)->UpdateCategory(argv[3], argv[4], Variant(argv[5]));
  } else if (!Query<IMissingMetadata>(set)->ApplyMissing(Variant(argv[3]).ToInteger())) {
    throw Error(error_number::kInvalidData, "ApplyMissing", "The replacements were not applied.");
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begun;
  fmt::print("{:.3f} {:.3f}\n", wall.count(), ProcessorSeconds() - processor);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view what = argc > 2 ? argv[2] : "";
  if (!(what == "category" && argc == 6) && !(what == "missing" && argc == 4)) {
    std::fputs("usage: update_once RUN.db category NAME NOMINAL VALUE | RUN.db missing COLUMN\n",
               stderr);
    return 2;
  }
  try {
    Update(argc, argv);
  } catch (const Error& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
  return 0;
}
