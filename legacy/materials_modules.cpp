#include "legacy/materials_modules.h"

#include <array>
#include <optional>
#include <string>
#include <utility>

#include "legacy/curve_records.h"
#include "legacy/limits.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/grade_migration.h"
#include "model/vldata/document/standard_grades.h"

namespace Orlix::Legacy {
namespace {

using Data::Design::CMat;
using Data::Design::MaterialProperties;

constexpr std::array<std::pair<std::string_view, MatType>, 5> kTypes = {{
    {"CONCRETE", MatType::concrete},
    {"REINFORCEMENT", MatType::reinforcement},
    {"LINKS", MatType::reinforcement},
    {"STEEL", MatType::steel},
    {"FRP", MatType::FRP},
}};

MatType TypeOf(std::string_view module) {
  for (const auto& [name, type] : kTypes) {
    if (name == module) return type;
  }
  return MatType::none;
}

// Reads the grades of a module, each from its record GRADE to the next.
class GradesReader {
 public:
  GradesReader(std::string_view module, Context& context)
      : module_(module), type_(TypeOf(module)), context_(context) {}

  void Read() {
    RecordReader record = context_.Records(module_);
    while (record.Next()) {
      if (record.Keyword() == "GRADE") {
        Finish();
        Begin(record);
      } else if (record.Keyword() != "CURVE" && record.Keyword() != "POINT") {
        record.ReportUnknown();
      } else if (line_ == 0) {
        record.Problem("stands before the first GRADE");
      } else if (record.Keyword() == "CURVE") {
        curves_.ReadCurve(record);
      } else {
        curves_.ReadPoint(record);
      }
    }
    Finish();
  }

 private:
  void Begin(RecordReader& record) {
    line_ = record.Line();
    curves_ = {};
    const std::wstring name = to_wstring(record.Text("name of the grade"));
    const Data::Design::CConcCodeData& code = context_.document.concreteCode().Data();
    const CMat* known = Data::StandardGrade(code, type_, name);
    if (const auto like = record.TextAttribute("like")) {
      known = Data::StandardGrade(code, type_, to_wstring(*like));
      if (known == nullptr && !context_.notes.HasFailed("CODES")) {
        record.Problem("like: the code has no grade \"" + *like + "\"");
      }
    }
    material_ = known != nullptr ? *known : CMat(type_);
    material_.SetName(OrlixString<wchar_t>(std::wstring_view(name)));
    ReadProperties(record, known != nullptr);
    if (record.IsSound() && name.empty()) record.Problem("has a grade without a name");
  }

  void ReadProperties(RecordReader& record, bool isKnown) {
    struct Property {
      std::string_view key;
      double MaterialProperties::*member;
      Range range;
      bool isRequired;  // of a grade that the code does not have
    };
    const bool isConcrete = type_ == MatType::concrete;
    const std::array<Property, 5> properties = {{
        {"f_k", &MaterialProperties::f_k, Range::positive, true},
        {"E", &MaterialProperties::E, Range::positive, true},
        {"gamma", &MaterialProperties::gamma, Range::positive, true},
        {"f_ct", &MaterialProperties::f_ct, Range::notNegative, isConcrete},
        {"alpha", &MaterialProperties::alpha, Range::positive, false},
    }};
    MaterialProperties values = material_.Properties();
    for (const Property& property : properties) {
      if (property.key == "f_ct" && !isConcrete) continue;
      const auto number = record.NumberAttribute(property.key, property.range);
      if (number) values.*property.member = *number;
      if (isKnown || number || !property.isRequired || context_.notes.HasFailed("CODES")) continue;
      if (record.IsSound()) {
        record.Problem("lacks " + std::string(property.key) +
                       ": the code has no grade of this name, and there is no like=");
      }
    }
    material_.SetProperties(values);
  }

  void Finish() {
    if (line_ == 0) return;
    const std::string problem = curves_.SetTo(material_);
    if (!problem.empty()) Problem(problem);
    if (++numGrades_ == kMaxGrades + 1) {
      Problem("is one grade too many: at most " + std::to_string(kMaxGrades));
    }
    if (numGrades_ <= kMaxGrades) Keep();
  }

  void Keep() {
    const std::wstring name(material_.Name().View());
    const std::string shown = to_string(name);
    if (type_ != MatType::reinforcement) {
      const FileGrade grade{material_, curves_.NumPoints(), false};
      if (!context_.grades.emplace(std::pair(type_, name), grade).second) {
        Problem("gives the grade \"" + shown + "\" a second time");
      }
    } else if (const auto there = context_.bars.find(name); there == context_.bars.end()) {
      context_.bars[name] = Data::AddOwnGrade(material_, *context_.document.getMaterials());
    } else {
      // Links may be of the grade of bars, when it is the same one.
      CMat same = context_.document.getMaterials()->Grade(type_, there->second);
      same.SetName(material_.Name());
      const bool isOther = !(same == material_) && !context_.notes.HasFailed("REINFORCEMENT");
      if (module_ != "LINKS" || isOther) {
        Problem("gives the grade \"" + shown + "\" a second time, with other values");
      }
    }
  }

  void Problem(std::string_view text) { context_.notes.AddProblem(module_, line_, text); }

  std::string_view module_;
  MatType type_;
  Context& context_;
  std::size_t line_{};  // of the grade that is being read; 0: none
  CMat material_{MatType::none};
  CurveRecords curves_;
  int numGrades_{};
};

}  // namespace

void ReadMaterials(std::string_view module, Context& context) {
  GradesReader(module, context).Read();
}

void KeepUnusedGrades(Context& context) {
  for (const auto& [key, grade] : context.grades) {
    if (!grade.isUsed) Data::AddOwnGrade(grade.material, *context.document.getMaterials());
  }
}

}  // namespace Orlix::Legacy
