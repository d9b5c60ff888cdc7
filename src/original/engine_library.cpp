#include "original/engine_library.h"

#include <dlfcn.h>

#include "tslm5/engine/open_run.h"
#include "tslm5/platform/error.h"

namespace tslm5::EngineLibrary {
namespace {

// What the engine exports: `Ref<IConnectionService> tslm5::OpenRun(const std::string&, const
// RunOptions&)`, by the name that the C++ ABI gives it in the library.
constexpr const char* kOpenRunSymbol =
    "_ZN5tslm57OpenRunERKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEERKNS_10RunOptionsE";

using OpenRunFunction = Ref<IConnectionService> (*)(const std::string&, const RunOptions&);

[[noreturn]] void RaiseNoEngine() {
  const char* reason = dlerror();
  throw Error(error_number::kCannotCreateObject, "OpenFromFile",
              reason != nullptr ? reason : "The storage engine was not found.");
}

OpenRunFunction FindOpenRun() {
  // Once loaded it stays: objects of it, and errors that it raised, may outlive this call.
  void* const library = dlopen(TSLM5_ENGINE_LIBRARY, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) RaiseNoEngine();
  void* const symbol = dlsym(library, kOpenRunSymbol);
  dlclose(library);
  if (symbol == nullptr) RaiseNoEngine();
  return reinterpret_cast<OpenRunFunction>(symbol);
}

}  // namespace

Ref<IConnectionService> OpenRunFile(const std::string& path) {
  RunOptions options;
  options.mode = RunOptions::Mode::kReadOnly;
  return FindOpenRun()(path, options);
}

}  // namespace tslm5::EngineLibrary
