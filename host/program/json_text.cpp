#include "host/program/json_text.h"

#include <cmath>

#include "tslm5/platform/number_text.h"

namespace tslm5::host {

void AppendJsonNumber(std::string& text, double value) {
  if (std::isnan(value)) {
    text += "null";
  } else if (std::isinf(value)) {
    text += value < 0 ? "-1e999" : "1e999";
  } else {
    AppendNumber(text, value);
  }
}

}  // namespace tslm5::host
