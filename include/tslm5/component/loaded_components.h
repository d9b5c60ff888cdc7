#ifndef TSLM5_COMPONENT_LOADED_COMPONENTS_H_
#define TSLM5_COMPONENT_LOADED_COMPONENTS_H_

#include <dlfcn.h>

#include <cstdint>
#include <exception>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>

#include "tslm5/component/entry_points.h"
#include "tslm5/platform/error.h"

namespace tslm5 {

/// The component libraries that this program has loaded at run time. Safe from any thread.
class LoadedComponents {
 public:
  using GetClassObject = decltype(&::DllGetClassObject);  ///< a library's class maker
  using CanUnloadNow = decltype(&::DllCanUnloadNow);      ///< whether a library is in use

  /// The program's one list; it and the libraries live until the program ends.
  static LoadedComponents& Instance() {
    static LoadedComponents components;
    return components;
  }

  /// The class maker of the component in `library`, which is loaded when it was not yet. Raises
  /// 429 when it cannot be loaded or is no component.
  GetClassObject Find(const std::filesystem::path& library) {
    const std::lock_guard lock(mutex_);
    const auto found = loaded_.find(library);
    if (found != loaded_.end()) return found->second.get_class_object;
    Component component = Load(library);
    return loaded_.emplace(library, component).first->second.get_class_object;
  }

  /// Unloads every library none of whose objects lives and that is not locked. Returns how many.
  /// REQUIRES: no other thread is in code of such a library, nor holds a class maker.
  std::int32_t UnloadUnused() {
    const std::lock_guard lock(mutex_);
    std::int32_t unloaded = 0;
    for (auto entry = loaded_.begin(); entry != loaded_.end();) {
      if (entry->second.can_unload_now() != TSLM5_OK) {
        ++entry;
        continue;
      }
      ::dlclose(entry->second.handle);
      entry = loaded_.erase(entry);
      ++unloaded;
    }
    return unloaded;
  }

 private:
  struct Component {
    void* handle;
    GetClassObject get_class_object;
    CanUnloadNow can_unload_now;
  };

  static Component Load(const std::filesystem::path& library) {
    // What the library does at its start may throw. The system lets that through, though it
    // declares otherwise: called by its name, the compiler would drop the handler.
    void* (*volatile open)(const char*, int) = &::dlopen;
    Component component{nullptr, nullptr, nullptr};
    try {
      component.handle = open(library.c_str(), RTLD_NOW | RTLD_LOCAL);
    } catch (const std::exception& error) {
      Fail(library, error.what());
    }
    if (component.handle == nullptr) Fail(library, ::dlerror());
    component.get_class_object =
        reinterpret_cast<GetClassObject>(::dlsym(component.handle, "DllGetClassObject"));
    component.can_unload_now =
        reinterpret_cast<CanUnloadNow>(::dlsym(component.handle, "DllCanUnloadNow"));
    if (component.get_class_object != nullptr && component.can_unload_now != nullptr) {
      return component;
    }
    ::dlclose(component.handle);
    Fail(library, "it has no DllGetClassObject and DllCanUnloadNow");
  }

  [[noreturn]] static void Fail(const std::filesystem::path& library, const char* reason) {
    throw Error(error_number::kCannotCreateObject, "CreateObject",
                "The component library " + library.string() + " cannot be used: " + reason);
  }

  std::mutex mutex_;
  std::map<std::filesystem::path, Component> loaded_;
};

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_LOADED_COMPONENTS_H_
