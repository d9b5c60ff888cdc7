#ifndef TSLM5_HOST_PREPARATION_REPLACEMENT_TYPE_H_
#define TSLM5_HOST_PREPARATION_REPLACEMENT_TYPE_H_

#include <cstdint>
#include <string_view>

#include "tslm5/run/run_records.h"

namespace tslm5::host {

struct ReplacementWord {
  std::int32_t type;
  std::string_view word;    ///< on the command line; empty where the value itself stands there
  std::string_view name;    ///< as it is shown
  std::string_view figure;  ///< what the component calls it; empty where it does not know it
};

inline constexpr ReplacementWord kReplacementWords[] = {
    {replacement_type::kNone, "none", "not chosen", ""},
    {replacement_type::kMean, "mean", "mean", "Average"},
    {replacement_type::kMedian, "median", "median", ""},
    {replacement_type::kMinimum, "min", "minimum", "Minimum"},
    {replacement_type::kMaximum, "max", "maximum", "Maximum"},
    {replacement_type::kNumber, "", "number", ""},
    {replacement_type::kCategory, "", "category", ""},
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_REPLACEMENT_TYPE_H_
