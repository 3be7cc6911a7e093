#include "model/vldata/response/results_stamp.h"

#include <bit>
#include <cstddef>
#include <optional>
#include <utility>

#include "model/vldata/response/stages.h"

namespace Orlix::Data::Velmo9 {
namespace {

// FNV-1a over 64-bit words, byte by byte.
class Hash {
 public:
  void Add(std::uint64_t word) {
    for (int i = 0; i < 8; ++i) {
      value_ = (value_ ^ (word & 0xFFU)) * kPrime;
      word >>= 8U;
    }
  }
  void Add(double number) {
    // The two zeros are one number.
    Add(std::bit_cast<std::uint64_t>(number == 0.0 ? 0.0 : number));
  }
  void Add(int number) { Add(static_cast<std::uint64_t>(static_cast<std::int64_t>(number))); }
  void AddSize(std::size_t size) { Add(static_cast<std::uint64_t>(size)); }
  void Add(bool flag) { Add(static_cast<std::uint64_t>(flag)); }
  void Add(Vec2<double> pair) {
    Add(pair.x);
    Add(pair.y);
  }
  std::uint64_t Value() const { return value_; }

 private:
  static constexpr std::uint64_t kPrime = 0x100000001B3U;
  std::uint64_t value_{0xCBF29CE484222325U};
};

void AddRing(Hash& hash, const std::vector<Vec2<double>>& ring) {
  hash.AddSize(ring.size());
  for (const Vec2<double>& vertex : ring) hash.Add(vertex);
}

void AddGeometry(Hash& hash, const CSecGeom& geometry) {
  const std::vector<SectionPolygon> polygons = geometry.Polygons(0.0);
  hash.AddSize(polygons.size());
  for (const SectionPolygon& polygon : polygons) {
    AddRing(hash, polygon.outline);
    hash.AddSize(polygon.holes.size());
    for (const auto& hole : polygon.holes) AddRing(hash, hole);
  }
}

void AddCurve(Hash& hash, const Design::CMatCurveParam& curve) {
  hash.AddSize(curve.Segments().size());
  for (const Numeric::CSegment& s : curve.Segments()) {
    hash.Add(static_cast<int>(s.kind));
    hash.Add(s.from);
    hash.Add(s.to);
    hash.Add(s.origin);
    for (const double c : s.c) hash.Add(c);
  }
  hash.Add(curve.UniformCompressionLimit());
  for (const LoadSign sign : {LoadSign::compression, LoadSign::tension}) {
    hash.Add(static_cast<int>(curve.Kind(sign)));
    hash.Add(curve.IsLimitCap(sign));
  }
}

void AddMaterial(Hash& hash, const Materials& materials, MatType type, int grade) {
  hash.Add(static_cast<int>(type));
  hash.Add(materials.IsValidGrade(type, grade));
  if (!materials.IsValidGrade(type, grade)) return;
  const Design::CMat& material = materials.Grade(type, grade);
  AddCurve(hash, material.Curve(LoadState::ULS));
  AddCurve(hash, material.Curve(LoadState::SLS));
  const Design::MaterialProperties& p = material.Properties();
  for (const double number : {p.f_k, p.E, p.f_ct, p.alpha, p.gamma}) hash.Add(number);
}

void AddComponent(Hash& hash, const Materials& materials, const CSecComp& component,
                  bool inService) {
  AddMaterial(hash, materials, component.MaterialType(), component.MaterialGrade());
  AddGeometry(hash, component.Geometry());
  if (!component.ConcreteExist()) return;
  hash.AddSize(component.Concrete().Bars().size());
  for (const CBar& bar : component.Concrete().Bars()) {
    hash.Add(bar.Position());
    hash.Add(bar.Area());
    if (inService) hash.Add(bar.Diameter());  // crack widths read it
    hash.Add(static_cast<int>(bar.GetPreload().kind));
    hash.Add(bar.GetPreload().value);
    AddMaterial(hash, materials, MatType::reinforcement, bar.Grade());
  }
}

// What strength reduction reads besides the code.
void AddReduction(Hash& hash, const VelmoSection& section, const AnalysisTask& task) {
  hash.Add(static_cast<int>(section.Confinement()));
  hash.Add(task.PhiFactors().has_value());
  if (!task.PhiFactors()) return;
  const CustomPhi& phi = *task.PhiFactors();
  for (const double number :
       {phi.compressionStrain, phi.tensionStrain, phi.phiCompression, phi.phiTension}) {
    hash.Add(number);
  }
}

void AddCreep(Hash& hash, const CreepSettings& creep) {
  hash.Add(static_cast<int>(creep.term));
  hash.Add(creep.creepCoefficient);
  hash.Add(creep.LongShare());
}

// The planes that are locked in follow from what the preloading case was computed from.
void AddPreload(Hash& hash, const CVelmoData& document, const VelmoSection& section, int iTask) {
  const std::optional<PreloadReference>& from = section.Task(iTask).PreloadFrom();
  hash.Add(from.has_value());
  if (!from) return;
  hash.AddSize(from->barsAddedLater.size());
  for (const int component : from->barsAddedLater) hash.Add(component);
  const std::optional<CaseIndex> preloading = PreloadingCase(section, iTask);
  const bool isSolved =
      preloading && HasCurrentResults(document, section, preloading->iTask, preloading->iCase);
  hash.Add(isSolved);
  if (!isSolved) return;
  const AnalysisTask& reference = section.Task(preloading->iTask);
  hash.Add(reference.Results()->stamp);
  const Vec3<double>& input = reference.Cases()[static_cast<std::size_t>(preloading->iCase)].input;
  for (const double number : {input.x, input.y, input.z}) hash.Add(number);
}

void AddAnnex(Hash& hash, const std::optional<Design::NationalAnnex>& annex) {
  hash.Add(annex.has_value());
  if (!annex) return;
  hash.AddSize(annex->choices.size());
  for (const Design::AnnexChoice& choice : annex->choices) {
    hash.Add(choice.IsRule() ? 0.0 : choice.number);
    hash.AddSize(choice.rule.size());
    for (const char c : choice.rule) hash.Add(static_cast<int>(c));
  }
}

}  // namespace

std::uint64_t ResultsStamp(const CVelmoData& document, const VelmoSection& section, int iTask) {
  const AnalysisTask& task = section.Task(iTask);
  const Materials& materials = *document.getMaterials();
  Hash hash;
  hash.Add(static_cast<int>(document.concreteCode().Data().code));
  hash.Add(static_cast<int>(document.concreteCode().Data().country));
  AddAnnex(hash, document.concreteCode().Data().nationalAnnex);
  hash.Add(document.Options().deductDisplacedConcrete);
  hash.Add(task.ComputesULS());
  hash.Add(task.ComputesSLS());
  hash.Add(static_cast<int>(task.Action()));
  if (task.ComputesULS()) AddReduction(hash, section, task);
  if (task.ComputesSLS()) AddCreep(hash, task.Creep());
  AddPreload(hash, document, section, iTask);
  int index = 0;
  for (const CSecComp& component : section.Components()) {
    const int i = index++;
    if (!task.IncludesComponent(i)) continue;
    hash.Add(i);
    AddComponent(hash, materials, component, task.ComputesSLS());
  }
  return hash.Value();
}

bool HasCurrentResults(const CVelmoData& document, const VelmoSection& section, int iTask,
                       int iCase) {
  if (iTask < 0 || std::cmp_greater_equal(iTask, section.Tasks().size())) return false;
  const AnalysisTask& task = section.Task(iTask);
  return task.IsCaseAnalysed(iCase) &&
         task.Results()->stamp == ResultsStamp(document, section, iTask);
}

// In the order of the tasks: what preloads a task stands before it.
void DropOutdatedResults(const CVelmoData& document, VelmoSection& section) {
  for (int i = 0; i < static_cast<int>(section.Tasks().size()); ++i) {
    AnalysisTask& task = section.Task(i);
    if (task.Results() && task.Results()->stamp != ResultsStamp(document, section, i)) {
      task.DropResults();
    }
  }
}

}  // namespace Orlix::Data::Velmo9
