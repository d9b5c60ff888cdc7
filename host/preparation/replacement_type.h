#ifndef TSLM5_HOST_PREPARATION_REPLACEMENT_TYPE_H_
#define TSLM5_HOST_PREPARATION_REPLACEMENT_TYPE_H_

#include <cstdint>
#include <string_view>

namespace tslm5::host {

/// How a replacement was chosen: the codes of `MissingMappings.ReplacementType`.
namespace replacement_type {
inline constexpr std::int32_t kNone = 0;  ///< not chosen
inline constexpr std::int32_t kMean = 1;
inline constexpr std::int32_t kMedian = 2;
inline constexpr std::int32_t kMinimum = 3;
inline constexpr std::int32_t kMaximum = 4;
inline constexpr std::int32_t kNumber = 5;
inline constexpr std::int32_t kCategory = 6;  ///< the code that the category had
}  // namespace replacement_type

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
