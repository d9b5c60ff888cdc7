#ifndef TSLM5_COMPONENT_CLASS_OBJECTS_H_
#define TSLM5_COMPONENT_CLASS_OBJECTS_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "tslm5/component/class_factory.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// The class object of a public class, or an empty reference for an unknown one.
Ref<IClassFactory> MakeClassObject(const Uuid& id);

/// The locks that are held on the library through its class objects.
std::int64_t ServerLocks();

/// A public class as a program names it, behind the component's name and a point.
struct PublicClassName {
  std::string_view name;
  Uuid id;
};

/// Every public class.
std::vector<PublicClassName> PublicClassNames();

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_CLASS_OBJECTS_H_
