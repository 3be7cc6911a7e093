#pragma once

#include "model/oxutil/json_fwd.h"

namespace Orlix::Data::Velmo9 {

/// Which optional blocks of an ultimate limit state record the caller wants.
struct UlsOutputOptions {
  UlsOutputOptions() = default;
  explicit UlsOutputOptions(bool all);
  virtual ~UlsOutputOptions() = default;
  UlsOutputOptions(const UlsOutputOptions&) = default;
  UlsOutputOptions& operator=(const UlsOutputOptions&) = default;

  /// Whether anything is wanted at all.
  virtual bool IsOutputWanted() const;

  bool deformationUnderLoad{};
  bool loadUnderDeformation{};
  bool loadAtFailure{};
  bool deformationAtFailure{};
  bool utilisations{};
  bool pointResults{};
};

/// Which optional blocks of a serviceability record the caller wants.
struct SlsOutputOptions {
  SlsOutputOptions() = default;
  explicit SlsOutputOptions(bool all);
  virtual ~SlsOutputOptions() = default;
  SlsOutputOptions(const SlsOutputOptions&) = default;
  SlsOutputOptions& operator=(const SlsOutputOptions&) = default;

  /// Whether anything is wanted at all.
  virtual bool IsOutputWanted() const;

  bool deformations{};
  bool loads{};
  bool stiffness{};
  bool crackWidth{};
  bool pointResults{};
};

/// Which result blocks to produce, both limit states.
struct OutputOptions {
  OutputOptions() = default;
  explicit OutputOptions(bool all) : uls(all), sls(all) {}
  /// From {"uls": true | {"pointResults": true, …}, "sls": …}; a member that is absent or of
  /// another type is false.
  explicit OutputOptions(const Util::JsonValue& json);

  UlsOutputOptions uls;
  SlsOutputOptions sls;
};

}  // namespace Orlix::Data::Velmo9
