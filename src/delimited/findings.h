#ifndef TSLM5_DELIMITED_FINDINGS_H_
#define TSLM5_DELIMITED_FINDINGS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tslm5/contracts/delimited_finding.h"

namespace tslm5::delimited {

using tslm5::FindingCode;
using Finding = DelimitedFinding;
inline constexpr std::size_t kFindingCodes = 15;

/// Of a finding's value, in bytes.
inline constexpr std::size_t kLongestValue = 200;

/// What failed and where, why, and what to do about it, in one line. Control characters in the
/// value are shown as "\n" and the like.
std::string Message(const Finding& finding);

/// Findings in the order in which they were met. The first `kMostOfAKind` of each code are held;
/// the counts are exact.
class FindingList {
 public:
  static constexpr std::size_t kMostOfAKind = 100;

  void Add(FindingCode code, std::int64_t line, std::int64_t column, std::string_view value);

  const std::vector<Finding>& All() const { return findings_; }
  /// How many there were of a code, those not held included.
  std::int64_t Count(FindingCode code) const { return counts_[static_cast<std::size_t>(code)]; }
  /// The first of a code; nullptr when there is none.
  const Finding* First(FindingCode code) const;

 private:
  std::vector<Finding> findings_;
  std::array<std::int64_t, kFindingCodes> counts_{};
};

/// The name of a code, as tests and tools show it: "uneven record".
const char* Name(FindingCode code);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_FINDINGS_H_
