#include "inmemory/in_memory_embedding.h"

#include <exception>
#include <string>
#include <utility>

#include "support/embedding.h"

namespace tslm5 {
namespace {

std::vector<std::string> LagLabels(const EmbeddingStep& step) {
  std::vector<std::string> labels;
  for (std::int32_t column = 0; column <= step.dimension; ++column) {
    labels.push_back("t_" + std::to_string(step.Lag(column)));
  }
  return labels;
}

bool Embed(InMemoryState& state) {
  if (!state.data || state.Columns() != 1) return false;
  const auto embedding = Embedding::Of(state.properties, state.Rows());
  if (!embedding) return false;
  const auto value = [&state](std::size_t row) {
    return state.data->Get(static_cast<std::int32_t>(row), 0);
  };

  CellArray testing(embedding->TestingSamples(), 1);
  for (std::int32_t sample = 0; sample < testing.Rows(); ++sample) {
    testing.Put(sample, 0, value(embedding->TestingRow(sample)));
  }
  auto records = std::make_shared<CellArray>(embedding->Records(), embedding->Columns());
  for (std::int32_t record = 0; record < records->Rows(); ++record) {
    double* const cells = records->Row(record);
    for (std::int32_t column = 0; column < records->Columns(); ++column) {
      cells[column] = value(embedding->SeriesRow(record, column));
    }
  }
  std::vector<std::string> labels = LagLabels(embedding->Step());

  if (testing.Rows() > 0) {
    state.extra_set = std::move(testing);
    state.extra_set_exists = true;
  }
  state.column_count = records->Columns();
  state.data = std::move(records);
  state.labels = std::move(labels);
  state.has_labels = true;
  return true;
}

}  // namespace

bool EmbedSeries(InMemoryState& state) {
  state.is_dirty = true;
  try {
    return Embed(state);
  } catch (const std::exception&) {  // an `Error`, or too little memory for the records
    return false;
  }
}

}  // namespace tslm5
