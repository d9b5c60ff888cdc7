#ifndef TSLM5_HOST_PREPARATION_LOAD_OPTIONS_H_
#define TSLM5_HOST_PREPARATION_LOAD_OPTIONS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/preparation/run_scale.h"
#include "host/preparation/separators.h"
#include "host/program/set_names.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/contracts/delimited_reader.h"

namespace tslm5::host {

/// What a split is drawn with when the user names no seed: the same file gives the same split.
inline constexpr std::uint32_t kDefaultSeed = 1;

struct LoadOptions {
  std::string file;
  std::string run;
  const SetName* set = nullptr;
  const Separator* separator = nullptr;  ///< nullptr: to be found out
  bool has_labels = true;
  /// How the file is written, as far as it is set; the labels of a file of columns are settled
  /// apart.
  DelimitedOptions dialect;
  bool is_fixed = false;  ///< by the contract's loader, as it stands
  std::int32_t layout = layout_code::kRecordsInRows;
  std::string response;                 ///< label or dN; "": the last column
  std::optional<std::int32_t> problem;  ///< `problem_category`
  std::string testing;                  ///< the file of the testing set; "": none
  std::optional<double> testing_share;  ///< of the records, drawn for testing
  std::uint32_t seed = kDefaultSeed;
  std::optional<RunScale> scale;
  std::optional<std::string> positive_class;
  std::vector<std::string> missing_tokens;
  bool checks = true;      ///< the data check comes first
  bool statistics = true;  ///< the set's figures are computed
  bool json = false;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_LOAD_OPTIONS_H_
