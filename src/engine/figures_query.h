#ifndef TSLM5_ENGINE_FIGURES_QUERY_H_
#define TSLM5_ENGINE_FIGURES_QUERY_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tslm5 {

/// A query of figures over plain columns of one table:
///   SELECT min(d0), max(d0), avg(d0), median(d0), stdev(d0), COUNT(*) FROM t [WHERE c = number]
/// in any selection and order, case and blanks as they come.
struct FiguresQuery {
  enum class Kind { kMinimum, kMaximum, kMean, kMedian, kDeviation, kCount };

  struct Item {
    Kind kind = Kind::kCount;
    std::size_t column = 0;  ///< index into `columns`; of no meaning for a count
    std::string text;        ///< as it stands in the query
  };

  std::vector<Item> items;
  std::vector<std::string> columns;  ///< each one once
  std::string table;
  std::string condition;  ///< "c = number", or empty
};

/// Takes `sql` apart; false when it is any other statement.
bool ParseFiguresQuery(std::string_view sql, FiguresQuery& query);

}  // namespace tslm5

#endif  // TSLM5_ENGINE_FIGURES_QUERY_H_
