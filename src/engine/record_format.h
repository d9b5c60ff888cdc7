#ifndef TSLM5_ENGINE_RECORD_FORMAT_H_
#define TSLM5_ENGINE_RECORD_FORMAT_H_

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tslm5 {

/// SQLite's variable-length integers: 7 bits a byte, the highest first, 1 to 9 bytes.
inline constexpr std::size_t kLongestVarint = 9;
std::size_t VarintSize(std::uint64_t value);
/// Writes `value` at `out`, which has room for it, and returns the end.
unsigned char* WriteVarint(unsigned char* out, std::uint64_t value);
/// Reads a varint at `at` into `value` and returns its end. REQUIRES: a whole one stands there.
const unsigned char* ReadVarint(const unsigned char* at, std::uint64_t& value);

/// Writes the `size` low bytes of `value` at `out`, the highest first, as SQLite's files hold every
/// number.
inline void WriteBigEndian(unsigned char* out, std::uint64_t value, std::size_t size) {
  while (size-- > 0) {
    out[size] = static_cast<unsigned char>(value);
    value >>= 8;
  }
}

/// Makes records in SQLite's record format, byte for byte as its INSERT makes them: a header of the
/// kinds and sizes of the cells, then their contents. One buffer for all records.
class RecordEncoder {
 public:
  /// Begins a record of at most `cells` cells.
  void Begin(std::size_t cells);
  void AddNull() { kinds_[kinds_end_++] = 0; }
  /// A finite number in a column of REAL affinity, where whole numbers below 2^47 take the form of
  /// integers.
  void AddNumber(double number);
  void AddInteger(std::int64_t number);
  void AddText(std::string_view text);
  /// Ends the record.
  void End();

  /// The two parts of the record last ended, which follow one another in a table. They live until
  /// the next `Begin`.
  std::string_view Header() const {
    return {reinterpret_cast<const char*>(kinds_.data()) + header_start_,
            kinds_end_ - header_start_};
  }
  std::string_view Body() const { return {reinterpret_cast<const char*>(body_.data()), body_end_}; }

 private:
  void AddReal(double number);

  std::vector<unsigned char> kinds_;  // behind room for the header's size
  std::vector<unsigned char> body_;
  std::size_t header_start_ = 0;
  std::size_t kinds_end_ = 0;
  std::size_t body_end_ = 0;
};

/// A cell of a record.
struct RecordFormatCell {
  enum class Kind { kNull, kInteger, kReal, kText };
  Kind kind = Kind::kNull;
  std::int64_t integer = 0;
  double real = 0.0;
  std::string_view text;
};

/// Goes through the cells of a record that a `RecordEncoder` made.
class RecordDecoder {
 public:
  /// `record` (header and body) must stay.
  explicit RecordDecoder(std::string_view record);

  /// Reads the next cell; false behind the last one.
  bool Next(RecordFormatCell& cell);

 private:
  const unsigned char* kind_;
  const unsigned char* kinds_end_;
  const unsigned char* content_;
};

}  // namespace tslm5

#endif  // TSLM5_ENGINE_RECORD_FORMAT_H_
