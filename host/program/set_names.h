#ifndef TSLM5_HOST_PROGRAM_SET_NAMES_H_
#define TSLM5_HOST_PROGRAM_SET_NAMES_H_

#include <cstdint>
#include <string_view>

#include "tslm5/contracts/codes.h"

namespace tslm5::host {

/// One of a run's sets.
struct SetName {
  std::int32_t type;  ///< `data_set_type`
  const char* name;   ///< as the user names it
};

inline constexpr SetName kSets[] = {
    {data_set_type::kTraining, "training"},
    {data_set_type::kTesting, "testing"},
    {data_set_type::kTimeSeriesTraining, "time-series-training"},
    {data_set_type::kTimeSeriesTesting, "time-series-testing"},
};

/// The set called `name`; nullptr when there is none of that name.
constexpr const SetName* FindSet(std::string_view name) {
  for (const SetName& set : kSets) {
    if (name == set.name) return &set;
  }
  return nullptr;
}

/// The set of type `type`; nullptr when it is none of a run's.
constexpr const SetName* FindSet(std::int32_t type) {
  for (const SetName& set : kSets) {
    if (type == set.type) return &set;
  }
  return nullptr;
}

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_SET_NAMES_H_
