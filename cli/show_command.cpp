#include <CLI/CLI.hpp>
#include <cmath>
#include <iostream>
#include <memory>
#include <set>
#include <string>

#include "cli/TextTable.h"
#include "cli/UnitText.h"
#include "cli/commands.h"
#include "cli/concrete_facts.h"
#include "cli/documents.h"
#include "cli/option_checks.h"
#include "cli/printable.h"
#include "cli/property_tables.h"
#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"

namespace Orlix::Cli {

using Data::CSecComp;
using Data::CVelmoData;
using Data::Velmo9::AnalysisTask;
using Data::Velmo9::VelmoSection;
using Align = TextTable::Align;

namespace {

constexpr const char* kExample = R"(Example:
  velmo show column.json
A case waits until it is solved; documents on disk hold inputs alone, so after reading all wait.
Gross properties count overlapping components once; net ones leave out the concrete that bars lie
in. Transformed ones are of what a task includes, uncracked, in terms of the concrete's modulus: in
the long term it is E / (1 + creep coefficient). Axes are angles from y towards z.)";

void PrintHeading(const CVelmoData& document) {
  const Data::CTitles& titles = document.Titles();
  const struct {
    const char* what;
    const std::string& text;
  } kTitles[] = {{"Project", titles.project},
                 {"Part", titles.part},
                 {"Description", titles.description},
                 {"Job number", titles.jobNumber},
                 {"Initials", titles.initials}};
  for (const auto& title : kTitles) {
    if (!title.text.empty()) std::cout << title.what << ": " << Printable(title.text) << '\n';
  }
  std::cout << "Code: " << CodeText(document) << '\n';

  const UnitText units(document.Units());
  std::cout << "Units: force " << units.Unit(Dimension::force) << ", length "
            << units.Unit(Dimension::length) << ", section dimensions "
            << units.Unit(Dimension::sectionDimensions) << ", stress "
            << units.Unit(Dimension::stress) << ", strain " << units.Unit(Dimension::strain)
            << ", mass " << units.Unit(Dimension::mass) << ", temperature "
            << units.Unit(Dimension::temperature) << '\n';
}

const char* TypeName(MatType type) {
  switch (type) {
    case MatType::concrete:
      return "concrete";
    case MatType::steel:
      return "steel";
    case MatType::FRP:
      return "FRP";
    case MatType::reinforcement:
      return "reinforcement";
    case MatType::none:
      break;
  }
  return "none";
}

std::string GradeName(const CVelmoData& document, MatType type, int grade) {
  const Data::Materials& materials = *document.getMaterials();
  return materials.IsValidGrade(type, grade) ? to_string(materials.Grade(type, grade).Name())
                                             : "none";
}

void PrintMaterials(const CVelmoData& document) {
  std::set<std::pair<MatType, int>> used;
  for (const VelmoSection& section : document.Sections()) {
    for (const CSecComp& component : section.Components()) {
      used.emplace(component.MaterialType(), component.MaterialGrade());
      if (!component.ConcreteExist()) continue;
      for (const Data::CBar& bar : component.Concrete().Bars()) {
        used.emplace(MatType::reinforcement, bar.Grade());
      }
    }
  }
  const UnitText units(document.Units());
  TextTable table;
  table.AddColumn("Material", "", Align::left);
  table.AddColumn("grade", "", Align::left);
  table.AddColumn("strength", units.Unit(Dimension::stress));
  table.AddColumn("design strength", units.Unit(Dimension::stress));
  table.AddColumn("modulus", units.Unit(Dimension::stress));
  bool any{};
  for (const auto& [type, grade] : used) {
    if (!document.getMaterials()->IsValidGrade(type, grade)) continue;
    any = true;
    const Data::Design::CMat& material = document.getMaterials()->Grade(type, grade);
    table.AddRow({TypeName(type), to_string(material.Name()),
                  units.Value(material.Properties().f_k, Dimension::stress),
                  units.Value(material.DesignStrength(), Dimension::stress),
                  units.Value(material.Properties().E, Dimension::stress)});
  }
  if (!any) return;
  std::cout << '\n';
  table.Print(std::cout);
}

void PrintComponents(const CVelmoData& document, const VelmoSection& section) {
  const UnitText units(document.Units());
  const std::string length = units.Unit(Dimension::sectionDimensions);
  TextTable table;
  for (const char* heading : {"Component", "name", "material", "grade", "shape"}) {
    table.AddColumn(heading, "", Align::left);
  }
  table.AddColumn("gross area", length + "²");
  table.AddColumn("centroid y", length);
  table.AddColumn("centroid z", length);
  table.AddColumn("bars", "");
  int number = 0;
  for (const CSecComp& component : section.Components()) {
    const GrossArea gross = GrossAreaOf(component);
    const bool hasArea = gross.area > 0.0;
    const auto lengthOf = [&](double value) {
      return hasArea ? units.Value(value, Dimension::sectionDimensions) : std::string("-");
    };
    const auto kind = component.Geometry().Kind();
    table.AddRow(
        {std::to_string(++number), to_string(component.Name()), TypeName(component.MaterialType()),
         GradeName(document, component.MaterialType(), component.MaterialGrade()),
         kind == Data::ShapeKind::none ? "none" : Data::ShapeName(kind),
         units.SquaredValue(gross.area, Dimension::sectionDimensions), lengthOf(gross.centroid.x),
         lengthOf(gross.centroid.y),
         component.ConcreteExist() ? std::to_string(component.Concrete().Bars().size()) : "-"});
  }
  table.Print(std::cout);
}

const char* LimitStates(const AnalysisTask& task) {
  if (task.ComputesULS()) return task.ComputesSLS() ? "ULS and SLS" : "ULS";
  return task.ComputesSLS() ? "SLS" : "no limit state";
}

std::string LoadTermText(const Data::Velmo9::CreepSettings& creep) {
  switch (creep.term) {
    case Data::Velmo9::LoadTerm::shortTerm:
      return "short-term loads";
    case Data::Velmo9::LoadTerm::longTerm:
      return "long-term loads, creep coefficient " + StringFrom(creep.creepCoefficient);
    case Data::Velmo9::LoadTerm::intermediate:
      break;
  }
  return "loads of which " + StringFrom(100.0 * creep.longTermShare) +
         " % act long, creep coefficient " + StringFrom(creep.creepCoefficient);
}

// What a task says beyond its cases, each where it has an effect or was set.
void PrintSettings(const AnalysisTask& task) {
  if (task.ComputesSLS()) std::cout << "  in service: " << LoadTermText(task.Creep()) << '\n';
  if (const auto& from = task.PreloadFrom()) {
    std::cout << "  built on the strains of task " << from->task << ", case " << from->iCase
              << '\n';
  }
  if (!task.PhiFactors()) return;
  const Data::Velmo9::CustomPhi& phi = *task.PhiFactors();
  std::cout << "  strength reduction of its own: phi " << StringFrom(phi.phiCompression)
            << " up to a net tensile strain of " << StringFrom(phi.compressionStrain) << ", "
            << StringFrom(phi.phiTension) << " from " << StringFrom(phi.tensionStrain) << " on\n";
}

void PrintTasks(const CVelmoData& document, int iSec) {
  int number = 0;
  for (const AnalysisTask& task : document.Section(iSec).Tasks()) {
    const auto waiting = document.Queue().NumCases(iSec, number);
    std::cout << "Task " << ++number;
    if (!task.Name().empty()) std::cout << " \"" << Printable(task.Name()) << '"';
    std::cout << ": " << LimitStates(task) << ", "
              << (task.Action() == LoadAction::load ? "loads" : "deformations") << ", "
              << task.NumCases() << (task.NumCases() == 1 ? " case, " : " cases, ") << waiting
              << " waiting to be solved\n";
    PrintSettings(task);
  }
}

int Run(const std::string& path) {
  const VelmoApp app = OpenForUse(path);
  const CVelmoData& document = *app.pData();
  PrintHeading(document);
  PrintMaterials(document);
  int number = 0;
  for (const VelmoSection& section : document.Sections()) {
    std::cout << "\nSection " << ++number << " \"" << Printable(to_string(section.Name())) << '"';
    const double concrete = GrossConcreteOf(section).area;
    if (concrete > 0.0) {
      const double share = section.RebarPercentage();
      const bool known = std::isfinite(concrete) && std::isfinite(share);  // areas may overflow
      std::cout << ", reinforcement " << (known ? StringFrom(share) : "-")
                << " % of the gross concrete";
    }
    // Partial factors alone do not ask how bars are confined.
    const bool isSpiral = section.Confinement() == Data::Confinement::spiral;
    const Data::Design::ConcreteCode& code = document.concreteCode();
    if (isSpiral || code.IsStrengthReduction() || code.Data().axialCap) {
      std::cout << ", confined by " << (isSpiral ? "a spiral" : "ties");
    }
    std::cout << '\n';
    if (!section.Components().empty()) PrintComponents(document, section);
    PrintProperties(document, section, std::cout);
    if (!section.Tasks().empty()) std::cout << '\n';
    PrintTasks(document, number - 1);
  }
  if (number == 0) std::cout << "\nNo sections\n";
  return kDone;
}

}  // namespace

void AddShowCommand(CLI::App& program, int& exitCode) {
  auto path = std::make_shared<std::string>();
  CLI::App* command = program.add_subcommand("show", "Print what a document holds");
  command->footer(kExample);
  command->add_option("DOC", *path, "Document")->required()->check(NotEmpty);
  command->callback([path, &exitCode] { exitCode = Run(*path); });
}

}  // namespace Orlix::Cli
