#include "support/text_cleanup.h"

#include <algorithm>
#include <cstring>

#include "support/byte_block.h"
#include "support/in_place_writer.h"

namespace tslm5::TextCleanup {
namespace {

using ByteScan::ByteBlock;

const char* FindPair(const char* first, const char* last, char c) {
  return ByteScan::Find<1>(
      first, last, [c](const char* p) { return ByteBlock(p).Equal(c) & ByteBlock(p + 1).Equal(c); },
      [c, last](const char* p) { return *p == c && p + 1 != last && p[1] == c; });
}

/// As many as one byte can count, in whole vectors.
constexpr std::ptrdiff_t kCountedAtOnce = 240;

bool IsStray(char c) {
  return c == '\t' || c == ';';
}

/// The first stray separator, or the first line feed that an empty line or a blank follows.
const char* FindSuspect(const char* first, const char* last) {
  return ByteScan::Find<1>(
      first, last,
      [](const char* p) {
        const ByteBlock here(p);
        const ByteBlock next(p + 1);
        return here.Equal('\t') | here.Equal(';') |
               (here.Equal('\n') & (next.Equal('\n') | next.Equal(' ')));
      },
      [last](const char* p) {
        return IsStray(*p) || (*p == '\n' && p + 1 != last && (p[1] == '\n' || p[1] == ' '));
      });
}

const char* SkipBlanks(const char* first, const char* last) {
  while (first != last && *first == ' ') ++first;
  return first;
}

const char* LineEnd(const char* first, const char* last) {
  const void* end = std::memchr(first, '\n', static_cast<std::size_t>(last - first));
  return end == nullptr ? last : static_cast<const char*>(end);
}

const char* LineStart(const char* place, const char* first) {
  while (place != first && place[-1] != '\n') --place;
  return place;
}

/// Keeps the line [first, line_end) without its stray separators, unless nothing but blanks is
/// left of it, and its line feed where it has one.
void KeepCleaned(InPlaceWriter& writer, const char* first, const char* line_end, bool has_feed) {
  char* const start = writer.Position();
  for (const char* p = first; p != line_end; ++p) {
    if (!IsStray(*p)) writer.Put(*p);
  }
  if (SkipBlanks(start, writer.Position()) == writer.Position()) {
    writer.BackTo(start);
  } else if (has_feed) {
    writer.Put('\n');
  }
}

}  // namespace

bool ReplaceToken(std::string& text, std::string_view token, std::string_view replacement) {
  if (token.empty()) return false;
  const std::string_view view = text;
  std::size_t read = 0;
  std::size_t found = view.find(token);
  if (found == std::string_view::npos) return false;
  InPlaceWriter writer(text);
  for (; found != std::string_view::npos; found = view.find(token, read)) {
    writer.Keep(view.data() + read, view.data() + found);
    for (const char c : replacement) writer.Put(c);
    read = found + token.size();
  }
  writer.Keep(view.data() + read, view.data() + view.size());
  writer.Finish();
  return true;
}

void ReplaceSeparator(std::string& text, std::string_view separator) {
  if (separator.size() != 1) {
    ReplaceToken(text, separator, " ");
    return;
  }
  const char token = separator[0];
  const std::size_t found = token == ' ' ? std::string::npos : text.find(token);
  if (found == std::string::npos) return;
  char* const last = text.data() + text.size();
  for (char* p = text.data() + found; p != last; ++p) *p = *p == token ? ' ' : *p;
}

void DropBlanksBeside(std::string& text, char separator) {
  std::size_t blank = text.find(' ');
  if (blank == std::string::npos) return;
  InPlaceWriter writer(text);
  const char* const end = text.data() + text.size();
  const char* kept = text.data();  // what is before it has been written or dropped
  while (blank != std::string::npos) {
    const char* const first = text.data() + blank;
    const std::size_t next = std::min(text.find_first_not_of(' ', blank), text.size());
    const char* const last = text.data() + next;
    const bool is_beside =
        (blank > 0 && first[-1] == separator) || (last != end && *last == separator);
    writer.Keep(kept, is_beside ? first : last);
    kept = last;
    blank = text.find(' ', next);
  }
  writer.Keep(kept, end);
  writer.Finish();
}

std::size_t CollapseRuns(std::string& text, char c) {
  const char* read = text.data();
  const char* const last = read + text.size();
  InPlaceWriter writer(text);
  std::size_t longest = 0;
  for (const char* run = FindPair(read, last, c); run != last; run = FindPair(read, last, c)) {
    writer.Keep(read, run + 1);
    for (read = run; read != last && *read == c;) ++read;
    longest = std::max(longest, static_cast<std::size_t>(read - run));
  }
  writer.Keep(read, last);
  writer.Finish();
  return longest;
}

void CleanLines(std::string& text) {
  const char* read = text.data();  // always at the start of a line
  const char* const last = read + text.size();
  InPlaceWriter writer(text);
  while (read != last) {
    const char* const filled = SkipBlanks(read, last);
    if (filled == last) break;
    if (*filled == '\n') {
      read = filled + 1;
      continue;
    }
    const char* const suspect = FindSuspect(filled, last);
    if (suspect == last || *suspect == '\n') {
      const char* const end = suspect == last ? last : suspect + 1;
      writer.Keep(read, end);
      read = end;
      continue;
    }
    const char* const line = LineStart(suspect, read);
    const char* const line_end = LineEnd(suspect, last);
    const bool has_feed = line_end != last;
    writer.Keep(read, line);
    KeepCleaned(writer, line, line_end, has_feed);
    read = has_feed ? line_end + 1 : last;
  }
  writer.Finish();
}

std::size_t CountLines(std::string_view text) {
  if (text.empty()) return 0;
  std::size_t count = 1;
  const char* const last = text.data() + text.size();
  for (const char* p = text.data(); p != last;) {
    const char* const end = p + std::min(last - p, kCountedAtOnce);
    unsigned char found = 0;  // narrow, so that the loop runs on whole vectors
    for (; p != end; ++p) found = static_cast<unsigned char>(found + (*p == '\n'));
    count += found;
  }
  return count;
}

std::size_t SecondLineOffset(std::string_view text) {
  const std::size_t feed = text.find('\n');
  return feed == std::string_view::npos ? text.size() : feed + 1;
}

void DropFirstLine(std::string& text) {
  text.erase(0, SecondLineOffset(text));
}

}  // namespace tslm5::TextCleanup
