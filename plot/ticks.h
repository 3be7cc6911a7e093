#pragma once

#include <string>
#include <vector>

namespace Orlix::Plot {

/// Values of an axis at steps of 1, 2 or 5 times a power of ten.
struct Ticks {
  double step{};               ///< 0: the range has no width and is no number to divide
  std::vector<double> values;  ///< within the range, rising
  int decimals{};              ///< that tell them apart
};

/// The finest ticks of a range that make no more than `most` steps.
/// @param low, high  in either order; equal ones or what is not finite give no ticks
/// @param most       at least 2
Ticks TicksOf(double low, double high, int most);

/// The text of a tick, with the decimals that all of them need.
std::string TickText(double value, const Ticks& ticks);

/// The denominator of the largest usual scale (1:1, 1:1.5, 1:2, 1:2.5, ... times powers of ten) at
/// which a length fits: `size` [m] on `room` [mm of the sheet].
double ScaleDenominator(double size, double room);

}  // namespace Orlix::Plot
