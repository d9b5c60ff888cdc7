#ifndef TSLM5_HOST_PROGRAM_NEAREST_TEXTS_H_
#define TSLM5_HOST_PROGRAM_NEAREST_TEXTS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5::host {

/// The characters that must be put in, left out or changed to make one text of the other. Looks at
/// the first 60 of each.
std::size_t EditDistance(std::string_view left, std::string_view right);

/// `texts` for people who wrote `name`: quoted, the dozen nearest to it, the nearest first, and the
/// number of the others. "none" where there are no texts.
std::string NearestList(std::string_view name, const std::vector<std::string>& texts);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PROGRAM_NEAREST_TEXTS_H_
