#ifndef TSLM5_TESTS_SUPPORT_LOCALE_VARIABLES_H_
#define TSLM5_TESTS_SUPPORT_LOCALE_VARIABLES_H_

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace tslm5 {

/// Sets the three variables that name the user's locale, and puts the old ones back.
class LocaleVariables {
 public:
  LocaleVariables(const char* lc_all, const char* lc_numeric, const char* lang) {
    Set("LC_ALL", lc_all);
    Set("LC_NUMERIC", lc_numeric);
    Set("LANG", lang);
  }
  ~LocaleVariables() {
    for (const auto& [name, value] : old_) Put(name, value ? value->c_str() : nullptr);
  }

 private:
  static void Put(const std::string& name, const char* value) {
    if (value == nullptr) {
      ::unsetenv(name.c_str());
    } else {
      ::setenv(name.c_str(), value, 1);
    }
  }
  void Set(const std::string& name, const char* value) {
    const char* old = std::getenv(name.c_str());
    old_[name] = old == nullptr ? std::nullopt : std::optional<std::string>(old);
    Put(name, value);
  }

  std::map<std::string, std::optional<std::string>> old_;
};

}  // namespace tslm5

#endif  // TSLM5_TESTS_SUPPORT_LOCALE_VARIABLES_H_
