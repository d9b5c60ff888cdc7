#include "host/preparation/cell_rule.h"

#include "host/preparation/cell_survey.h"
#include "tslm5/platform/number_text.h"

namespace tslm5::host {

bool CellRule::IsNumber(std::string_view cell, double& value) const {
  return ParseNumber(cell, decimal_, value);
}

CellClass CellRule::Classify(std::string_view cell, double& value) const {
  if (IsNamedToken(cell)) return CellClass::kMissing;
  if (IsNumber(cell, value)) return CellClass::kNumber;
  if (IsMissing(cell)) return CellClass::kMissing;
  double rest = 0.0;  // a point and then no number: ".abc"
  if (cell.front() == '.' && !IsNumber(cell.substr(1), rest)) return CellClass::kMissing;
  return CellClass::kWord;
}

}  // namespace tslm5::host
