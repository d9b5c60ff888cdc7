#ifndef TSLM5_HOST_PREPARATION_RUN_PREPARATION_H_
#define TSLM5_HOST_PREPARATION_RUN_PREPARATION_H_

#include <cstddef>
#include <cstdint>
#include <optional>

#include "host/preparation/preparation.h"
#include "host/preparation/run_session.h"

namespace tslm5::host {

/// How the records of a file were shared out.
struct ShareOfRecords {
  double share = 0.0;
  std::uint32_t seed = 0;
};

/// Whether the numbers of the run stand for texts, were normalised or have missing ones noted, so
/// that further records must be prepared like them.
bool IsPrepared(const RunSession& session);

/// Whether the texts of the testing set are written with a decimal comma.
bool TestingHasDecimalComma(const RunSession& session);

/// Writes what the run tells of a preparation: categories, the classes of the response, missing
/// tokens, the figures of the columns and the run's parameters. What was written before is
/// replaced, but a replacement that was chosen for a token stays with it.
void WritePreparation(const RunSession& session, const Preparation& preparation,
                      const std::optional<ShareOfRecords>& share);

/// Writes the parameters of a run whose numbers are those of the file.
void WritePlainParameters(const RunSession& session);

/// Writes again what a testing set changes: categories that it brought, and the missing tokens.
void WriteTestingPreparation(const RunSession& session, const Preparation& preparation);

/// Reads back what was written. Categories of no training record are left out, and of the missing
/// tokens only those that training cells hold are counted.
Preparation ReadPreparation(const RunSession& session);

/// How the run normalises its numeric inputs.
RunScale ReadScale(const RunSession& session);

/// The run's problem category; regression where the run does not tell.
std::int32_t ReadProblem(const RunSession& session);
void WriteProblem(const RunSession& session, std::int32_t problem);

/// Takes all of it away.
void ForgetPreparation(const RunSession& session);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RUN_PREPARATION_H_
