#include "host/run_history.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <chrono>

#include "host/run_metadata.h"

namespace tslm5::host {

void WriteHistory(const RunSession& session, const HistoryEntry& entry) {
  IConnection& connection = session.Connection();
  if (!connection.TableExists("RunHistory")) {
    connection.Execute(
        "CREATE TABLE RunHistory (Id INTEGER PRIMARY KEY, Time TEXT, Command TEXT, SetId INTEGER, "
        "File TEXT, Parameters TEXT)");
  }
  const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  connection.Execute(
      fmt::format("INSERT INTO RunHistory VALUES (NULL, '{:%Y-%m-%dT%H:%M:%SZ}', {}, {}, {}, {})",
                  fmt::gmtime(now), SqlText(entry.command), entry.set, SqlText(entry.file),
                  SqlText(entry.parameters)));
}

std::optional<HistoryEntry> LastLoad(const RunSession& session, std::int32_t type) {
  IConnection& connection = session.Connection();
  if (!connection.TableExists("RunHistory")) return std::nullopt;
  const Ref<IDataReader> reader = connection.ExecuteReader(
      fmt::format("SELECT Time, Command, SetId, File, Parameters FROM RunHistory "
                  "WHERE Command = 'load' AND SetId = {} ORDER BY Id DESC LIMIT 1",
                  type));
  std::optional<HistoryEntry> entry;
  if (reader->Read()) {
    entry = HistoryEntry{reader->GetString(0), reader->GetString(1), reader->GetInteger(2),
                         reader->GetString(3), reader->GetString(4)};
  }
  reader->Close();
  return entry;
}

}  // namespace tslm5::host
