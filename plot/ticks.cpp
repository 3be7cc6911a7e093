#include "plot/ticks.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace Orlix::Plot {

namespace {

// 1, 2 or 5 times a power of ten, not below the value.
double NiceStep(double value) {
  const double power = std::pow(10.0, std::floor(std::log10(value)));
  for (const double factor : {1.0, 2.0, 5.0}) {
    if (factor * power >= value * (1.0 - 1e-12)) return factor * power;
  }
  return 10.0 * power;
}

}  // namespace

Ticks TicksOf(double low, double high, int most) {
  if (low > high) std::swap(low, high);
  const double range = high - low;
  Ticks ticks;
  if (!std::isfinite(range) || !(range > 0.0)) return ticks;
  ticks.step = NiceStep(range / most);
  // A range of tiny width far from zero: its ticks could not be told apart.
  if (!(ticks.step > 1e-12 * std::max(std::abs(low), std::abs(high)))) return {};
  const double slack = 1e-9 * ticks.step;
  for (double i = std::ceil((low - slack) / ticks.step); i * ticks.step <= high + slack; ++i) {
    ticks.values.push_back(i == 0.0 ? 0.0 : i * ticks.step);
  }
  ticks.decimals = std::max(0, -static_cast<int>(std::floor(std::log10(ticks.step) + 1e-9)));
  return ticks;
}

std::string TickText(double value, const Ticks& ticks) {
  char buffer[400];
  // All of an axis in one form; a zero needs neither.
  double largest = std::abs(value);
  for (const double end : ticks.values) largest = std::max(largest, std::abs(end));
  const bool isFixed = largest < 1e7 && ticks.decimals <= 6;
  if (value == 0.0 && !isFixed) return "0";
  const auto end = isFixed ? std::to_chars(buffer, buffer + sizeof buffer, value,
                                           std::chars_format::fixed, ticks.decimals)
                                 .ptr
                           : std::to_chars(buffer, buffer + sizeof buffer, value,
                                           std::chars_format::scientific, 1)
                                 .ptr;
  return std::string(buffer, end);
}

double ScaleDenominator(double size, double room) {
  const double least = size * 1000.0 / room;
  if (!std::isfinite(least) || !(least > 0.0)) return 1.0;
  const double power = std::pow(10.0, std::floor(std::log10(least)));
  for (const double factor : {1.0, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 7.5}) {
    if (factor * power >= least * (1.0 - 1e-9)) return factor * power;
  }
  return 10.0 * power;
}

}  // namespace Orlix::Plot
