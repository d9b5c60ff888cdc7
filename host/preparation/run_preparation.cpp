#include "host/preparation/run_preparation.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tslm5/run/run_records.h"

namespace tslm5::host {
namespace {

void WriteFigures(const RunSession& session, const Preparation& preparation) {
  std::vector<ScaleFigures> figures;
  figures.reserve(preparation.columns.size());
  for (const PreparedColumn& column : preparation.columns) figures.push_back(column.figures);
  session.Figures().WriteScaleFigures(figures);
}

void WriteCategories(const RunSession& session, const Preparation& preparation) {
  std::vector<RunCategory> categories;
  for (std::size_t i = 0; i < preparation.columns.size(); ++i) {
    for (const Category& one : preparation.columns[i].categories.All()) {
      categories.push_back(
          {static_cast<std::int32_t>(i), one.text, one.code, static_cast<std::int32_t>(one.count)});
    }
  }
  session.Categories().WriteCategories(categories);
}

/// Writes the missing tokens. A replacement that was chosen for one of before stays with it.
void WriteTokens(const RunSession& session, const Preparation& preparation) {
  std::vector<RunToken> former;
  session.MissingValues().ReadTokens(former);
  std::map<std::pair<std::int32_t, std::string>, RunToken> chosen;
  for (const RunToken& one : former) {
    if (one.replacement) chosen[{one.column, one.text}] = one;
  }
  std::vector<RunToken> tokens;
  for (std::size_t i = 0; i < preparation.columns.size(); ++i) {
    for (const MissingToken& token : preparation.columns[i].tokens) {
      RunToken one;
      one.column = static_cast<std::int32_t>(i);
      one.text = token.text;
      const auto found = chosen.find({one.column, one.text});
      if (found != chosen.end()) one = found->second;
      one.count = static_cast<std::int32_t>(token.count);
      tokens.push_back(std::move(one));
    }
  }
  session.MissingValues().WriteTokens(tokens);
}

void WriteEncoding(const RunSession& session, const Preparation& preparation) {
  if (!preparation.two_classes) return session.Categories().DropEncoding();
  const TwoClasses& two = *preparation.two_classes;
  session.Categories().WriteEncoding({two.positive_class, two.positive, two.negative});
}

void WriteNamedTokens(IRunParameters& parameters, const Preparation& preparation) {
  for (const std::string& token : preparation.missing_tokens) {
    parameters.WriteWhole(parameter_space::kToken, token, 1);
  }
}

void WriteTestingDecimal(IRunParameters& parameters, const Preparation& preparation) {
  if (preparation.testing_has_decimal_comma) {
    parameters.WriteWhole(parameter_space::kData, run_parameter::kTestingDecimalComma, 1);
  }
}

void WriteParameters(const RunSession& session, const Preparation& preparation,
                     const std::optional<ShareOfRecords>& share) {
  IRunParameters& parameters = session.Parameters();
  const auto whole = [&parameters](std::string_view name, std::int32_t value) {
    parameters.WriteWhole(parameter_space::kData, name, value);
  };
  const auto number = [&parameters](std::string_view name, double value) {
    parameters.WriteNumber(parameter_space::kData, name, value);
  };
  const RunScale& scale = preparation.scale;
  const bool is_merging = !preparation.columns.empty() && preparation.IsMerging();
  WriteProblem(session, preparation.problem);
  whole(run_parameter::kMerging, is_merging ? 1 : 0);
  whole(run_parameter::kNormalization, scale.type);
  number(run_parameter::kNewMinimum, scale.new_minimum);
  number(run_parameter::kNewMaximum, scale.new_maximum);
  whole(run_parameter::kPositiveClassNamed, preparation.has_positive_class ? 1 : 0);
  WriteTestingDecimal(parameters, preparation);
  if (share) {
    number(run_parameter::kTestingShare, share->share);
    whole(run_parameter::kSeed, static_cast<std::int32_t>(share->seed));
  }
  WriteNamedTokens(parameters, preparation);
}

}  // namespace

void WritePreparation(const RunSession& session, const Preparation& preparation,
                      const std::optional<ShareOfRecords>& share) {
  WriteParameters(session, preparation, share);
  WriteCategories(session, preparation);
  WriteEncoding(session, preparation);
  WriteTokens(session, preparation);
  WriteFigures(session, preparation);
}

void WritePlainParameters(const RunSession& session) {
  WriteParameters(session, Preparation{}, {});
}

void WriteTestingPreparation(const RunSession& session, const Preparation& preparation) {
  WriteCategories(session, preparation);
  WriteTokens(session, preparation);
  session.Parameters().DropSpace(parameter_space::kToken);
  WriteNamedTokens(session.Parameters(), preparation);
  session.Parameters().DropParameter(parameter_space::kData, run_parameter::kTestingDecimalComma);
  WriteTestingDecimal(session.Parameters(), preparation);
  if (!session.Figures().HasScaleFigures()) {
    session.Figures().ComputeScaleFigures(static_cast<std::int32_t>(preparation.columns.size()));
  }
  session.Parameters().ReplaceWhole(parameter_space::kData, run_parameter::kMerging,
                                    preparation.IsMerging() ? 1 : 0);
}

std::int32_t ReadProblem(const RunSession& session) {
  return session.Parameters().ReadWhole(parameter_space::kGeneral, run_parameter::kProblem);
}

void WriteProblem(const RunSession& session, std::int32_t problem) {
  session.Parameters().WriteWhole(parameter_space::kGeneral, run_parameter::kProblem, problem);
}

void ForgetPreparation(const RunSession& session) {
  session.Categories().WriteCategories({});
  session.Categories().DropEncoding();
  session.MissingValues().WriteTokens({});
  session.Figures().DropScaleFigures();
  session.Parameters().DropSpace(parameter_space::kData);
  session.Parameters().DropSpace(parameter_space::kToken);
  session.Parameters().DropParameter(parameter_space::kGeneral, run_parameter::kProblem);
}

}  // namespace tslm5::host
