#include "datasetlite/series_embedding.h"

#include <cmath>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "support/embedding.h"
#include "support/utf8.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"
#include "tslm5/platform/error.h"

namespace tslm5 {
namespace {

/// The values of a series. `texts` is empty unless one of them is text that is no number; it holds
/// all of them then.
struct Series {
  std::vector<double> numbers;
  std::vector<std::string> texts;
};

std::string TextOf(TableLite& table, std::int32_t row) {
  const std::string line = table.GetRow(row, " ");
  const std::string_view text = Utf8::TrimBlanks(line);
  return std::string(text.empty() ? "NULL" : text);
}

std::vector<std::string> ReadTexts(TableLite& table, std::int32_t rows) {
  std::vector<std::string> texts;
  texts.reserve(static_cast<std::size_t>(rows));
  for (std::int32_t row = 0; row < rows; ++row) texts.push_back(TextOf(table, row));
  return texts;
}

Series ReadSeries(TableLite& table, std::int32_t rows) {
  if (table.Columns() != 1 || table.Rows() != rows) {
    throw Error(error_number::kInvalidData, "FormatDataAs", "Another program changed the series.");
  }
  Series series;
  series.numbers.resize(static_cast<std::size_t>(rows));
  bool has_text = false;
  for (std::int32_t row = 0; row < rows; ++row) {
    double& number = series.numbers[static_cast<std::size_t>(row)];
    table.GetValue(0, row, number);
    if (std::isinf(number)) {
      throw Error(error_number::kInvalidData, "FormatDataAs", "The series is not finite.");
    }
    has_text = has_text || (std::isnan(number) && TextOf(table, row) != "NULL");
  }
  if (has_text) series.texts = ReadTexts(table, rows);
  return series;
}

/// Makes the table of `type` anew, its cells the values of the series at `series_row(row, column)`.
template <class SeriesRow>
Ref<TableLite> MakeTable(const DataSetLiteState& state, std::int32_t type, bool has_backup,
                         std::int32_t rows, std::int32_t columns, const Series& series,
                         SeriesRow series_row) {
  Ref<TableLite> table = MakeObject<TableLite>();
  table->Init2(state.run.get());
  table->Create(columns, type, has_backup);
  if (series.texts.empty()) {
    table->ParseNumbers(rows, columns, [&](std::int32_t row, std::span<double> cells) {
      std::int32_t column = 0;
      for (double& cell : cells) cell = series.numbers[series_row(row, column++)];
    });
  } else {
    std::vector<std::string> lines(static_cast<std::size_t>(rows));
    for (std::int32_t row = 0; row < rows; ++row) {
      std::string& line = lines[static_cast<std::size_t>(row)];
      for (std::int32_t column = 0; column < columns; ++column) {
        if (column > 0) line += ' ';
        line += series.texts[series_row(row, column)];
      }
    }
    table->ParseArray(lines);  // nobody listens, so nobody stops it
  }
  table->LoadRecordSet();
  return table;
}

bool Embed(DataSetLiteState& state) {
  if (!state.table || state.table->Columns() != 1) return false;
  const auto embedding = Embedding::Of(state.properties, state.table->Rows());
  if (!embedding) return false;
  const std::int32_t type = state.table->TypeCode();
  const std::int32_t samples = embedding->TestingSamples();
  // The testing samples would take the very table of the series.
  if (samples > 0 && type == data_set_type::kTimeSeriesTesting) return false;

  const Ref<IConnection> connection = ConnectionOf(state);
  Transaction transaction(*connection);
  const Series series = ReadSeries(*state.table, embedding->SeriesRows());
  Ref<TableLite> testing;
  if (samples > 0) {
    testing = MakeTable(
        state, data_set_type::kTimeSeriesTesting, false, samples, 1, series,
        [&embedding](std::int32_t sample, std::int32_t) { return embedding->TestingRow(sample); });
  }
  Ref<TableLite> table = MakeTable(state, type, true, embedding->Records(), embedding->Columns(),
                                   series, [&embedding](std::int32_t record, std::int32_t column) {
                                     return embedding->SeriesRow(record, column);
                                   });
  LoadColumnFlags(state);
  transaction.Commit([&] {
    state.table = std::move(table);
    if (testing) state.extra_table = std::move(testing);
    state.cached_columns = embedding->Columns();
    state.statistics.Empty();
  });
  return true;
}

}  // namespace

bool EmbedSeries(DataSetLiteState& state) {
  try {
    return Embed(state);
  } catch (const std::exception& failure) {  // an `Error`, or too little memory for the series
    return IsStored(failure);
  }
}

}  // namespace tslm5
