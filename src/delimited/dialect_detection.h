#ifndef TSLM5_DELIMITED_DIALECT_DETECTION_H_
#define TSLM5_DELIMITED_DIALECT_DETECTION_H_

#include "delimited/dialect.h"
#include "delimited/findings.h"
#include "delimited/sample.h"

namespace tslm5::delimited {

/// The dialect of the text that begins with `sample`: what is set in `options`, and the rest as the
/// sample shows it. A choice that the sample contradicts is a finding, and so is what a person
/// should know of the choices that were made. The encoding is left alone.
Dialect DetectDialect(SampleText sample, const ReadOptions& options, FindingList& findings);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_DIALECT_DETECTION_H_
