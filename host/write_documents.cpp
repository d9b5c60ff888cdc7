// Writes what is made from the program's own table of commands: its manual page and the shells'
// completions. Run while the project is built.
#include <fstream>
#include <iostream>

#include "host/command_line.h"
#include "host/completions.h"
#include "host/manual_page.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: write_documents FOLDER\n";
    return 2;
  }
  const std::string folder = argv[1];
  CLI::App program;
  tslm5::host::Invocation invocation;
  tslm5::host::DescribeProgram(program, invocation);
  const std::pair<const char*, std::string> documents[] = {
      {"tslm5.1", tslm5::host::ManualPage(program, TSLM5_VERSION)},
      {"tslm5.bash", tslm5::host::BashCompletion(program)},
      {"_tslm5", tslm5::host::ZshCompletion(program)},
  };
  for (const auto& [name, text] : documents) {
    std::ofstream file(folder + "/" + name, std::ios::binary);
    file << text;
    if (!file.flush()) {
      std::cerr << "write_documents: " << folder << "/" << name << " cannot be written\n";
      return 1;
    }
  }
  return 0;
}
