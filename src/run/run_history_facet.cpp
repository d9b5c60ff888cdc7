#include "run/run_history_facet.h"

#include <chrono>
#include <utility>

#include "platform/only_errors.h"
#include "run/sql_text.h"
#include "tslm5/contracts/codes.h"
#include "tslm5/engine/transaction.h"

namespace tslm5 {
namespace {

constexpr const char* kHistory = "RunHistory";
constexpr const char* kSelectSteps =
    "SELECT Time, Command, SetId, File, Parameters FROM RunHistory ";

HistoryStep StepOf(IDataReader& reader) {
  return {reader.GetString(0), reader.GetString(1), reader.GetInteger(2), reader.GetString(3),
          reader.GetString(4)};
}

/// `value` in at least two digits.
std::string TwoDigits(std::int64_t value) {
  return Sql(value < 10 ? "0" : "", value);
}

/// The time of now in UTC, as in 2026-01-31T12:00:00Z.
std::string TimeOfNow() {
  using std::chrono::days;
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  const auto day = std::chrono::floor<days>(now);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(now - day);
  return Sql(static_cast<int>(date.year()), "-", TwoDigits(static_cast<unsigned>(date.month())),
             "-", TwoDigits(static_cast<unsigned>(date.day())), "T",
             TwoDigits(time.hours().count()), ":", TwoDigits(time.minutes().count()), ":",
             TwoDigits(time.seconds().count()), "Z");
}

}  // namespace

void RunHistoryFacet::ReadSteps(std::vector<HistoryStep>& pSteps) {
  OnlyErrors([&] {
    std::vector<HistoryStep> steps;
    if (state_.HasTable(kHistory)) {
      state_.ForEach(Sql(kSelectSteps, "ORDER BY Id"),
                     [&steps](IDataReader& reader) { steps.push_back(StepOf(reader)); });
    }
    pSteps = std::move(steps);
  });
}

void RunHistoryFacet::AppendStep(const HistoryStep& pStep) {
  OnlyErrors([&] {
    Transaction transaction(state_.Connection());
    if (!state_.HasTable(kHistory)) {
      state_.Execute(
          "CREATE TABLE RunHistory (Id INTEGER PRIMARY KEY, Time TEXT, Command TEXT, SetId "
          "INTEGER, File TEXT, Parameters TEXT)");
    }
    state_.Execute(Sql("INSERT INTO RunHistory VALUES (NULL, ",
                       SqlText(pStep.time.empty() ? TimeOfNow() : pStep.time), ", ",
                       SqlText(pStep.command), ", ", pStep.set, ", ", SqlText(pStep.file), ", ",
                       SqlText(pStep.parameters), ")"));
    transaction.Commit();
  });
}

bool RunHistoryFacet::ReadLastLoad(std::int32_t pType, HistoryStep& pStep) {
  return OnlyErrors([&] {
    if (!state_.HasTable(kHistory)) return false;
    const Ref<IDataReader> reader = state_.Connection().ExecuteReader(
        Sql(kSelectSteps, "WHERE Command = 'load' AND SetId IN (", pType, ", ",
            data_set_type::kCombined, ") ORDER BY Id DESC LIMIT 1"));
    if (!reader->Read()) return false;
    pStep = StepOf(*reader);
    return true;
  });
}

}  // namespace tslm5
