#ifndef TSLM5_HOST_ANSWERS_DIALECT_TEXT_H_
#define TSLM5_HOST_ANSWERS_DIALECT_TEXT_H_

#include <string>

#include "tslm5/contracts/delimited_reader.h"

namespace tslm5::host {

/// A line about what is unusual in the way in which a file is written; nothing where nothing is.
std::string DialectText(const DelimitedDialect& dialect);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_ANSWERS_DIALECT_TEXT_H_
