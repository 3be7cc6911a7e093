#include "legacy/LegacyFileReader.h"

#include <filesystem>
#include <string_view>
#include <utility>

#include "legacy/Context.h"
#include "legacy/LegacyMessages.h"
#include "legacy/ModuleText.h"
#include "legacy/heading_modules.h"
#include "legacy/materials_modules.h"
#include "legacy/sections_module.h"
#include "legacy/tasks_module.h"
#include "model/oxdata/file_access/CDataFile.h"
#include "model/oxutil/text.h"

namespace Orlix {
namespace {

using FileIO::CDataFile;
using FileIO::CFile;
using FileIO::FileType;
using FileIO::OrlixHeader;

// Of the format; a larger number before the point is a format that this program does not know.
constexpr int kMajorVersion = 1;
constexpr int kMinorVersion = 0;

std::filesystem::path PathOf(const std::wstring& path) {
  const std::string text = to_string(path);
  return {std::u8string(text.begin(), text.end())};
}

void ReadModule(std::string_view name, Legacy::Context& context) {
  if (name == "TITLES") {
    Legacy::ReadTitles(context);
  } else if (name == "UNITS") {
    Legacy::ReadUnits(context);
  } else if (name == "CODES") {
    Legacy::ReadCodes(context);
  } else if (name == "SECTIONS") {
    Legacy::ReadSections(context);
  } else if (name == "TASKS") {
    Legacy::ReadTasks(context);
  } else {
    Legacy::ReadMaterials(name, context);
  }
}

// The names in the order in which modules are understood, then those that only the contents have.
std::wstring FailedModules(const Legacy::Notes& notes) {
  std::wstring list = Legacy::Messages::kModules;
  auto others = notes.FailedModules();
  for (const std::string_view name : Legacy::KnownModules()) {
    if (!notes.HasFailed(name)) continue;
    list += L"\n" + to_wstring(std::string(name));
    others.erase(others.find(name));
  }
  for (const std::string& name : others) list += L"\n" + to_wstring(name);
  return list;
}

}  // namespace

bool LegacyFileReader::Read(const std::wstring& path, Data::CVelmoData& target,
                            std::wstring& error) {
  problems_.clear();
  warnings_.clear();
  CFile file(PathOf(path));
  const OrlixHeader header = FileIO::ReadOrlixHeader(file);
  if (header.type == FileType::dos) {
    error = Legacy::Messages::kDosFile;
    return false;
  }
  const bool isNewer = header.majorVersion == kMajorVersion && header.minorVersion > kMinorVersion;
  Legacy::Context context(isNewer);
  CDataFile data(&file, header.type, header.isUtf8);
  if (header.majorVersion != kMajorVersion ||
      !Legacy::ReadModules(data, context.modules, context.notes)) {
    error = Legacy::Messages::kNotOpened;
    return false;
  }
  for (const std::string_view name : Legacy::KnownModules()) {
    const auto module = context.modules.find(name);
    if (module == context.modules.end()) continue;
    ReadModule(name, context);
    context.modules.erase(module);
  }
  Legacy::KeepUnusedGrades(context);
  problems_ = context.notes.Problems();
  warnings_ = context.notes.Warnings();
  if (context.notes.HasFailures()) {
    error = FailedModules(context.notes);
    return false;
  }
  target = std::move(context.document);
  return true;
}

}  // namespace Orlix
