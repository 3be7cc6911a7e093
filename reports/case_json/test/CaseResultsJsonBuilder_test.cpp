#include "reports/case_json/CaseResultsJsonBuilder.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "model/oxutil/json.h"

namespace Orlix {
namespace {

using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::Deformation;
using Data::Velmo9::SlsResultKind;
using Data::Velmo9::VelmoLoad;

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::string Built(const CaseULSDetails& details, LoadAction action) {
  const Data::Design::CConcCode code;
  Util::JsonDocument document(rapidjson::kObjectType);
  const CaseResultsJsonBuilder builder(code, document.GetAllocator(), true);
  builder.AddUlsCaseResultsToJson(document, details, action);
  return Util::PrettyJson(document);
}

// The same text form of JSON written by hand; member order and 0 against 0.0 stay visible.
std::string Text(const std::string& json) {
  Util::JsonDocument document;
  std::string error;
  EXPECT_TRUE(Util::ParseJson(json, document, error)) << error;
  return Util::PrettyJson(document);
}

// A case with distinct, exactly representable numbers.
CaseULSDetails Carried() {
  CaseULSDetails d;
  d.load = VelmoLoad({-1000.0, 250.0, 0.0});
  d.loadAtFailure = VelmoLoad({-2000.0, 500.0, 0.0});
  d.deformation = Deformation({-0.125, 0.5, 0.0});
  d.deformationAtFailure = Deformation({0.25, 0.0, 0.0});
  d.loadUtilisation = 0.5;
  d.deformationUtilisation = 0.25;
  d.status = true;
  d.momentRatio = 0.75;
  d.reductionFactor = 0.65;
  return d;
}

struct Row {
  const char* what;
  std::function<void(CaseULSDetails&)> change;  // of the carried case
  std::string want;                             // members
};

const char kLoad[] = R"("load": {"N": -1000.0, "Myy": 250.0, "Mzz": 0.0})";
const char kLoadAtFailure[] = R"("loadAtFailure": {"N": -2000.0, "Myy": 500.0, "Mzz": 0.0})";
const char kPlanes[] =
    R"("deformation": {"eps": -0.125, "kyy": 0.5, "kzz": 0.0, "na_angle": 0.0, "na_offset": 0.25},
       "deformationAtFailure":
           {"eps": 0.25, "kyy": 0.0, "kzz": 0.0, "na_angle": "-", "na_offset": "-"})";
const char kZero[] = R"({"N": 0.0, "Myy": 0.0, "Mzz": 0.0})";
const char kZeroPlane[] = R"({"eps": 0.0, "kyy": 0.0, "kzz": 0.0})";
const char kAxis[] = R"("neutralAxis": {"na_angle": 0.0, "na_offset": 0.25})";

void Check(const std::vector<Row>& rows, LoadAction action) {
  for (const auto& [what, change, want] : rows) {
    SCOPED_TRACE(what);
    CaseULSDetails details = Carried();
    change(details);
    EXPECT_EQ(Built(details, action), Text("{" + want + "}"));
  }
}

TEST(CaseResultsJsonBuilder, LoadDrivenCases) {
  const std::string load(kLoad);
  const std::string loads = load + "," + kLoadAtFailure;
  const std::string planes(kPlanes);
  const std::string ratio = R"(, "momentRatio": 0.75)";
  Check(
      {
          {"carried", [](CaseULSDetails&) {},
           loads + R"(, "status": true, "utilisation": 0.5)" + ratio + "," + planes +
               R"(, "deformationUtilisation": 0.25)"},
          {"no deformation utilisation", [](CaseULSDetails& d) { d.deformationUtilisation = kInf; },
           loads + R"(, "status": true, "utilisation": 0.5)" + ratio + "," + planes},
          {"failed", [](CaseULSDetails& d) { d.status = false; },
           loads + R"(, "status": false, "utilisation": 0.5)" + ratio},
          {"no capacity",
           [](CaseULSDetails& d) {
             d.status = false;
             d.loadUtilisation = d.momentRatio = kInf;
           },
           loads + R"(, "status": false, "utilisation": 1.7976931348623157e308,
                       "momentRatio": 1.7976931348623157e308)"},
          {"a value that is no number stays",  // written as null, for which JSON has no number
           [](CaseULSDetails& d) {
             d.status = false;
             d.loadUtilisation = kNaN;
             d.momentRatio = -kInf;
           },
           loads + R"(, "status": false, "utilisation": null, "momentRatio": null)"},
          {"nothing applied", [](CaseULSDetails& d) { d.load = VelmoLoad(); },
           std::string(R"("load": )") + kZero + R"(, "utilisation": 0)"},
          {"below the smallest load",
           [](CaseULSDetails& d) {
             d.load = VelmoLoad({0, 0, 9e-11});
           },
           R"("load": {"N": 0.0, "Myy": 0.0, "Mzz": 9e-11}, "utilisation": 0)"},
          {"at the smallest load",
           [](CaseULSDetails& d) {
             d.load = VelmoLoad({1e-10, 0, 0});
             d.status = false;
           },
           R"("load": {"N": 1e-10, "Myy": 0.0, "Mzz": 0.0},)" + std::string(kLoadAtFailure) +
               R"(, "status": false, "utilisation": 0.5)" + ratio},
      },
      LoadAction::load);
}

TEST(CaseResultsJsonBuilder, DeformationDrivenCases) {
  const std::string axis(kAxis);
  const std::string load(kLoad);
  Check(
      {
          {"carried", [](CaseULSDetails&) {},
           axis + R"(, "status": true, "deformationUtilisation": 0.25, "momentRatio": 0.75, )" +
               load + R"(, "utilisation": 0.5)"},
          {"no load utilisation", [](CaseULSDetails& d) { d.loadUtilisation = kInf; },
           axis + R"(, "status": true, "deformationUtilisation": 0.25, "momentRatio": 0.75, )" +
               load},
          {"at the limit there is no load",
           [](CaseULSDetails& d) {
             d.deformationUtilisation = 1.0;
             d.momentRatio = kInf;
           },
           axis + R"(, "status": true, "deformationUtilisation": 1.0,
                      "momentRatio": 1.7976931348623157e308)"},
          {"deformation utilisation is not capped and fails the test",
           [](CaseULSDetails& d) {
             d.status = false;
             d.deformationUtilisation = kNaN;
           },
           axis + R"(, "status": false, "deformationUtilisation": null, "momentRatio": 0.75)"},
          {"no curvature, no axis",
           [](CaseULSDetails& d) {
             d.deformation = Deformation({0.25, 0, 0});
             d.deformationUtilisation = 2.0;
           },
           R"("neutralAxis": {"na_angle": "-", "na_offset": "-"}, "status": true,
              "deformationUtilisation": 2.0, "momentRatio": 0.75)"},
          {"nothing applied", [](CaseULSDetails& d) { d.deformation = Deformation(); },
           std::string(R"("deformationUtilisation": 0, "deformation": )") + kZeroPlane},
      },
      LoadAction::deformation);
}

TEST(CaseResultsJsonBuilder, AnythingButALoadIsADeformation) {
  EXPECT_EQ(Built(Carried(), LoadAction{7}), Built(Carried(), LoadAction::deformation));
}

TEST(CaseResultsJsonBuilder, SummaryComesLastAndOnlyWithSamples) {
  CaseULSDetails details = Carried();
  details.status = false;
  details.stressStrainSummary.UpdateRebar(2e6, 0.5);
  EXPECT_EQ(Built(details, LoadAction::load),
            Text("{" + std::string(kLoad) + "," + kLoadAtFailure +
                 R"(, "status": false, "utilisation": 0.5, "momentRatio": 0.75,
                    "stressStrainSummary": {"rebar": {"maxStress": 2000000.0,
                        "minStress": 2000000.0, "maxStrain": 0.5, "minStrain": 0.5}}})"));
}

TEST(CaseResultsJsonBuilder, StrengthReductionIsWrittenOfCarriedCasesAlone) {
  using Data::Design::CConcCode;
  const CConcCode code(Data::Design::ConcCode::aci318_2019, Data::Design::CCountry::Code::none);
  for (const bool carried : {true, false}) {
    for (const LoadAction action : {LoadAction::load, LoadAction::deformation}) {
      Util::JsonDocument document(rapidjson::kObjectType);
      CaseULSDetails details = Carried();
      details.status = carried;
      CaseResultsJsonBuilder(code, document.GetAllocator(), true)
          .AddUlsCaseResultsToJson(document, details, action);
      const auto factor = document.FindMember("reductionFactor");
      ASSERT_EQ(factor != document.MemberEnd(), carried);
      if (!carried) continue;
      EXPECT_EQ(factor->value.GetDouble(), 0.65);
      EXPECT_STREQ((factor - 1)->name.GetString(), "momentRatio");
    }
  }
}

TEST(CaseResultsJsonBuilder, MembersThatAreThereStay) {
  const Data::Design::CConcCode code;
  Util::JsonDocument document(rapidjson::kObjectType);
  document.AddMember("load", 7, document.GetAllocator());
  CaseULSDetails nothing;
  CaseResultsJsonBuilder(code, document.GetAllocator(), false)
      .AddUlsCaseResultsToJson(document, nothing, LoadAction::load);
  EXPECT_EQ(document.MemberCount(), 3U);
  EXPECT_EQ(document["load"].GetInt(), 7);
}

std::string BuiltSls(const CaseSLSDetails& details, LoadAction action) {
  const Data::Design::CConcCode code;
  Util::JsonDocument document(rapidjson::kObjectType);
  const CaseResultsJsonBuilder builder(code, document.GetAllocator(), true);
  builder.AddSlsCaseResultsToJson(document, details, action);
  return Util::PrettyJson(document);
}

// A cracked case with distinct, exactly representable numbers and both inputs.
CaseSLSDetails Cracked() {
  CaseSLSDetails d;
  d.load = VelmoLoad({-1000.0, 250.0, 0.0});
  d.appliedDeformation = Deformation({-0.125, 0.5, 0.0});
  d.crackedDeformation = Deformation({-0.25, 0.5, 0.0});
  d.uncrackedDeformation = Deformation({0.125, 0.0, 0.0});
  d.uncrackedLoad = VelmoLoad({4.0, 5.0, 6.0});
  d.crackedLoad = VelmoLoad({1.0, 2.0, 3.0});
  d.interpolatedDeformation = Deformation({-0.5, 0.25, 0.0});
  d.zeta = 0.75;
  d.stiffness = {1e9, 2e6, kInf};
  d.crackWidth = 2e-4;
  d.hasCrackWidth = d.cracked = true;
  d.resultKind = SlsResultKind::cracked;
  return d;
}

struct SlsRow {
  const char* what;
  LoadAction action;
  std::function<void(CaseSLSDetails&)> change;  // of the cracked case
  std::string want;                             // members
};

// No crack width is written: no code computes one.
TEST(CaseResultsJsonBuilder, ServiceabilityCases) {
  const std::string load(kLoad);
  const std::string states =
      R"(, "deformationsCracked":
             {"eps": -0.25, "kyy": 0.5, "kzz": 0.0, "na_angle": 0.0, "na_offset": 0.5},
           "deformationsUncracked":
             {"eps": 0.125, "kyy": 0.0, "kzz": 0.0, "na_angle": "-", "na_offset": "-"},)";
  const std::string plane =
      R"("interpolatedDeformations": {"eps": -0.5, "kyy": 0.25, "kzz": 0.0, "na_angle": 0.0,
                                      "na_offset": 2.0, "zeta": )";
  const std::string stiffness = R"(, "stiffness": {"EA": 1e9, "EIyy": 2e6, "EIzz": "-"})";
  const std::string loads = R"(, "loadUncracked": {"N": 4.0, "Myy": 5.0, "Mzz": 6.0},
                                 "loadCracked": {"N": 1.0, "Myy": 2.0, "Mzz": 3.0})";
  const std::string axis(kAxis);
  constexpr LoadAction kByLoad = LoadAction::load;
  constexpr LoadAction kByPlane = LoadAction::deformation;
  const auto none = [](CaseSLSDetails& d) { d.resultKind = SlsResultKind::noSolution; };
  const SlsRow kRows[] = {
      {"cracked", kByLoad, [](CaseSLSDetails&) {},
       load + states + plane + R"(0.75}, "crackedStatus": "cracked")" + stiffness},
      {"uncracked, not interpolated", kByLoad,
       [](CaseSLSDetails& d) {
         d.zeta = kInf;
         d.resultKind = SlsResultKind::uncracked;
       },
       load + states + plane + R"("-"}, "crackedStatus": "uncracked")" + stiffness},
      {"no solution", kByLoad, none, load + R"(, "crackedStatus": "no solution")"},
      {"an empty case is the default record", kByLoad,
       [](CaseSLSDetails& d) { d = CaseSLSDetails(); },
       std::string(R"("load": )") + kZero + R"(, "deformationsCracked":
           {"eps": 0.0, "kyy": 0.0, "kzz": 0.0, "na_angle": "-", "na_offset": "-"},
         "deformationsUncracked":
           {"eps": 0.0, "kyy": 0.0, "kzz": 0.0, "na_angle": "-", "na_offset": "-"},
         "interpolatedDeformations": {"eps": 0.0, "kyy": 0.0, "kzz": 0.0, "na_angle": "-",
                                      "na_offset": "-", "zeta": "-"},
         "crackedStatus": "not calculated", "stiffness": {"EA": 0.0, "EIyy": 0.0, "EIzz": 0.0})"},
      {"deformation", kByPlane, [](CaseSLSDetails&) {},
       axis + loads + R"(, "crackedStatus": "cracked")" + stiffness},
      {"deformation without a solution keeps its loads", kByPlane, none,
       axis + loads + R"(, "crackedStatus": "no solution")"},
      {"anything but a load is a deformation", LoadAction{7}, none,
       axis + loads + R"(, "crackedStatus": "no solution")"},
      {"a summary comes last and also without a solution", kByPlane,
       [&](CaseSLSDetails& d) {
         none(d);
         d.stressStrainSummary.cracked.emplace().UpdateRebar(2e6, 0.5);
       },
       axis + loads + R"(, "crackedStatus": "no solution", "slsStressStrainSummary": {
           "uncracked": {}, "cracked": {"rebar": {"maxStress": 2000000.0, "minStress": 2000000.0,
                                                  "maxStrain": 0.5, "minStrain": 0.5}}})"},
  };
  for (const auto& [what, action, change, want] : kRows) {
    SCOPED_TRACE(what);
    CaseSLSDetails details = Cracked();
    change(details);
    EXPECT_EQ(BuiltSls(details, action), Text("{" + want + "}"));
  }
}

}  // namespace
}  // namespace Orlix
