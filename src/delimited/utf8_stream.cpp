#include "delimited/utf8_stream.h"

#include <unicode/ucnv.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstring>

#include "delimited/encoding_guess.h"
#include "support/utf8.h"
#include "tslm5/platform/error.h"

namespace tslm5::delimited {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;
constexpr std::size_t kPivotUnits = 4096;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsSame(const std::string& encoding, const char* name) {
  return ucnv_compareNames(encoding.c_str(), name) == 0;
}

/// How many bytes at the end of `text` begin a character that is not all there.
std::size_t IncompleteTail(std::string_view text) {
  for (std::size_t size = 1; size <= std::min<std::size_t>(3, text.size()); ++size) {
    const char c = text[text.size() - size];
    if (U8_IS_LEAD(c)) return size < 1U + U8_COUNT_TRAIL_BYTES(c) ? size : 0;
    if (!U8_IS_TRAIL(c)) return 0;
  }
  return 0;
}

}  // namespace

void Utf8Stream::CloseConverter::operator()(UConverter* converter) const {
  ucnv_close(converter);
}

Utf8Stream::Converter Utf8Stream::OpenConverter(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(ucnv_open(name.c_str(), &status));
  if (U_FAILURE(status)) {
    throw Error(error_number::kInvalidArgument, "Utf8Stream",
                "unknown encoding \"" + name + "\"; use a name such as UTF-8 or windows-1252");
  }
  return converter;
}

Utf8Stream::Utf8Stream(std::unique_ptr<ByteSource> source, const std::string& encoding)
    : source_(std::move(source)), is_decided_(!encoding.empty()), raw_(kBlockBytes) {
  if (is_decided_) Use(encoding);
}

Utf8Stream::~Utf8Stream() = default;

std::size_t Utf8Stream::Read(char* to, std::size_t room) {
  while (ready_.empty()) {
    if (is_at_end_) return 0;
    DecodeBlock();
  }
  const std::size_t count = std::min(room, ready_.size());
  std::memcpy(to, ready_.data(), count);
  ready_.remove_prefix(count);
  return count;
}

/// Reads and decodes the next block into `ready_`, which is empty.
void Utf8Stream::DecodeBlock() {
  FillRaw();
  if (!is_started_) {
    is_started_ = true;
    DropMark();
    if (!is_decided_) DecideByZeros();
  }
  if (!is_decided_) DecideByOtherThanAscii();
  if (from_) {
    ConvertRaw();
  } else {
    DecodeUtf8();
  }
  NoteNuls();
  decoded_ += static_cast<std::int64_t>(ready_.size());
}

void Utf8Stream::FillRaw() {
  std::memmove(raw_.data(), raw_.data() + raw_size_ - tail_size_, tail_size_);
  raw_size_ = std::exchange(tail_size_, 0);
  while (raw_size_ < raw_.size()) {
    const std::size_t count = source_->Read(raw_.data() + raw_size_, raw_.size() - raw_size_);
    if (count == 0) {
      is_at_end_ = true;
      return;
    }
    raw_size_ += count;
  }
}

void Utf8Stream::DropMark() {
  const Mark mark = FindMark({raw_.data(), raw_size_});
  if (mark.size == 0 || (is_decided_ && !IsSame(encoding_, mark.encoding))) return;
  has_mark_ = true;
  raw_size_ -= mark.size;
  std::memmove(raw_.data(), raw_.data() + mark.size, raw_size_);
  if (is_decided_) return;
  is_decided_ = true;
  Use(mark.encoding);
}

void Utf8Stream::DecideByZeros() {
  const char* const encoding = GuessUtf16({raw_.data(), raw_size_});
  if (encoding == nullptr) return;
  is_decided_ = true;
  Use(encoding);
}

void Utf8Stream::DecideByOtherThanAscii() {
  const std::string_view bytes(raw_.data(), raw_size_);
  const auto is_ascii = [](char c) { return static_cast<signed char>(c) >= 0; };
  const auto* const first = std::find_if_not(bytes.begin(), bytes.end(), is_ascii);
  if (first == bytes.end()) return;
  is_decided_ = true;
  const std::size_t tail = is_at_end_ ? 0 : IncompleteTail(bytes);
  if (!Utf8::IsValid(bytes.substr(0, bytes.size() - tail))) Use(GuessEncoding(bytes));
}

void Utf8Stream::Use(const std::string& encoding) {
  if (!IsSame(encoding, "UTF-8")) {
    from_ = OpenConverter(encoding);
    to_ = OpenConverter("UTF-8");
    pivot_.resize(kPivotUnits);
    pivot_source_ = pivot_target_ = pivot_.data();
  }
  encoding_ = encoding;
}

void Utf8Stream::DecodeUtf8() {
  const std::string_view bytes(raw_.data(), raw_size_);
  tail_size_ = is_at_end_ ? 0 : IncompleteTail(bytes);
  ready_ = bytes.substr(0, bytes.size() - tail_size_);
  if (!Utf8::IsValid(ready_)) RepairUtf8(ready_);
}

void Utf8Stream::RepairUtf8(std::string_view bytes) {
  text_.clear();
  for (;;) {
    const std::size_t size = Utf8::ValidPrefixSize(bytes);
    text_ += bytes.substr(0, size);
    if (size == bytes.size()) break;
    NoteInvalid(text_.size());
    text_ += kReplacement;
    bytes.remove_prefix(size + 1);
  }
  ready_ = text_;
}

void Utf8Stream::ConvertRaw() {
  text_.clear();
  const char* source = raw_.data();
  const char* const source_end = source + raw_size_;
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    const std::size_t used = text_.size();
    text_.resize(used + 2 * kBlockBytes);
    char* target = text_.data() + used;
    status = U_ZERO_ERROR;
    ucnv_convertEx(to_.get(), from_.get(), &target, text_.data() + text_.size(), &source,
                   source_end, pivot_.data(), &pivot_source_, &pivot_target_,
                   pivot_.data() + pivot_.size(), is_first_conversion_, is_at_end_, &status);
    is_first_conversion_ = false;
    text_.resize(static_cast<std::size_t>(target - text_.data()));
  }
  if (U_FAILURE(status)) {
    throw Error(error_number::kFileAccess, "Utf8Stream",
                Name() + ": the text cannot be read as " + encoding_ + ": " + u_errorName(status));
  }
  for (std::size_t at = text_.find(kReplacement); at != std::string::npos;
       at = text_.find(kReplacement, at + kReplacement.size())) {
    NoteInvalid(at);
  }
  ready_ = text_;
}

void Utf8Stream::NoteInvalid(std::size_t offset_in_block) {
  if (invalid_count_++ == 0) first_invalid_ = decoded_ + static_cast<std::int64_t>(offset_in_block);
}

void Utf8Stream::NoteNuls() {
  const auto count = std::count(ready_.begin(), ready_.end(), '\0');
  if (count != 0 && nul_count_ == 0) {
    first_nul_ = decoded_ + static_cast<std::int64_t>(ready_.find('\0'));
  }
  nul_count_ += count;
}

}  // namespace tslm5::delimited
