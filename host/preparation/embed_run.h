#ifndef TSLM5_HOST_PREPARATION_EMBED_RUN_H_
#define TSLM5_HOST_PREPARATION_EMBED_RUN_H_

#include <cstdint>
#include <string>
#include <vector>

namespace tslm5::host {

struct EmbedOptions {
  std::string run;
  std::int32_t dimension = 1;        ///< the inputs of a record
  std::int32_t delay = 1;            ///< values from one input to the next
  std::int32_t testing_samples = 0;  ///< values at the end, `delay` apart
  bool json = false;
};

/// What the run holds after an embedding.
struct EmbeddedRun {
  std::int32_t series_rows = 0;
  std::int32_t records = 0;
  std::vector<std::string> labels;  ///< of the inputs, the oldest first, and of the response
  std::vector<std::string> warnings;
};

/// How many values before the response column `column` (0-based) lies.
std::int64_t LagOf(const EmbedOptions& options, std::int32_t column);

/// How many values between the testing samples are used nowhere.
std::int64_t UnusedValues(const EmbedOptions& options);

/// Embeds the training set of the run, a series of one column: records, testing samples, labels,
/// column records, original texts, statistics, history. All in one transaction: whatever is raised,
/// the run is as it was. Raises `Failure` with what does not fit.
EmbeddedRun EmbedRun(const EmbedOptions& options);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_EMBED_RUN_H_
