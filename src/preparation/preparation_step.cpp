#include "preparation/preparation_step.h"

#include "tslm5/contracts/codes.h"

namespace tslm5 {

void AppendStep(const RunAccess& run, const std::string& command, nlohmann::ordered_json parameters,
                const std::vector<std::string>& words) {
  if (!words.empty()) parameters["words"] = words;
  constexpr auto kReplace = nlohmann::ordered_json::error_handler_t::replace;
  run.History().AppendStep(
      {"", command, data_set_type::kTraining, "", parameters.dump(-1, ' ', false, kReplace)});
}

}  // namespace tslm5
