#include "delimited/findings.h"

#include <algorithm>

namespace tslm5::delimited {
namespace {

struct Wording {
  const char* name;
  const char* before;  ///< the value
  const char* after;
};

/// One a code, in their order. The place comes before the words.
constexpr std::array<Wording, kFindingCodes> kWordings = {{
    {"unclosed quote", "the quotes that begin ",
     " are not closed: close them, or double each quote "
     "that is part of the text"},
    {"uneven record", "the record has ",
     " fields, another number than the table has columns: add or "
     "remove separators, or quote the fields that hold one"},
    {"uneven header", "the header has ",
     " labels, another number than the records have fields: give "
     "each column one label"},
    {"invalid text", "the encoding has no character for some of the bytes, in ",
     " places: name the encoding of the file"},
    {"NUL byte", "the text holds NUL bytes, ",
     " of them: this is no text, or its encoding is another"},
    {"preamble", "lines stand before the table, ", " of them: remove them, or ask to skip them"},
    {"no header", "the first line, beginning with ",
     ", was read as data: say so if it is a header"},
    {"row names", "the header has no label for the first column: it was taken for row names", ""},
    {"repeated label", "the label is there already and was made ", ": rename it"},
    {"empty label", "the column has no label and was named ", ": give it a label"},
    {"separator contradicted",
     "the separator that was set splits no line: the text looks separated "
     "by ",
     ""},
    {"decimal contradicted", "",
     " is a number with the other decimal sign and was read as text: set "
     "the decimal sign"},
    {"header contradicted", "the header was set otherwise, but the first line looks like ", ""},
    {"preamble contradicted",
     "the lines to skip were set, but lines stand before the table behind "
     "them: ",
     " in all"},
    {"quotes contradicted", "", " stands in quotes, which were set to be part of the text"},
}};

std::string Shown(std::string_view value) {
  constexpr char kHex[] = "0123456789abcdef";
  std::string shown;
  for (const char c : value) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\n') {
      shown += "\\n";
    } else if (c == '\r') {
      shown += "\\r";
    } else if (c == '\t') {
      shown += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
      shown += "\\x";
      shown += kHex[byte >> 4U];
      shown += kHex[byte & 15U];
    } else {
      shown += c;
    }
  }
  return shown;
}

/// At most `kLongestValue` bytes, never half a character.
std::string_view Cut(std::string_view value) {
  if (value.size() <= kLongestValue) return value;
  std::size_t size = kLongestValue;
  while (size != 0 && (static_cast<unsigned char>(value[size]) & 0xC0U) == 0x80U) --size;
  return value.substr(0, size);
}

}  // namespace

const char* Name(FindingCode code) {
  return kWordings[static_cast<std::size_t>(code)].name;
}

std::string Message(const Finding& finding) {
  std::string message;
  if (finding.line != 0) message += "line " + std::to_string(finding.line);
  if (finding.column >= 0) {
    message += (message.empty() ? "" : ", ") + ("column " + std::to_string(finding.column + 1));
  }
  if (!message.empty()) message += ": ";
  const Wording& wording = kWordings[static_cast<std::size_t>(finding.code)];
  message += wording.before;
  if (*wording.after != '\0' || !finding.value.empty()) {
    const bool is_count =
        !finding.value.empty() && std::all_of(finding.value.begin(), finding.value.end(),
                                              [](char c) { return c >= '0' && c <= '9'; });
    if (is_count) {
      message += finding.value;
    } else {
      message.append("\"").append(Shown(finding.value)).append("\"");
    }
  }
  return message + wording.after;
}

void FindingList::Add(FindingCode code, std::int64_t line, std::int64_t column,
                      std::string_view value) {
  if (counts_[static_cast<std::size_t>(code)]++ >= std::int64_t{kMostOfAKind}) return;
  findings_.push_back({code, line, column, std::string(Cut(value))});
}

const Finding* FindingList::First(FindingCode code) const {
  const auto found = std::find_if(findings_.begin(), findings_.end(),
                                  [code](const Finding& one) { return one.code == code; });
  return found == findings_.end() ? nullptr : &*found;
}

}  // namespace tslm5::delimited
