#ifndef TSLM5_HOST_PREPARATION_CELL_RULE_H_
#define TSLM5_HOST_PREPARATION_CELL_RULE_H_

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tslm5::host {

enum class CellClass { kNumber, kMissing, kWord };

/// Tells what a cell is: a number, a missing value or a word.
class CellRule {
 public:
  /// `tokens` are the words that stand for a missing value beside the loader's own, letter for
  /// letter; a number may be one. `decimal` is the sign of the numbers, a point or a comma.
  CellRule(char decimal, const std::vector<std::string>& tokens)
      : decimal_(decimal), tokens_(tokens.begin(), tokens.end()) {}

  /// `value` receives the number of a cell that is one.
  CellClass Classify(std::string_view cell, double& value) const;
  CellClass Classify(std::string_view cell) const {
    double ignored = 0.0;
    return Classify(cell, ignored);
  }

  /// Whether the cell is one of the tokens that the user named.
  bool IsNamedToken(std::string_view cell) const {
    return !tokens_.empty() && tokens_.contains(std::string(cell));
  }
  char Decimal() const { return decimal_; }

 private:
  bool IsNumber(std::string_view cell, double& value) const;

  char decimal_;
  std::unordered_set<std::string> tokens_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_CELL_RULE_H_
