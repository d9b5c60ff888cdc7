#ifndef TSLM5_COMPONENT_CLASS_FACTORY_H_
#define TSLM5_COMPONENT_CLASS_FACTORY_H_

#include "tslm5/platform/ref.h"
#include "tslm5/platform/unknown.h"

namespace tslm5 {

/// The identifiers of the component's public classes.
namespace class_id {
/// A dataset in a run database.
inline constexpr Uuid kDataSetLite{0x54534c4d350000c1ULL, 0x8a1f4c0b6d2e73c1ULL};
/// A dataset in memory alone.
inline constexpr Uuid kInMemorySet{0x54534c4d350000c2ULL, 0x8a1f4c0b6d2e73c2ULL};
/// A run's records as the texts that were loaded; read-only.
inline constexpr Uuid kOriginalDataSet{0x54534c4d350000c3ULL, 0x8a1f4c0b6d2e73c3ULL};
/// What the events of checks and loads carry, for an application that hands in its own.
inline constexpr Uuid kParseEventArgs{0x54534c4d350000c4ULL, 0x8a1f4c0b6d2e73c4ULL};
/// What the event of one record carries.
inline constexpr Uuid kRecordParsedEventArgs{0x54534c4d350000c5ULL, 0x8a1f4c0b6d2e73c5ULL};
/// The maker of a new run's tables.
inline constexpr Uuid kRunSchema{0x54534c4d350000c6ULL, 0x8a1f4c0b6d2e73c6ULL};
/// A reader of delimited text.
inline constexpr Uuid kDelimitedReader{0x54534c4d350000c7ULL, 0x8a1f4c0b6d2e73c7ULL};
/// What a run keeps, read and written in structures.
inline constexpr Uuid kRunCatalog{0x54534c4d350000c8ULL, 0x8a1f4c0b6d2e73c8ULL};
/// A check of delimited text before it is loaded.
inline constexpr Uuid kDataCheck{0x54534c4d350000c9ULL, 0x8a1f4c0b6d2e73c9ULL};
/// What is done to a run after it was loaded.
inline constexpr Uuid kRunPreparation{0x54534c4d350000caULL, 0x8a1f4c0b6d2e73caULL};
}  // namespace class_id

/// A class object: makes the objects of one class.
class IClassFactory : public IUnknown {
 public:
  /// For `QueryInterface`, `Query` and `Ref::As`.
  static constexpr Uuid kId{0x54534c4d35000081ULL, 0x8a1f4c0b6d2e7381ULL};

  /// A new object with its defaults.
  virtual Ref<IUnknown> CreateInstance() = 0;
  /// Keeps the library from being unloaded while no object lives (true), or ends one such lock
  /// (false). Locks add up; ending more of them than there are does nothing.
  virtual void LockServer(bool pLock) = 0;

 protected:
  ~IClassFactory() = default;
};

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_CLASS_FACTORY_H_
