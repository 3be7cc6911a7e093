#pragma once

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxutil/Enumerations.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/records/CaseSLSDetails.h"
#include "model/vldata/records/CaseULSDetails.h"
#include "model/vldata/records/Deformation.h"

namespace Orlix {

/// Writes the result record of one case into a JSON object. SI units, tension positive; the forms
/// are in docs/facade-json.md.
///
/// Members are appended in a fixed order, which is part of the form: a key that the object already
/// has is repeated.
class CaseResultsJsonBuilder {
 public:
  /// @param code              of the document; decides which members apply
  /// @param allocator         of the target document
  /// @param reportCrackWidth  whether cracking is reported at the serviceability limit state
  /// Both references must outlive the builder.
  CaseResultsJsonBuilder(const Data::Design::CConcCode& code, Util::JsonAllocator& allocator,
                         bool reportCrackWidth)
      : code_(code), allocator_(allocator), reportCrackWidth_(reportCrackWidth) {}

  /// Appends the ultimate limit state members in the form of the load action: `load` has its own,
  /// any other value takes that of a deformation. Infinite load utilisations under a load and
  /// infinite moment ratios become the largest double.
  /// @pre `json` is an object.
  void AddUlsCaseResultsToJson(Util::JsonValue& json, const Data::Velmo9::CaseULSDetails& details,
                               const LoadAction& action) const;

  /// Appends the serviceability members in the form of the load action, as above. A case without a
  /// solution has no deformations and no stiffness; an infinite crack width becomes the largest
  /// double.
  /// @pre `json` is an object.
  void AddSlsCaseResultsToJson(Util::JsonValue& json, const Data::Velmo9::CaseSLSDetails& details,
                               const LoadAction& action) const;

 private:
  void AddUlsResultsForce(Util::JsonValue& json, const Data::Velmo9::CaseULSDetails& details) const;
  void AddUlsResultsDeformation(Util::JsonValue& json,
                                const Data::Velmo9::CaseULSDetails& details) const;
  void AddSlsResultsForce(Util::JsonValue& json, const Data::Velmo9::CaseSLSDetails& details) const;
  void AddSlsResultsDeformation(Util::JsonValue& json,
                                const Data::Velmo9::CaseSLSDetails& details) const;
  void AddCracking(Util::JsonValue& json, const Data::Velmo9::CaseSLSDetails& details) const;
  void AddNeutralAxis(Util::JsonValue& json, const Data::Velmo9::Deformation& deformation) const;
  void AddNeutralAxisInfo(Util::JsonValue& json,
                          const Data::Velmo9::Deformation& deformation) const;
  void AddDeformation(Util::JsonValue& json, const char* key,
                      const Data::Velmo9::Deformation& deformation) const;
  void AddZeta(Util::JsonValue& json, double zeta) const;
  void AddReductionFactor(Util::JsonValue& json, const Data::Velmo9::CaseULSDetails& details) const;
  void AddSummary(Util::JsonValue& json, const Data::Velmo9::CaseULSDetails& details) const;

  const Data::Design::CConcCode& code_;
  Util::JsonAllocator& allocator_;
  bool reportCrackWidth_;
};

}  // namespace Orlix
