// Writes what is made from the program's own table of commands: its manual page and the shells'
// completions. Run while the project is built.
#include <cstdio>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "host/commands/command_line.h"
#include "host/program/completions.h"
#include "host/program/manual_page.h"

namespace {

/// Writes the three documents into `folder`. Raises what goes wrong.
void WriteDocuments(const std::string& folder) {
  const auto program = tslm5::host::DescribeProgram();
  const std::pair<const char*, std::string> documents[] = {
      {"tslm5.1", tslm5::host::ManualPage(*program, TSLM5_VERSION)},
      {"tslm5.bash", tslm5::host::BashCompletion(*program)},
      {"_tslm5", tslm5::host::ZshCompletion(*program)},
  };
  for (const auto& [name, text] : documents) {
    std::ofstream file(folder + "/" + name, std::ios::binary);
    file << text;
    if (!file.flush()) throw std::runtime_error(folder + "/" + name + " cannot be written");
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: write_documents FOLDER\n", stderr);
    return 2;
  }
  try {
    WriteDocuments(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "write_documents: %s\n", error.what());
    return 1;
  }
}
