#include "host/commands/plot_command.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "host/charts/series_picture.h"
#include "host/preparation/label_list.h"
#include "host/preparation/run_metadata.h"
#include "host/preparation/run_session.h"
#include "host/program/common_options.h"
#include "host/program/failure.h"
#include "host/program/interruption.h"
#include "host/program/page_file.h"
#include "host/program/shown_text.h"

namespace tslm5::host {
namespace {

constexpr const char* kPlotExamples =
    "Examples:\n"
    "  tslm5 plot air.db passengers\n"
    "  tslm5 plot air.db ozone --set testing --width 100 --height 25\n"
    "  tslm5 plot air.db passengers --svg passengers.svg\n"
    "\n"
    "The column's values in the order of the records, joined by lines; a missing value leaves a\n"
    "gap. With --svg a former plot is replaced; any other file only with --force, the run itself "
    "never.\n";

constexpr ChartSize kLargestChart = {1000, 200};
constexpr std::int32_t kRowsBetweenLooks = 4096;

std::int32_t TerminalWidth() {
  winsize size{};
  const bool is_known = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return is_known ? size.ws_col : ChartSize{}.width;
}

std::vector<double> ReadColumn(IDataSet& data_set, std::int32_t column) {
  std::vector<double> values;
  const std::int32_t rows = data_set.Rows();
  values.reserve(static_cast<std::size_t>(rows));
  for (std::int32_t row = 0; row < rows; ++row) {
    if (row % kRowsBetweenLooks == 0) StopIfInterrupted();
    values.push_back(data_set.GetItem(column, row));
  }
  return values;
}

}  // namespace

void RunPlot(const PlotOptions& options, Output& output) {
  const RunSession session(options.run, RunOptions::Mode::kReadOnly);
  if (!options.picture.empty()) {
    RequireFreePlace(options.picture, options.run, kPictureMark, "plot", options.force);
  }
  const Ref<IDataSet> data_set = session.OpenDataSet(options.set->type);
  if (!data_set) {
    throw Failure(ExitCode::kTrouble, fmt::format("{} has no {} set (tslm5 info tells what it has)",
                                                  Escaped(options.run), options.set->name));
  }
  const std::vector<std::string> labels = LabelsOf(*data_set);
  const std::int32_t column = RequireColumn("plot", options.column, labels);
  const std::vector<double> values = ReadColumn(*data_set, column);
  const std::string label = Cut(labels[static_cast<std::size_t>(column)]);
  const std::string title = fmt::format("{}: {} {}, {} set", label, values.size(),
                                        values.size() == 1 ? "row" : "rows", options.set->name);
  ChartSize size;
  size.width = std::clamp(options.width.value_or(TerminalWidth()), kSmallestChart.width,
                          kLargestChart.width);
  size.height = options.height;
  const std::string chart = BrailleChart(values, size);
  if (chart.empty()) {
    Refuse(fmt::format("the column {} holds no number", label));
  }
  if (options.picture.empty()) return output.Write(title + '\n' + chart);
  WriteWhole(options.picture, SeriesPicture(title, values));
  output.NoteDone("the picture is written");
  output.Write(fmt::format("{}, is drawn in {}\n", title, Escaped(options.picture)));
}

void AddPlotCommand(CommandSpec& app, Invocation& invocation) {
  struct Words {
    PlotOptions options;
    std::string set = "training";
    std::string width;
    std::string height;
  };
  CommandSpec plot = app.AddCommand("plot", "Draw a column of a set");
  const auto words = std::make_shared<Words>();
  AddRun(plot, words->options.run);
  plot.AddOption("COLUMN", words->options.column, "its label, or d0, d1, ...").Required();
  AddAnyDataSet(plot, words->set, "the set to draw from");
  const OptionSpec width =
      plot.AddOption("--width", words->width, "in characters (default: the terminal's, else 80)")
          .ValueName("W");
  const OptionSpec height =
      plot.AddOption("--height", words->height, "in lines (default 17)").ValueName("H");
  plot.AddOption("--svg", words->options.picture, "write a picture instead")
      .ValueName("FILE")
      .Excludes(width)
      .Excludes(height);
  plot.AddFlag("--force", words->options.force, "replace a file that is no plot");
  plot.Footer(kPlotExamples);
  const auto make = [words, width, height] {
    PlotOptions options = words->options;
    options.run = RunName(options.run);
    options.set = FindSet(words->set);
    if (width.IsGiven()) {
      options.width =
          ParseWhole("--width", words->width, kSmallestChart.width, kLargestChart.width);
    }
    if (height.IsGiven()) {
      options.height =
          ParseWhole("--height", words->height, kSmallestChart.height, kLargestChart.height);
    }
    return options;
  };
  WhenChosen(plot, invocation, make, RunPlot);
}

}  // namespace tslm5::host
