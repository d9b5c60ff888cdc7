#ifndef TSLM5_DELIMITED_SEPARATOR_DETECTION_H_
#define TSLM5_DELIMITED_SEPARATOR_DETECTION_H_

#include <cstddef>

#include "delimited/sample.h"

namespace tslm5::delimited {

/// How a sample comes out as a table when it is split in one way.
struct TableShape {
  std::size_t columns = 0;        ///< the fields that most records have; 0 without records
  std::size_t preamble = 0;       ///< records before the table, of other widths
  bool has_short_header = false;  ///< its first record has one field less than all others
  double even_share = 0.0;        ///< of the records of the table, those with `columns` fields
  double number_share = 0.0;      ///< of the fields below its first record, the numbers
};

/// The shape of the table in a sample. A number may have a decimal point or a decimal comma.
TableShape ShapeOf(const Sample& sample);

struct SeparatorChoice {
  char separator = '\0';
  TableShape shape;
};

/// The separator of a text: the one of tab, semicolon, bar, comma and blank that makes the most
/// even table of the most numbers. A blank comes after any other that makes an even table, unless
/// it alone makes numbers of the fields. '\0' where none splits most of the lines alike.
SeparatorChoice DetectSeparator(const SampleText& text, bool has_quotes);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_SEPARATOR_DETECTION_H_
