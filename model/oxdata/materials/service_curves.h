#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

namespace Orlix::Data::Design {

/// A curve with every strain multiplied, s(e) = s0(e / factor): concrete under creep, with
/// factor 1 + phi. Strain limits are multiplied too, numerical caps stay what they are.
/// @pre factor is positive and finite.
CMatCurveParam Stretched(const CMatCurveParam& curve, double factor);

/// The serviceability curve of a concrete before cracking. The models 20 and 22 are linear in
/// compression and tension without limit; any other curve stays, and so does an explicit side
/// beside such a model. Creep stretches all.
/// @param creep  effective creep coefficient, >= 0: the modulus is E / (1 + creep)
CMatCurveParam UncrackedCurve(const CMatCurveParam& sls, double creep);

/// The serviceability curve of a concrete after cracking. Model 22 carries no tension, model 20 a
/// straight line; any other curve is as before cracking.
/// @param tensionModulus  slope of model 20 in tension [Pa], not stretched; 0: no tension
CMatCurveParam CrackedCurve(const CMatCurveParam& sls, double creep, double tensionModulus);

/// A curve with another slope in tension, straight from the origin; 0: no tension.
/// @param modulus  [Pa], of the curve as it is: creep is not applied again
CMatCurveParam WithTensionModulus(const CMatCurveParam& curve, double modulus);

}  // namespace Orlix::Data::Design
