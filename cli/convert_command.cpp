#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/VelmoApp.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/option_checks.h"
#include "cli/printable.h"
#include "legacy/LegacyFileReader.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/standard_grades.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string old;
  std::string out;
  bool force{};
};

constexpr const char* kExample = R"(Example:
  velmo convert round-column.velmo -o round-column.json
Prints what was read. Lines that were left out are listed on standard error; where modules could not
be read nothing is written, and the lines that were not understood are listed with them.)";

constexpr std::size_t kNotesTold = 20;

std::string NoteText(const LegacyNote& note) {
  std::string place = note.line == 0 ? "" : "line " + std::to_string(note.line);
  if (!note.module.empty()) place += (place.empty() ? "" : ", ") + note.module;
  return "  " + place + (place.empty() ? "" : ": ") + Printable(note.text) + '\n';
}

std::string NotesText(const std::vector<LegacyNote>& notes) {
  std::string text;
  const std::size_t told = std::min(notes.size(), kNotesTold);
  for (std::size_t i = 0; i < told; ++i) text += NoteText(notes[i]);
  if (told < notes.size()) text += "  and " + std::to_string(notes.size() - told) + " more\n";
  return text;
}

// As opening it does, with the notes of the reader told.
void Read(const std::string& path, VelmoApp& app) {
  LegacyFileReader reader;
  std::wstring error;
  if (!reader.Read(to_wstring(path), *app.pData(), error)) {
    if (reader.Problems().empty()) {
      OpenDocument(path);  // says why it can be opened by nobody
      throw CommandError(path + ": is a document of the current format already");
    }
    std::string text = path + ": " + to_string(error) + '\n' + NotesText(reader.Problems());
    text.pop_back();
    throw CommandError(text);
  }
  for (Data::Velmo9::VelmoSection& section : app.pData()->Sections()) app.generateRebar(section);
  VelmoApp::SetUserDefinedGradesToSections(*app.pData());
  if (reader.Warnings().empty()) return;
  std::cerr << path << ": left out or replaced:\n" << NotesText(reader.Warnings());
}

struct Counts {
  std::size_t components{};
  std::size_t bars{};
  std::size_t descriptions{};
  std::size_t described{};  // bars that descriptions made
  std::size_t tasks{};
  std::size_t cases{};
};

Counts CountsOf(const Data::CVelmoData& document) {
  Counts counts;
  for (const Data::Velmo9::VelmoSection& section : document.Sections()) {
    counts.components += section.Components().size();
    counts.tasks += section.Tasks().size();
    for (const auto& task : section.Tasks()) counts.cases += task.Cases().size();
    for (const Data::CSecComp& component : section.Components()) {
      if (!component.ConcreteExist()) continue;
      const Data::Reinforcement& reinforcement = component.Concrete().GetReinforcement();
      counts.bars += reinforcement.bars.size();
      counts.descriptions += reinforcement.descriptions.size();
      for (const Data::CBar& bar : reinforcement.bars) {
        if (bar.Description() >= 0) ++counts.described;
      }
    }
  }
  return counts;
}

// The grades that are not as the code has them.
std::string OwnGrades(const Data::CVelmoData& document) {
  std::string list;
  std::size_t count = 0;
  for (const MatType type :
       {MatType::concrete, MatType::reinforcement, MatType::steel, MatType::FRP}) {
    for (int i = 0; i < document.getMaterials()->NumGrades(type); ++i) {
      const Data::Design::CMat& grade = document.getMaterials()->Grade(type, i);
      const auto* standard =
          Data::StandardGrade(document.concreteCode().Data(), type, grade.Name().View());
      if (standard != nullptr && *standard == grade) continue;
      list += (count++ == 0 ? ": " : "; ") + Printable(to_string(grade.Name()));
    }
  }
  return std::to_string(count) + " of the file's own" + list;
}

void PrintSummary(const Data::CVelmoData& document) {
  const Counts counts = CountsOf(document);
  std::cout << "code        " << CodeText(document) << '\n'
            << "materials   " << OwnGrades(document) << '\n'
            << "sections    " << document.NumSections() << '\n'
            << "components  " << counts.components << '\n'
            << "bars        " << counts.bars;
  if (counts.descriptions != 0) {
    std::cout << ", " << counts.described << " of them in " << counts.descriptions
              << (counts.descriptions == 1 ? " group" : " groups");
  }
  std::cout << "\ntasks       " << counts.tasks << "\ncases       " << counts.cases << '\n';
}

int Run(const Arguments& arguments) {
  CheckIsNotDocument(arguments.out, arguments.old);
  if (!arguments.force && std::filesystem::exists(std::filesystem::symlink_status(arguments.out))) {
    throw CommandError(arguments.out + ": is there already; --force replaces it");
  }
  VelmoApp app;
  Read(arguments.old, app);
  SaveDocument(app, arguments.out);
  PrintSummary(*app.pData());
  std::cout << arguments.out << ": written; `velmo check " << arguments.out << "` checks it\n";
  return kDone;
}

}  // namespace

void AddConvertCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("convert", "Make a document of one of the older format");
  command->footer(kExample);
  command->add_option("OLD", arguments->old, "Document of the older format")
      ->required()
      ->check(NotEmpty);
  command->add_option("-o,--output", arguments->out, "File to write")->required()->check(NotEmpty);
  command->add_flag("--force", arguments->force, "Replace a file that is there");
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
