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

Data::Design::CConcCode ReducingCode() {
  using namespace Data::Design;  // NOLINT(google-build-using-namespace)
  return CConcCode(ConcCode::aci318_2019, CCountry::Code::none);
}

std::string Built(const CaseULSDetails& details, LoadAction action,
                  const Data::Design::CConcCode& code = {}) {
  Util::JsonDocument document(rapidjson::kObjectType);
  const CaseResultsJsonBuilder builder(code, document.GetAllocator(), true);
  builder.AddUlsCaseResultsToJson(document, details, action);
  return Util::PrettyJson(document);
}

std::string Built(const CaseSLSDetails& details, LoadAction action) {
  const Data::Design::CConcCode code;
  Util::JsonDocument document(rapidjson::kObjectType);
  const CaseResultsJsonBuilder builder(code, document.GetAllocator(), true);
  builder.AddSlsCaseResultsToJson(document, details, action);
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

template <class Details>
struct Row {
  const char* what;
  LoadAction action;
  std::function<void(Details&)> change;  // of the usual case
  std::string want;                      // members
};

template <class Details>
void Check(const std::vector<Row<Details>>& rows, const Details& usual) {
  for (const auto& [what, action, change, want] : rows) {
    SCOPED_TRACE(what);
    Details details = usual;
    if (change) change(details);
    EXPECT_EQ(Built(details, action), Text("{" + want + "}"));
  }
}

constexpr LoadAction kByLoad = LoadAction::load;
constexpr LoadAction kByPlane = LoadAction::deformation;
const std::string kLoad = R"("load": {"N": -1000.0, "Myy": 250.0, "Mzz": 0.0})";
const std::string kAxis = R"("neutralAxis": {"na_angle": 0.0, "na_offset": 0.25})";

TEST(CaseResultsJsonBuilder, UltimateCases) {
  const std::string failureLoad = R"("loadAtFailure": {"N": -2000.0, "Myy": 500.0, "Mzz": 0.0})";
  const std::string loads = kLoad + "," + failureLoad;
  const std::string planes =
      R"("deformation": {"eps": -0.125, "kyy": 0.5, "kzz": 0.0, "na_angle": 0.0, "na_offset": 0.25},
         "deformationAtFailure":
             {"eps": 0.25, "kyy": 0.0, "kzz": 0.0, "na_angle": "-", "na_offset": "-"})";
  const std::string carried = R"(, "status": true, "utilisation": 0.5, "momentRatio": 0.75,)";
  const std::string failed = R"(, "status": false, "utilisation": 0.5, "momentRatio": 0.75)";
  const std::string carriedPlane =
      kAxis + R"(, "status": true, "deformationUtilisation": 0.25, "momentRatio": 0.75,)" + kLoad;
  const std::vector<Row<CaseULSDetails>> rows = {
      {"carried", kByLoad, {}, loads + carried + planes + R"(, "deformationUtilisation": 0.25)"},
      {"no deformation utilisation", kByLoad,
       [](CaseULSDetails& d) { d.deformationUtilisation = kInf; }, loads + carried + planes},
      {"no capacity", kByLoad,
       [](CaseULSDetails& d) {
         d.status = false;
         d.loadUtilisation = d.momentRatio = kInf;
       },
       loads + R"(, "status": false, "utilisation": 1.7976931348623157e308,
                    "momentRatio": 1.7976931348623157e308)"},
      {"a value that is no number stays",
       kByLoad,  // written as null, for JSON has no number for it
       [](CaseULSDetails& d) {
         d.status = false;
         d.loadUtilisation = kNaN;
         d.momentRatio = -kInf;
       },
       loads + R"(, "status": false, "utilisation": null, "momentRatio": null)"},
      {"below the smallest load", kByLoad,
       [](CaseULSDetails& d) {
         d.load = VelmoLoad({0, 0, 9e-11});
       },
       R"("load": {"N": 0.0, "Myy": 0.0, "Mzz": 9e-11}, "utilisation": 0)"},
      {"at the smallest load", kByLoad,
       [](CaseULSDetails& d) {
         d.load = VelmoLoad({1e-10, 0, 0});
         d.status = false;
       },
       R"("load": {"N": 1e-10, "Myy": 0.0, "Mzz": 0.0},)" + failureLoad + failed},
      {"a summary comes last and also of a failed case", kByLoad,
       [](CaseULSDetails& d) {
         d.status = false;
         d.stressStrainSummary.UpdateRebar(2e6, 0.5);
       },
       loads + failed + R"(, "stressStrainSummary": {"rebar": {
           "maxStress": 2000000.0, "minStress": 2000000.0, "maxStrain": 0.5, "minStrain": 0.5}})"},
      {"carried deformation", kByPlane, {}, carriedPlane + R"(, "utilisation": 0.5)"},
      {"no load utilisation; anything but a load is a deformation", LoadAction{7},
       [](CaseULSDetails& d) { d.loadUtilisation = kInf; }, carriedPlane},
      {"at the limit there is no load", kByPlane,
       [](CaseULSDetails& d) {
         d.deformationUtilisation = 1.0;
         d.momentRatio = kInf;
       },
       kAxis + R"(, "status": true, "deformationUtilisation": 1.0,
                    "momentRatio": 1.7976931348623157e308)"},
      {"deformation utilisation is not capped", kByPlane,
       [](CaseULSDetails& d) { d.deformationUtilisation = kInf; },
       kAxis + R"(, "status": true, "deformationUtilisation": null, "momentRatio": 0.75)"},
      {"no deformation", kByPlane, [](CaseULSDetails& d) { d.deformation = Deformation(); },
       R"("deformationUtilisation": 0, "deformation": {"eps": 0.0, "kyy": 0.0, "kzz": 0.0})"},
  };
  Check(rows, Carried());
}

