#include "cli/task_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

#include "cli/commands.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"
#include "cli/unit_factors.h"
#include "model/vldata/json/task_names.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::PreloadReference;

namespace {

std::vector<std::string> Fields(const std::string& text) {
  std::vector<std::string> fields;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    fields.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return fields;
}

// "N,Myy,Mzz" or "name=N,Myy,Mzz", in SI where no unit is given.
Data::Velmo9::TaskCase CaseFrom(const std::string& text, LoadAction action) {
  const bool isLoad = action == LoadAction::load;
  const Dimension first = isLoad ? Dimension::force : Dimension::strain;
  const Dimension other = isLoad ? Dimension::moment : Dimension::curvature;
  const std::size_t behindName = text.rfind('=') + 1;  // 0 without a name
  const auto fields = Fields(text.substr(behindName));
  std::vector<double> numbers;
  for (const std::string& field : fields) {
    const auto number = QuantityFrom(field, numbers.empty() ? first : other, 1.0);
    if (number) numbers.push_back(*number);
  }
  if (fields.size() != 3 || numbers.size() != 3) {
    throw CommandError("--case " + text + ": give three numbers, as in " +
                       (isLoad ? "wind=-1e6,2e5,0 or wind=-1000kN,200kNm,0"
                               : "wind=-1e-4,2e-3,0 or wind=-0.1‰,2‰/m,0"));
  }
  return {behindName == 0 ? "" : text.substr(0, behindName - 1),
          {numbers[0], numbers[1], numbers[2]}};
}

bool IsNumber(std::string_view text, int& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() && number > 0;
}

// "task,case", both from one, or "none". Whether there are such ones is for `velmo check` to say.
std::optional<PreloadReference> PreloadFrom(const std::string& text) {
  if (text == "none") return std::nullopt;
  const auto fields = Fields(text);
  PreloadReference from;
  if (fields.size() != 2 || !IsNumber(fields[0], from.task) || !IsNumber(fields[1], from.iCase)) {
    throw CommandError("--preload " + text +
                       ": give the numbers of a task and of its case, as in 1,3, or none");
  }
  return from;
}

}  // namespace

void TaskOptions::AddTo(CLI::App& command) {
  command.add_option("--name", name_, "Name of the task");
  command.add_option("--limit-states", limitStates_, "What it computes: uls, sls, both or none")
      ->check(CLI::IsMember({"uls", "sls", "both", "none"}));
  command.add_option("--action", action_, "What its cases are: load or deformation")
      ->check(CLI::IsMember({"load", "deformation"}));
  command
      .add_option("--components", components_, "Components it includes, e.g. 1 or 1-3,5, or all")
      ->check(NotEmpty);
  command.add_option("--load-term", loadTerm_, "How long the loads act: short, long, intermediate")
      ->check(CLI::IsMember({"short", "long", "intermediate"}));
  command.add_option("--creep", creep_, "Creep coefficient of loads that act long")
      ->check(CLI::Range(0.0, 100.0));  // more is not solved
  command
      .add_option("--long-term-share", longTermShare_,
                  "Part of the load that acts long, with the load term intermediate")
      ->check(CLI::Range(0.0, 1.0));
  command
      .add_option("--preload", preload_,
                  "Task and case that preload its components, e.g. 1,3, or none")
      ->check(NotEmpty);
  command
      .add_option("--case", cases_,
                  "N,Myy,Mzz [N, Nm] or eps,kyy,kzz [1/m] of a case, in place of those there are; "
                  "wind=-1000kN,2e5,0 has a name and a unit; may be repeated")
      ->check(NotEmpty)
      ->allow_extra_args(false);
}

bool TaskOptions::IsAnyGiven() const {
  return name_ || creep_ || longTermShare_ || !cases_.empty() ||
         !(limitStates_ + action_ + components_ + loadTerm_ + preload_).empty();
}

void TaskOptions::ApplyTo(AnalysisTask& task, int numComponents) const {
  if (name_) task.SetName(*name_);
  if (!limitStates_.empty()) {
    task.SetLimitStates(limitStates_ == "uls" || limitStates_ == "both",
                        limitStates_ == "sls" || limitStates_ == "both");
  }
  if (!action_.empty()) {
    task.SetAction(action_ == "load" ? LoadAction::load : LoadAction::deformation);
  }
  if (components_ == "all") {
    task.IncludeAllComponents();
  } else if (!components_.empty()) {
    const auto indices = IndicesFrom(components_, numComponents, "component");
    task.SetIncludedComponents(std::set<int>(indices.begin(), indices.end()));
  }
  Data::Velmo9::CreepSettings creep = task.Creep();
  for (const auto& [name, term] : Data::kLoadTermNames) {
    if (name == loadTerm_) creep.term = term;
  }
  creep.creepCoefficient = creep_.value_or(creep.creepCoefficient);
  if (longTermShare_ && creep.term != Data::Velmo9::LoadTerm::intermediate) {
    throw CommandError("--long-term-share: goes with --load-term intermediate alone");
  }
  creep.longTermShare = longTermShare_.value_or(creep.longTermShare);
  task.SetCreep(creep);
  if (!preload_.empty()) task.SetPreloadFrom(PreloadFrom(preload_));
  if (!cases_.empty()) {
    std::vector<Data::Velmo9::TaskCase> cases;
    for (const std::string& text : cases_) cases.push_back(CaseFrom(text, task.Action()));
    task.SetCases(std::move(cases));
  }
}

}  // namespace Orlix::Cli
