// Linked into every test program: whatever the locale of the person who runs it, the tests see a
// user who writes decimals with a point; those that are about another one choose it, with
// `ScopedLocale`.
//
// The C library gets the locale of that person all the same, as in an application that sets it: no
// test may notice a decimal comma there. Its words for the errors of the system alone stay English.

#include <clocale>
#include <cstdlib>

namespace tslm5 {
namespace {

[[maybe_unused]] const bool kChosen = [] {
  std::setlocale(LC_ALL, "");
  std::setlocale(LC_MESSAGES, "C");
  return ::setenv("LC_ALL", "C.UTF-8", 1) == 0;
}();

}  // namespace
}  // namespace tslm5
