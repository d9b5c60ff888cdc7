#ifndef TSLM5_COMPONENT_CLASS_OBJECTS_H_
#define TSLM5_COMPONENT_CLASS_OBJECTS_H_

#include "tslm5/component/class_factory.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// The class object of a public class, or an empty reference for an unknown one.
Ref<IClassFactory> MakeClassObject(const Uuid& id);

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_CLASS_OBJECTS_H_
