#ifndef TSLM5_HOST_COMMANDS_COMPONENTS_COMMAND_H_
#define TSLM5_HOST_COMMANDS_COMPONENTS_COMMAND_H_

#include "host/program/invocation.h"

namespace tslm5::host {

/// Options of `tslm5 components`.
struct ComponentsOptions {
  bool json = false;
};

/// Options of `tslm5 register` and `tslm5 unregister`: there are none.
struct RegistrationOptions {};

/// `tslm5 components`, which lists the registered components.
void AddComponentsCommand(CommandSpec& app, Invocation& invocation);
/// `tslm5 register`, after which programs find this program's component by name.
void AddRegisterCommand(CommandSpec& app, Invocation& invocation);
/// `tslm5 unregister`.
void AddUnregisterCommand(CommandSpec& app, Invocation& invocation);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_COMPONENTS_COMMAND_H_
