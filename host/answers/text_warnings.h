#ifndef TSLM5_HOST_ANSWERS_TEXT_WARNINGS_H_
#define TSLM5_HOST_ANSWERS_TEXT_WARNINGS_H_

#include <string>
#include <vector>

#include "host/preparation/text_source.h"

namespace tslm5::host {

/// What there is to say of a text that was not read quite as it stands in its file.
std::vector<std::string> TextWarnings(const TextSource& source);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_TEXT_WARNINGS_H_
