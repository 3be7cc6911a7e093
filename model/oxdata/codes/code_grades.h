#pragma once

#include <span>
#include <vector>

#include "model/oxdata/materials/CMat.h"

/// Grades as several codes have them; the numbers are each code's own.
namespace Orlix::Data::Design {

/// A bar or structural steel with the default curves: elastic to the strength, then horizontal
/// without a strain limit, alike in tension and compression.
/// @param mat       an empty material of the type
/// @param strength  characteristic [Pa]
/// @param modulus   [Pa]
/// @param gamma     partial factor
template <class Mat>
Mat BilinearSteel(Mat mat, const wchar_t* name, double strength, double modulus, double gamma) {
  mat.SetName(name);
  mat.SetProperties({strength, modulus, 0.0, 1.0, gamma});
  return mat;
}

/// A grade of steel by its characteristic strength.
struct SteelGrade {
  const wchar_t* name;
  double megapascals;
};

/// Hot-rolled steels by the thickness of the product, yield strength R_eH: EN 10025-2 for S235 to
/// S355, EN 10025-3 and -4 for S460. Codes that know no S235 take the rest, `kSteelsFromS275`.
inline constexpr SteelGrade kSteelsOfEn10025[] = {
    {L"S235", 235}, {L"S235 (16 to 40 mm)", 225}, {L"S275", 275}, {L"S275 (16 to 40 mm)", 265},
    {L"S355", 355}, {L"S355 (16 to 40 mm)", 345}, {L"S460", 460}, {L"S460 (16 to 40 mm)", 440}};
inline constexpr std::span<const SteelGrade> kSteelsFromS275 =
    std::span<const SteelGrade>(kSteelsOfEn10025).subspan(2);

/// Structural steels and bars with the curves of `BilinearSteel`.
std::vector<CMat> StructuralSteels(std::span<const SteelGrade> grades, double modulus,
                                   double gamma);
std::vector<CMatRebar> Bars(std::span<const SteelGrade> grades, double modulus, double gamma);

/// A concrete without tension at ULS.
/// @param uls  compression at ULS
/// @param sls  a whole serviceability model, or linear: then without tension
CMat ConcreteGrade(const wchar_t* name, const MaterialProperties& properties, const CurveShape& uls,
                   CurveKind sls);

/// A steel with one shape for both signs at a load state; SLS has the shape that it is given.
CMatRebar ShapedSteel(const wchar_t* name, const MaterialProperties& properties,
                      const CurveShape& uls, const CurveShape& sls);

}  // namespace Orlix::Data::Design
