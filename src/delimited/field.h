#ifndef TSLM5_DELIMITED_FIELD_H_
#define TSLM5_DELIMITED_FIELD_H_

#include "tslm5/contracts/delimited_reader.h"

namespace tslm5::delimited {

using tslm5::FieldClass;
using Field = DelimitedField;

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_FIELD_H_
