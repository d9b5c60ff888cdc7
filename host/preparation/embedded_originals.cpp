#include "host/preparation/embedded_originals.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "host/preparation/run_originals.h"

namespace tslm5::host {

bool WriteEmbeddedOriginals(const RunSession& session, std::int32_t dimension, std::int32_t delay,
                            std::int32_t records) {
  if (session.ColumnsOf("OriginalData") < 1) return false;
  IConnection& connection = session.Connection();
  std::string columns;
  std::string texts;
  for (std::int64_t column = 0; column <= dimension; ++column) {
    columns += fmt::format("d{} TEXT, ", column);
    texts += fmt::format("lead(text, {}) OVER places, ", column * delay);
  }
  connection.Execute(
      fmt::format("CREATE TABLE EmbeddedOriginals ({}row INTEGER PRIMARY KEY)", columns));
  connection.Execute(fmt::format(
      "INSERT INTO EmbeddedOriginals SELECT {}row_number() OVER places FROM (SELECT od.d0 AS text, "
      "t.row AS place FROM TrainingSet t LEFT JOIN OriginalData od ON od.row = t.row) "
      "WINDOW places AS (ORDER BY place) ORDER BY place LIMIT {}",
      texts, records));
  if (connection.TableExists("TestingSet")) {
    const std::int32_t first = session.ReadInteger("SELECT MIN(row) FROM TestingSet");
    const std::int32_t distance = std::max(0, records + 1 - first);
    connection.Execute(
        fmt::format("INSERT INTO EmbeddedOriginals (d0, row) SELECT d0, row + {} FROM OriginalData "
                    "WHERE row IN (SELECT row FROM TestingSet)",
                    distance));
    MoveKeys(connection, "TestingSet", distance);
  }
  return true;
}

void TakeEmbeddedOriginals(const RunSession& session) {
  session.Connection().Execute("DROP TABLE OriginalData");
  session.Connection().Execute("ALTER TABLE EmbeddedOriginals RENAME TO OriginalData");
}

}  // namespace tslm5::host
