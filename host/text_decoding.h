#ifndef TSLM5_HOST_TEXT_DECODING_H_
#define TSLM5_HOST_TEXT_DECODING_H_

#include <string>

namespace tslm5::host {

/// The bytes of a text file as UTF-8, by the loader's rule: a UTF-8 mark is dropped, a UTF-16 mark
/// honoured, valid UTF-8 taken as it is, and anything else read as Windows-1252.
std::string DecodeText(std::string bytes);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_TEXT_DECODING_H_
