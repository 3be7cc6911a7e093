#pragma once

#include <span>

#include "model/oxdata/codes/NationalAnnex.h"
#include "model/oxdata/codes/en1992/crack_width.h"

/// The parameters of EN 1992-1-1:2004 that national annexes choose, and the annexes that are there.
namespace Orlix::Data::Design::En1992 {

/// The parameters that reach a section: partial factors, alpha_cc, eps_ud, k_3, k_4 and w_max.
std::span<const AnnexParameter> Parameters();

/// The choices of the United Kingdom.
NationalAnnex UnitedKingdomAnnex();

/// The number of a choice, or the one that its rule begins with: 3.4 of k_3, +infinity of "no
/// limit".
double NumberOf(const AnnexChoice& choice);

/// The crack width rule with the annex's k_3, k_4 and limits.
/// @pre the annex has an allowed choice for every parameter.
CrackWidthParameters CrackWidthBy(const NationalAnnex& annex);

}  // namespace Orlix::Data::Design::En1992
