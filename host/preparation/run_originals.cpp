#include "host/preparation/run_originals.h"

#include <span>
#include <string_view>

#include "host/preparation/record_reader.h"
#include "host/program/interruption.h"

namespace tslm5::host {

void WriteOriginals(IRunOriginals& originals, const DelimitedText& text, const CellSurvey& survey,
                    std::int32_t first_key, Progress& progress) {
  progress.Begin("Keeping the originals", survey.records);
  RecordReader reader(text);
  std::vector<std::string_view> fields;
  for (std::int32_t record = 0; reader.Next(); ++record) {
    StopIfInterrupted();
    SplitLine(reader.Raw(), *text.separator, fields);
    if (fields.size() != survey.columns) SplitAtBlanks(reader.Clean(), fields);
    originals.Append(fields, first_key + record);
    progress.At(record);
  }
}

void WriteOriginals(IRunOriginals& originals, const FieldTable& table,
                    const std::vector<std::size_t>& records, const std::vector<std::int32_t>& keys,
                    Progress& progress) {
  progress.Begin("Keeping the originals", static_cast<std::int64_t>(records.size()));
  const std::span<const std::string_view> fields = table.fields;
  for (std::size_t i = 0; i < records.size(); ++i) {
    StopIfInterrupted();
    originals.Append(fields.subspan(records[i] * table.columns, table.columns), keys[i]);
    progress.At(static_cast<std::int64_t>(i));
  }
}

}  // namespace tslm5::host
