#pragma once

#include "model/oxdata/codes/CConcCode.h"

namespace Orlix::Data::Design::HongKong {

/// The data of Hong Kong's Code of Practice for Structural Use of Concrete 2013: constants,
/// concretes by cube strength C20 to C100, bars of CS2:2012, structural steels. No annexes.
/// @pre the country is none.
CConcCodeData MakeData(CCountry::Code country);

}  // namespace Orlix::Data::Design::HongKong
