#include "host/preparation/run_scale.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "host/program/failure.h"
#include "host/program/shown_text.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {
namespace {

constexpr std::string_view kRangeWord = "range:";

[[noreturn]] void RefuseScale(std::string_view text) {
  Misuse(
      fmt::format("--normalize: invalid scale {}; expected none, zscore, minmax or "
                  "range:A:B with A less than B",
                  Quoted(text)));
}

}  // namespace

RunScale ParseScale(std::string_view text) {
  RunScale scale;
  if (text == "none") return scale;
  if (text == "zscore") {
    scale.type = normalization_type::kZScore;
  } else if (text == "minmax") {
    scale.type = normalization_type::kMinMax;
  } else if (text.starts_with(kRangeWord)) {
    scale.type = normalization_type::kRange;
    const std::string_view range = text.substr(kRangeWord.size());
    const std::size_t colon = range.find(':');
    if (colon == std::string_view::npos ||
        !ParseNumber(range.substr(0, colon), '.', scale.new_minimum) ||
        !ParseNumber(range.substr(colon + 1), '.', scale.new_maximum) ||
        !(scale.new_minimum < scale.new_maximum) ||
        !std::isfinite(scale.new_maximum - scale.new_minimum)) {
      RefuseScale(text);
    }
  } else {
    RefuseScale(text);
  }
  return scale;
}

std::string ScaleText(const RunScale& scale) {
  switch (scale.type) {
    case normalization_type::kZScore:
      return "zscore";
    case normalization_type::kMinMax:
      return "minmax";
    case normalization_type::kRange:
      return fmt::format("{}{}:{}", kRangeWord, NumberText(scale.new_minimum),
                         NumberText(scale.new_maximum));
    default:
      return "none";
  }
}

ScaleFigures ComputeFigures(const std::vector<double>& values) {
  ScaleFigures figures;
  double sum = 0.0;
  double count = 0.0;
  for (const double value : values) {
    if (std::isnan(value)) continue;
    sum += value;
    count += 1.0;
    figures.minimum = std::min(figures.minimum.value_or(value), value);
    figures.maximum = std::max(figures.maximum.value_or(value), value);
  }
  if (count == 0.0) return figures;
  const double average = sum / count;
  figures.average = average;
  if (count < 2.0) return figures;
  double squares = 0.0;
  for (const double value : values) {
    if (!std::isnan(value)) squares += (value - average) * (value - average);
  }
  figures.deviation = std::sqrt(squares / (count - 1.0));
  return figures;
}

ScaleFigures IdentityFigures(const RunScale& scale) {
  ScaleFigures figures{0.0, 1.0, 0.0, 1.0};
  if (scale.type == normalization_type::kRange) {
    figures.minimum = scale.new_minimum;
    figures.maximum = scale.new_maximum;
  }
  return figures;
}

bool ChangesNothing(const RunScale& scale, const ScaleFigures& figures) {
  const ScaleFigures identity = IdentityFigures(scale);
  if (scale.type == normalization_type::kZScore) {
    return figures.average == identity.average && figures.deviation == identity.deviation;
  }
  return figures.minimum == identity.minimum && figures.maximum == identity.maximum;
}

bool CanScale(const RunScale& scale, const ScaleFigures& figures) {
  if (!figures.average || !figures.deviation) return false;
  if (!(*figures.minimum < *figures.maximum)) return false;
  if (scale.type == normalization_type::kZScore) {
    return std::isfinite(*figures.average) && std::isfinite(*figures.deviation) &&
           *figures.deviation > 0.0;
  }
  return std::isfinite(*figures.maximum - *figures.minimum);
}

double Scaled(double value, const RunScale& scale, const ScaleFigures& figures) {
  if (scale.type == normalization_type::kNone || ChangesNothing(scale, figures)) return value;
  if (scale.type == normalization_type::kZScore)
    return (value - *figures.average) / *figures.deviation;
  const double share = (value - *figures.minimum) / (*figures.maximum - *figures.minimum);
  if (scale.type == normalization_type::kMinMax) return share;
  return share * (scale.new_maximum - scale.new_minimum) + scale.new_minimum;
}

}  // namespace tslm5::host
