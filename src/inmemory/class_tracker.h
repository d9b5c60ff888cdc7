#ifndef TSLM5_INMEMORY_CLASS_TRACKER_H_
#define TSLM5_INMEMORY_CLASS_TRACKER_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "inmemory/parse_errors.h"
#include "tslm5/contracts/codes.h"

namespace tslm5 {

/// Watches whether the responses of a text are of more than one kind. Responses are compared as
/// texts, each with the first one: "1" and "1.0" differ.
class ClassTracker {
 public:
  /// `is_watching`: whether this text must have several kinds. The category chooses the words.
  ClassTracker(bool is_watching, std::int32_t category)
      : is_watching_(is_watching), category_(category) {}

  /// Whether the responses of a problem of this category are classes.
  static bool AreClasses(std::int32_t category) {
    return category == problem_category::kBinary || category == problem_category::kClassification ||
           category == problem_category::kFurtherClassification;
  }

  void Note(std::string_view response) {
    if (!is_watching_) return;
    if (!has_first_) {
      first_ = response;
      has_first_ = true;
    } else if (response != first_) {
      is_watching_ = false;
    }
  }

  /// Raises 41026 when there was one kind alone.
  void RequireSeveral() const {
    if (is_watching_) ParseErrors::RaiseSingleClass(category_);
  }

 private:
  bool is_watching_;  // until two kinds were seen
  std::int32_t category_;
  bool has_first_ = false;
  std::string first_;
};

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_CLASS_TRACKER_H_
