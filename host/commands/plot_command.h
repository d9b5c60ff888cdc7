#ifndef TSLM5_HOST_COMMANDS_PLOT_COMMAND_H_
#define TSLM5_HOST_COMMANDS_PLOT_COMMAND_H_

#include <optional>
#include <string>

#include "host/charts/braille_chart.h"
#include "host/program/invocation.h"
#include "host/program/set_names.h"

namespace tslm5::host {

struct PlotOptions {
  std::string run;
  std::string column;  ///< label or dN
  const SetName* set = nullptr;
  std::optional<std::int32_t> width;  ///< nothing: that of the terminal
  std::int32_t height = ChartSize{}.height;
  bool force = false;   ///< `picture` may take the place of any file but the run
  std::string picture;  ///< the file of the picture; "": the terminal
};

/// `tslm5 plot`.
void AddPlotCommand(CommandSpec& app, Invocation& invocation);

void RunPlot(const PlotOptions& options, Output& output);

}  // namespace tslm5::host

#endif  // TSLM5_HOST_COMMANDS_PLOT_COMMAND_H_
