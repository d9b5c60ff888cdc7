#ifndef TSLM5_SUPPORT_LARGE_PAGES_H_
#define TSLM5_SUPPORT_LARGE_PAGES_H_

#include <cstddef>

namespace tslm5 {

/// Asks for large pages under a large block that has not been touched yet: the first touch of small
/// ones costs a good part of a parse. Only a hint, and only for whole pages of the block.
void AdviseLargePages(void* block, std::size_t bytes);

}  // namespace tslm5

#endif  // TSLM5_SUPPORT_LARGE_PAGES_H_
