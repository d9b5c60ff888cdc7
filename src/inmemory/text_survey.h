#ifndef TSLM5_INMEMORY_TEXT_SURVEY_H_
#define TSLM5_INMEMORY_TEXT_SURVEY_H_

#include <cstddef>
#include <string_view>

namespace tslm5 {

/// What stands in a text, found in one pass over it, so that each clean-up runs only where it has
/// something to do.
struct TextSurvey {
  bool has_separator = false;
  bool has_other_separator = false;  ///< blank, tab, comma, ";" or "|", whatever the locale
  bool has_separator_runs = false;   ///< two in a row
  bool has_feed_runs = false;        ///< two line feeds in a row
  std::size_t feeds = 0;
};

/// `separator` is '\0' for none.
TextSurvey SurveyText(std::string_view text, char separator);

}  // namespace tslm5

#endif  // TSLM5_INMEMORY_TEXT_SURVEY_H_
