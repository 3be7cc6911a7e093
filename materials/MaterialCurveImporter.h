#pragma once

#include <filesystem>
#include <string>

#include "model/oxdata/materials/CTableT.h"
#include "model/oxutil/Enumerations.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix {

/// Makes a stress-strain curve that a user gives as points the explicit curve of a material, for
/// one load state and one load sign. Made for one request.
///
/// The user gives points in the document's units, compression positive: a tension curve has
/// negative numbers. Inside they are SI and tension positive. Every failure is a false return with
/// one message (CurveMessages.h); then the document is as it was.
class MaterialCurveImporter {
 public:
  /// @param index  grade in the table of `type`
  /// @param error  where the message of a failure goes; not written on success
  /// `data` and `error` must outlive the importer.
  MaterialCurveImporter(Data::CVelmoData& data, MatType type, int index, LoadState state,
                        LoadSign sign, std::string& error)
      : data_(data), type_(type), index_(index), state_(state), sign_(sign), error_(error) {}

  /// Imports the lines of a file, which end in LF or CR LF; see `CurveTextFrom`.
  bool ImportPointsFromFile(const std::filesystem::path& file);

  /// Imports the points of a text, one a line; see `NumberPairs` for what separates lines and
  /// fields. A point with strain and stress below 1e-10 (in SI) is the origin, which the curve has
  /// to go through. Points on the other side than that of the sign, and points that are not finite
  /// in SI, are dropped.
  bool ImportPointsFromText(const std::string& text);

  /// Sets the points (strain, stress [Pa], tension positive) as they are. The other side keeps its
  /// own points where it is explicit, save that a compression curve of concrete or FRP takes the
  /// place of the whole curve: it leaves no stress in tension.
  /// @throws std::invalid_argument when the table does not have two columns.
  bool ApplyExplicitCurve(Data::CTableT<double>& points);

  /// Cleans the table of points of a curve that comes from a file: near points become the origin,
  /// points that are not finite or lie on neither side (strain and stress of opposite signs, or
  /// stress at no strain) go, and the rest is brought into the order of its strain.
  static void FilterExplicitPoints(Data::Design::CMat& material, LoadState state);

 private:
  bool Fail(const char* message);

  Data::CVelmoData& data_;
  MatType type_;
  int index_;
  LoadState state_;
  LoadSign sign_;
  std::string& error_;
};

}  // namespace Orlix
