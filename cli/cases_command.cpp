#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "cli/UnitText.h"
#include "cli/case_csv.h"
#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/number_list.h"
#include "cli/option_checks.h"

namespace Orlix::Cli {

using Data::Velmo9::AnalysisTask;
using Data::Velmo9::TaskCase;

namespace {

struct Arguments {
  std::string document;
  std::string section;
  std::string task;
  std::string from;
  bool append{};
};

constexpr const char* kExample = R"(Example, with a file of three cases:
  printf 'name,N,Myy,Mzz\n,kN,kNm,kNm\nA,-900,80,0\nB,-700,0,60\nC,-500,-80,9\n' > loads.csv
  velmo cases column.json --section 1 --task 1 --from loads.csv
  velmo solve column.json

The first line names the columns, in any order: N, Myy and Mzz for a task of loads, eps, kyy and kzz
for one of deformations; name may be left out. The second line may give units, such as kN, kN, kNm or
‰, 1/m; without it the numbers are in the units of the document. Cells are parted by commas,
semicolons or tabs. Tension is positive. A cell that is wrong is named by its line and column, and
the document stays as it was. The name - reads standard input.)";

std::string TextFrom(const std::string& from) {
  errno = 0;
  std::ifstream file;
  if (from != "-") file.open(from, std::ios::binary);
  std::istream& in = from == "-" ? std::cin : file;
  std::string text;
  std::string block(1 << 20, '\0');
  while (in.read(block.data(), std::ssize(block)) || in.gcount() > 0) {
    text.append(block, 0, static_cast<std::size_t>(in.gcount()));
  }
  if (in.bad() || !in.eof()) {
    throw CommandError(from + ": " + (errno == 0 ? "cannot be read" : std::strerror(errno)));
  }
  return text;
}

// The largest of each number, in the units of the document.
void PrintLargest(std::span<const TaskCase> cases, LoadAction action, const UnitText& units) {
  Vec3<double> largest;
  for (const TaskCase& c : cases) {
    largest = {std::max(largest.x, std::abs(c.input.x)), std::max(largest.y, std::abs(c.input.y)),
               std::max(largest.z, std::abs(c.input.z))};
  }
  if (action == LoadAction::load) {
    const auto values = units.Load(Data::Velmo9::VelmoLoad(largest));
    std::cout << "Largest: |N| " << values[0] << ' ' << units.Unit(Dimension::force) << ", |Myy| "
              << values[1] << ' ' << units.Unit(Dimension::moment) << ", |Mzz| " << values[2] << ' '
              << units.Unit(Dimension::moment) << '\n';
  } else {
    const auto values = units.Plane(Data::Velmo9::Deformation(largest));
    std::cout << "Largest: |eps| " << values[0] << ' ' << units.Unit(Dimension::strain)
              << ", |kyy| " << values[1] << ' ' << units.Unit(Dimension::curvature) << ", |kzz| "
              << values[2] << ' ' << units.Unit(Dimension::curvature) << '\n';
  }
}

int Run(const Arguments& arguments) {
  VelmoApp app = OpenForEdit(arguments.document);
  Data::CVelmoData& document = *app.pData();
  const int iSec = IndexOfOne(arguments.section, document.NumSections(), "section");
  const int numTasks = static_cast<int>(document.Section(iSec).Tasks().size());
  AnalysisTask& task = document.getSection(iSec).Task(IndexOfOne(arguments.task, numTasks, "task"));

  const std::string from = arguments.from == "-" ? "standard input" : arguments.from;
  CaseTable table = ReadCases(TextFrom(arguments.from), from, task.Action(), document.Units());
  if (table.cases.empty()) throw CommandError(from + ": has no case; nothing was changed");
  const std::size_t numRead = table.cases.size();
  const int numBefore = task.NumCases();
  if (arguments.append) {
    table.cases.insert(table.cases.begin(), task.Cases().begin(), task.Cases().end());
  }
  task.SetCases(std::move(table.cases));
  SaveDocument(app, arguments.document);

  std::cout << numRead << (numRead == 1 ? " case" : " cases") << " read in " << table.units[0]
            << ", " << table.units[1] << ", " << table.units[2] << "; "
            << (arguments.append ? "added to " : "in place of ") << numBefore << '\n';
  PrintLargest(std::span(task.Cases()).last(numRead), task.Action(), UnitText(document.Units()));
  return kDone;
}

}  // namespace

void AddCasesCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command = program.add_subcommand("cases", "Read the cases of a task from a CSV file");
  command->footer(kExample);
  command->add_option("DOC", arguments->document, "Document")->required()->check(NotEmpty);
  command
      ->add_option("--section", arguments->section,
                   "Number of the section; needed where there are several")
      ->check(NotEmpty);
  command->add_option("--task", arguments->task, "Number of the task; likewise")->check(NotEmpty);
  command->add_option("--from", arguments->from, "CSV file, or - for standard input")
      ->required()
      ->check(NotEmpty);
  command->add_flag("--append", arguments->append, "Keep the cases that are there and add to them");
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
