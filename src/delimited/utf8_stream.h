#ifndef TSLM5_DELIMITED_UTF8_STREAM_H_
#define TSLM5_DELIMITED_UTF8_STREAM_H_

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "delimited/byte_source.h"

struct UConverter;

namespace tslm5::delimited {

/// Turns the bytes of a source into UTF-8, block by block. A byte-order mark decides the encoding,
/// or zero bytes in every second place, which are UTF-16. Without them the first block that is not
/// plain ASCII decides: it is UTF-8 where it is well formed, else in the encoding that ICU's
/// detector finds likeliest. Memory is one block, whatever the size of the text.
class Utf8Stream {
 public:
  /// `encoding` is an ICU name such as "UTF-8" or "windows-1252"; empty leaves the choice to the
  /// text. Raises 41001 for a name that ICU does not know. A mark of the encoding is dropped.
  explicit Utf8Stream(std::unique_ptr<ByteSource> source, const std::string& encoding = {});
  ~Utf8Stream();
  Utf8Stream(const Utf8Stream&) = delete;
  Utf8Stream& operator=(const Utf8Stream&) = delete;

  /// Copies up to `room` bytes of text to `to`, which may end within a character; 0 at the end
  /// alone.
  std::size_t Read(char* to, std::size_t room);

  /// The encoding, as far as it is decided: "UTF-8" while everything was ASCII.
  const std::string& Encoding() const { return encoding_; }
  /// Whether a byte-order mark was dropped.
  bool HasMark() const { return has_mark_; }
  /// The places that stood for no character and became U+FFFD, among the blocks decoded so far.
  std::int64_t InvalidCount() const { return invalid_count_; }
  /// How many bytes of decoded text stand before the first such place.
  std::int64_t FirstInvalidOffset() const { return first_invalid_; }
  /// NUL bytes among the blocks decoded so far, and how many bytes of text stand before the first.
  std::int64_t NulCount() const { return nul_count_; }
  std::int64_t FirstNulOffset() const { return first_nul_; }

  const std::string& Name() const { return source_->Name(); }

 private:
  struct CloseConverter {
    void operator()(UConverter* converter) const;
  };
  using Converter = std::unique_ptr<UConverter, CloseConverter>;

  static Converter OpenConverter(const std::string& name);
  void DecodeBlock();
  void FillRaw();
  void DropMark();
  void DecideByZeros();
  void DecideByOtherThanAscii();
  void Use(const std::string& encoding);
  void DecodeUtf8();
  void RepairUtf8(std::string_view bytes);
  void ConvertRaw();
  void NoteInvalid(std::size_t offset_in_block);
  void NoteNuls();

  std::unique_ptr<ByteSource> source_;
  std::string encoding_ = "UTF-8";
  bool is_decided_;
  bool has_mark_ = false;
  bool is_started_ = false;
  bool is_at_end_ = false;

  std::vector<char> raw_;
  std::size_t raw_size_ = 0;
  std::size_t tail_size_ = 0;  // bytes at the end of raw_ that wait for the rest of a character
  std::string text_;           // a block that raw_ does not hold as it stands
  std::string_view ready_;     // what is not given yet
  std::int64_t decoded_ = 0;   // bytes of the blocks before the present one

  Converter from_;  // empty for UTF-8
  Converter to_;
  std::vector<char16_t> pivot_;
  char16_t* pivot_source_ = nullptr;
  char16_t* pivot_target_ = nullptr;
  bool is_first_conversion_ = true;

  std::int64_t invalid_count_ = 0;
  std::int64_t first_invalid_ = 0;
  std::int64_t nul_count_ = 0;
  std::int64_t first_nul_ = 0;
};

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_UTF8_STREAM_H_
