#include "model/vlsol/test/worked_crack.h"

#include <cmath>
#include <stdexcept>

#include "model/oxdata/codes/bs8110/crack_width.h"
#include "model/oxdata/codes/en1992/crack_width.h"
#include "model/oxutil/json.h"

namespace Orlix::VlSol::Test {
namespace {

namespace En1992 = Data::Design::En1992;
namespace Bs8110 = Data::Design::Bs8110;

class Inputs {
 public:
  explicit Inputs(const Util::JsonValue& json) : json_(json) {}
  double operator()(const char* name, double otherwise = 0.0) const {
    const auto found = json_.FindMember(name);
    return found == json_.MemberEnd() ? otherwise : found->value.GetDouble();
  }

 private:
  const Util::JsonValue& json_;
};

double En1992Quantity(const Inputs& in, const std::string& quantity) {
  const En1992::CrackWidthParameters rule;
  const En1992::CrackTie tie{in("rho_eff"), in("sigma_s"),   in("Es"),
                             in("fct_eff"), in("alpha_e"),   in("cover"),
                             in("dia"),     rule.k1HighBond, 0.5};
  const double strain = En1992::MeanStrainDifference(rule, tie, in("kt", rule.ktLong));
  if (quantity == "deps") return strain;
  if (quantity == "sr_max") return En1992::CloseCrackSpacing(rule, tie);
  if (quantity == "w") return strain * En1992::CloseCrackSpacing(rule, tie);
  throw std::runtime_error(quantity);
}

double Bs8110Quantity(const Inputs& in, const std::string& quantity) {
  constexpr double kSteelModulus = 200e3;
  Bs8110::CrackWidthParameters rule;
  rule.stiffeningStress = 1.0;  // N/mm²
  const double tensionDepth = in("h") - in("x");
  const double atSteel = in("fs") / kSteelModulus;
  const double surface = atSteel * tensionDepth / (in("d") - in("x"));
  const double mean =
      Bs8110::MeanStrain(rule, {in("b"), tensionDepth, in("As"), kSteelModulus, atSteel}, surface);
  const double distance = std::hypot(in("s") / 2, in("cmin") + in("dia") / 2) - in("dia") / 2;
  if (quantity == "eps1") return surface;
  if (quantity == "eps2") return surface - mean;
  if (quantity == "epsm") return mean;
  if (quantity == "acr") return distance;
  if (quantity == "w") {
    return mean * Bs8110::GatheringLength(rule, distance, in("cmin"), tensionDepth);
  }
  throw std::runtime_error(quantity);
}

}  // namespace

double CrackQuantity(const Util::JsonValue& load, const std::string& quantity) {
  const std::string name = load["name"].GetString();
  const Inputs in(load["inputs"]);
  if (name == "bs8110_crack") return Bs8110Quantity(in, quantity);
  if (name == "ec2_hceff") {
    return En1992::EffectiveTensionDepth(in("h") - in("d"), in("h") - in("x"), in("h"));
  }
  return En1992Quantity(in, quantity);
}

}  // namespace Orlix::VlSol::Test
