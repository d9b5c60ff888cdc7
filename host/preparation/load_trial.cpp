#include "host/preparation/load_trial.h"

#include "host/preparation/prepare_records.h"
#include "host/preparation/record_split.h"
#include "host/program/failure.h"

namespace tslm5::host {
std::optional<std::string> LoadRefusal(const DelimitedFile& file,
                                       std::optional<std::int32_t> problem) {
  if (file.is_plain && !problem) return std::nullopt;
  try {
    const FieldTable table = ReadTable(file);
    PreparationWishes wishes;
    wishes.problem = problem;
    Preparation preparation;
    PrepareTraining(table, NoSplit(table.Records()).training, CellRule(table.decimal, {}), wishes,
                    preparation);
    return std::nullopt;
  } catch (const Failure& failure) {
    if (failure.Code() != ExitCode::kRefused) throw;
    return failure.what();
  }
}

}  // namespace tslm5::host
