#ifndef TSLM5_ENGINE_COLUMN_AFFINITY_H_
#define TSLM5_ENGINE_COLUMN_AFFINITY_H_

#include <string_view>

namespace tslm5 {

/// What SQLite turns a value into that is stored in a column.
enum class Affinity { kInteger, kText, kBlob, kReal, kNumeric };

/// SQLite's rule: the affinity of a column by the name of its declared type.
Affinity AffinityOf(std::string_view declared_type);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_COLUMN_AFFINITY_H_
