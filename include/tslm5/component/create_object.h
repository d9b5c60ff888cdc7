#ifndef TSLM5_COMPONENT_CREATE_OBJECT_H_
#define TSLM5_COMPONENT_CREATE_OBJECT_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "tslm5/component/class_factory.h"
#include "tslm5/component/entry_points.h"
#include "tslm5/component/loaded_components.h"
#include "tslm5/component/registration.h"
#include "tslm5/platform/error.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// An object of the class `id` as a library's class maker makes it; empty when the library has no
/// such class, or the class no interface `I`.
template <class I>
Ref<I> MakeByClassObject(LoadedComponents::GetClassObject get_class_object, const Uuid& id) {
  void* factory = nullptr;
  if (get_class_object(&id, &IClassFactory::kId, &factory) != TSLM5_OK) return nullptr;
  if (factory == nullptr) return nullptr;
  const auto made = Ref<IClassFactory>::Adopt(static_cast<IClassFactory*>(factory));
  return Query<I>(made->CreateInstance());
}

/// Makes an object of the class `id` (`class_id`) and returns its face for interface `I`.
/// For a program that links libTSLM5DataManager. Raises 429 when the class or the face is missing.
template <class I>
Ref<I> CreateObject(const Uuid& id) {
  if (Ref<I> object = MakeByClassObject<I>(&::DllGetClassObject, id)) return object;
  throw Error(error_number::kCannotCreateObject, "CreateObject",
              "The component has no such class, or the class no such interface.");
}

/// Makes an object of a registered class by its name, as "TSLM5DataManager.DataSetLite", and
/// returns its face for interface `I`. The component's library is loaded when it was not yet; the
/// program need not be linked to it. It stays loaded until `UnloadUnusedComponents`.
/// Raises 429 when no component of that name is registered, its library cannot be loaded, or it has
/// no such class or the class no such interface; the description tells which.
template <class I>
Ref<I> CreateObject(std::string_view name) {
  const auto fail = [&name](const std::string& reason) {
    throw Error(error_number::kCannotCreateObject, "CreateObject",
                "\"" + std::string(name) + "\" cannot be made: " + reason);
  };
  const std::size_t point = name.find('.');
  const std::string_view component_name = name.substr(0, point);
  const std::string_view class_name =
      point == std::string_view::npos ? std::string_view() : name.substr(point + 1);
  for (const RegisteredComponent& component : RegisteredComponents()) {
    if (component.name != component_name) continue;
    for (const RegisteredComponent::Class& entry : component.classes) {
      if (entry.name != class_name) continue;
      const auto maker = LoadedComponents::Instance().Find(component.library);
      if (Ref<I> object = MakeByClassObject<I>(maker, entry.id)) return object;
      fail("the class has no such interface, or the library no such class");
    }
    fail("the component has no such class (" + component.file.string() + ")");
  }
  fail("no component of that name is registered");
  return nullptr;
}

/// Unloads the libraries that `CreateObject` loaded by name and of which nothing is in use any
/// more. Returns how many. REQUIRES: no other thread is making or letting go of such an object.
inline std::int32_t UnloadUnusedComponents() {
  return LoadedComponents::Instance().UnloadUnused();
}

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_CREATE_OBJECT_H_
