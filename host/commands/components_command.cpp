#include "host/commands/components_command.h"

#include <fmt/format.h>

#include <memory>
#include <nlohmann/json.hpp>

#include "host/program/common_options.h"
#include "host/program/json_text.h"
#include "host/program/shown_text.h"
#include "tslm5/component/entry_points.h"
#include "tslm5/component/loaded_components.h"
#include "tslm5/component/registration.h"

namespace tslm5::host {
namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  tslm5 register\n"
    "  tslm5 components\n"
    "  tslm5 unregister\n"
    "\n"
    "A registered component is found by its name by every program of the user, or of the machine\n"
    "when root registers it: CreateObject<IDataSet>(\"TSLM5DataManager.DataSetLite\"). The\n"
    "environment variable TSLM5_COMPONENTS chooses another folder for the registrations.\n";

/// Why the component's library cannot be loaded; empty when it can.
std::string TroubleOf(const RegisteredComponent& component) {
  try {
    LoadedComponents::Instance().Find(component.library);
    return "";
  } catch (const Error& error) {
    return error.Description();
  }
}

std::string ComponentsJson(const std::vector<RegisteredComponent>& components) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const RegisteredComponent& component : components) {
    nlohmann::ordered_json classes = nlohmann::ordered_json::array();
    for (const auto& entry : component.classes) {
      classes.push_back({{"name", entry.name}, {"id", UuidText(entry.id)}});
    }
    const std::string trouble = TroubleOf(component);
    list.push_back({{"name", component.name},
                    {"version", component.version},
                    {"library", component.library.string()},
                    {"registration", component.file.string()},
                    {"usable", trouble.empty()},
                    {"trouble", trouble},
                    {"classes", classes}});
  }
  return JsonText({{"components", list}});
}

std::string ComponentsText(const std::vector<RegisteredComponent>& components) {
  if (components.empty()) return "no component is registered (tslm5 register does it)\n";
  std::string text;
  for (const RegisteredComponent& component : components) {
    if (!text.empty()) text += "\n";
    text += fmt::format("{} {}\n", Escaped(component.name), Escaped(component.version));
    text += fmt::format("  library       {}\n", Escaped(component.library.string()));
    text += fmt::format("  registration  {}\n", Escaped(component.file.string()));
    const std::string trouble = TroubleOf(component);
    if (!trouble.empty()) text += fmt::format("  trouble       {}\n", Escaped(trouble));
    for (const auto& entry : component.classes) {
      text += fmt::format("  class         {}.{}\n", Escaped(component.name), Escaped(entry.name));
    }
  }
  return text;
}

void RunComponents(const ComponentsOptions& options, Output& output) {
  const std::vector<RegisteredComponent> components = RegisteredComponents();
  output.Write(options.json ? ComponentsJson(components) : ComponentsText(components));
}

[[noreturn]] void FailIn(const std::string& what) {
  const std::filesystem::path folder = RegistrationFolder();
  throw Failure(ExitCode::kTrouble, folder.empty()
                                        ? what + ": neither XDG_DATA_HOME nor HOME names a folder"
                                        : fmt::format("{} in {}", what, Escaped(folder.string())));
}

/// Raises `Failure` unless a call that is to do `what` has done it for good.
void RequireDone(std::int32_t code, const std::string& what, const std::string& done) {
  if (code == TSLM5_OK) return;
  if (code != TSLM5_UNSYNCED) FailIn(what);
  throw Failure(
      ExitCode::kTrouble,
      fmt::format("{}, but a power loss may still undo it: the folder {} cannot be written "
                  "to the disk",
                  done, Escaped(RegistrationFolder().string())));
}

void RunRegister(const RegistrationOptions&, Output& output) {
  RequireDone(::DllRegisterServer(), "the component cannot be registered",
              "the component is registered");
  output.Write(fmt::format("TSLM5DataManager is registered in {}\n",
                           Escaped(RegistrationFolder().string())));
}

void RunUnregister(const RegistrationOptions&, Output& output) {
  RequireDone(::DllUnregisterServer(), "the registration cannot be removed",
              "the registration is removed");
  output.Write("TSLM5DataManager is not registered any more\n");
}

}  // namespace

void AddComponentsCommand(CommandSpec& app, Invocation& invocation) {
  CommandSpec components = app.AddCommand("components", "List the registered components");
  const auto words = std::make_shared<ComponentsOptions>();
  AddJson(components, words->json);
  components.Footer(kExamples);
  WhenChosen(
      components, invocation, [words] { return *words; }, RunComponents);
}

void AddRegisterCommand(CommandSpec& app, Invocation& invocation) {
  CommandSpec command = app.AddCommand("register", "Let programs find the component by its name");
  command.Footer(kExamples);
  WhenChosen(
      command, invocation, [] { return RegistrationOptions{}; }, RunRegister);
}

void AddUnregisterCommand(CommandSpec& app, Invocation& invocation) {
  CommandSpec command = app.AddCommand("unregister", "Undo tslm5 register");
  command.Footer(kExamples);
  WhenChosen(
      command, invocation, [] { return RegistrationOptions{}; }, RunUnregister);
}

}  // namespace tslm5::host
