#pragma once

#include <array>

#include "model/oxdata/materials/CMatCurveParam.h"
#include "model/oxutil/BaseEntity.h"
#include "model/oxutil/OrlixString.h"

namespace Orlix::Data::Design {

/// Characteristic values and factors of a material; design strength f_d = alpha f_k / gamma.
struct MaterialProperties {
  double f_k{};       ///< characteristic strength [Pa]: f_ck, f_yk, f_p0.1k, f_fk
  double E{};         ///< modulus [Pa]: E_cm, E_s
  double f_ct{};      ///< mean tensile strength of a concrete f_ctm [Pa]
  double alpha{1.0};  ///< alpha_cc of a concrete, environment factor of an FRP
  double gamma{1.0};  ///< partial factor gamma_c, gamma_s

  friend bool operator==(const MaterialProperties&, const MaterialProperties&) = default;
};

/// A material: a named grade with its properties and its curves for both load states. The curves
/// always follow the properties: at ULS their strength is alpha f_k / gamma, at SLS f_k.
class CMat : public BaseEntity {
 public:
  /// A material without a name and with the properties and curves of common practice, for the user
  /// to change:
  ///   concrete       f_ck 30 MPa, E 33 GPa, f_ct 2.9 MPa (C30/37 of EN 1992-1-1, Table 3.1), gamma
  ///                  1.5; ULS parabola-rectangle with strains 0.002 and 0.0035, SLS linear; no
  ///                  tension
  ///   reinforcement  f_yk 500 MPa, E 200 GPa, gamma 1.15; elastic, then a horizontal branch
  ///   steel          f_y 355 MPa, E 210 GPa, gamma 1; elastic, then a horizontal branch
  ///   FRP            linear in tension, but no properties: no valid curve until they are given
  ///   none           no curves
  explicit CMat(MatType type);

  MatType Type() const { return type_; }
  const OrlixString<wchar_t>& Name() const { return name_; }
  void SetName(const OrlixString<wchar_t>& name) { name_ = name; }

  const MaterialProperties& Properties() const { return properties_; }
  void SetProperties(const MaterialProperties& properties);
  /// alpha f_k / gamma [Pa].
  double DesignStrength() const;

  /// Kind of the curve on one side.
  CurveKind Model(LoadState state, LoadSign sign) const { return Curve(state).Kind(sign); }
  /// Sets one side of a curve, the other stays. bs8110Tension and interpolated describe the whole
  /// serviceability curve of a concrete: they are stored under both signs unless the other side is
  /// explicit; and when one side of such a model is set to something else that is not explicit, the
  /// other becomes what the model stood for there: linear in compression, none in tension.
  void SetShape(LoadState state, LoadSign sign, const CurveShape& shape);
  /// Sets the curve's one table (strain, stress [Pa], tension positive) and makes that side
  /// explicit; the other side reads it too when it is explicit already.
  /// @throws std::invalid_argument when the table does not have two columns.
  void SetExplicitPoints(LoadState state, LoadSign sign, const CTableT<double>& points);

  virtual const CMatCurveParam& Curve(LoadState state) const;
  virtual CMatCurveParam& Curve(LoadState state);

  friend bool operator==(const CMat& a, const CMat& b) {
    return a.type_ == b.type_ && a.name_ == b.name_ && a.properties_ == b.properties_ &&
           a.curves_ == b.curves_;
  }

 private:
  CurveScale ScaleOf(LoadState state) const;

  MatType type_;
  OrlixString<wchar_t> name_;
  MaterialProperties properties_;
  std::array<CMatCurveParam, 2> curves_;  // ULS, SLS
};

/// Reinforcement: bars, links and prestressing steel.
class CMatRebar : public CMat {
 public:
  CMatRebar() : CMat(MatType::reinforcement) {}
};

}  // namespace Orlix::Data::Design
