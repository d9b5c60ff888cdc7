// The component's C boundary: nothing is thrown across it, whatever happens within.
#include "tslm5/component/entry_points.h"

#include <cstring>

#include "component/class_objects.h"
#include "component/registration_file.h"
#include "tslm5/platform/live_objects.h"

namespace {

tslm5::Uuid ReadUuid(const void* bytes) {
  tslm5::Uuid id;
  std::memcpy(&id, bytes, sizeof(id));
  return id;
}

int32_t Code(tslm5::RegistrationChange change) {
  switch (change) {
    case tslm5::RegistrationChange::kDone:
      return TSLM5_OK;
    case tslm5::RegistrationChange::kUnsynced:
      return TSLM5_UNSYNCED;
    case tslm5::RegistrationChange::kFailed:
      break;
  }
  return TSLM5_REGISTRATION_FAILED;
}

}  // namespace

int32_t DllGetClassObject(const void* class_id, const void* interface_id, void** object) {
  if (object == nullptr) return TSLM5_NULL_POINTER;
  *object = nullptr;
  if (class_id == nullptr || interface_id == nullptr) return TSLM5_NULL_POINTER;
  try {
    const auto class_object = tslm5::MakeClassObject(ReadUuid(class_id));
    if (!class_object) return TSLM5_CLASS_NOT_AVAILABLE;
    return class_object->QueryInterface(ReadUuid(interface_id), object) ? TSLM5_OK
                                                                        : TSLM5_NO_INTERFACE;
  } catch (...) {
    return TSLM5_FAILED;
  }
}

int32_t DllCanUnloadNow(void) {
  return tslm5::LiveObjects::Count() == 0 && tslm5::ServerLocks() == 0 ? TSLM5_OK : TSLM5_FALSE;
}

int32_t DllRegisterServer(void) {
  try {
    return Code(tslm5::WriteRegistration());
  } catch (...) {
    return TSLM5_REGISTRATION_FAILED;
  }
}

int32_t DllUnregisterServer(void) {
  try {
    return Code(tslm5::RemoveRegistration());
  } catch (...) {
    return TSLM5_REGISTRATION_FAILED;
  }
}
