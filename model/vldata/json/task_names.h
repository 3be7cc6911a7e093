#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "model/vldata/document/AnalysisTask.h"

namespace Orlix::Data {

/// The load terms by their names in documents.
inline constexpr std::array<std::pair<std::string_view, Velmo9::LoadTerm>, 3> kLoadTermNames = {{
    {"short", Velmo9::LoadTerm::shortTerm},
    {"long", Velmo9::LoadTerm::longTerm},
    {"intermediate", Velmo9::LoadTerm::intermediate},
}};

/// The members of a task's own phi factors, by their names in documents.
inline constexpr std::array<std::pair<std::string_view, double Velmo9::CustomPhi::*>, 4>
    kPhiMembers = {{
        {"compressionStrain", &Velmo9::CustomPhi::compressionStrain},
        {"tensionStrain", &Velmo9::CustomPhi::tensionStrain},
        {"phiCompression", &Velmo9::CustomPhi::phiCompression},
        {"phiTension", &Velmo9::CustomPhi::phiTension},
    }};

}  // namespace Orlix::Data
