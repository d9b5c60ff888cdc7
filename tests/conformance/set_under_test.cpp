#include "conformance/set_under_test.h"

#include <limits>

#include "datasetlite/data_set_lite.h"
#include "inmemory/in_memory_set.h"
#include "storage/run_tables.h"
#include "storage/test_run.h"

namespace tslm5 {
namespace {

/// A training set attached to a run in memory.
class LiteUnderTest final : public SetUnderTest {
 public:
  LiteUnderTest() {
    CreateRunTables(*run_.Connection());
    object_.As<IConstructor>()->Init(
        VariantArray({Variant(run_.Service()), Variant(data_set_type::kTraining)}));
  }

  Ref<IUnknown> Object() override { return object_; }

  void FillExtraSet(const std::vector<double>& values) override {
    Lines lines;
    for (const double value : values) lines.push_back(NumberText(value));
    run_.Filled(1, lines, data_set_type::kTimeSeriesTesting);
    object_.As<IPersistable>()->Load(Variant(run_.Service()), data_set_type::kTraining);
    object_.As<IDataSet>()->Columns();  // counts them anew
  }

  void MakeMissing(std::int32_t column, std::int32_t row) override {
    run_.Execute("UPDATE TrainingSet SET d" + std::to_string(column) +
                 " = NULL WHERE row = " + std::to_string(row + 1));
  }

 private:
  TestRun run_;
  Ref<IUnknown> object_ = MakeDataSetLite();
};

class MemoryUnderTest final : public SetUnderTest {
 public:
  Ref<IUnknown> Object() override { return object_; }

  void FillExtraSet(const std::vector<double>& values) override {
    CellArray extra_set(static_cast<std::int32_t>(values.size()), 1);
    for (std::size_t row = 0; row < values.size(); ++row) {
      extra_set.Put(static_cast<std::int32_t>(row), 0, values[row]);
    }
    object_->State().extra_set = std::move(extra_set);
    object_->State().extra_set_exists = true;
  }

  void MakeMissing(std::int32_t column, std::int32_t row) override {
    object_->State().data->Put(row, column, std::numeric_limits<double>::quiet_NaN());
  }

 private:
  Ref<InMemorySet> object_ = MakeObject<InMemorySet>();
};

template <class Made>
std::unique_ptr<SetUnderTest> Make() {
  return std::make_unique<Made>();
}

}  // namespace

const std::vector<Implementation>& Implementations() {
  static const std::vector<Implementation> kImplementations = {
      {.name = "DataSetLite",
       .make = Make<LiteUnderTest>,
       .meant = {.new_set_has_labels = true,
                 .new_terminal_count = 0,
                 .unknown_property_error = 0,
                 .reset_properties_makes_dirty = false,
                 .absent_cell_error = 41011,
                 .absent_text_error = 0,
                 .negative_text_error = 0,
                 .behind_the_columns_are_row_keys = true,
                 .absent_label_error = 0,
                 .long_label_has_the_name = true,
                 .absent_original_index_error = 41011,
                 .parses_strings = false,
                 .missing_file_error = 53,
                 .has_target_figures = true,
                 .type_after_clear = 1,
                 .clear_empties_properties = false,
                 .clear_makes_dirty = true,
                 .extra_columns = 1,
                 .absent_extra_cell_error = 41001,
                 .vectorize_before_the_data_error = 0,
                 .sample_past_the_rows_error = 0}},
      {.name = "InMemorySet",
       .make = Make<MemoryUnderTest>,
       .meant = {.new_set_has_labels = false,
                 .new_terminal_count = -1,
                 .unknown_property_error = 5,
                 .reset_properties_makes_dirty = true,
                 .absent_cell_error = 9,
                 .absent_text_error = 9,
                 .negative_text_error = 41001,
                 .behind_the_columns_are_row_keys = false,
                 .absent_label_error = 9,
                 .long_label_has_the_name = false,
                 .absent_original_index_error = 0,
                 .parses_strings = true,
                 .missing_file_error = 41007,
                 .has_target_figures = false,
                 .type_after_clear = 1000,
                 .clear_empties_properties = true,
                 .clear_makes_dirty = false,
                 .extra_columns = 2,
                 .absent_extra_cell_error = 9,
                 .vectorize_before_the_data_error = 9,
                 .sample_past_the_rows_error = 9}},
  };
  return kImplementations;
}

}  // namespace tslm5
