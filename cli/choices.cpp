#include "cli/choices.h"

#include <rapidjson/document.h>

#include "cli/commands.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : ", ") + word;
  return text;
}

const Data::Design::CodeChoice& FindCode(const std::string& code, const std::string& annex) {
  std::vector<std::string> known;
  for (const Data::Design::CodeChoice& choice : Data::Design::KnownCodes()) {
    if ((code.empty() || choice.name == code) && (annex.empty() || choice.annex == annex)) {
      return choice;
    }
    known.push_back(std::string(choice.name) +
                    (choice.annex.empty() ? "" : " (" + std::string(choice.annex) + ")"));
  }
  throw CommandError((code.empty() ? "" : "code \"" + code + "\" ") +
                     (annex.empty() ? "" : "with annex \"" + annex + "\" ") +
                     "is not known; codes and annexes: " + Joined(known));
}

void SetCode(VelmoApp& app, const Data::Design::CodeChoice& choice) {
  Util::JsonDocument json(rapidjson::kObjectType);
  auto& allocator = json.GetAllocator();
  json.AddMember("concrete", std::string(choice.name), allocator);
  if (!choice.annex.empty()) json.AddMember("annex", std::string(choice.annex), allocator);
  app.setCodes(json);
}

int FindGrade(const VelmoApp& app, MatType type, const std::string& name,
              std::initializer_list<const wchar_t*> usual) {
  const Data::Materials& materials = *app.pData()->getMaterials();
  for (const wchar_t* candidate : usual) {
    const int grade = name.empty() ? materials.Find(type, candidate) : -1;
    if (grade >= 0) return grade;
  }
  const int grade = materials.Find(type, to_wstring(name));
  if (grade >= 0) return grade;
  std::vector<std::string> known;
  for (int i = 0; i < materials.NumGrades(type); ++i) {
    known.push_back(to_string(materials.Grade(type, i).Name()));
  }
  throw CommandError("grade \"" + name + "\" is not known; grades: " + Joined(known));
}

}  // namespace Orlix::Cli
