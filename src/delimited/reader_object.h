#ifndef TSLM5_DELIMITED_READER_OBJECT_H_
#define TSLM5_DELIMITED_READER_OBJECT_H_

#include "tslm5/contracts/delimited_reader.h"
#include "tslm5/platform/ref.h"

namespace tslm5::delimited {

/// The object behind the class `DelimitedReader`.
Ref<IDelimitedReader> MakeReaderObject();

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_READER_OBJECT_H_
