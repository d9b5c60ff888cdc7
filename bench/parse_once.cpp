// One `IDataSet.Parse`, check, in-memory parse or in-memory parse of words of a comma-separated
// file without labels, and the peak memory of the process:
//   parse_once FILE RUN.db | parse_once --check FILE | parse_once --memory FILE | parse_once
//   --words FILE
#include <fmt/format.h>
#include <sys/resource.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "tslm5/component/create_object.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/contracts/nominal_data_set.h"
#include "tslm5/engine/open_run.h"

namespace {

using namespace tslm5;

void ParseIntoRun(const std::string& file, const std::string& path) {
  RunOptions options;
  options.mode = RunOptions::Mode::kReadWriteCreate;
  const auto run = OpenRun(path, options);
  const auto set = CreateObject<IDataSet>(class_id::kDataSetLite);
  Query<IConstructor>(set)->Init(
      VariantArray(std::vector<Variant>{Variant(run), data_set_type::kTraining}));
  set->Parse(file, separator_code::kComma, false, data_set_type::kTraining,
             layout_code::kRecordsInRows);
  fmt::print("{} rows stored\n", set->Rows());
}

void ParseIntoMemory(const std::string& file) {
  const auto set = CreateObject<IDataSet>(class_id::kInMemorySet);
  set->Parse(file, separator_code::kComma, false, data_set_type::kTraining,
             layout_code::kRecordsInRows);
  fmt::print("{} rows kept\n", set->Rows());
}

void ParseWordsIntoMemory(const std::string& file) {
  const auto set = CreateObject<INominalDataSet>(class_id::kInMemorySet);
  set->Parse(file, separator_code::kComma, false, data_set_type::kTraining,
             layout_code::kRecordsInRows, problem_category::kClassification, nullptr);
  fmt::print("{} rows kept\n", set->Rows());
}

void Check(const std::string& file) {
  const auto set = CreateObject<IDataSet>(class_id::kDataSetLite);
  std::int32_t separator = separator_code::kComma;
  std::string message;
  const bool is_valid = set->IsValidDataSet(file, false, separator, message);
  fmt::print("{}\n", is_valid ? "valid" : message);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: parse_once FILE RUN.db | --check FILE | --memory FILE | --words FILE\n",
               stderr);
    return 2;
  }
  try {
    if (std::string_view(argv[1]) == "--check") {
      Check(argv[2]);
    } else if (std::string_view(argv[1]) == "--memory") {
      ParseIntoMemory(argv[2]);
    } else if (std::string_view(argv[1]) == "--words") {
      ParseWordsIntoMemory(argv[2]);
    } else {
      ParseIntoRun(argv[1], argv[2]);
    }
  } catch (const Error& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  fmt::print("peak memory {} MiB\n", usage.ru_maxrss / 1024);
  return 0;
}
