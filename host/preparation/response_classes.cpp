#include "host/preparation/response_classes.h"

#include <fmt/format.h>

#include "host/preparation/label_list.h"
#include "host/program/failure.h"
#include "host/program/shown_text.h"
#include "tslm5/contracts/codes.h"

namespace tslm5::host {
namespace {

/// Of two codes the larger is the positive one; its first text names the class.
void NoteTwoClasses(Preparation& preparation) {
  const CategoryList& classes = preparation.Response().categories;
  if (classes.Codes() != 2) return;
  TwoClasses two;
  const Category& first = classes.All().front();
  two.positive_class = first.text;
  two.positive = first.code;
  two.negative = first.code;
  for (const Category& one : classes.All()) {
    if (one.code > two.positive) {
      two.positive = one.code;
      two.positive_class = one.text;
    }
    if (one.code < two.negative) two.negative = one.code;
  }
  preparation.two_classes = two;
}

void SinglePositiveOut(const FieldTable& table, const std::string& text, Preparation& preparation) {
  CategoryList& classes = preparation.Response().categories;
  if (classes.Find(text) == nullptr) {
    Refuse(fmt::format("--positive-class: the response {} has no class {}; its classes are {}",
                       Cut(table.LabelOf(table.columns - 1)), Quoted(text),
                       LabelList(classes.Texts())));
  }
  for (Category& one : classes.All()) one.code = one.text == text ? 1.0 : 0.0;
  preparation.has_positive_class = true;
  preparation.two_classes = TwoClasses{text, 1.0, 0.0};
}

}  // namespace

bool HasClasses(std::int32_t problem, const std::optional<std::string>& positive_class) {
  return positive_class.has_value() || problem == problem_category::kClassification ||
         problem == problem_category::kBinary;
}

void SettleClasses(const FieldTable& table, const std::optional<std::string>& positive_class,
                   Preparation& preparation) {
  if (positive_class) {
    SinglePositiveOut(table, *positive_class, preparation);
  } else {
    NoteTwoClasses(preparation);
  }
  const CategoryList& classes = preparation.Response().categories;
  if (preparation.problem != problem_category::kBinary || classes.Codes() == 2) return;
  Refuse(fmt::format(
      "a binary problem needs a response of two classes, but {} has {}: {} "
      "(--positive-class singles one out)",
      Cut(table.LabelOf(table.columns - 1)), classes.Codes(), LabelList(classes.Texts())));
}

}  // namespace tslm5::host
