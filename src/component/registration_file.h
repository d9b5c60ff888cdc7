#ifndef TSLM5_COMPONENT_REGISTRATION_FILE_H_
#define TSLM5_COMPONENT_REGISTRATION_FILE_H_

#include <string>

namespace tslm5 {

/// The text of this component's registration (`tslm5/component/registration.h` tells its form) with
/// `library` as the path of its library.
std::string RegistrationText(const std::string& library);

/// Writes the registration of the library that this code is in: beside the file first, then in its
/// place, so that a reader finds the old one or the new one. False when that cannot be done.
bool WriteRegistration();

/// Removes it. False when it is there and cannot be removed.
bool RemoveRegistration();

}  // namespace tslm5

#endif  // TSLM5_COMPONENT_REGISTRATION_FILE_H_
