#include "host/commands/program.h"

int main(int argc, char** argv) {
  return static_cast<int>(tslm5::host::RunProgram(argc, argv));
}
