#ifndef TSLM5_HOST_PREPARATION_RECORD_SPLIT_H_
#define TSLM5_HOST_PREPARATION_RECORD_SPLIT_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tslm5::host {

/// Which records (0-based, ascending) are for training and which for testing.
struct RecordSplit {
  std::vector<std::size_t> training;
  std::vector<std::size_t> testing;
};

/// All records for training.
RecordSplit NoSplit(std::size_t records);

/// Draws `share` of the records, rounded, for testing; at least one, and one is left for training.
/// The same records, share and seed give the same split on every machine.
/// Raises `Failure`, refused, for fewer than two records.
RecordSplit DrawSplit(std::size_t records, double share, std::uint32_t seed);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_RECORD_SPLIT_H_
