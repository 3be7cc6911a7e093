#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

/// The text of the elements of "results" that `VelmoApp::GetCaseResults` gives for cases of a
/// solved task, made in parallel and handed on in order, some cases at a time: each element on a
/// line of its own, commas between them, no line end behind the last.
/// @param margin  what each of their lines begins with
/// @param write   called in any thread, never twice at a time; may throw, which ends the work
/// @return false, with a message and nothing handed on, when there is no such section or task or a
///         case has no result that belongs to the model as it is
bool WriteCaseResults(const Data::CVelmoData& document, int iSec, int iTask,
                      std::span<const int> cases, std::string_view margin,
                      const std::function<void(std::string_view)>& write, std::string& message);

}  // namespace Orlix
