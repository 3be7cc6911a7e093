#include "cli/choices.h"

#include "cli/commands.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/unit_keys.h"

namespace Orlix::Cli {

namespace {

Dimension DimensionNamed(const std::string& name, const std::string& item) {
  std::vector<std::string> known;
  for (const auto& [key, dimension] : Data::kUnitKeys) {
    if (name == key) return dimension;
    known.emplace_back(key);
  }
  throw CommandError("--units " + item + ": give one of " + Joined(known) + ", as in force=kN");
}

}  // namespace

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

Data::CUnit UnitsFrom(const std::vector<std::string>& items, Data::CUnit units) {
  for (const std::string& item : items) {
    const std::string name = item.substr(0, item.find('='));
    const std::string label = name == item ? "" : item.substr(name.size() + 1);
    if (!units.SetUnitString(DimensionNamed(name, item), cstr(label))) {
      throw CommandError("--units " + item + ": \"" + label + "\" is no unit of " + name +
                         " that is known; docs/facade-json.md lists them");
    }
  }
  return units;
}

int FindGrade(const VelmoApp& app, MatType type, const std::string& name) {
  const Data::Materials& materials = *app.pData()->getMaterials();
  const Data::Design::CConcCodeData& code = app.pData()->concreteCode().Data();
  const std::wstring wanted = !name.empty()               ? to_wstring(name)
                              : type == MatType::concrete ? code.usualConcrete
                                                          : code.usualReinforcement;
  const int grade = materials.Find(type, wanted);
  if (grade >= 0) return grade;
  std::vector<std::string> known;
  for (int i = 0; i < materials.NumGrades(type); ++i) {
    known.push_back(to_string(materials.Grade(type, i).Name()));
  }
  throw CommandError("grade \"" + to_string(wanted) + "\" is not known; grades: " + Joined(known));
}

}  // namespace Orlix::Cli
