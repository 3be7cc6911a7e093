#pragma once

#include "model/oxdata/materials/CMatCurveParam.h"

namespace Orlix::Data::Design {

/// A curve with every strain multiplied, s(e) = s0(e / factor): concrete under creep, with
/// factor 1 + phi.
CMatCurveParam Stretched(const CMatCurveParam& curve, double factor);

/// The serviceability curve of a concrete before cracking. The models 20 and 22 are linear in
/// compression and tension without limit; any other curve stays. Creep stretches either.
/// @param creep  effective creep coefficient: the modulus is E / (1 + creep)
CMatCurveParam UncrackedCurve(const CMatCurveParam& sls, double creep);

/// The serviceability curve of a concrete after cracking. Model 22 carries no tension, model 20 a
/// straight line of slope tensionModulus; any other curve is as before cracking.
CMatCurveParam CrackedCurve(const CMatCurveParam& sls, double creep, double tensionModulus);

}  // namespace Orlix::Data::Design
