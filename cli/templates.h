#pragma once

#include <string>
#include <vector>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix::Cli {

/// Names of the sections that a new document can start with.
std::vector<std::string> TemplateNames();

/// Adds a template's section: bars, and a task with load cases that it can be solved for.
/// @param concrete, reinforcement  grades of the document
/// @pre `name` is one of TemplateNames
void AddTemplate(Data::CVelmoData& document, const std::string& name, int concrete,
                 int reinforcement);

}  // namespace Orlix::Cli
