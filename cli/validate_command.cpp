#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "cli/commands.h"
#include "cli/documents.h"
#include "cli/option_checks.h"
#include "model/oxutil/json.h"
#include "model/vldata/json/document_schema.h"

namespace Orlix::Cli {

namespace {

struct Arguments {
  std::string document;
  bool printSchema{};
};

constexpr const char* kExample = R"(Example:
  velmo validate column.json
  velmo validate --schema
Each line says where something stands that was not understood, what was found and what was
expected; in its place the document takes the default. Exit status 1 when there is any.
--schema prints the JSON Schema of documents, by which editors complete and check what is typed.)";

// What departs from the schema, which needs the file as it stands: the reader keeps defaults.
std::optional<Data::ReadProblem> SchemaProblemOf(const VelmoApp& app) {
  if (app.pData()->FilePath().empty()) return std::nullopt;  // of the older format
  std::ifstream stream(app.pData()->FilePath(), std::ios::binary);
  Util::JsonDocument json;
  std::string error;
  if (!Util::ParseJson(stream, json, error)) throw CommandError(error);
  return Data::SchemaProblem(json);
}

int Validate(const std::string& path) {
  const VelmoApp app = OpenDocument(path);
  const auto& problems = app.pData()->ReadProblems();
  for (const Data::ReadProblem& problem : problems) std::cout << ProblemText(problem) << '\n';
  // The reader lists every fault, the schema the first one: mostly one that was listed.
  const auto departure = SchemaProblemOf(app);
  const bool isNews = departure && std::ranges::find(problems, departure->path,
                                                     &Data::ReadProblem::path) == problems.end();
  if (isNews) std::cout << ProblemText(*departure) << " (by the schema)\n";
  if (!problems.empty() || departure) return kProblems;
  std::cout << path << ": no problems\n";
  return kDone;
}

int Run(const Arguments& arguments) {
  if (arguments.printSchema != arguments.document.empty()) {
    throw CommandError("give a document, or --schema alone");
  }
  if (!arguments.printSchema) return Validate(arguments.document);
  std::cout << Data::DocumentSchemaText();
  return kDone;
}

}  // namespace

void AddValidateCommand(CLI::App& program, int& exitCode) {
  auto arguments = std::make_shared<Arguments>();
  CLI::App* command =
      program.add_subcommand("validate", "List what in a document was not understood");
  command->footer(kExample);
  command->add_option("DOC", arguments->document, "Document")->check(NotEmpty);
  command->add_flag("--schema", arguments->printSchema, "Print the JSON Schema of documents");
  command->callback([arguments, &exitCode] { exitCode = Run(*arguments); });
}

}  // namespace Orlix::Cli
