#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/UnitText.h"
#include "cli/choices.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/option_checks.h"
#include "materials/CurveMessages.h"
#include "materials/curve_text.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string document;
  std::string file{"-"};
  std::string type;
  std::string grade;
  std::string state;
  std::string sign;
};

constexpr const char* kExample = R"(Examples, a curve of each sign:
  printf '0 0\n1.75 20\n3.5 20\n' | velmo curve column.json --type concrete --grade C30/37 \
      --state uls --sign compression
  printf '0 0\n-2.5 -500\n-50 -540\n' | velmo curve column.json --type reinforcement \
      --grade B500B --state uls --sign tension

A line is a point: strain, then stress, in the document's units (‰ and MPa in a new one), between
them spaces, tabs, commas, semicolons, colons or bars; the decimal sign is a point. Lines that do
not begin with two numbers, such as a heading, are left out. Numbers count compression positive: a
tension curve is typed with negative ones. The curve needs the origin, 0 0, and ends at its last point, the strain limit; points
of the other sign are left out. It is taken as it is: without partial factors.

A compression curve of concrete or FRP leaves it no tension; give the tension curve after it. Steel
and reinforcement keep their other side. The document is changed in place.)";

template <class T>
using Names = std::vector<std::pair<std::string, T>>;

const Names<MatType> kTypes = {{"concrete", MatType::concrete},
                               {"reinforcement", MatType::reinforcement},
                               {"steel", MatType::steel},
                               {"FRP", MatType::FRP}};
const Names<LoadState> kStates = {{"uls", LoadState::ULS}, {"sls", LoadState::SLS}};
const Names<LoadSign> kSigns = {{"compression", LoadSign::compression},
                                {"tension", LoadSign::tension}};

template <class T>
T Named(const Names<T>& names, const std::string& text, const char* option) {
  std::string all;
  for (const auto& [name, value] : names) {
    if (CLI::detail::to_lower(name) == CLI::detail::to_lower(text)) return value;
    all += (all.empty() ? "" : ", ") + name;
  }
  throw CommandError(std::string(option) + " " + text + ": is none of " + all);
}

std::string TextOf(const std::string& file) {
  if (file == "-") return CurveTextFrom(std::cin);
  if (std::filesystem::is_directory(file)) throw CommandError(file + ": is a directory");
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw CommandError(file + ": " + std::strerror(errno));
  return CurveTextFrom(stream);
}

// How to put right what a message says.
std::string Hint(const std::string& message, const UnitText& units, LoadSign sign) {
  if (message == CurveMessages::kNoOrigin) return "; add the line \"0 0\"";
  if (message != CurveMessages::kTooFewPoints && message != CurveMessages::kNoPoints) return "";
  return std::string("; give a line \"0 0\" and others with ") +
         (sign == LoadSign::compression ? "positive" : "negative") + " numbers, strain in " +
         units.Unit(Dimension::strain) + " and stress in " + units.Unit(Dimension::stress) +
         ", for a curve of that sign";
}

// What the curve is now.
void Describe(const Data::Design::CMatCurveParam& curve, const UnitText& units, std::ostream& out) {
  for (const auto& [name, sign] : kSigns) {
    const bool isCompression = sign == LoadSign::compression;
    const double outward = isCompression ? 1.0 : -1.0;
    double largest = 0.0;
    for (const auto& segment : curve.Segments()) {
      largest = std::max(
          {largest, outward * curve.Stress(segment.from), outward * curve.Stress(segment.to)});
    }
    out << "  " << name << ": ";
    if (largest == 0.0) {
      out << "no stress\n";
      continue;
    }
    const double limit = isCompression ? curve.CompressionLimit() : curve.TensionLimit();
    out << (curve.Kind(sign) == Data::Design::CurveKind::explicitPoints ? "by points, "
                                                                        : "as it was, ")
        << "up to " << units.Value(largest, Dimension::stress) << ' '
        << units.Unit(Dimension::stress) << ", strain to " << units.Value(limit, Dimension::strain)
        << ' ' << units.Unit(Dimension::strain) << '\n';
  }
}

int Run(const Arguments& arguments) {
  const MatType type = Named(kTypes, arguments.type, "--type");
  const LoadState state = Named(kStates, arguments.state, "--state");
  const LoadSign sign = Named(kSigns, arguments.sign, "--sign");
  VelmoApp app = OpenForEdit(arguments.document);
  const int grade = FindGrade(app, type, arguments.grade);
  std::string text = TextOf(arguments.file);
  const UnitText units(app.pData()->Units());
  std::string message;
  if (!app.setExplicitCurve(type, grade, state, sign, text, message)) {
    const std::string source = arguments.file == "-" ? "standard input" : arguments.file;
    std::cerr << source << ": " << message << Hint(message, units, sign) << '\n';
    return kProblems;
  }
  SaveDocument(app, arguments.document);
  const Data::Design::CMat& material = app.pData()->getMaterials()->Grade(type, grade);
  std::cout << to_string(material.Name()) << ", " << (state == LoadState::ULS ? "ULS" : "SLS")
            << ":\n";
  Describe(material.Curve(state), units, std::cout);
  return kDone;
}

}  // namespace

void AddCurveCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("curve", "Give a material a stress-strain curve by points");
  command->footer(kExample);
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command
      ->add_option("FILE", arguments->file, "Text file of points; standard input for - or without")
      ->check(NotEmpty);
  command->add_option("--type", arguments->type, "Material: concrete, reinforcement, steel, FRP")
      ->required()
      ->check(NotEmpty);
  command->add_option("--grade", arguments->grade, "Name of a grade of the document")
      ->required()
      ->check(NotEmpty);
  command->add_option("--state", arguments->state, "Limit state of the curve: uls, sls")
      ->required()
      ->check(NotEmpty);
  command->add_option("--sign", arguments->sign, "Side of the curve: compression, tension")
      ->required()
      ->check(NotEmpty);
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
