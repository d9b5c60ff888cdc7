#include "engine/connection_dispatch.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/only_errors.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

struct Operation {
  std::string_view name;
  std::size_t arguments;
  Variant (*call)(IConnection& connection, std::span<const Variant> arguments);
};

constexpr std::array<Operation, 6> kOperations = {{
    {"Execute", 1,
     [](IConnection& connection, std::span<const Variant> arguments) {
       connection.Execute(arguments[0].ToString());
       return Variant();
     }},
    {"ExecuteReader", 1,
     [](IConnection& connection, std::span<const Variant> arguments) {
       return Variant(connection.ExecuteReader(arguments[0].ToString()));
     }},
    {"BeginTrans", 0,
     [](IConnection& connection, std::span<const Variant>) {
       connection.BeginTrans();
       return Variant();
     }},
    {"CommitTrans", 0,
     [](IConnection& connection, std::span<const Variant>) {
       connection.CommitTrans();
       return Variant();
     }},
    {"RollbackTrans", 0,
     [](IConnection& connection, std::span<const Variant>) {
       connection.RollbackTrans();
       return Variant();
     }},
    {"TableExists", 1,
     [](IConnection& connection, std::span<const Variant> arguments) {
       return Variant(connection.TableExists(arguments[0].ToString()));
     }},
}};

bool SameName(std::string_view left, std::string_view right) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&lower](char a, char b) { return lower(a) == lower(b); });
}

}  // namespace

Variant ConnectionDispatch::Invoke(std::string_view pName,
                                   std::span<const Variant> pArguments) try {
  for (const Operation& operation : kOperations) {
    if (!SameName(operation.name, pName)) continue;
    if (operation.arguments != pArguments.size()) {
      throw Error(error_number::kArgumentCount, std::string(operation.name),
                  "Wrong number of arguments: " + std::to_string(pArguments.size()) + " given, " +
                      std::to_string(operation.arguments) + " expected.");
    }
    return operation.call(connection_, pArguments);
  }
  throw Error(error_number::kUnknownMember, "Invoke",
              "The connection has no operation \"" + std::string(pName) + "\".");
} catch (...) {
  RaiseAsError();
}

}  // namespace tslm5
