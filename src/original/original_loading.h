#ifndef TSLM5_ORIGINAL_ORIGINAL_LOADING_H_
#define TSLM5_ORIGINAL_ORIGINAL_LOADING_H_

#include <cstdint>
#include <string_view>

#include "original/original_data_state.h"
#include "tslm5/engine/connection.h"
#include "tslm5/platform/ref.h"
#include "tslm5/platform/variant.h"

namespace tslm5 {

/// Fills an `OriginalDataSet` from a run. Whatever was loaded before is gone when it begins, except
/// the response's maximum, which stays where the run has none; a failure leaves what was loaded so
/// far.
class OriginalLoading {
 public:
  /// `state` is used, not owned.
  explicit OriginalLoading(OriginalDataState& state);

  /// Loads a set (`data_set_type`: training, testing, combined, or `kUnknown` for all records in
  /// table order) from the connection or the run object in `connection`. Anything else there, and
  /// any other set type, raises 41001 and changes nothing.
  void Open(const Variant& connection, std::int32_t set_type, bool binarise);

  /// The same from a file, which is closed at the end. A failure is swallowed.
  void OpenFromFile(std::string_view path, std::int32_t set_type, bool binarise);

 private:
  void Drop();
  void Load(IConnection& connection, std::int32_t set_type, bool binarise);
  void LoadSet(IConnection& connection, std::int32_t set_type, bool binarise);
  void LoadCombined(IConnection& connection, bool binarise);
  void MakeTable(IConnection& connection, std::string_view count_statement);
  void ReadRows(IConnection& connection, std::string_view select_statement, char decimal);
  void CountSets(IConnection& connection);

  OriginalDataState& state_;
  char decimal_;  // the user's
};

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ORIGINAL_LOADING_H_
