#ifndef TSLM5_SRC_CONTRACTS_EVENT_ARGS_OBJECTS_H_
#define TSLM5_SRC_CONTRACTS_EVENT_ARGS_OBJECTS_H_

#include "tslm5/contracts/event_args.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// A new argument object of the check and load events, all fields at zero, false or "".
/// Its type name is "ParseEventArgs".
Ref<IParseEventArgs> MakeParseEventArgs();

/// A new argument object of the event of one stored record, all fields at zero or false.
/// Its type name is "RecordParsedEventArgs".
Ref<IRecordParsedEventArgs> MakeRecordParsedEventArgs();

}  // namespace tslm5

#endif  // TSLM5_SRC_CONTRACTS_EVENT_ARGS_OBJECTS_H_
