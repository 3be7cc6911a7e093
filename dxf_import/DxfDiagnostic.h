#pragma once

#include <string>
#include <vector>

namespace Orlix::dxf_import {

/// How much a diagnostic weighs; no stage of the import emits Info.
enum class DxfSeverity : int {
  Info = 0,
  Warning = 1,  ///< something was left out or assumed; the import goes on
  Error = 2     ///< there will be no section
};

/// One thing that is wrong with a drawing, in words for the engineer who drew it.
struct DxfDiagnostic {
  DxfSeverity severity{};
  int line{};              ///< one-based line on which the entity begins; 0 when none is concerned
  std::string entityType;  ///< name of the entity in the drawing, or empty
  std::string layer;       ///< layer as written or as a role ("OUTER"), or empty; any bytes
  std::string message;     ///< what is wrong; quotes the drawing, so may hold any bytes
  std::string hint;        ///< what to do about it; may be empty

  friend bool operator==(const DxfDiagnostic&, const DxfDiagnostic&) = default;
};

/// Diagnostics in the order in which they were found.
using DxfDiagnostics = std::vector<DxfDiagnostic>;

}  // namespace Orlix::dxf_import
