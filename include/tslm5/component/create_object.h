#ifndef TSLM5_COMPONENT_CREATE_OBJECT_H_
#define TSLM5_COMPONENT_CREATE_OBJECT_H_

#include "tslm5/component/class_factory.h"
#include "tslm5/component/entry_points.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// Makes an object of the class `id` (`class_id`) and returns its face for interface `I`.
/// For a program that links libTSLM5DataManager. Raises 429 when the class or the face is missing.
template <class I>
Ref<I> CreateObject(const Uuid& id) {
  void* factory = nullptr;
  if (DllGetClassObject(&id, &IClassFactory::kId, &factory) == TSLM5_OK) {
    const auto made = Ref<IClassFactory>::Adopt(static_cast<IClassFactory*>(factory));
    if (Ref<I> object = Query<I>(made->CreateInstance())) return object;
  }
  throw Error(error_number::kCannotCreateObject, "CreateObject",
              "The component has no such class, or the class no such interface.");
}

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_CREATE_OBJECT_H_
