#pragma once

#include <string>
#include <vector>

#include "model/oxdata/geometry/CSecGeom.h"
#include "model/oxdata/materials/CMat.h"
#include "model/oxnumeric/Vec.h"
#include "model/oxutil/Enumerations.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vlsol/CInterpolateStrain.h"

namespace Orlix::VlSol::Test {

/// A document of one section with one task, put together piece by piece and solved as a user's is.
class CaseDocument {
 public:
  explicit CaseDocument(bool deductDisplacedConcrete);

  /// The document and its task's settings, for what the functions below leave at its default:
  /// code, confinement, creep, phi factors.
  Data::CVelmoData& Document() { return document_; }
  const Data::CVelmoData& Document() const { return document_; }
  Data::Velmo9::AnalysisTask& Settings() { return settings_; }

  /// Adds a material with the given curve at the ultimate limit state and returns its grade. At the
  /// serviceability limit state it has the curve that such a material has by default.
  int AddMaterial(MatType type, const Data::Design::CurveScale& scale,
                  const Data::Design::CurveShape& compression,
                  const Data::Design::CurveShape& tension);
  /// Sets the serviceability curve of a material, and the tensile strength f_ct of a concrete [Pa].
  void SetServiceCurve(MatType type, int grade, const Data::Design::CurveShape& compression,
                       const Data::Design::CurveShape& tension, double f_ct = 0.0);
  void AddComponent(MatType type, int grade, Data::SectionPolygon polygon);
  /// Adds a bar to a component. @param prestrain  tension positive
  void AddBar(int component, Vec2<double> position, double area, int grade, double prestrain);

  /// Solves cases with `Solver::SolveTask`.
  std::vector<Data::Velmo9::UlSResult> Solve(LoadAction action,
                                             const std::vector<Vec3<double>>& inputs);
  Data::Velmo9::UlSResult Solve(LoadAction action, const Vec3<double>& input);

  /// The same at the serviceability limit state.
  std::vector<Data::Velmo9::SLSResult> SolveSls(LoadAction action,
                                                const std::vector<Vec3<double>>& inputs);
  Data::Velmo9::SLSResult SolveSls(LoadAction action, const Vec3<double>& input);
  /// What a case of the last task solved reports between its uncracked and its cracked state.
  Data::CInterpolateStrain Interpolation(const Vec3<double>& load,
                                         const Data::Velmo9::SLSResult& result) const;

  /// Stress of a material at a strain, both tension positive.
  double Stress(MatType type, int grade, double strain, LoadState state = LoadState::ULS) const;

 private:
  const Data::Velmo9::AnalysisTask& SolveTask(LoadAction action,
                                              const std::vector<Vec3<double>>& inputs,
                                              LoadState state);

  Data::CVelmoData document_;
  Data::Velmo9::AnalysisTask settings_;
};

/// Reads a file of this folder's data.
/// @throws std::runtime_error when there is no such file or it is no JSON.
void ReadTestData(const std::string& name, Util::JsonDocument& json);

}  // namespace Orlix::VlSol::Test
