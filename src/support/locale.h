#ifndef TSLM5_SUPPORT_LOCALE_H_
#define TSLM5_SUPPORT_LOCALE_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tslm5 {

/// What the system knows of a user's locale: its identifier and how numbers are written in it.
/// A plain value. Made from the environment once, see `CurrentLocale`; the C library's own locale
/// is neither read nor changed.
class Locale {
 public:
  /// `name` is a POSIX or ICU locale name, such as "de_DE.UTF-8". "C", "POSIX", the empty name and
  /// one that ICU does not know give 1033 and ".". A name without a country gets its likeliest.
  explicit Locale(std::string_view name);

  /// The locale of `LC_ALL`, `LC_NUMERIC` or `LANG`: the first that is set and not empty.
  static Locale FromEnvironment();

  /// The locale of a 32-bit locale identifier; false when there is none, and `locale` is left
  /// alone.
  static bool FromIdentifier(std::int32_t identifier, Locale& locale);

  /// The 32-bit locale identifier: 1033 for en_US, 2057 for en_GB, 0 for a locale that has none.
  std::int32_t Identifier() const { return identifier_; }

  /// The decimal separator of numbers in ASCII digits.
  char DecimalSymbol() const { return decimal_symbol_; }

  /// The thousands separator, UTF-8: one character, in some locales outside ASCII.
  const std::string& GroupSymbol() const { return group_symbol_; }

 private:
  std::int32_t identifier_ = 1033;
  char decimal_symbol_ = '.';
  std::string group_symbol_ = ",";
};

/// The user's locale: that of the environment, read when first asked for, or the innermost
/// `ScopedLocale`. Ask once an operation, and keep the reference no longer than that.
const Locale& CurrentLocale();

/// Makes another locale the current one for the length of a scope; scopes nest. For tests: it
/// holds for the whole process, so no other thread may be at work.
class ScopedLocale {
 public:
  explicit ScopedLocale(std::string_view name);
  ~ScopedLocale();
  ScopedLocale(const ScopedLocale&) = delete;
  ScopedLocale& operator=(const ScopedLocale&) = delete;

 private:
  Locale locale_;
  const Locale* previous_;
};

}  // namespace tslm5

#endif  // TSLM5_SUPPORT_LOCALE_H_
