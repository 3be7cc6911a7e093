#pragma once

#include "model/oxnumeric/centroidal_properties.h"
#include "model/vldata/document/CVelmoData.h"

namespace Orlix::VlSol {

/// How long the loads act that a transformed section is meant for.
enum class TransformedTerm { shortTerm, longTerm };

/// A section turned into one of a single modulus, uncracked and elastic.
struct TransformedProperties {
  /// The modulus that areas are given in terms of: the concrete's, E or E / (1 + phi), of the first
  /// component of concrete that the task includes; without concrete that of its first component
  /// [Pa]. 0 where there is none.
  double modulus{};
  /// Area and second moments about the elastic centroid, every part weighted by its modulus over
  /// `modulus`.
  Numeric::CentroidalProperties section;

  double EA() const { return modulus * section.area; }      ///< [N]
  double EIyy() const { return modulus * section.iyy; }     ///< [Nm²]
  double EIzz() const { return modulus * section.izz; }     ///< [Nm²]
  double EImax() const { return modulus * section.major; }  ///< about the principal axis [Nm²]
  double EImin() const { return modulus * section.minor; }  ///< [Nm²]
};

/// The transformed section of the components that a task includes, laid over each other as it
/// solves them: area counts once, and bars displace the concrete they lie in unless the document
/// says otherwise. Concrete has its modulus E in the short term and E / (1 + phi), phi the task's
/// creep coefficient, in the long term; all else E. Components and bars without a grade do not
/// count.
/// @throws std::out_of_range for no such task; std::runtime_error when the overlay fails.
TransformedProperties TransformedPropertiesOf(const Data::CVelmoData& document,
                                              const Data::Velmo9::VelmoSection& section, int iTask,
                                              TransformedTerm term);

}  // namespace Orlix::VlSol
