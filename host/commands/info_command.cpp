#include "host/commands/info_command.h"

#include <fmt/format.h>

#include <memory>
#include <optional>
#include <vector>

#include "host/preparation/label_list.h"
#include "host/preparation/run_history.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_session.h"
#include "host/program/common_options.h"
#include "host/program/json_text.h"
#include "host/program/set_names.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kInfoExamples =
    "Examples:\n"
    "  tslm5 info flowers.db\n"
    "  tslm5 info flowers.db --json\n";

struct SetInfo {
  const char* name;
  std::int32_t rows;
  std::int32_t columns;
  bool has_labels;
  std::vector<std::string> labels;
  std::optional<HistoryEntry> load;
};

std::vector<SetInfo> ReadSets(const RunSession& session) {
  std::vector<SetInfo> sets;
  for (const SetName& set : kSets) {
    const Ref<IDataSet> data_set = session.OpenDataSet(set.type);
    if (!data_set) continue;
    sets.push_back({set.name, data_set->Rows(), data_set->Columns(), data_set->HasLabels(),
                    LabelsOf(*data_set), LastLoad(session, set.type)});
  }
  return sets;
}

std::string InfoText(const std::string& run, std::int32_t version,
                     const std::vector<SetInfo>& sets) {
  std::string text = fmt::format("{}: schema version {}\n", Escaped(run), version);
  if (sets.empty()) text += "no sets yet; tslm5 load FILE --run RUN.db loads one\n";
  for (const SetInfo& set : sets) {
    text += fmt::format("\n{} set\n", set.name);
    text += fmt::format("  rows     {}\n", set.rows);
    text += fmt::format("  columns  {}\n", set.columns);
    text += fmt::format("  labels   {}{}\n", LabelList(set.labels),
                        set.has_labels ? "" : " (generated: the set has none)");
    if (set.load) {
      text +=
          fmt::format("  loaded   {} from {}\n", Escaped(set.load->time), Escaped(set.load->file));
    } else {
      text += "  loaded   the run does not tell when and from where\n";
    }
  }
  return text;
}

std::string InfoJson(const std::string& run, std::int32_t version,
                     const std::vector<SetInfo>& sets) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const SetInfo& set : sets) {
    nlohmann::ordered_json one = {{"set", set.name},        {"rows", set.rows},
                                  {"columns", set.columns}, {"hasLabels", set.has_labels},
                                  {"labels", set.labels},   {"time", nullptr},
                                  {"file", nullptr}};
    if (set.load) {
      one["time"] = set.load->time;
      one["file"] = set.load->file;
    }
    list.push_back(std::move(one));
  }
  return JsonText({{"run", run}, {"schemaVersion", version}, {"sets", std::move(list)}});
}

}  // namespace

void RunInfo(const InfoOptions& options, Output& output) {
  const RunSession session(options.run, RunOptions::Mode::kReadOnly);
  const std::int32_t version = session.SchemaVersion();
  const std::vector<SetInfo> sets = ReadSets(session);
  output.Write(options.json ? InfoJson(options.run, version, sets)
                            : InfoText(options.run, version, sets));
}

void AddInfoCommand(CommandSpec& app, Invocation& invocation) {
  CommandSpec info = app.AddCommand("info", "Describe a run");
  const auto words = std::make_shared<InfoOptions>();
  AddRun(info, words->run);
  AddJson(info, words->json);
  info.Footer(kInfoExamples);
  const auto make = [words] { return InfoOptions{RunName(words->run), words->json}; };
  WhenChosen(info, invocation, make, RunInfo);
}

}  // namespace tslm5::host
