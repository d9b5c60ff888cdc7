#ifndef TSLM5_HOST_PREPARATION_PREPARATION_H_
#define TSLM5_HOST_PREPARATION_PREPARATION_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/category_list.h"
#include "host/preparation/run_scale.h"

namespace tslm5::host {

/// A token that stands for a missing value, and how many cells of a column hold it.
struct MissingToken {
  std::string text;
  std::int64_t count = 0;
};

/// How one column of a run was made from its texts.
struct PreparedColumn {
  std::string label;
  bool is_nominal = false;  ///< a word in the training records made it categorical
  /// The codes of a categorical column; of a numeric response whose values are classes, its values.
  CategoryList categories;
  ScaleFigures figures;              ///< that the scale goes by; of the codes where it has no scale
  bool is_scaled = false;            ///< its values are in the run's scale
  std::int64_t missing = 0;          ///< training cells
  std::vector<MissingToken> tokens;  ///< of an input column, over both sets
};

/// A response of two codes.
struct TwoClasses {
  std::string positive_class;
  double positive = 1.0;
  double negative = 0.0;
};

/// All by which a run's numbers were made from texts: what a later testing set is made by. The last
/// column is the response.
struct Preparation {
  std::vector<PreparedColumn> columns;
  RunScale scale;
  std::int32_t problem = 0;                 ///< `problem_category`
  std::vector<std::string> missing_tokens;  ///< named by the user
  bool testing_has_decimal_comma = false;   ///< in the texts of the testing set
  bool has_positive_class = false;          ///< the user named it: all other classes are one
  std::optional<TwoClasses> two_classes;

  PreparedColumn& Response() { return columns.back(); }
  const PreparedColumn& Response() const { return columns.back(); }
  /// Whether several classes of the response share one code.
  bool IsMerging() const {
    const CategoryList& classes = columns.back().categories;
    return classes.Codes() < classes.All().size();
  }
};

/// A category that the testing records hold and the training records do not.
struct UnseenCategory {
  std::size_t column = 0;
  std::string text;
  double code = 0.0;
  std::int64_t count = 0;  ///< testing records that carry it
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_PREPARATION_H_
