// Reads delimited files as `DelimitedReader` does and prints one line of JSON for each, for the
// scripts that compare it with other readers.
//
//   dump_records [OPTIONS-AS-JSON] <LIST-OF-PATHS
#include <iostream>
#include <string>

#include "delimited/described_text.h"
#include "tslm5/platform/error.h"

int main(int count, char** arguments) {
  using namespace tslm5::delimited;
  using nlohmann::json;
  const ReadOptions options = OptionsFrom(count > 1 ? json::parse(arguments[1]) : json::object());
  std::string path;
  while (std::getline(std::cin, path)) {
    json answer;
    try {
      DelimitedReader reader(OpenSource(path), options);
      answer = Describe(reader, CellForm::kTexts);
    } catch (const tslm5::Error& error) {
      answer["error"] = error.Description();
    }
    std::cout << answer.dump(-1, ' ', false, json::error_handler_t::replace) << '\n';
  }
  return 0;
}
