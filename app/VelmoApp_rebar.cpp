// Bars that follow their descriptions, and the links.

#include <rapidjson/document.h>

#include "app/VelmoApp.h"
#include "model/oxdata/reinforcement/CBarInput.h"
#include "model/oxdata/reinforcement/CPositionRebar.h"
#include "model/oxutil/json.h"
#include "model/vldata/document/AnalysisCasePauser.h"

namespace Orlix {

using Data::Velmo9::VelmoSection;

void VelmoApp::generateRebar(VelmoSection& section) const { document_.GenerateRebar(section); }

void VelmoApp::updateSections(bool updateGrades, const std::wstring& unit) {
  const Data::AnalysisCasePauser pauser(document_.Queue());
  Velmo::CPositionRebar positioner(document_.GetRebarHelper(), document_.GetBarHelper(),
                                   document_.concreteCode(), document_.Units());
  positioner.SetUpdateGrade(updateGrades);
  for (int iSec = 0; iSec < document_.NumSections(); ++iSec) {
    VelmoSection& section = document_.getSection(iSec);
    for (Data::CSecComp& component : section.Components()) {
      if (!unit.empty()) AppendUnit(component, unit);
    }
    positioner.GenerateRebar(section);
    SectionChanged(iSec);
  }
}

void VelmoApp::AppendUnit(Data::CSecComp& component, const std::wstring& unit) const {
  Data::CSecGeom geometry = component.Geometry();
  const std::wstring text = geometry.DescriptionWithUnitAppended(unit, false);
  geometry.SetDescription(OrlixString<wchar_t>(std::wstring_view(text)));
  component.SetGeometry(std::move(geometry));
  if (!component.ConcreteExist()) return;
  Data::Reinforcement reinforcement = component.Concrete().GetReinforcement();
  for (Data::BarDescription& description : reinforcement.descriptions) {
    const std::wstring longer =
        Data::DescriptionWithUnit(std::wstring(description.text.View()), unit,
                                  document_.GetRebarHelper(), document_.GetBarHelper());
    description.text = OrlixString<wchar_t>(std::wstring_view(longer));
  }
  component.Concrete().SetReinforcement(std::move(reinforcement));
}

Util::JsonValue VelmoApp::SectionLinksToJson(int iSec, Util::JsonAllocator& allocator) {
  document_.GenerateRebarHelper();
  return document_.Section(iSec).LinksToJson(allocator, document_.Units(),
                                             document_.GetRebarHelper());
}

}  // namespace Orlix
