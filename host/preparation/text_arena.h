#ifndef TSLM5_HOST_PREPARATION_TEXT_ARENA_H_
#define TSLM5_HOST_PREPARATION_TEXT_ARENA_H_

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tslm5::host {

/// Keeps texts that are written once and never freed one by one. They stay where they are.
class TextArena {
 public:
  std::string_view Keep(std::string_view text) {
    if (text.empty()) return {};
    if (text.size() > room_) {
      const std::size_t size = std::max(kPieceBytes, text.size());
      pieces_.push_back(std::make_unique_for_overwrite<char[]>(size));
      next_ = pieces_.back().get();
      room_ = size;
    }
    char* const kept = next_;
    std::copy(text.begin(), text.end(), kept);
    next_ += text.size();
    room_ -= text.size();
    return {kept, text.size()};
  }

 private:
  static constexpr std::size_t kPieceBytes = std::size_t{1} << 20;

  std::vector<std::unique_ptr<char[]>> pieces_;
  char* next_ = nullptr;
  std::size_t room_ = 0;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_TEXT_ARENA_H_
