#pragma once

#include <string>
#include <vector>

#include "model/oxdata/geometry/CSecGeom.h"
#include "model/oxdata/materials/CMat.h"
#include "model/oxnumeric/Vec.h"
#include "model/oxutil/Enumerations.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix::VlSol::Test {

/// A document of one section with one task, put together piece by piece and solved as a user's is.
class CaseDocument {
 public:
  explicit CaseDocument(bool deductDisplacedConcrete);

  /// Adds a material with the given curve at the ultimate limit state and returns its grade.
  int AddMaterial(MatType type, const Data::Design::CurveScale& scale,
                  const Data::Design::CurveShape& compression,
                  const Data::Design::CurveShape& tension);
  void AddComponent(MatType type, int grade, Data::SectionPolygon polygon);
  /// Adds a bar to a component. @param prestrain  tension positive
  void AddBar(int component, Vec2<double> position, double area, int grade, double prestrain);

  /// Solves cases with `Solver::SolveTask`.
  std::vector<Data::Velmo9::UlSResult> Solve(LoadAction action,
                                             const std::vector<Vec3<double>>& inputs);
  Data::Velmo9::UlSResult Solve(LoadAction action, const Vec3<double>& input);

  /// Stress of a material at a strain, both tension positive.
  double Stress(MatType type, int grade, double strain) const;

 private:
  Data::CVelmoData document_;
};

/// Reads a file of this folder's data.
/// @throws std::runtime_error when there is no such file or it is no JSON.
void ReadTestData(const std::string& name, Util::JsonDocument& json);

}  // namespace Orlix::VlSol::Test
