#include "delimited/gzip_source.h"

#include <zlib.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "tslm5/platform/error.h"

namespace tslm5::delimited {
namespace {

constexpr std::size_t kInputBytes = std::size_t{64} * 1024;
constexpr std::size_t kMarkBytes = 2;
constexpr int kGzipAlone = MAX_WBITS + 16;

/// Another source with its first bytes looked at already.
class PeekedSource : public ByteSource {
 public:
  explicit PeekedSource(std::unique_ptr<ByteSource> source)
      : ByteSource(source->Name()), source_(std::move(source)) {
    while (size_ < kMarkBytes) {
      const std::size_t count = source_->Read(first_ + size_, kMarkBytes - size_);
      if (count == 0) break;
      size_ += count;
    }
  }

  bool IsGzip() const { return size_ == kMarkBytes && first_[0] == '\x1F' && first_[1] == '\x8B'; }

  std::size_t Read(char* to, std::size_t room) override {
    if (given_ == size_) return source_->Read(to, room);
    const std::size_t count = std::min(room, size_ - given_);
    std::copy_n(first_ + given_, count, to);
    given_ += count;
    return count;
  }

 private:
  std::unique_ptr<ByteSource> source_;
  char first_[kMarkBytes] = {};
  std::size_t size_ = 0;
  std::size_t given_ = 0;
};

class GzipSource : public ByteSource {
 public:
  explicit GzipSource(std::unique_ptr<ByteSource> source)
      : ByteSource(source->Name()), source_(std::move(source)), input_(kInputBytes) {
    if (inflateInit2(&stream_, kGzipAlone) != Z_OK) throw std::bad_alloc();
  }
  ~GzipSource() override { inflateEnd(&stream_); }

  std::size_t Read(char* to, std::size_t room) override {
    const auto most =
        static_cast<uInt>(std::min<std::size_t>(room, std::numeric_limits<uInt>::max()));
    stream_.next_out = reinterpret_cast<Bytef*>(to);
    stream_.avail_out = most;
    while (stream_.avail_out == most) {
      const bool is_at_end = stream_.avail_in == 0 && !Fill();
      if (is_between_members_) {
        if (is_at_end) break;
        if (*stream_.next_in == 0) {  // padding behind the last member, as tapes have it
          ++stream_.next_in;
          --stream_.avail_in;
          continue;
        }
        inflateReset(&stream_);
        is_between_members_ = false;
      }
      const int code = inflate(&stream_, Z_NO_FLUSH);
      if (code == Z_MEM_ERROR) throw std::bad_alloc();
      if (code != Z_OK && code != Z_STREAM_END && code != Z_BUF_ERROR) {
        Raise("the compressed data are damaged");
      }
      is_between_members_ = code == Z_STREAM_END;
      if (is_at_end && !is_between_members_ && stream_.avail_out == most) {
        Raise("the compressed data end too early");
      }
    }
    return most - stream_.avail_out;
  }

 private:
  bool Fill() {
    const std::size_t count = source_->Read(input_.data(), input_.size());
    stream_.next_in = reinterpret_cast<Bytef*>(input_.data());
    stream_.avail_in = static_cast<uInt>(count);
    return count != 0;
  }

  [[noreturn]] void Raise(const char* reason) const {
    throw Error(error_number::kFileAccess, "OpenSource", Name() + ": " + reason);
  }

  std::unique_ptr<ByteSource> source_;
  std::vector<char> input_;
  z_stream stream_{};
  bool is_between_members_ = false;
};

}  // namespace

std::unique_ptr<ByteSource> Decompressed(std::unique_ptr<ByteSource> source) {
  auto peeked = std::make_unique<PeekedSource>(std::move(source));
  if (!peeked->IsGzip()) return peeked;
  return std::make_unique<GzipSource>(std::move(peeked));
}

}  // namespace tslm5::delimited
