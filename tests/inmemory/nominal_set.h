#ifndef TSLM5_TESTS_INMEMORY_NOMINAL_SET_H_
#define TSLM5_TESTS_INMEMORY_NOMINAL_SET_H_

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "inmemory/memory_set.h"
#include "tslm5/contracts/nominal_data_set.h"

namespace tslm5 {

/// How a text of words is parsed, where a test does not say otherwise: without a look at whether
/// the responses differ.
struct NominalOptions {
  std::int32_t separator = separator_code::kComma;
  bool has_labels = false;
  std::int32_t type = data_set_type::kTraining;
  std::int32_t layout = layout_code::kRecordsInRows;
  std::int32_t category = problem_category::kTimeSeries;
};

/// One `InMemorySet`, filled through `INominalDataSet`.
class NominalSet : public MemorySet {
 public:
  NominalSet() : NominalSet(MakeInMemorySet()) {}
  explicit NominalSet(const Ref<IUnknown>& object)
      : MemorySet(object), nominal_(object.As<INominalDataSet>()) {}
  /// A set of this comma-separated text.
  explicit NominalSet(std::string_view text) : NominalSet() { Parse(text); }

  INominalDataSet& Nominal() const { return *nominal_; }

  /// Parses a text and returns it as the parse leaves it.
  std::string Parse(std::string_view text, const NominalOptions& options = {},
                    IParseEventArgs* arguments = nullptr) const {
    std::string copy(text);
    nominal_->ParseString(copy, options.separator, options.has_labels, options.type, options.layout,
                          options.category, arguments);
    return copy;
  }
  void ParseFile(std::string_view path, const NominalOptions& options = {},
                 IParseEventArgs* arguments = nullptr) const {
    nominal_->Parse(path, options.separator, options.has_labels, options.type, options.layout,
                    options.category, arguments);
  }
  /// The error of parsing a text.
  Error ErrorOf(std::string_view text, const NominalOptions& options = {}) const {
    return Raised([&] { Parse(text, options); });
  }

  /// The records as `INominalDataSet` gives them: a text as it is, a number behind "#", one that is
  /// missing as "#".
  Lines Texts() const {
    Lines records;
    for (std::int32_t row = 0; row < nominal_->Rows(); ++row) {
      std::string& record = records.emplace_back();
      for (std::int32_t column = 0; column < nominal_->Columns(); ++column) {
        if (column > 0) record += ',';
        const Variant cell = nominal_->GetItem(column, row);
        if (cell.GetKind() == Variant::Kind::kDouble) {
          record += '#';
          if (!std::isnan(cell.ToDouble())) record += cell.ToString();
        } else {
          EXPECT_EQ(cell.GetKind(), Variant::Kind::kString);
          record += cell.ToString();
        }
      }
    }
    return records;
  }

  std::string Missing() const { return nominal_->GetProperty("ReplacedNullValues"); }

 private:
  Ref<INominalDataSet> nominal_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_INMEMORY_NOMINAL_SET_H_
