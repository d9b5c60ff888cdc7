#ifndef TSLM5_DELIMITED_DIALECT_H_
#define TSLM5_DELIMITED_DIALECT_H_

#include "tslm5/contracts/delimited_reader.h"

namespace tslm5::delimited {

using Dialect = DelimitedDialect;
using ReadOptions = DelimitedOptions;

/// "comma", "semicolon", "tab", "bar", "space", "none".
const char* SeparatorName(char separator);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_DIALECT_H_
