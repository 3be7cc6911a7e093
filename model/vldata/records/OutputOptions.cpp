#include "model/vldata/records/OutputOptions.h"

#include "model/oxutil/json.h"

namespace Orlix::Data::Velmo9 {
namespace {

// What is wanted of one limit state: everything (true) or the members of an object.
class Wanted {
 public:
  Wanted(const Util::JsonValue& json, const char* state) : value_(Util::FindMember(json, state)) {}

  bool operator[](const char* name) const {
    if (value_ == nullptr) return false;
    if (value_->IsBool()) return value_->GetBool();
    const Util::JsonValue* member = Util::FindMember(*value_, name);
    return member != nullptr && member->IsTrue();
  }

 private:
  const Util::JsonValue* value_;
};

}  // namespace

UlsOutputOptions::UlsOutputOptions(bool all)
    : deformationUnderLoad(all),
      loadUnderDeformation(all),
      loadAtFailure(all),
      deformationAtFailure(all),
      utilisations(all),
      pointResults(all) {}

bool UlsOutputOptions::IsOutputWanted() const {
  return deformationUnderLoad || loadUnderDeformation || loadAtFailure || deformationAtFailure ||
         utilisations || pointResults;
}

SlsOutputOptions::SlsOutputOptions(bool all)
    : deformations(all), loads(all), stiffness(all), crackWidth(all), pointResults(all) {}

bool SlsOutputOptions::IsOutputWanted() const {
  return deformations || loads || stiffness || crackWidth || pointResults;
}

OutputOptions::OutputOptions(const Util::JsonValue& json) {
  const Wanted ulsWanted(json, "uls");
  uls.deformationUnderLoad = ulsWanted["deformationUnderLoad"];
  uls.loadUnderDeformation = ulsWanted["loadUnderDeformation"];
  uls.loadAtFailure = ulsWanted["loadAtFailure"];
  uls.deformationAtFailure = ulsWanted["deformationAtFailure"];
  uls.utilisations = ulsWanted["utilisations"];
  uls.pointResults = ulsWanted["pointResults"];
  const Wanted slsWanted(json, "sls");
  sls.deformations = slsWanted["deformations"];
  sls.loads = slsWanted["loads"];
  sls.stiffness = slsWanted["stiffness"];
  sls.crackWidth = slsWanted["crackWidth"];
  sls.pointResults = slsWanted["pointResults"];
}

}  // namespace Orlix::Data::Velmo9
