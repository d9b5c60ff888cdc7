#include "host/program/command_spec.h"

#include <CLI/CLI.hpp>
#include <utility>

namespace tslm5::host {

OptionSpec& OptionSpec::Required() {
  option_->required();
  return *this;
}

OptionSpec& OptionSpec::ValueName(const std::string& name) {
  option_->type_name(name);
  return *this;
}

OptionSpec& OptionSpec::OneOf(const std::vector<std::string>& values) {
  option_->check(CLI::IsMember(values));
  return *this;
}

OptionSpec& OptionSpec::InRange(int lowest, int highest) {
  option_->check(CLI::Range(lowest, highest));
  return *this;
}

OptionSpec& OptionSpec::OneValueEach() {
  option_->allow_extra_args(false);
  return *this;
}

OptionSpec& OptionSpec::Hidden() {
  option_->group("");
  return *this;
}

OptionSpec& OptionSpec::Excludes(const OptionSpec& other) {
  option_->excludes(other.option_);
  return *this;
}

OptionSpec& OptionSpec::Needs(const OptionSpec& other) {
  option_->needs(other.option_);
  return *this;
}

bool OptionSpec::IsGiven() const {
  return option_->count() > 0;
}

CommandSpec CommandSpec::AddCommand(const std::string& name, const std::string& help) {
  return CommandSpec(*app_->add_subcommand(name, help));
}

OptionSpec CommandSpec::AddOption(const std::string& name, std::string& value,
                                  const std::string& help) {
  return OptionSpec(*app_->add_option(name, value, help));
}

OptionSpec CommandSpec::AddOption(const std::string& name, std::optional<std::string>& value,
                                  const std::string& help) {
  return OptionSpec(*app_->add_option(name, value, help));
}

OptionSpec CommandSpec::AddOption(const std::string& name, std::vector<std::string>& values,
                                  const std::string& help) {
  return OptionSpec(*app_->add_option(name, values, help));
}

OptionSpec CommandSpec::AddOption(const std::string& name, std::size_t& value,
                                  const std::string& help) {
  return OptionSpec(*app_->add_option(name, value, help));
}

OptionSpec CommandSpec::AddFlag(const std::string& name, bool& value, const std::string& help) {
  return OptionSpec(*app_->add_flag(name, value, help));
}

void CommandSpec::Footer(const std::string& text) {
  app_->footer(text);
}

void CommandSpec::WhenRead(std::function<void()> callback) {
  app_->callback(std::move(callback));
}

}  // namespace tslm5::host
