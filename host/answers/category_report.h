#ifndef TSLM5_HOST_ANSWERS_CATEGORY_REPORT_H_
#define TSLM5_HOST_ANSWERS_CATEGORY_REPORT_H_

#include <optional>
#include <string>
#include <vector>

#include "host/preparation/coded_column.h"

namespace tslm5::host {

/// What the component says of a response that is to be binary.
struct ResponseCheck {
  bool is_fit = false;
  std::string message;  ///< of a refusal
};

/// All that there is to tell of a run's categories.
struct CategoryReport {
  std::vector<CodedColumn> columns;
  std::optional<ResponseCheck> check;  ///< if it was asked for
  bool is_whole = true;                ///< every category of a column, not the first ones alone
};

/// A table a column, for people.
std::string CategoryText(const CategoryReport& report);

/// As one JSON object on one line, with every category.
std::string CategoryJson(const CategoryReport& report);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_CATEGORY_REPORT_H_
