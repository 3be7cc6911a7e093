#pragma once

namespace Orlix::Velmo {

/// Which ultimate limit state tables a CSV report has.
struct ULSOptions {
  ULSOptions() = default;
  /// @param all  the value of every flag
  explicit ULSOptions(bool all);

  bool stressStrainProfile{};
  bool stressStrainRebar{};
  bool appliedLoad{};
  bool failureLoad{};
  bool responseDeformation{};
  bool failureDeformation{};
  bool appliedDeformation{};
  bool responseLoad{};
};

/// Which serviceability tables a CSV report has. The crack tables stand behind all others; that per
/// face comes with the other alone, neither under a code without crack widths.
struct SLSOptions {
  SLSOptions() = default;
  /// @param all  the value of every flag
  explicit SLSOptions(bool all);

  bool stressStrainProfile{};
  bool stressStrainRebar{};
  bool appliedLoad{};
  bool responseDeformation{};
  bool interpolatedStrainPlane{};
  bool appliedDeformation{};
  bool responseLoad{};
  bool stiffness{};
  bool crackResults{};
  bool crackResultsPerFace{};
};

/// Which tables a CSV report has; see docs/csv-report.md.
struct CsvOptions {
  CsvOptions() = default;
  /// @param all  the value of every flag
  explicit CsvOptions(bool all) : uls(all), sls(all) {}

  bool IsAnyULSOptionSelected() const;
  bool IsAnySLSOptionSelected() const;

  ULSOptions uls;
  SLSOptions sls;
};

}  // namespace Orlix::Velmo
