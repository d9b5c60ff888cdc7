#ifndef TSLM5_COMPONENT_REGISTRATION_FILE_H_
#define TSLM5_COMPONENT_REGISTRATION_FILE_H_

#include <string>

namespace tslm5 {

/// The text of this component's registration (`tslm5/component/registration.h` tells its form) with
/// `library` as the path of its library.
std::string RegistrationText(const std::string& library);

/// How a change of the registration ended.
enum class RegistrationChange {
  kDone,
  kUnsynced,  // done, but the folder cannot be synced: a power loss may still undo it
  kFailed,    // nothing has changed
};

/// Writes the registration of the library that this code is in: beside the file first, then in its
/// place, so that a reader finds the old one or the new one, also after a power loss.
RegistrationChange WriteRegistration();

/// Removes it; done, too, when it is not there.
RegistrationChange RemoveRegistration();

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_REGISTRATION_FILE_H_
