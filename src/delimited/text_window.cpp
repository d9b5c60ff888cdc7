#include "delimited/text_window.h"

#include <cstring>

#include "delimited/delimiter_index.h"

namespace tslm5::delimited {
namespace {

constexpr std::size_t kWindowBytes = std::size_t{256} * 1024;
constexpr std::size_t kLineEndRoom = 1;

}  // namespace

TextWindow::TextWindow(Utf8Stream& stream)
    : stream_(stream), text_(kWindowBytes + kLineEndRoom + kReadableBehind) {
  Advance(0);
}

void TextWindow::Advance(std::size_t used) {
  std::memmove(text_.data(), text_.data() + used, size_ - used);
  size_ -= used;
  offset_ += static_cast<std::int64_t>(used);
  std::size_t room = text_.size() - kLineEndRoom - kReadableBehind;
  if (size_ > room / 2) {
    room *= 2;
    text_.resize(room + kLineEndRoom + kReadableBehind);
  }
  while (!is_final_ && size_ < room) {
    const std::size_t count = stream_.Read(text_.data() + size_, room - size_);
    is_final_ = count == 0;
    size_ += count;
  }
  if (is_final_ && size_ != 0 && text_[size_ - 1] != '\n' && text_[size_ - 1] != '\r') {
    text_[size_++] = '\n';
  }
  std::memset(text_.data() + size_, 0, kReadableBehind);
}

}  // namespace tslm5::delimited
