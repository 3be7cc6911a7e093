#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/vldata/document/AnalysisTask.h"

namespace CLI {
class App;
}

namespace Orlix::Cli {

/// Settings of a task as options; what is not given stays.
class TaskOptions {
 public:
  /// Adds the options to a command. They must outlive its parsing.
  void AddTo(CLI::App& command);
  bool IsAnyGiven() const;
  /// Changes what is given. Cases given come in place of the task's own.
  /// @param numComponents  of the section
  /// @throws CommandError for a value that cannot be.
  void ApplyTo(Data::Velmo9::AnalysisTask& task, int numComponents) const;

 private:
  std::optional<std::string> name_;
  std::string limitStates_;
  std::string action_;
  std::string components_;
  std::string loadTerm_;
  std::optional<double> creep_;
  std::optional<double> longTermShare_;
  std::string preload_;
  std::vector<std::string> cases_;
};

}  // namespace Orlix::Cli
