#include "host/preparation/testing_texts.h"

#include <memory>
#include <numeric>
#include <utility>

namespace tslm5::host {

FieldTable ReadTestingTexts(const RunSession& session, std::size_t columns,
                            const std::vector<std::string>& labels, char decimal) {
  FieldTable table;
  table.decimal = decimal;
  table.place_word = "the run's testing record";
  table.columns = columns;
  table.file_columns.resize(columns);
  std::iota(table.file_columns.begin(), table.file_columns.end(), std::size_t{0});
  table.labels = labels;
  auto text = std::make_shared<std::string>();
  std::vector<std::size_t> ends;
  const Ref<IDataReader> reader = session.Originals().OpenRecords(data_set_type::kTesting);
  while (reader->Read()) {
    table.places.push_back(static_cast<std::int64_t>(table.places.size()) + 1);
    for (std::size_t column = 0; column < columns; ++column) {
      *text += reader->GetString(static_cast<std::int32_t>(column));
      ends.push_back(text->size());
    }
  }
  reader->Close();
  std::size_t from = 0;
  for (const std::size_t end : ends) {
    table.fields.push_back(std::string_view(*text).substr(from, end - from));
    from = end;
  }
  table.text = std::move(text);
  return table;
}

}  // namespace tslm5::host
