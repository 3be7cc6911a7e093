#include "legacy/sections_module.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "legacy/ComponentReader.h"
#include "legacy/limits.h"
#include "model/oxutil/text.h"

namespace Orlix::Legacy {
namespace {

using Data::Confinement;
using Data::Velmo9::VelmoSection;

void BeginSection(RecordReader& record, Context& context) {
  constexpr std::array<std::pair<std::string_view, Confinement>, 2> kConfinements = {{
      {"TIES", Confinement::ties},
      {"SPIRAL", Confinement::spiral},
  }};
  VelmoSection section;
  section.SetName(cstr(record.Text("name of the section")));
  if (const auto word = record.WordAttribute<Confinement>("confinement", kConfinements)) {
    section.SetConfinement(*word);
  }
  if (context.document.Sections().size() == kMaxSections) {
    record.Problem("is one section too many: at most " + std::to_string(kMaxSections));
  } else {
    context.document.AddSection(section);
  }
}

}  // namespace

void ReadSections(Context& context) {
  auto& sections = context.document.Sections();
  RecordReader record = context.Records("SECTIONS");
  ComponentReader component(record, context);
  std::size_t numComponents = 0;
  const auto finish = [&] {
    if (component.IsOpen()) sections.back().Components().push_back(component.Finish());
  };
  while (record.Next()) {
    if (record.Keyword() == "SECTION") {
      finish();
      BeginSection(record, context);
    } else if (record.Keyword() == "COMPONENT") {
      finish();
      if (sections.empty()) {
        record.Problem("stands before the first SECTION");
      } else if (++numComponents > kMaxComponents) {
        record.Problem("is one component too many: at most " + std::to_string(kMaxComponents));
      } else {
        component.Begin();
      }
    } else if (!component.IsOpen()) {
      record.Problem("stands before the first COMPONENT of the section");
    } else if (!component.Read()) {
      record.ReportUnknown();
    }
  }
  finish();
}

}  // namespace Orlix::Legacy
