#ifndef TSLM5_HOST_PREPARATION_RUN_SCALE_H_
#define TSLM5_HOST_PREPARATION_RUN_SCALE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/run/run_records.h"

namespace tslm5::host {

/// How a run normalises its numeric inputs.
struct RunScale {
  std::int32_t type = normalization_type::kNone;
  double new_minimum = 0.0;
  double new_maximum = 1.0;
};

/// Reads "none", "zscore", "minmax" or "range:A:B". Raises `Failure`, wrong usage.
RunScale ParseScale(std::string_view text);

/// The scale as `ParseScale` reads it.
std::string ScaleText(const RunScale& scale);

/// The figures of the values that are numbers.
ScaleFigures ComputeFigures(const std::vector<double>& values);

/// Figures under which a column stays as it is.
ScaleFigures IdentityFigures(const RunScale& scale);

/// Whether a column of these figures stays as it is.
bool ChangesNothing(const RunScale& scale, const ScaleFigures& figures);

/// Whether values can be brought into the scale by these figures: neither constant nor beyond what
/// a double holds.
bool CanScale(const RunScale& scale, const ScaleFigures& figures);

/// `value` in the scale; not a number stays what it is. REQUIRES: `CanScale`, or the figures of
/// `IdentityFigures`, which change nothing.
double Scaled(double value, const RunScale& scale, const ScaleFigures& figures);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_SCALE_H_
