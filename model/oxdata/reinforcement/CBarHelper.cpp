#include "model/oxdata/reinforcement/CBarHelper.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "model/oxutil/StringFrom.h"
#include "model/oxutil/text.h"

namespace Orlix::Util {
namespace {

constexpr BarSize Round(BarSystem system, double millimetres) {
  const double diameter = millimetres / 1000.0;
  return {system, millimetres, diameter, std::numbers::pi * diameter * diameter / 4.0};
}

// A size whose area its standard gives.
constexpr BarSize Listed(BarSystem system, double number, double millimetres,
                         double squareMillimetres) {
  return {system, number, millimetres / 1000.0, squareMillimetres / 1e6};
}

template <std::size_t n>
constexpr std::array<BarSize, n> Rounds(BarSystem system, const double (&numbers)[n]) {
  std::array<BarSize, n> sizes;
  for (std::size_t i = 0; i < n; ++i) sizes[i] = Round(system, numbers[i]);
  return sizes;
}

constexpr auto kMetric =
    Rounds(BarSystem::metric, {6, 8, 10, 12, 14, 16, 20, 25, 28, 32, 36, 40, 50});
constexpr auto kAustralian = Rounds(BarSystem::australian, {10, 12, 16, 20, 24, 28, 32, 36, 40});
constexpr std::array kUs = {
    Listed(BarSystem::us, 3, 9.5, 71),     Listed(BarSystem::us, 4, 12.7, 129),
    Listed(BarSystem::us, 5, 15.9, 199),   Listed(BarSystem::us, 6, 19.1, 284),
    Listed(BarSystem::us, 7, 22.2, 387),   Listed(BarSystem::us, 8, 25.4, 510),
    Listed(BarSystem::us, 9, 28.7, 645),   Listed(BarSystem::us, 10, 32.3, 819),
    Listed(BarSystem::us, 11, 35.8, 1006), Listed(BarSystem::us, 14, 43.0, 1452),
    Listed(BarSystem::us, 18, 57.3, 2581),
};
constexpr std::array kCanadian = {
    Listed(BarSystem::canadian, 10, 11.3, 100),  Listed(BarSystem::canadian, 15, 16.0, 200),
    Listed(BarSystem::canadian, 20, 19.5, 300),  Listed(BarSystem::canadian, 25, 25.2, 500),
    Listed(BarSystem::canadian, 30, 29.9, 700),  Listed(BarSystem::canadian, 35, 35.7, 1000),
    Listed(BarSystem::canadian, 45, 43.7, 1500), Listed(BarSystem::canadian, 55, 56.4, 2500),
};
constexpr std::array kStrands = {
    Listed(BarSystem::strand, 9.3, 9.3, 52),    Listed(BarSystem::strand, 11, 11.0, 71),
    Listed(BarSystem::strand, 12.5, 12.5, 93),  Listed(BarSystem::strand, 12.9, 12.9, 100),
    Listed(BarSystem::strand, 15.2, 15.2, 139), Listed(BarSystem::strand, 15.7, 15.7, 150),
};

std::wstring Number(double number) { return to_wstring(StringFrom(number)); }

}  // namespace

std::span<const BarSize> CBarHelper::Sizes(BarSystem system) const {
  switch (system) {
    case BarSystem::metric:
      return kMetric;
    case BarSystem::us:
      return kUs;
    case BarSystem::canadian:
      return kCanadian;
    case BarSystem::australian:
      return kAustralian;
    case BarSystem::strand:
      return kStrands;
  }
  return {};
}

std::optional<BarSize> CBarHelper::Find(BarSystem system, double number) const {
  for (const BarSize& size : Sizes(system)) {
    if (size.number == number) return size;
  }
  return std::nullopt;
}

BarSize CBarHelper::Nearest(double diameter, BarSystem system) const {
  const auto sizes = Sizes(system);
  return *std::min_element(sizes.begin(), sizes.end(), [&](const BarSize& a, const BarSize& b) {
    return std::abs(a.diameter - diameter) < std::abs(b.diameter - diameter);
  });
}

std::wstring CBarHelper::Numbers(BarSystem system) const {
  std::wstring list;
  for (const BarSize& size : Sizes(system)) {
    list += (list.empty() ? L"" : L", ") + Number(size.number);
  }
  return list;
}

std::wstring CBarHelper::Name(const BarSize& size, wchar_t letter) {
  switch (size.system) {
    case BarSystem::metric:
      return letter + Number(size.number);
    case BarSystem::us:
      return L"#" + Number(size.number);
    case BarSystem::canadian:
      return Number(size.number) + L"M";
    case BarSystem::australian:
      return L"N" + Number(size.number);
    case BarSystem::strand:
      return L"S" + Number(size.number);
  }
  return {};
}

}  // namespace Orlix::Util
