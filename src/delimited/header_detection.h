#ifndef TSLM5_DELIMITED_HEADER_DETECTION_H_
#define TSLM5_DELIMITED_HEADER_DETECTION_H_

#include <cstddef>

#include "delimited/sample.h"

namespace tslm5::delimited {

enum class HeaderEvidence {
  kHeader,   ///< the first record cannot be one like the others
  kData,     ///< it is one like the others
  kUnclear,  ///< a first record of texts above texts: data, unless the user says otherwise
};

/// What the record at `first` of a sample of `columns` columns is, by the records below it:
/// - a text above a column of numbers is a label, a number above numbers is data;
/// - numbers are labels where they count on from column to column, as years do or 0, 1, 2, beside
///   another label or an empty first one, and do not fit into the columns below;
/// - where nothing but texts stands below, labels are different texts that none of the columns
///   holds again although the columns hardly hold a text once only; or texts without a digit above
///   a column whose texts all have one.
/// A record alone is data.
HeaderEvidence DetectHeader(const Sample& sample, std::size_t first, std::size_t columns);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_HEADER_DETECTION_H_
