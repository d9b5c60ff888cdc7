#ifndef TSLM5_HOST_CHARTS_SERIES_PICTURE_H_
#define TSLM5_HOST_CHARTS_SERIES_PICTURE_H_

#include <string>
#include <string_view>
#include <vector>

namespace tslm5::host {

/// What tells a picture that was drawn here from any other file.
inline constexpr std::string_view kPictureMark = "<!-- drawn by tslm5 plot -->";

/// An SVG picture of values in order, joined by lines, that needs nothing else: light, or dark
/// where the viewer prefers that. A value that is no finite number leaves a gap. More values than
/// the picture has points across are drawn by the smallest and the largest of each point. REQUIRES:
/// some value is a finite number.
std::string SeriesPicture(const std::string& title, const std::vector<double>& values);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_CHARTS_SERIES_PICTURE_H_
