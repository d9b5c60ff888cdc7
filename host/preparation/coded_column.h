#ifndef TSLM5_HOST_PREPARATION_CODED_COLUMN_H_
#define TSLM5_HOST_PREPARATION_CODED_COLUMN_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/run_session.h"
#include "tslm5/contracts/data_set.h"
#include "tslm5/platform/ref.h"

namespace tslm5::host {

/// A category of a column, as the run keeps it.
struct CodedCategory {
  std::string value;
  double code = 0.0;
  std::int32_t records = 0;  ///< training records that carry it
  bool is_merged = false;    ///< another category has the same code
};

/// The two values of a binary response.
struct BinaryEncoding {
  std::string positive_class;
  double negative = 0.0;
  double positive = 0.0;
  bool is_current = false;  ///< whether the categories have these codes
};

/// A column that is coded by categories, and what the run says of it.
struct CodedColumn {
  std::int32_t index = 0;
  std::string label;
  bool is_categorical = false;  ///< false for a response of numbers that are classes
  bool is_response = false;
  std::vector<CodedCategory> categories;
  double mode = 0.0;  ///< the code of the most frequent category
  std::optional<BinaryEncoding> encoding;

  std::size_t Codes() const;
  std::vector<std::string> Values() const;
  /// The category of that value; nullptr when there is none.
  const CodedCategory* Find(const std::string& value) const;
};

/// The column as it is now; without categories when the run has none of it.
CodedColumn ReadCodedColumn(const RunSession& session, const Ref<IDataSet>& data_set,
                            std::int32_t index);

/// The columns that have categories: the categorical ones, and a response of classes.
std::vector<CodedColumn> ReadCodedColumns(const RunSession& session, const Ref<IDataSet>& data_set);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_CODED_COLUMN_H_
