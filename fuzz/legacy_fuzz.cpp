// Any bytes as a file of the older format: one of three messages and nothing changed, or a document
// that reads back the same.

#include <rapidjson/document.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "app/VelmoApp.h"
#include "legacy/LegacyFileReader.h"
#include "legacy/LegacyMessages.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix {
namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

// A file in memory that goes with the process.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(memfd_create("velmo_legacy", 0)) { Require(descriptor_ >= 0); }

  void Write(const std::uint8_t* data, std::size_t size) const {
    Require(ftruncate(descriptor_, 0) == 0);
    Require(pwrite(descriptor_, data, size, 0) == static_cast<ssize_t>(size));
  }
  std::wstring Path() const { return L"/proc/self/fd/" + std::to_wstring(descriptor_); }

 private:
  int descriptor_;
};

void CheckRefused(const LegacyFileReader& reader, std::wstring_view error) {
  namespace Messages = Legacy::Messages;
  if (error == Messages::kNotOpened || error == Messages::kDosFile) return;
  const std::wstring_view modules = Messages::kModules;
  Require(error.starts_with(modules) && error.size() > modules.size() + 1);
  Require(!reader.Problems().empty());
}

// As opening does, then through a document of the current format.
void CheckRead(VelmoApp& app) {
  for (Data::Velmo9::VelmoSection& section : app.pData()->Sections()) app.generateRebar(section);
  VelmoApp::SetUserDefinedGradesToSections(*app.pData());
  Require(!app.pData()->IsMigrationOfGradesRequired());
  const std::wstring text = app.fileString(true);
  std::string error;
  Util::JsonDocument json;
  Require(Util::ParseJson(to_string(text), json, error));
  VelmoApp again;
  *again.pData() = Data::CVelmoData(json);
  Require(again.pData()->ReadProblems().empty());
  Require(again.fileString(true) == text);
}

void Read(const std::uint8_t* data, std::size_t size) {
  static const MemoryFile kFile;
  kFile.Write(data, size);
  VelmoApp app;
  const std::string id = app.pData()->ModelId();
  std::wstring error;
  LegacyFileReader reader;
  if (reader.Read(kFile.Path(), *app.pData(), error)) {
    Require(error.empty() && reader.Problems().empty());
    CheckRead(app);
  } else {
    CheckRefused(reader, error);
    Require(app.pData()->ModelId() == id && app.pData()->NumSections() == 0);
  }
}

}  // namespace
}  // namespace Orlix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Orlix::Read(data, size);
  return 0;
}
