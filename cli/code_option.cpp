#include "cli/code_option.h"

#include <rapidjson/document.h>

#include <array>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "cli/choices.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/json_input.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/json/annex_json.h"
#include "model/vldata/json/document_json.h"
#include "model/vldata/json/materials_json.h"

namespace Orlix::Cli {

namespace {

using Data::GradeChange;
using Data::Design::CConcCode;
using Data::Design::CodeChoice;

const CodeChoice* FindCode(std::string_view code, std::string_view annex) {
  for (const CodeChoice& choice : Data::Design::KnownCodes()) {
    if ((code.empty() || choice.name == code) && (annex.empty() || choice.annex == annex)) {
      return &choice;
    }
  }
  return nullptr;
}

std::string KnownCodesText() {
  std::vector<std::string> known;
  for (const CodeChoice& choice : Data::Design::KnownCodes()) {
    known.push_back(std::string(choice.name) +
                    (choice.annex.empty() ? "" : " (" + std::string(choice.annex) + ")"));
  }
  return Joined(known);
}

// The code asked for, else the one that the annex says it belongs to.
std::string CodeOfAnnex(const std::string& code, const Util::JsonValue& annex) {
  if (!code.empty()) return code;
  const Util::JsonValue* name = Util::FindMember(annex, "code");
  return name != nullptr && name->IsString() ? name->GetString() : "";
}

CConcCode CodeWithAnnexFile(const std::string& code, const std::string& file) {
  Util::JsonDocument json;
  ReadJson(file, json);
  const CodeChoice* choice = FindCode(CodeOfAnnex(code, json), {});
  if (choice == nullptr) {
    throw CommandError(file + ": the code of the annex is not known; codes: " + KnownCodesText());
  }
  Data::ProblemList problems;
  const Data::JsonPath root;
  const CConcCode recommended(choice->code, choice->country);
  const auto annex = Data::AnnexFromJson(json, root.Member("annex"), recommended.Data(), problems);
  CheckUnderstood(file, problems.Problems());
  return CConcCode(choice->code, annex.value());
}

struct Heading {
  GradeChange::Kind kind;
  std::string_view text;
};

constexpr std::array<Heading, 5> kHeadings = {{
    {GradeChange::Kind::replaced, "takes the new code's values"},
    {GradeChange::Kind::keptInUse,
     "stays: in use, and the new code does not know it; its factors are those it had"},
    {GradeChange::Kind::keptOwn, "stays: edited or your own, its factors are those it had"},
    {GradeChange::Kind::removed, "gone: the old code's, not in use"},
    {GradeChange::Kind::added, "added"},
}};

// Of a grade that stays: " (alpha 1, gamma 1.5)".
std::string FactorsOf(const Data::CVelmoData& document, const GradeChange& change) {
  if (change.kind != GradeChange::Kind::keptInUse && change.kind != GradeChange::Kind::keptOwn) {
    return {};
  }
  const auto materials = document.getMaterials();
  const int grade = materials->Find(change.type, change.name.View());
  if (!materials->IsValidGrade(change.type, grade)) return {};
  const auto& p = materials->Grade(change.type, grade).Properties();
  return " (alpha " + StringFrom(p.alpha) + ", gamma " + StringFrom(p.gamma) + ")";
}

}  // namespace

CConcCode CodeFor(const std::string& code, const std::string& annex) {
  if (const CodeChoice* choice = FindCode(code, annex)) {
    return CConcCode(choice->code, choice->country);
  }
  std::error_code failure;
  const bool isFile = annex == "-" || std::filesystem::exists(annex, failure);
  if (isFile && (code.empty() || FindCode(code, {}) != nullptr)) {
    return CodeWithAnnexFile(code, annex);
  }
  throw CommandError((code.empty() ? "" : "code \"" + code + "\" ") +
                     (annex.empty() ? "" : "with annex \"" + annex + "\" ") + "is not known" +
                     (annex.empty() ? "" : ", nor is there a file of the annex's name") +
                     "; codes and annexes: " + KnownCodesText());
}

void SetCode(VelmoApp& app, const CConcCode& code) {
  Util::JsonDocument json;
  json.CopyFrom(Data::CodesToJson(code, json.GetAllocator()), json.GetAllocator());
  app.setCodes(json);
}

bool AreEqual(const CConcCode& a, const CConcCode& b) {
  Util::JsonDocument json;
  return Data::CodesToJson(a, json.GetAllocator()) == Data::CodesToJson(b, json.GetAllocator());
}

void PrintGradeChanges(const Data::CVelmoData& document, std::ostream& out) {
  for (const auto& [typeName, type] : Data::MaterialTypeNames()) {
    for (const Heading& heading : kHeadings) {
      std::vector<std::string> names;
      for (const GradeChange& change : document.GradeChanges()) {
        if (change.type != type || change.kind != heading.kind) continue;
        names.push_back(to_string(change.name) + FactorsOf(document, change));
      }
      if (names.empty()) continue;
      out << typeName << ", " << heading.text << ": " << Joined(names) << '\n';
    }
  }
}

}  // namespace Orlix::Cli
