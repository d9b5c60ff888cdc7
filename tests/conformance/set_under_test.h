#ifndef TSLM5_TESTS_CONFORMANCE_SET_UNDER_TEST_H_
#define TSLM5_TESTS_CONFORMANCE_SET_UNDER_TEST_H_

#include <gmock/gmock.h>

#include <cstdint>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/raised.h"
#include "support/temporary_folder.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/contracts/extra_set.h"
#include "tslm5/contracts/is_dirty.h"
#include "tslm5/contracts/iterator.h"
#include "tslm5/contracts/vectorize.h"

namespace tslm5 {

/// One new dataset of an implementation, with whatever it needs to live.
class SetUnderTest {
 public:
  virtual ~SetUnderTest() = default;
  virtual Ref<IUnknown> Object() = 0;
  /// Gives the set an extra set of one column.
  virtual void FillExtraSet(const std::vector<double>& values) = 0;
  /// Makes a cell of the main data missing.
  virtual void MakeMissing(std::int32_t column, std::int32_t row) = 0;
};

/// Where the implementations are meant to differ. All else is held to be the same. An error of 0
/// means that nothing is raised.
struct Meant {
  bool new_set_has_labels;
  std::int32_t new_terminal_count;
  std::int32_t unknown_property_error;
  bool reset_properties_makes_dirty;

  std::int32_t absent_cell_error;
  std::int32_t absent_text_error;
  std::int32_t negative_text_error;
  bool behind_the_columns_are_row_keys;
  std::int32_t absent_label_error;
  bool long_label_has_the_name;
  std::int32_t absent_original_index_error;

  bool parses_strings;
  std::int32_t missing_file_error;
  bool has_target_figures;

  std::int32_t type_after_clear;
  bool clear_empties_properties;
  bool clear_makes_dirty;

  std::int32_t extra_columns;  // of an extra set of one column beside data of two
  std::int32_t absent_extra_cell_error;
  std::int32_t vectorize_before_the_data_error;
  std::int32_t sample_past_the_rows_error;
};

struct Implementation {
  const char* name;
  std::unique_ptr<SetUnderTest> (*make)();
  Meant meant;
};

inline void PrintTo(const Implementation& implementation, std::ostream* out) {
  *out << implementation.name;
}

/// Every implementation there is.
const std::vector<Implementation>& Implementations();

/// A new set of one implementation, and what tests ask of it.
class ConformanceTest : public testing::TestWithParam<Implementation> {
 protected:
  const Meant& Means() const { return GetParam().meant; }
  template <class I>
  Ref<I> As() const {
    return made_->Object().As<I>();
  }

  /// Loads a comma-separated file of these bytes.
  void Parse(std::string_view bytes, bool has_labels = false,
             std::int32_t separator = separator_code::kComma,
             std::int32_t type = data_set_type::kTraining,
             std::int32_t layout = layout_code::kRecordsInRows) const {
    set_->Parse(folder_.Write("data.csv", bytes), separator, has_labels, type, layout);
  }

  /// The records, each with its fields as text joined by ",".
  std::vector<std::string> Records() const {
    std::vector<std::string> records;
    for (std::int32_t row = 0; row < set_->Rows(); ++row) {
      std::string& record = records.emplace_back();
      for (std::int32_t column = 0; column < set_->Columns(); ++column) {
        if (column > 0) record += ',';
        record += set_->GetItemString(column, row);
      }
    }
    return records;
  }

  std::vector<std::string> Labels() const {
    std::vector<std::string> labels;
    for (std::int32_t column = 0; column < set_->Columns(); ++column) {
      labels.push_back(set_->GetLabel(column));
    }
    return labels;
  }

  TemporaryFolder folder_;
  std::unique_ptr<SetUnderTest> made_ = GetParam().make();
  Ref<IDataSet> set_ = made_->Object().As<IDataSet>();
};

/// Runs the tests of a suite on every implementation.
#define TSLM5_CONFORMANCE_SUITE(suite)                                                \
  INSTANTIATE_TEST_SUITE_P(Sets, suite, testing::ValuesIn(Implementations()),         \
                           [](const testing::TestParamInfo<Implementation>& tested) { \
                             return std::string(tested.param.name);                   \
                           })

}  // namespace tslm5

#endif  // TSLM5_TESTS_CONFORMANCE_SET_UNDER_TEST_H_
