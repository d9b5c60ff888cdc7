#ifndef TSLM5_FUZZ_RUN_SET_H_
#define TSLM5_FUZZ_RUN_SET_H_

#include <bit>
#include <cstdint>
#include <vector>

#include "datasetlite/data_set_lite.h"
#include "storage/run_tables.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/lifecycle.h"
#include "tslm5/engine/open_run.h"

namespace tslm5::fuzz {

/// A training set in a run of its own, in memory.
class RunSet {
 public:
  RunSet() {
    CreateRunTables(*Query<IConnection>(run_->GetConnection().ToObject()));
    set_.As<IConstructor>()->Init(VariantArray({Variant(run_), Variant(data_set_type::kTraining)}));
  }

  IDataSet& Set() const { return *data_set_; }

 private:
  Ref<IConnectionService> run_ = OpenRun("", {.in_memory = true});
  Ref<IUnknown> set_ = MakeDataSetLite();
  Ref<IDataSet> data_set_ = set_.As<IDataSet>();
};

/// The bits of every cell, row by row, behind the number of columns.
inline std::vector<std::uint64_t> Bits(IDataSet& set) {
  std::vector<std::uint64_t> bits = {static_cast<std::uint64_t>(set.Columns())};
  for (std::int32_t row = 0; row < set.Rows(); ++row) {
    for (std::int32_t column = 0; column < set.Columns(); ++column) {
      bits.push_back(std::bit_cast<std::uint64_t>(set.GetItem(column, row)));
    }
  }
  return bits;
}

}  // namespace tslm5::fuzz

#endif  // TSLM5_FUZZ_RUN_SET_H_
