#include "legacy/heading_modules.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix::Legacy {
namespace {

using Data::CTitles;
using Data::CUnit;
using Data::Design::CodeChoice;

// A code by its name in files of the older format, with the name and annex that it has here.
struct CodeName {
  std::string_view inFile;
  std::string_view name;
  std::string_view annex;
};

constexpr std::array<CodeName, 10> kCodeNames = {{
    {"EC2_04", "EN 1992-1-1:2004", "recommended"},
    {"EC2_GB_04", "EN 1992-1-1:2004", "UK"},
    {"ACI318_14", "ACI 318-14", ""},
    {"ACI318_19", "ACI 318-19", ""},
    {"BS8110_97", "BS 8110-1:1997", ""},
    {"BS8110_05", "BS 8110-1:1997 Amd 3", ""},
    {"HKCP_13", "HK CoP 2013", ""},
    {"IS456_00", "IS 456:2000", ""},
    {"CSA_14", "CSA A23.3-14", ""},
    {"AS3600_18", "AS 3600:2018", ""},
}};

const CodeChoice* FindCode(std::string_view inFile) {
  const auto name = std::find_if(kCodeNames.begin(), kCodeNames.end(),
                                 [&](const CodeName& code) { return code.inFile == inFile; });
  if (name == kCodeNames.end()) return nullptr;
  const auto& known = Data::Design::KnownCodes();
  const auto found = std::find_if(known.begin(), known.end(), [&](const CodeChoice& choice) {
    return choice.name == name->name && choice.annex == name->annex;
  });
  return found == known.end() ? nullptr : &*found;
}

void ReadCode(RecordReader& record, Context& context) {
  const std::string name = record.Text("code");
  if (!record.IsSound()) return;
  const CodeChoice* code = FindCode(name);
  if (code == nullptr) {
    std::string list;
    for (const CodeName& known : kCodeNames) {
      list.append(list.empty() ? "" : ", ").append(known.inFile);
    }
    record.Problem("\"" + name + "\" is no code that this version has: " + list);
    return;
  }
  Util::JsonDocument json(rapidjson::kObjectType);
  const auto set = [&json](const char* member, std::string_view text) {
    const auto size = static_cast<rapidjson::SizeType>(text.size());
    json.AddMember(rapidjson::StringRef(member), rapidjson::StringRef(text.data(), size),
                   json.GetAllocator());
  };
  set("concrete", code->name);
  if (!code->annex.empty()) set("annex", code->annex);
  context.document.SetCodes(json);
}

}  // namespace

void ReadTitles(Context& context) {
  constexpr std::array<std::pair<std::string_view, std::string CTitles::*>, 5> kMembers = {{
      {"PROJECT", &CTitles::project},
      {"PART", &CTitles::part},
      {"DESCRIPTION", &CTitles::description},
      {"JOB_NUMBER", &CTitles::jobNumber},
      {"INITIALS", &CTitles::initials},
  }};
  CTitles titles;
  std::set<std::string, std::less<>> seen;
  RecordReader record = context.Records("TITLES");
  while (record.Next()) {
    const auto member = std::find_if(kMembers.begin(), kMembers.end(), [&](const auto& entry) {
      return entry.first == record.Keyword();
    });
    if (member == kMembers.end()) {
      record.ReportUnknown();
    } else if (record.IsFirst(seen)) {
      titles.*member->second = record.Text("title");
    }
  }
  context.document.SetTitle(titles);
}

void ReadUnits(Context& context) {
  constexpr std::array<std::pair<std::string_view, Dimension>, 7> kDimensions = {{
      {"FORCE", Dimension::force},
      {"LENGTH", Dimension::length},
      {"SECTION_DIMENSIONS", Dimension::sectionDimensions},
      {"STRESS", Dimension::stress},
      {"MASS", Dimension::mass},
      {"STRAIN", Dimension::strain},
      {"TEMPERATURE", Dimension::temperature},
  }};
  CUnit units;
  std::set<std::string, std::less<>> seen;
  RecordReader record = context.Records("UNITS");
  while (record.Next()) {
    const auto dimension =
        std::find_if(kDimensions.begin(), kDimensions.end(),
                     [&](const auto& entry) { return entry.first == record.Keyword(); });
    if (dimension == kDimensions.end()) {
      record.ReportUnknown();
    } else if (record.IsFirst(seen)) {
      const std::string text = record.Text("unit");
      if (record.IsSound() && !units.SetUnitString(dimension->second, cstr(text))) {
        record.Problem("\"" + text + "\" is no unit of this kind");
      }
    }
  }
  context.document.SetUnits(units);
}

void ReadCodes(Context& context) {
  constexpr std::array<std::pair<std::string_view, bool>, 2> kDisplaced = {{
      {"DEDUCTED", true},
      {"KEPT", false},
  }};
  std::set<std::string, std::less<>> seen;
  RecordReader record = context.Records("CODES");
  while (record.Next()) {
    const bool isCode = record.Keyword() == "CONCRETE_CODE";
    if (!isCode && record.Keyword() != "DISPLACED_CONCRETE") {
      record.ReportUnknown();
    } else if (!record.IsFirst(seen)) {
      continue;
    } else if (isCode) {
      ReadCode(record, context);
    } else if (const auto deducted = record.Word<bool>("displaced concrete", kDisplaced)) {
      context.document.SetOptions({*deducted});
    }
  }
}

}  // namespace Orlix::Legacy
