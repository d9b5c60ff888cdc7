#ifndef TSLM5_ORIGINAL_ENGINE_LIBRARY_H_
#define TSLM5_ORIGINAL_ENGINE_LIBRARY_H_

#include <string>

#include "tslm5/engine/connection_service.h"
#include "tslm5/platform/ref.h"

namespace tslm5 {

/// The storage engine for the one operation that is given a path and no run. The engine is not
/// linked: its shared library is the one that the process has already loaded, else the one beside
/// this library or in the system's folders.
namespace EngineLibrary {

/// Opens a run for reading alone. Raises what `OpenRun` raises, and 429 when the library is not
/// found or is another one.
Ref<IConnectionService> OpenRunFile(const std::string& path);

}  // namespace EngineLibrary

}  // namespace tslm5

#endif  // TSLM5_ORIGINAL_ENGINE_LIBRARY_H_
