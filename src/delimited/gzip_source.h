#ifndef TSLM5_DELIMITED_GZIP_SOURCE_H_
#define TSLM5_DELIMITED_GZIP_SOURCE_H_

#include <memory>

#include "delimited/byte_source.h"

namespace tslm5::delimited {

/// The bytes that `source` holds compressed by gzip, members one after the other; `source` as it
/// stands where it does not begin as gzip does. Reading raises 75 where the compressed data are
/// damaged or end too early.
std::unique_ptr<ByteSource> Decompressed(std::unique_ptr<ByteSource> source);

}  // namespace tslm5::delimited

#endif  // TSLM5_DELIMITED_GZIP_SOURCE_H_
