// Writes the file of numbers that the benchmarks load:  write_numbers FILE ROWS COLUMNS
#include <charconv>
#include <cstdio>
#include <cstring>

#include "bench_file.h"

int main(int argc, char** argv) {
  std::int64_t shape[2] = {0, 0};
  bool is_usable = argc == 4;
  for (int i = 0; is_usable && i < 2; ++i) {
    const char* text = argv[i + 2];
    is_usable = std::from_chars(text, text + std::strlen(text), shape[i]).ec == std::errc{};
  }
  if (!is_usable) {
    std::fputs("usage: write_numbers FILE ROWS COLUMNS\n", stderr);
    return 2;
  }
  tslm5::bench::WriteNumberFile(argv[1], shape[0], shape[1]);
  return 0;
}
