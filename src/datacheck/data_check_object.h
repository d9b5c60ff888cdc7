#ifndef TSLM5_DATACHECK_DATA_CHECK_OBJECT_H_
#define TSLM5_DATACHECK_DATA_CHECK_OBJECT_H_

#include "tslm5/contracts/data_check.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// A new object that checks texts; its type name is "DataCheck".
Ref<IDataCheck> MakeDataCheck();

}  // namespace tslm5

#endif  // TSLM5_DATACHECK_DATA_CHECK_OBJECT_H_
