#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/choices.h"
#include "cli/code_json.h"
#include "cli/code_option.h"
#include "cli/commands.h"
#include "cli/curve_points.h"
#include "cli/option_checks.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/standard_grades.h"
#include "model/vldata/json/materials_json.h"

namespace Orlix::Cli {

namespace {

using Align = TextTable::Align;
using Data::Materials;
using Data::Design::CConcCode;
using Data::Design::CMat;
using Data::Design::CodeChoice;
using Data::Design::CodeConstant;
using Data::Design::ConstantSource;
using Data::Design::CountConstants;

struct Arguments {
  std::string code;
  std::string annex;
  std::optional<std::string> grade;
  bool json{};
};

constexpr const char* kExample = R"(Examples:
  velmo codes
  velmo codes "EN 1992-1-1:2004" --annex UK
  velmo codes "BS 8110-1:1997" --grade C40

Without NAME the codes with their annexes; with it the code's constants, where they stand and
whether they were compared with the printed clause, and its standard grades. f_d is
alpha f_k/gamma. Curves count compression positive; a side without a strain limit ends beyond its
last corner. docs/national-annex.md describes the file of an annex.)";

// Six significant digits.
std::string Plain(double value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

std::string_view ComparedText(ConstantSource source) {
  switch (source) {
    case ConstantSource::compared:
      return "yes";
    case ConstantSource::secondary:
      return "no";
    case ConstantSource::doubtful:
      return "no, doubtful";
    case ConstantSource::user:
      break;
  }
  return "user's";
}

constexpr const char* kComparedNote = R"(
compared: whether the value was compared with the printed clause. "no": it comes from text books and
general knowledge of the code; "no, doubtful": so it does, and the value or the number of its clause
is in doubt; "user's": it stands in the annex file with that source. Compare with the standard what
a design relies on.
)";

void PrintCodes() {
  TextTable table;
  table.AddColumn("code", "", Align::left);
  table.AddColumn("annex", "", Align::left);
  table.AddColumn("safety by", "", Align::left);
  table.AddColumn("constants", "");
  table.AddColumn("compared", "");
  table.AddColumn("doubtful", "");
  for (const CodeChoice& choice : Data::Design::KnownCodes()) {
    const CConcCode code(choice.code, choice.country);
    table.AddRow({std::string(choice.name), std::string(choice.annex),
                  code.IsStrengthReduction() ? "strength reduction" : "material factors",
                  std::to_string(code.Data().constants.size()),
                  std::to_string(CountConstants(code.Data(), ConstantSource::compared)),
                  std::to_string(CountConstants(code.Data(), ConstantSource::doubtful))});
  }
  table.Print(std::cout);
  std::cout << "\ncompared: how many of the constants were compared with the printed clause; "
               "doubtful: how many\nare in doubt. velmo codes NAME says it of each.\n";
}

void PrintConstants(const CConcCode& code, const UnitText& units) {
  TextTable table;
  table.AddColumn("constant", "", Align::left);
  table.AddColumn("value", "");
  table.AddColumn("unit", "", Align::left);
  table.AddColumn("compared", "", Align::left);
  table.AddColumn("clause", "", Align::left);
  for (const CodeConstant& constant : code.Data().constants) {
    const bool isStress = constant.unit == "Pa";
    table.AddRow({constant.symbol,
                  isStress ? units.Value(constant.value, Dimension::stress) : Plain(constant.value),
                  isStress ? units.Unit(Dimension::stress) : constant.unit,
                  std::string(ComparedText(constant.source)), constant.clause});
  }
  table.Print(std::cout);
  std::cout << kComparedNote;
}

void PrintGrades(const Materials& materials, const UnitText& units) {
  TextTable table;
  table.AddColumn("material", "", Align::left);
  table.AddColumn("grade", "", Align::left);
  const std::string stress = units.Unit(Dimension::stress);
  const std::string strain = units.Unit(Dimension::strain);
  table.AddColumn("f_k", stress);
  table.AddColumn("E", stress);
  table.AddColumn("alpha", "");
  table.AddColumn("gamma", "");
  table.AddColumn("f_d", stress);
  table.AddColumn("compressed to", strain);
  table.AddColumn("drawn to", strain);
  const auto limit = [&units](const CMat& material, LoadSign sign) -> std::string {
    const auto& curve = material.Curve(LoadState::ULS);
    if (curve.IsLimitCap(sign)) return "no limit";
    return units.Value(
        sign == LoadSign::compression ? curve.CompressionLimit() : curve.TensionLimit(),
        Dimension::strain);
  };
  for (const auto& [name, type] : Data::MaterialTypeNames()) {
    for (int i = 0; i < materials.NumGrades(type); ++i) {
      const CMat& material = materials.Grade(type, i);
      const auto& p = material.Properties();
      table.AddRow({std::string(name), to_string(material.Name()),
                    units.Value(p.f_k, Dimension::stress), units.Value(p.E, Dimension::stress),
                    Plain(p.alpha), Plain(p.gamma),
                    units.Value(material.DesignStrength(), Dimension::stress),
                    limit(material, LoadSign::compression), limit(material, LoadSign::tension)});
    }
  }
  table.Print(std::cout);
}

void PrintCurve(const CMat& material, LoadState state, const UnitText& units) {
  std::cout << '\n'
            << to_string(material.Name()) << " at " << (state == LoadState::ULS ? "ULS" : "SLS")
            << '\n';
  TextTable table;
  table.AddColumn("strain", units.Unit(Dimension::strain));
  table.AddColumn("stress", units.Unit(Dimension::stress));
  for (const Vec2<double>& point : CurvePoints(material, state)) {
    table.AddRow(
        {units.Value(point.x, Dimension::strain), units.Value(point.y, Dimension::stress)});
  }
  table.Print(std::cout);
}

std::vector<const CMat*> GradesNamed(const Materials& materials, const std::string& name) {
  std::vector<const CMat*> found;
  std::vector<std::string> known;
  for (const auto& [typeName, type] : Data::MaterialTypeNames()) {
    for (int i = 0; i < materials.NumGrades(type); ++i) {
      const CMat& material = materials.Grade(type, i);
      known.push_back(to_string(material.Name()));
      if (known.back() == name) found.push_back(&material);
    }
  }
  if (found.empty()) {
    throw CommandError("--grade " + name + ": the code's grades are " + Joined(known));
  }
  return found;
}

void PrintCode(const CConcCode& code, const Materials& materials,
               const std::vector<const CMat*>& curves) {
  const UnitText units{Data::CUnit()};
  std::cout << code.Data().name;
  if (!code.Data().annex.empty()) std::cout << " (" << code.Data().annex << ')';
  std::cout << "\n\n";
  PrintConstants(code, units);
  std::cout << '\n';
  PrintGrades(materials, units);
  for (const CMat* material : curves) {
    PrintCurve(*material, LoadState::ULS, units);
    PrintCurve(*material, LoadState::SLS, units);
  }
}

int Run(const Arguments& arguments) {
  Util::JsonDocument json;
  if (arguments.code.empty()) {
    if (!arguments.annex.empty() || arguments.grade) {
      throw CommandError("--annex and --grade need the NAME of a code");
    }
    if (!arguments.json) {
      PrintCodes();
      return kDone;
    }
    CodesToJson(json);
  } else {
    const CConcCode code = CodeFor(arguments.code, arguments.annex);
    const auto materials = Data::StandardMaterials(code.Data());
    std::vector<const CMat*> curves;
    if (arguments.grade) curves = GradesNamed(*materials, *arguments.grade);
    if (!arguments.json) {
      PrintCode(code, *materials, curves);
      return kDone;
    }
    CodeToJson(code, arguments.grade, json);
  }
  std::cout << Util::PrettyJson(json) << '\n';
  return kDone;
}

}  // namespace

void AddCodesCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("codes", "List design codes; constants and grades of one");
  command->footer(kExample);
  command->add_option("NAME", arguments->code, "Design code, e.g. \"ACI 318-19\"")->check(NotEmpty);
  command
      ->add_option("--annex", arguments->annex,
                   "National annex, e.g. UK, or the JSON file of one; the code's first without it")
      ->check(NotEmpty);
  command->add_option("--grade", arguments->grade, "Also the points of this grade's curves")
      ->check(NotEmpty);
  command->add_flag("--json", arguments->json, "As JSON, in SI units");
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
