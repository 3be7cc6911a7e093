#pragma once

#include <optional>
#include <string>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxutil/json_fwd.h"

namespace Orlix::Cli {

/// Fills the object of all codes: `codes`, a list of objects with `concrete` (the name), `annex`
/// where there is one, `strengthReduction`, and how many `constants` there are, were `compared`
/// with the printed clause and are `doubtful`.
void CodesToJson(Util::JsonDocument& json);

/// Fills the object of one code, numbers SI: `concrete`, `annex`, `strengthReduction`,
/// `nationalAnnex` as a file of its own has it, `constants`
/// (`symbol`, `value`, `unit`, `clause`, `source`: compared, secondary, doubtful, user) and
/// `materials`, tables of grades as documents have them and with `f_d`.
/// @param grade  its points of the curves are added: `curves`, a list of the grades of that name
void CodeToJson(const Data::Design::CConcCode& code, const std::optional<std::string>& grade,
                Util::JsonDocument& json);

}  // namespace Orlix::Cli
