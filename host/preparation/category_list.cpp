#include "host/preparation/category_list.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace tslm5::host {

const Category* CategoryList::Find(std::string_view text) const {
  const auto place = places_.find(std::string(text));
  return place == places_.end() ? nullptr : &categories_[place->second];
}

Category* CategoryList::Find(std::string_view text) {
  const auto place = places_.find(std::string(text));
  return place == places_.end() ? nullptr : &categories_[place->second];
}

Category& CategoryList::Add(std::string_view text, double code, std::int64_t count) {
  places_.emplace(text, categories_.size());
  return categories_.emplace_back(Category{std::string(text), code, count});
}

std::vector<std::string> CategoryList::Texts() const {
  std::vector<std::string> texts;
  for (const Category& category : categories_) texts.push_back(category.text);
  return texts;
}

std::size_t CategoryList::Codes() const {
  std::set<double> codes;
  for (const Category& category : categories_) codes.insert(category.code);
  return codes.size();
}

double CategoryList::NextCode() const {
  double most = 0.0;
  for (const Category& category : categories_) most = std::max(most, std::floor(category.code));
  return most + 1.0;
}

}  // namespace tslm5::host