TEST(CaseResultsJsonBuilder, StrengthReductionStandsBehindTheMomentRatioOfCarriedCases) {
  const std::string ratio = R"("momentRatio": 0.75,)";
  const std::string factor = "\n    \"reductionFactor\": 0.65,";
  for (const LoadAction action : {kByLoad, kByPlane}) {
    CaseULSDetails details = Carried();
    std::string want = Built(details, action);
    want.insert(want.find(ratio) + ratio.size(), factor);
    EXPECT_EQ(Built(details, action, ReducingCode()), want);
    details.status = false;
    EXPECT_EQ(Built(details, action, ReducingCode()), Built(details, action));
  }
}

TEST(CaseResultsJsonBuilder, MembersThatAreThereStay) {
  const Data::Design::CConcCode code;
  Util::JsonDocument document(rapidjson::kObjectType);
  document.AddMember("load", 7, document.GetAllocator());
  CaseResultsJsonBuilder(code, document.GetAllocator(), false)
      .AddUlsCaseResultsToJson(document, CaseULSDetails(), kByLoad);
  EXPECT_EQ(document.MemberCount(), 3U);
  EXPECT_EQ(document["load"].GetInt(), 7);
}

TEST(CaseResultsJsonBuilder, ServiceabilityCases) {
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
  const std::string width = R"("cracked": true, "crackWidth": 2e-4, )";
  const auto none = [](CaseSLSDetails& d) { d.resultKind = SlsResultKind::noSolution; };
  const std::vector<Row<CaseSLSDetails>> rows = {
      {"cracked",
       kByLoad,
       {},
       kLoad + states + plane + "0.75}, " + width + R"("crackedStatus": "cracked")" + stiffness},
      {"uncracked, not interpolated", kByLoad,
       [](CaseSLSDetails& d) {
         d.zeta = kInf;
         d.resultKind = SlsResultKind::uncracked;
       },
       kLoad + states + plane + R"("-"}, )" + width + R"("crackedStatus": "uncracked")" +
           stiffness},
      {"no solution", kByLoad,
       [&](CaseSLSDetails& d) {
         none(d);
         d.crackWidth = kInf;
       },
       kLoad + R"(, "cracked": true, "crackWidth": 1.7976931348623157e308,
                  "crackedStatus": "no solution")"},
      {"an empty case is the default record", kByLoad,
       [](CaseSLSDetails& d) { d = CaseSLSDetails(); },
       R"("load": {"N": 0.0, "Myy": 0.0, "Mzz": 0.0}, "deformationsCracked":
           {"eps": 0.0, "kyy": 0.0, "kzz": 0.0, "na_angle": "-", "na_offset": "-"},
         "deformationsUncracked":
           {"eps": 0.0, "kyy": 0.0, "kzz": 0.0, "na_angle": "-", "na_offset": "-"},
         "interpolatedDeformations": {"eps": 0.0, "kyy": 0.0, "kzz": 0.0, "na_angle": "-",
                                      "na_offset": "-", "zeta": "-"},
         "cracked": false, "crackedStatus": "not calculated", "stiffness": {"EA": 0.0, "EIyy": 0.0, "EIzz": 0.0})"},
      {"deformation",
       kByPlane,
       {},
       kAxis + loads + ", " + width + R"("crackedStatus": "cracked")" + stiffness},
      {"no solution: loads and a summary; anything but a load is a deformation", LoadAction{7},
       [&](CaseSLSDetails& d) {
         none(d);
         d.stressStrainSummary.cracked.emplace().UpdateRebar(2e6, 0.5);
       },
       kAxis + loads + ", " + width + R"("crackedStatus": "no solution", "slsStressStrainSummary": {
           "uncracked": {}, "cracked": {"rebar": {"maxStress": 2000000.0, "minStress": 2000000.0,
                                                  "maxStrain": 0.5, "minStrain": 0.5}}})"},
  };
  Check(rows, Cracked());
}

}  // namespace
}  // namespace Orlix
