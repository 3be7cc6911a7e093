#include "model/vldata/records/CCrack.h"

namespace Orlix::Data::Velmo9 {

const char* CrackRemarkText(CrackRemark remark) {
  switch (remark) {
    case CrackRemark::none:
      break;
    case CrackRemark::wideBarSpacing:
      return "bars far apart";
    case CrackRemark::noBars:
      return "no bar in the tension zone";
    case CrackRemark::steelBeyondRange:
      return "steel beyond the rule's range";
    case CrackRemark::noCrackedState:
      return "the concrete's model has no cracked state";
  }
  return "";
}

}  // namespace Orlix::Data::Velmo9
