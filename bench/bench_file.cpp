#include "bench_file.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <stdexcept>
#include <tuple>

namespace tslm5::bench {
namespace {

void AppendField(fmt::memory_buffer& out, std::mt19937_64& random) {
  const auto digits = static_cast<int>(4 + random() % 5);
  std::uint64_t limit = 1;
  for (int i = 0; i < digits; ++i) limit *= 10;
  const std::uint64_t value = limit / 10 + random() % (limit - limit / 10);
  const std::uint64_t kind = random() % 10;
  const char* sign = random() % 4 == 0 ? "-" : "";
  auto to = std::back_inserter(out);
  if (kind < 3) {
    fmt::format_to(to, "{}{}", sign, value);
    return;
  }
  std::string text = std::to_string(value);
  text.insert(1 + random() % (text.size() - 1), 1, '.');
  if (kind < 9) {
    fmt::format_to(to, "{}{}", sign, text);
  } else {
    fmt::format_to(to, "{}{}e{}", sign, text, static_cast<int>(random() % 41) - 20);
  }
}

/// One of `count` words of 3 to 12 letters, all as likely.
void AppendWord(fmt::memory_buffer& out, std::mt19937_64& random, std::uint64_t count) {
  const std::uint64_t number = random() % count;
  for (std::uint64_t rest = number, i = 0; i < 3 + number % 10; ++i) {
    out.push_back(static_cast<char>('a' + (rest + i) % 26));  // the first three tell words apart
    rest /= 26;
  }
}

/// Of a file with words: how many categories a column has, 0 for numbers.
std::uint64_t Categories(std::int64_t column, std::int64_t columns) {
  if (column == columns - 1) return 5;
  if (column == 2) return 50;
  return column == 5 ? 5000 : 0;
}

void WriteFile(const std::string& path, std::int64_t rows, std::int64_t columns, bool has_words) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) throw std::runtime_error("cannot write " + path);
  std::mt19937_64 random(static_cast<std::uint64_t>(columns));
  fmt::memory_buffer out;
  for (std::int64_t row = 0; row < rows; ++row) {
    for (std::int64_t column = 0; column < columns; ++column) {
      if (column > 0) out.push_back(',');
      const std::uint64_t categories = has_words ? Categories(column, columns) : 0;
      if (categories == 0) {
        AppendField(out, random);
      } else {
        AppendWord(out, random, categories);
      }
    }
    out.push_back('\n');
    if (out.size() > (1U << 20) || row + 1 == rows) {
      if (std::fwrite(out.data(), 1, out.size(), file) != out.size()) {
        throw std::runtime_error("cannot write " + path);
      }
      out.clear();
    }
  }
  if (std::fclose(file) != 0) throw std::runtime_error("cannot write " + path);
}

/// The path of a file of this shape, which is written when it is first asked for.
const std::string& File(std::int64_t rows, std::int64_t columns, bool has_words) {
  static ScratchFolder folder;
  static std::map<std::tuple<std::int64_t, std::int64_t, bool>, std::string> files;
  std::string& path = files[{rows, columns, has_words}];
  if (path.empty()) {
    path = folder.File(fmt::format("{}-{}x{}.csv", has_words ? "words" : "numbers", rows, columns));
    WriteFile(path, rows, columns, has_words);
  }
  return path;
}

}  // namespace

ScratchFolder::ScratchFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "tslm5-bench-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder " + name);
  path_ = name;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void WriteNumberFile(const std::string& path, std::int64_t rows, std::int64_t columns) {
  WriteFile(path, rows, columns, false);
}

void WriteWordFile(const std::string& path, std::int64_t rows, std::int64_t columns) {
  WriteFile(path, rows, columns, true);
}

const std::string& NumberFile(std::int64_t rows, std::int64_t columns) {
  return File(rows, columns, false);
}

const std::string& WordFile(std::int64_t rows, std::int64_t columns) {
  return File(rows, columns, true);
}

}  // namespace tslm5::bench
