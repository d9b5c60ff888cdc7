#include "datacheck/data_check_object.h"

#include <utility>

#include "datacheck/check_texts.h"
#include "datacheck/text_check.h"
#include "platform/only_errors.h"
#include "support/locale.h"
#include "support/shared_functions.h"
#include "tslm5/platform/object.h"

namespace tslm5 {
namespace {

constexpr std::int64_t kRecordsPerReport = 4096;
constexpr std::size_t kLongestValue = 200;

/// The beginning of a text, cut between two characters.
std::string Cut(std::string_view text) {
  if (text.size() <= kLongestValue) return std::string(text);
  std::size_t end = kLongestValue;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return std::string(text.substr(0, end));
}

/// Makes a result of what a check finds.
class Collector final : public TextCheckObserver {
 public:
  Collector(const DataCheckOptions& options, const DataCheckRules& rules, IFeedback* feedback)
      : options_(options), rules_(rules), feedback_(feedback) {}

  void Begin(CheckStage) override {}
  std::int64_t RecordsPerReport() const override {
    return feedback_ == nullptr ? 0 : kRecordsPerReport;
  }
  bool Record(std::int64_t index, std::int64_t count) override {
    if (index == 0) feedback_->SetMaximum(static_cast<std::int32_t>(count));
    return feedback_->ReportProgress(static_cast<std::int32_t>(index), "Checking");
  }

  void Found(const TextFinding& finding) override {
    if (++result_.count > options_.most_kept) return;
    std::optional<std::string> label;
    if (finding.label) label = Cut(*finding.label);
    result_.findings.push_back(
        {finding.code, finding.line, finding.record, finding.column, std::move(label),
         Cut(finding.value),
         check_text::WithSetName(check_text::TextOf(finding, rules_), options_.set_name)});
  }

  void Changed(std::int64_t line, std::int64_t column, std::string_view field) override {
    if (++result_.changed_count == 1) {
      result_.first_changed = ChangedField{line, column, Cut(field)};
    }
  }

  DataCheckResult Result(const TextCheck::Result& checked) {
    result_.was_stopped = checked.was_stopped;
    result_.is_valid = result_.count == 0 && !checked.was_stopped;
    result_.records = checked.records;
    result_.columns = checked.columns;
    result_.first_line = checked.first_line;
    result_.is_plain = result_.is_valid && checked.is_plain;
    return std::move(result_);
  }

 private:
  const DataCheckOptions& options_;
  const DataCheckRules& rules_;
  IFeedback* feedback_;
  DataCheckResult result_;
};

DataCheckResult CheckText(const DataCheckOptions& options, IFeedback* feedback) {
  const std::string text = SharedFunctions::ReadExistingFile(options.path, "Check");
  TextCheckRules rules;
  rules.has_labels = options.has_labels;
  rules.separator = options.separator;
  rules.decimal = CurrentLocale().DecimalSymbol();
  rules.data = RulesOf(options.problem_category);
  rules.takes_text = options.takes_text;
  rules.takes_missing = options.takes_missing;
  rules.finds_all = options.finds_all;
  Collector collector(options, rules.data, feedback);
  if (feedback != nullptr) feedback->Start();
  const TextCheck::Result checked = TextCheck(text, rules, collector).Run();
  if (feedback != nullptr && !checked.was_stopped) feedback->Finish();
  return collector.Result(checked);
}

class DataCheckObject final : public CountedObject<IDataCheck> {
 public:
  std::string_view TypeName() override { return "DataCheck"; }
  DataCheckResult Check(const DataCheckOptions& pOptions, IFeedback* pFeedback) override {
    return OnlyErrors([&] { return CheckText(pOptions, pFeedback); });
  }

 private:
  ~DataCheckObject() override = default;
};

}  // namespace

Ref<IDataCheck> MakeDataCheck() {
  return MakeObject<DataCheckObject>();
}

}  // namespace tslm5
