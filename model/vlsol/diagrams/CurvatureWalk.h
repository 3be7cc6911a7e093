#pragma once

#include "model/oxnumeric/section/CompiledSection.h"
#include "model/oxnumeric/section/kernel.h"

namespace Orlix::VlSol {

/// States of a section with a given axial force, a moment of a given direction and a given
/// curvature in that direction: the axial strain and the curvature across are solved for. The
/// moment of curves that do not soften rises with the curvature; past a peak it is the curvature
/// that is held, so that a falling branch is followed as well.
class CurvatureWalk {
 public:
  struct State {
    double curvature{};    ///< kyy cos a + kzz sin a [1/m]
    double moment{};       ///< Myy cos a + Mzz sin a about the section's origin [Nm]
    double stiffness{};    ///< d moment / d curvature [Nm²]
    Numeric::Plane plane;  ///< about the section's centre
    double gauge{};
    bool converged{};
  };

  /// @param axial  [N], tension positive
  /// @param angle  a: the moment's direction [rad]
  CurvatureWalk(const Numeric::CompiledSection& section, double axial, double angle);

  /// The state without a moment; not converged where the axial force has no equilibrium.
  State Start() const;
  /// @param near  plane to start from, about the section's centre
  /// Error: axial force and moment across to 1e-12 of the load, 2e-14 F_s at least.
  State At(double curvature, const Numeric::Plane& near) const;
  /// The state of a plane that is known to have the axial force and the direction of the moment.
  State Of(const Numeric::Plane& plane) const;

  /// The direction of curvature and moment: (0, cos a, sin a).
  const Vec3<double>& Direction() const { return along_; }
  /// The axial force about the section's centre.
  const Numeric::Resultant& Held() const { return held_; }

 private:
  struct Trial {
    Numeric::Plane plane;
    Numeric::Response response;
    Vec2<double> residual;  // axial force and moment across over R [N]
  };

  Trial Evaluate(const Numeric::Plane& plane, Numeric::CurveForm form) const;
  bool Step(const Numeric::Sym3& tangent, Vec2<double> residual, Vec2<double>& step) const;
  bool Advance(Vec2<double> step, Numeric::CurveForm form, Trial& at) const;
  bool Solve(Numeric::CurveForm form, int iterations, Trial& at) const;
  double Tolerance(const Trial& at) const;

  const Numeric::CompiledSection& section_;
  Vec3<double> along_;
  Vec3<double> across_;
  Numeric::Resultant held_;
};

}  // namespace Orlix::VlSol
