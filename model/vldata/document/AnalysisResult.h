#pragma once

#include "model/vldata/records/SlsResponse.h"

namespace Orlix::Data::Velmo9 {

/// What follows from a result alone, without its section.
class AnalysisResult {
 public:
  /// The deformations of a serviceability response. The interpolated one lies between the states by
  /// the response's factor; it is the cracked one where that factor is not finite.
  static SlsDeformation GetSlsDeformation(const SlsResponse& response);
};

}  // namespace Orlix::Data::Velmo9
