#include "reports/html/materials_part.h"

#include <rapidjson/document.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/json/curves_json.h"
#include "plot/drawing_text.h"
#include "reports/html/ReportText.h"

namespace Orlix::Velmo {

using Data::CSecComp;
using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::VelmoSection;
using Plot::NumberText;

namespace {

// One side of a curve: "parabola-rectangle, eps_peak 2 ‰, eps_limit 3.5 ‰".
std::string SideText(const Util::JsonValue& side, const ReportText& text) {
  std::string line;
  for (const auto& member : side.GetObject()) {
    if (member.value.IsString()) {
      line += member.value.GetString();
      continue;
    }
    const std::string name = member.name.GetString();
    const bool isStrain = name.starts_with("eps") || name == "block_start";
    line += ", " + name + " " +
            (isStrain ? text.WithUnit(member.value.GetDouble(), Dimension::strain)
                      : NumberText(member.value.GetDouble()));
  }
  return line;
}

std::vector<std::string> CurveCells(const Data::Design::CMat& material, LoadState state,
                                    const ReportText& text) {
  Util::JsonDocument json;
  const Util::JsonValue curve = Data::CurveToJson(material.Curve(state), json.GetAllocator());
  const auto limit = [&](LoadSign sign) {
    const auto& shape = material.Curve(state);
    if (shape.IsLimitCap(sign) || shape.Kind(sign) == Data::Design::CurveKind::none) {
      return std::string("-");
    }
    return text.Value(
        sign == LoadSign::compression ? shape.CompressionLimit() : shape.TensionLimit(),
        Dimension::strain);
  };
  return {state == LoadState::ULS ? "ULS" : "SLS", SideText(curve["compression"], text),
          limit(LoadSign::compression), SideText(curve["tension"], text), limit(LoadSign::tension)};
}

// The grades that the section is made of, in the order of the document's tables.
std::set<std::pair<MatType, int>> GradesOf(const CVelmoData& document,
                                           const VelmoSection& section) {
  std::set<std::pair<MatType, int>> grades;
  for (const CSecComp& component : section.Components()) {
    grades.emplace(component.MaterialType(), component.MaterialGrade());
    if (!component.ConcreteExist()) continue;
    for (const Data::CBar& bar : component.Concrete().Bars()) {
      grades.emplace(MatType::reinforcement, bar.Grade());
    }
  }
  std::erase_if(grades, [&](const auto& grade) {
    return !document.getMaterials()->IsValidGrade(grade.first, grade.second);
  });
  return grades;
}

}  // namespace

void AddMaterials(const CVelmoData& document, const VelmoSection& section, const AnalysisTask& task,
                  HtmlPage& page) {
  const ReportText text(document);
  const std::string stress = text.Unit(Dimension::stress);
  HtmlTable grades{"Grades",
                   {{"Material", "", false},
                    {"Grade", "", false},
                    {"Strength f_k", stress},
                    {"Factor alpha"},
                    {"Partial factor gamma"},
                    {"Design strength", stress},
                    {"Modulus E", stress},
                    {"Tensile strength f_ct", stress}}};
  HtmlTable curves{"Stress-strain curves; strains are positive numbers on either side",
                   {{"Grade", "", false},
                    {"State", "", false},
                    {"Compression", "", false},
                    {"Limit", text.Unit(Dimension::strain)},
                    {"Tension", "", false},
                    {"Limit", text.Unit(Dimension::strain)}}};
  for (const auto& [type, grade] : GradesOf(document, section)) {
    const Data::Design::CMat& material = document.getMaterials()->Grade(type, grade);
    const auto& p = material.Properties();
    const std::string name = to_string(material.Name());
    grades.rows.push_back(
        {ReportText::TypeName(type), name, text.Value(p.f_k, Dimension::stress),
         NumberText(p.alpha), NumberText(p.gamma),
         text.Value(material.DesignStrength(), Dimension::stress),
         text.Value(p.E, Dimension::stress),
         type == MatType::concrete ? text.Value(p.f_ct, Dimension::stress) : "-"});
    for (const LoadState state : {LoadState::ULS, LoadState::SLS}) {
      if (state == LoadState::ULS ? !task.ComputesULS() : !task.ComputesSLS()) continue;
      std::vector<std::string> cells = CurveCells(material, state, text);
      cells.insert(cells.begin(), name);
      curves.rows.push_back(std::move(cells));
    }
  }
  page.Table(grades);
  page.Table(curves);
}

}  // namespace Orlix::Velmo
