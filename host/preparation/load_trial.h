#ifndef TSLM5_HOST_PREPARATION_LOAD_TRIAL_H_
#define TSLM5_HOST_PREPARATION_LOAD_TRIAL_H_

#include <optional>
#include <string>

#include "host/preparation/delimited_text.h"
#include "host/preparation/separators.h"
#include "tslm5/contracts/data_check.h"

namespace tslm5::host {

/// The words in which `tslm5 load` would refuse a text that the data check takes; nothing where it
/// would load it as the training set of a new run. The check sees runs of separators as one and
/// looks at cells alone, so it passes some texts that no table can hold. `checked` is what it said
/// of the text: one of plain numbers is not gone through again.
std::optional<std::string> LoadRefusal(const DelimitedText& text, const SeparatorChoice& choice,
                                       const DataCheckResult& checked, bool comma_is_decimal);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_TRIAL_H_
