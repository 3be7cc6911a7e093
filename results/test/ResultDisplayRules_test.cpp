#include "results/ResultDisplayRules.h"

#include <gtest/gtest.h>

#include <vector>

namespace Orlix::Velmo {
namespace {

using Data::Design::CurveKind;

TEST(ResultDisplayRules, CrackedAloneWhereEveryConcreteFollowsTheModelOfBs8110) {
  constexpr CurveKind kPlain = CurveKind::linear;
  constexpr CurveKind kBs = CurveKind::bs8110Tension;
  constexpr CurveKind kBoth = CurveKind::interpolated;
  const struct {
    std::vector<CurveKind> components;
    bool onlyCracked;
  } kCases[] = {{{kPlain, kPlain}, false},
                {{kBs, kPlain}, true},
                {{kBoth, kPlain}, false},
                {{kBs, kBoth}, false},
                {{kBs, kPlain, kBoth}, true}};  // the third is left out
  for (const auto& c : kCases) {
    SCOPED_TRACE(&c - kCases);
    Data::CVelmoData document;
    Data::CSection geometry;
    for (const CurveKind kind : c.components) {
      Data::Design::CMat concrete(MatType::concrete);
      concrete.SetName(OrlixString<wchar_t>(std::wstring(geometry.Components().size() + 1, L'x')));
      concrete.SetShape(LoadState::SLS, LoadSign::compression, {.kind = kind});
      geometry.Components().emplace_back(MatType::concrete, document.getMaterials()->Add(concrete),
                                         Data::CSecGeom());
    }
    Data::Velmo9::VelmoSection& section = document.AddSection(geometry);
    section.AddTask().SetIncludedComponents({0, 1});
    EXPECT_EQ(ResultDisplayRules(document).ShouldShowOnlyCrackedSlsResults(section, 0),
              c.onlyCracked);
  }
}

}  // namespace
}  // namespace Orlix::Velmo
