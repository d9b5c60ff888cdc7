#ifndef TSLM5_HOST_PREPARATION_RECODING_H_
#define TSLM5_HOST_PREPARATION_RECODING_H_

#include <string>
#include <vector>

#include "host/preparation/code_changes.h"
#include "host/preparation/coded_column.h"
#include "host/preparation/run_session.h"

namespace tslm5::host {

// Changes of a run's categories, each to be called inside a transaction.

/// Gives categories of a column their new codes, and keeps what the run notes of codes in step:
/// the figures of the column and whether the response is merged. Raises `Failure` for a value that
/// is no category, or that the component does not take.
void Recode(const RunSession& session, const Ref<IDataSet>& data_set, const CodedColumn& column,
            const std::vector<CodeChange>& changes);

/// Writes the binary encoding of the response that the component finds. REQUIRES: the component's
/// check of the response has passed.
void EncodeResponse(const RunSession& session, const Ref<IDataSet>& data_set,
                    const CodedColumn& response);

/// Makes a class of a response of two codes the positive one. Raises `Failure` unless it is the
/// only category of its code.
void NamePositiveClass(const RunSession& session, const Ref<IDataSet>& data_set,
                       const CodedColumn& response, const std::string& name);

/// One warning for every token of the column whose gaps were filled with a code that no category
/// has any more.
std::vector<std::string> WarningsOfFilledGaps(const Ref<IDataSet>& data_set,
                                              const CodedColumn& before, const CodedColumn& after);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RECODING_H_
