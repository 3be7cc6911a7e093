#include "app/VelmoApp.h"

#include <rapidjson/document.h>

#include <fstream>
#include <ios>
#include <stdexcept>
#include <string_view>
#include <type_traits>

#include "app/AppMessages.h"
#include "app/PreSolutionChecks.h"
#include "app/model_indices.h"
#include "legacy/LegacyFileReader.h"
#include "materials/MaterialCurveImporter.h"
#include "model/oxutil/AtomicFile.h"
#include "model/oxutil/JSONUtility.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"
#include "model/vldata/document/unit_keys.h"
#include "model/vldata/response/SectionCompiler.h"

namespace Orlix {

using Data::CVelmoData;
using Data::Velmo9::FileIOAttributes;
using Data::Velmo9::VelmoSection;
using Util::JsonDocument;
using Util::JsonValue;

namespace {

// A name that is no text, as the system may allow, gives U+FFFD in places instead of an exception.
std::string Utf8(const std::filesystem::path& path) {
  const auto textOf = []<class Text>(const Text& native) {
    if constexpr (std::is_same_v<Text, std::wstring>) {
      return to_string(native);
    } else {
      return ValidUtf8(native);
    }
  };
  return textOf(path.native());
}

// Reads a file whose root is a JSON object.
bool ReadJsonObject(const std::filesystem::path& path, JsonDocument& json) {
  std::ifstream stream(path, std::ios::binary);
  std::string parseError;
  try {
    return Util::ParseJson(stream, json, parseError) && json.IsObject();
  } catch (const std::ios_base::failure&) {
    return false;  // it opened but cannot be read: a folder, or a disk that fails
  }
}

bool WasSavedElsewhere(const JsonDocument& json, const std::filesystem::path& path) {
  const JsonValue* saved = Util::FindMember(json, "filePath");
  if (saved == nullptr) return false;
  if (!saved->IsString()) return true;
  return std::string_view(saved->GetString(), saved->GetStringLength()) != Utf8(path);
}

}  // namespace

void VelmoApp::New() { document_ = CVelmoData(); }

void VelmoApp::New(const OrlixString<wchar_t>& title, const Data::CUnit& units) {
  document_ = CVelmoData(title, units);
}

FileIOAttributes VelmoApp::Open(const std::filesystem::path& path, std::string& message) {
  JsonDocument json;
  if (ReadJsonObject(path, json)) {
    OpenJson(json, path);
  } else {
    std::wstring error;
    if (!LegacyFileReader().Read(to_wstring(Utf8(path)), document_, error)) {
      message = to_string(error);
      return {};
    }
  }
  for (Data::Velmo9::VelmoSection& section : document_.Sections()) generateRebar(section);
  FileIOAttributes attributes;
  attributes.gradesNeedMigration = document_.IsMigrationOfGradesRequired();
  SetUserDefinedGradesToSections(document_);
  attributes.opened = true;
  return attributes;
}

void VelmoApp::OpenJson(JsonDocument& json, const std::filesystem::path& path) {
  const bool moved = WasSavedElsewhere(json, path);
  document_ = CVelmoData(json);
  if (moved) document_.UpdateModelId();
  document_.setFilePath(path);
}

bool VelmoApp::Save(const std::filesystem::path& path, bool newModelId) {
  if (newModelId) document_.UpdateModelId();
  document_.setFilePath(path);
  JsonDocument json;
  document_.toJson(json, json.GetAllocator(), true);
  try {
    Util::WriteWhole(path, Util::PrettyJson(json));
  } catch (const std::runtime_error&) {
    // Whoever needs to know reads the file back: saving answers true by its contract.
  }
  return true;
}

std::wstring VelmoApp::fileString(bool withFilePath) const {
  JsonDocument json;
  document_.toJson(json, json.GetAllocator(), withFilePath);
  return Util::JSONUtility::GetJsonString(json);
}

void VelmoApp::SetUserDefinedGradesToSections(CVelmoData& document) {
  document.SetUserDefinedGradesToSections();
}

void VelmoApp::setTitles(const JsonValue& json) { document_.SetTitle(Data::CTitles(json)); }

void VelmoApp::setUnits(const JsonValue& json) {
  Data::CUnit units;
  for (const auto& [key, dimension] : Data::kUnitKeys) {
    const JsonValue* unit = Util::FindMember(json, key);
    const JsonValue* label = unit == nullptr ? nullptr : Util::FindMember(*unit, "label");
    const bool found = label != nullptr && label->IsString();
    // A text that is no unit leaves the default, and so does the one for a missing label.
    units.SetUnitString(dimension, cstr(found ? label->GetString() : "no label found"));
  }
  const std::wstring before = document_.Units().UnitString(Dimension::sectionDimensions);
  if (before != units.UnitString(Dimension::sectionDimensions)) updateSections(false, before);
  document_.SetUnits(units);
}

void VelmoApp::setCodes(const JsonValue& json) {
  document_.SetCodes(json);
  updateSections(false,
                 {});  // the new code may have the grade that the letter of a size stands for
  MaterialsChanged();
}

void VelmoApp::setGrade(const JsonValue& json) {
  document_.SetGrade(json, false);
  MaterialsChanged();
}

void VelmoApp::resetGrade(MatType type, int grade) {
  document_.ResetGrade(type, grade);
  MaterialsChanged();
}

bool VelmoApp::setExplicitCurve(MatType type, int grade, LoadState state, LoadSign sign,
                                std::string& text, std::string& message) {
  const bool isTaken = MaterialCurveImporter(document_, type, grade, state, sign, message)
                           .ImportPointsFromText(text);
  MaterialsChanged();
  return isTaken;
}

bool VelmoApp::importExplicitCurve(MatType type, int grade, LoadState state, LoadSign sign,
                                   const std::filesystem::path& path, std::string& message) {
  const bool isTaken = MaterialCurveImporter(document_, type, grade, state, sign, message)
                           .ImportPointsFromFile(path);
  MaterialsChanged();
  return isTaken;
}

bool VelmoApp::isValidSectionIndex(int iSec) const { return HasSection(document_, iSec); }

bool VelmoApp::isValidTaskIndex(int iSec, int iTask) const {
  return HasTask(document_, iSec, iTask);
}

bool VelmoApp::preSolutionChecksPassed(std::vector<std::string>& messages, int iSec,
                                       int iTask) const {
  return PreSolutionChecks(document_).CheckTask(messages, iSec, iTask);
}

bool VelmoApp::preSolutionChecksPassed(std::vector<std::string>& messages, int iSec) const {
  return PreSolutionChecks(document_).CheckSection(messages, iSec);
}

bool VelmoApp::allComponentsHaveMaterialType(int iSec, std::vector<int>& bad) const {
  return PreSolutionChecks(document_).HaveMaterialType(iSec, bad);
}

bool VelmoApp::allComponentsHaveMaterialGrade(int iSec, std::vector<int>& bad) const {
  return PreSolutionChecks(document_).HaveMaterialGrade(iSec, bad);
}

bool VelmoApp::allComponentsHaveMaterialCurves(int iSec, std::vector<int>& bad) const {
  return PreSolutionChecks(document_).HaveMaterialCurves(iSec, bad);
}

bool VelmoApp::allComponentsHavePolygons(int iSec, std::vector<int>& bad) const {
  return PreSolutionChecks(document_).HavePolygons(iSec, bad);
}

bool VelmoApp::isAtleastOneComponentEnabled(int iSec, int iTask) const {
  return PreSolutionChecks(document_).IsAnyComponentEnabled(iSec, iTask);
}

bool VelmoApp::allComponentsHaveValidRebarDefinition(int iSec, std::string& message) const {
  return PreSolutionChecks(document_).HaveValidRebarDefinition(iSec, message);
}

void VelmoApp::CheckCustomPhiFactors(int iSec, int iTask,
                                     std::vector<std::string>& messages) const {
  PreSolutionChecks(document_).CheckCustomPhiFactors(messages, iSec, iTask);
}

void VelmoApp::CheckForComponentPreloadInputValidity(int iSec, int iTask,
                                                     std::vector<std::string>& messages) const {
  PreSolutionChecks(document_).CheckComponentPreload(messages, iSec, iTask);
}

bool VelmoApp::IsPreloadCaseResultsValid(const VelmoSection& section, int iTask, int iCase) {
  return PreSolutionChecks::IsPreloadCaseResultsValid(section, iTask, iCase);
}

std::string VelmoApp::StringifyVectorInts(const std::vector<int>& list) {
  return AppMessages::List(list);
}

double VelmoApp::BarPreStrain(const Data::CBar& bar, LoadState state) const {
  return Data::Velmo9::BarPreStrain(document_, bar, state);
}

}  // namespace Orlix
