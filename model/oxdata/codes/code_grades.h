#pragma once

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

/// A concrete without tension at ULS.
/// @param uls  compression at ULS
/// @param sls  a whole serviceability model, or linear: then without tension
CMat ConcreteGrade(const wchar_t* name, const MaterialProperties& properties, const CurveShape& uls,
                   CurveKind sls);

/// A steel with one shape for both signs at a load state; SLS has the shape that it is given.
CMatRebar ShapedSteel(const wchar_t* name, const MaterialProperties& properties,
                      const CurveShape& uls, const CurveShape& sls);

}  // namespace Orlix::Data::Design
