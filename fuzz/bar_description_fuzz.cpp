// Any bytes as a bar description of any shape: an error, or bars that keep what they promise.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "model/oxdata/reinforcement/CBarInput.h"
#include "model/oxdata/reinforcement/CPositionRebar.h"
#include "model/oxutil/text.h"

namespace {

using namespace Orlix;

void Check(bool holds) {
  if (!holds) __builtin_trap();
}

Util::CRebarHelper Grades() {
  auto materials = std::make_shared<Data::Materials>();
  for (const wchar_t* name : {L"B500B", L"Grade 60"}) {
    Data::Design::CMatRebar grade;
    grade.SetName(name);
    materials->Add(grade);
  }
  return Util::CRebarHelper(materials);
}

Data::CSecGeom Shape(unsigned choice) {
  using Data::ShapeKind;
  const Data::ShapeDimensions d{.width = 0.6,
                                .depth = 0.8,
                                .diameter = 0.9,
                                .thickness = 0.2,
                                .flangeThickness = 0.2,
                                .webThickness = 0.2};
  constexpr ShapeKind kKinds[] = {ShapeKind::rectangle, ShapeKind::circle, ShapeKind::ring,
                                  ShapeKind::tee,       ShapeKind::ell,    ShapeKind::box,
                                  ShapeKind::ellipse};
  if (choice % 8 < 7) return {kKinds[choice % 8], d, {0.1, -0.2}, choice >= 128 ? 0.3 : 0.0};
  return Data::CSecGeom(std::vector<Data::SectionPolygon>{
      {{{0, 0}, {0, 1}, {0.5, 0.4}, {1, 1}, {1, 0}}, {{{0.4, 0.1}, {0.6, 0.1}, {0.5, 0.2}}}},
      {{{2, 0}, {3, 0}, {3, 0}, {3, 1}}, {}}});
}

void CheckTexts(const std::wstring& text, const Data::CBarInput& input,
                const Util::CRebarHelper& grades, const Util::CBarHelper& sizes) {
  Check(input.GenerateLayers().empty() == !input.IsDescriptionValid());
  const std::wstring longer = Data::DescriptionWithUnit(text, L"in", grades, sizes);
  if (!input.IsDescriptionValid()) {
    Check(input.DescriptionFromInfo().empty());
    return;
  }
  const std::wstring canonical = input.DescriptionFromInfo();
  const Data::CBarInput again(OrlixString<wchar_t>(std::wstring_view(canonical)), grades, sizes,
                              1.0);
  Check(again.IsDescriptionValid() && !again.HasLengthWithoutUnit());
  Check(again.Info().layers.size() == input.Info().layers.size());
  const Data::CBarInput fixed(OrlixString<wchar_t>(std::wstring_view(longer)), grades, sizes, 1.0);
  if (longer != text) Check(fixed.IsDescriptionValid() && !fixed.HasLengthWithoutUnit());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::wstring text =
      to_wstring(std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
  static const Util::CRebarHelper grades = Grades();
  static const Util::CBarHelper sizes;
  static const Data::Design::CConcCode code;
  const Data::CBarInput input(OrlixString<wchar_t>(std::wstring_view(text)), grades, sizes, 0.001);
  CheckTexts(text, input, grades, sizes);

  Data::CSecComp component(MatType::concrete, 0, Shape(data[0]));
  Data::Reinforcement reinforcement;
  reinforcement.descriptions.push_back({OrlixString<wchar_t>(std::wstring_view(text))});
  component.Concrete().SetReinforcement(reinforcement);
  Data::CSection section;
  section.Components().push_back(component);
  Velmo::CPositionRebar positioner(grades, sizes, code, Data::CUnit());
  positioner.GenerateRebar(section);
  const auto& bars = section.Components()[0].Concrete().Bars();
  Check(bars.size() <= static_cast<std::size_t>(Data::CBarInput::kMostBars));
  Check(!bars.empty() || !positioner.Problems().empty());
  for (const Data::CBar& bar : bars) {
    Check(std::isfinite(bar.Position().x) && std::isfinite(bar.Position().y));
    Check(bar.Area() > 0.0 && bar.Description() == 0);
  }
  return 0;
}
