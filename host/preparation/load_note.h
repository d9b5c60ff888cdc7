#ifndef TSLM5_HOST_PREPARATION_LOAD_NOTE_H_
#define TSLM5_HOST_PREPARATION_LOAD_NOTE_H_

#include "host/preparation/delimited_text.h"
#include "host/preparation/load_options.h"
#include "host/preparation/run_session.h"
#include "host/preparation/store_set.h"

namespace tslm5::host {

/// Notes a load in the run's history: what was read, how, and all that was asked for.
void NoteLoad(const RunSession& session, const LoadOptions& options, const DelimitedText& text,
              const StoredSet& stored);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_NOTE_H_
