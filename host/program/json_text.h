#ifndef TSLM5_HOST_PROGRAM_JSON_TEXT_H_
#define TSLM5_HOST_PROGRAM_JSON_TEXT_H_

#include <nlohmann/json.hpp>
#include <string>

namespace tslm5::host {

/// `value` on one line, with its line end. Bytes that are no UTF-8 (a file's name may have such)
/// become U+FFFD.
inline std::string JsonText(const nlohmann::ordered_json& value) {
  return value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + '\n';
}

/// Appends a number as JSON: null when it is missing. An infinite one becomes 1e999, which every
/// reader takes for infinite.
void AppendJsonNumber(std::string& text, double value);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_JSON_TEXT_H_
