#ifndef TSLM5_HOST_PREPARATION_CATEGORY_LIST_H_
#define TSLM5_HOST_PREPARATION_CATEGORY_LIST_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tslm5::host {

/// A text of a column and the number that stands for it.
struct Category {
  std::string text;
  double code = 0.0;
  std::int64_t count = 0;  ///< training records that carry it
};

/// The categories of a column by text, in the order in which they were entered.
class CategoryList {
 public:
  /// nullptr when there is no such text. Lives until the next `Add`.
  Category* Find(std::string_view text);
  const Category* Find(std::string_view text) const;
  /// REQUIRES: the text is not there.
  Category& Add(std::string_view text, double code, std::int64_t count);

  bool IsEmpty() const { return categories_.empty(); }
  const std::vector<Category>& All() const { return categories_; }
  std::vector<Category>& All() { return categories_; }
  std::vector<std::string> Texts() const;
  /// How many different codes there are.
  std::size_t Codes() const;
  /// The next whole number above every code.
  double NextCode() const;

 private:
  std::vector<Category> categories_;
  std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace tslm5::host

#endif  // TSLM5_HOST_PREPARATION_CATEGORY_LIST_H_
