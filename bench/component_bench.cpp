// Loading the component by its name and making a first object, beside a bare dlopen of the library.
#include <benchmark/benchmark.h>
#include <dlfcn.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

#include "bench_file.h"
#include "tslm5/component/create_object.h"
#include "tslm5/contracts/data_set.h"

namespace tslm5::bench {
namespace {

constexpr const char* kLibrary = TSLM5_LIBRARY;

void* Open() {
  void* handle = ::dlopen(kLibrary, RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw std::runtime_error(::dlerror());
  return handle;
}

/// A folder of registrations with the library in it.
struct Registered {
  Registered() {
    ::setenv("TSLM5_COMPONENTS", folder.File("registered").c_str(), 1);
    void* handle = Open();
    const auto enter =
        reinterpret_cast<decltype(&::DllRegisterServer)>(::dlsym(handle, "DllRegisterServer"));
    if (enter() != TSLM5_OK) throw std::runtime_error("not registered");
    ::dlclose(handle);
  }

  ScratchFolder folder;
};

void BareOpen(benchmark::State& state) {
  for (auto _ : state) ::dlclose(Open());
}

void FirstObject(benchmark::State& state) {
  const Registered registered;
  for (auto _ : state) {
    CreateObject<IDataSet>("TSLM5DataManager.DataSetLite");
    UnloadUnusedComponents();
  }
}

BENCHMARK(BareOpen)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstObject)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tslm5::bench
