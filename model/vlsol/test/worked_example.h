#pragma once

#include <string>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/json_fwd.h"
#include "model/vlsol/test/case_document.h"

namespace Orlix::VlSol::Test {

/// Units of an example, as factors to SI.
struct ExampleUnits {
  double length{};
  double force{};
  double moment{};
  double stress{};
};

/// A published example: its section as a document, and the questions it asks in its own signs.
///
/// Examples count compression positive, with x to the right and y up from a reference point;
/// theta is the direction of the strain gradient from +y towards +x. The document's section has y
/// to the right and z up from the same point, so with tension positive
///   N = -N', Myy = -Mx', Mzz = +My';  eps0 = -e0', kyy = -kx', kzz = +ky'.
class WorkedExample {
 public:
  /// What an example looks at: a strain plane and its resultant, in the document's signs.
  struct State {
    Vec3<double> plane;
    Vec3<double> load;
    double utilisation{};  ///< of the load, or of the concrete's tension for an SLS example
  };

  explicit WorkedExample(const Util::JsonValue& json);

  /// Solves the example's load and returns one state, or one for each of its curvatures.
  std::vector<State> Solve();
  /// A quantity of a state, in the example's units and signs.
  /// @throws std::runtime_error for a quantity that no example has.
  double Quantity(const std::string& name, const State& state) const;

 private:
  struct Bar {
    Vec2<double> position;
    double prestrain{};  ///< tension positive
    int grade{};
  };

  int AddMaterial(const std::string& name, MatType type);
  void AddComponents();
  void AddBars();
  State ImposedAtDepth();
  State ImposedPlane(double e0, double kx, double ky);
  State ImposedCurvature(double n, double kx);
  State Service();
  State FailureAtAxialForce(double mx, double my);
  State LargestMy();
  Vec3<double> LoadFrom(double n, double mx, double my) const;
  Vec3<double> PlaneFrom(double e0, double kx, double ky) const;
  Vec3<double> AppliedLoad() const;
  double StrainAt(const Vec3<double>& plane, Vec2<double> p) const;

  const Util::JsonValue& json_;
  ExampleUnits units_;
  CaseDocument document_;
  MatType type_{MatType::none};         ///< of the first component
  int grade_{};                         ///< of the first component
  std::vector<Vec2<double>> vertices_;  ///< of all outlines, about the reference point [m]
  std::vector<Bar> bars_;
};

}  // namespace Orlix::VlSol::Test
