#include "model/vlsol/test/test_section.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Orlix::VlSol::Test {
namespace {

using Numeric::CSegment;

constexpr double kConcreteTensionCap = 1.0;

// A concrete from its compression segments, compression positive and ascending from zero strain.
TestCurve Concrete(const std::vector<CSegment>& compression, double uniformLimit,
                   std::function<double(double)> magnitude) {
  TestCurve curve;
  for (auto s = compression.rbegin(); s != compression.rend(); ++s) {
    curve.input.segments.push_back(s->Mirrored());
  }
  curve.input.segments.push_back(CSegment::Zero(0.0, kConcreteTensionCap));
  curve.input.tensionLimitIsCap = true;
  curve.input.uniformLimit = uniformLimit;
  curve.stress = [magnitude = std::move(magnitude)](double eps) {
    return eps < 0.0 ? -magnitude(-eps) : 0.0;
  };
  curve.lower = -compression.back().to;
  curve.upper = kConcreteTensionCap;
  return curve;
}

Ring Polygon(int n, double radiusY, double radiusZ) {
  Ring ring;
  for (int i = 0; i < n; ++i) {
    const double angle = 2.0 * std::numbers::pi * i / n;
    ring.push_back({radiusY * std::cos(angle), radiusZ * std::sin(angle)});
  }
  return ring;
}

}  // namespace

TestCurve ParabolaRectangle(double f, double epsPeak, double epsLimit, double exponent,
                            bool limitUnderUniformCompression) {
  std::vector<CSegment> segments;
  if (exponent == 2.0) {
    segments.push_back(
        CSegment::Cubic(0, epsPeak, 0, {0, 2 * f / epsPeak, -f / (epsPeak * epsPeak), 0}));
  } else {
    segments.push_back(CSegment::Power(0, epsPeak, epsPeak, f, -f, -1.0 / epsPeak, exponent));
  }
  if (epsLimit > epsPeak) segments.push_back(CSegment::Constant(epsPeak, epsLimit, f));
  return Concrete(segments, limitUnderUniformCompression ? epsPeak : 0.0, [=](double e) {
    return e < epsPeak ? f * (1.0 - std::pow(1.0 - e / epsPeak, exponent)) : f;
  });
}

TestCurve BilinearConcrete(double f, double epsPeak, double epsLimit) {
  return Concrete({CSegment::Line(0, epsPeak, 0, f), CSegment::Constant(epsPeak, epsLimit, f)}, 0.0,
                  [=](double e) { return f * std::min(e / epsPeak, 1.0); });
}

TestCurve Block(double f, double from, double epsLimit) {
  return Concrete({CSegment::Zero(0, from), CSegment::Constant(from, epsLimit, f)}, 0.0,
                  [=](double e) { return e < from ? 0.0 : f; });
}

TestCurve NonLinear(double f, double epsPeak, double epsLimit, double k) {
  return Concrete({CSegment::Rational(0, epsLimit, 0, k * f / epsPeak, -f / (epsPeak * epsPeak),
                                      (k - 2.0) / epsPeak)},
                  0.0, [=](double e) {
                    const double h = e / epsPeak;
                    return f * (k * h - h * h) / (1.0 + (k - 2.0) * h);
                  });
}

TestCurve Explicit(const std::vector<Vec2<double>>& points) {
  std::vector<CSegment> segments;
  Vec2<double> last{};
  for (const Vec2<double>& p : points) {
    segments.push_back(CSegment::Line(last.x, p.x, last.y, p.y));
    last = p;
  }
  return Concrete(segments, 0.0, [points](double e) {
    Vec2<double> a{};
    for (const Vec2<double>& b : points) {
      if (e <= b.x) return a.y + (b.y - a.y) * (e - a.x) / (b.x - a.x);
      a = b;
    }
    return a.y;
  });
}

TestCurve Steel(double fy, double modulus, double epsLimit) {
  const double yield = fy / modulus;
  TestCurve curve;
  curve.input.segments = {CSegment::Constant(-epsLimit, -yield, -fy),
                          CSegment::Line(-yield, yield, -fy, fy),
                          CSegment::Constant(yield, epsLimit, fy)};
  curve.stress = [=](double eps) { return std::clamp(modulus * eps, -fy, fy); };
  curve.lower = -epsLimit;
  curve.upper = epsLimit;
  return curve;
}

TestCurve C30() { return ParabolaRectangle(17e6, 0.002, 0.0035, 2.0, true); }
TestCurve C90() { return ParabolaRectangle(51e6, 0.0026, 0.0026, 1.4, true); }
TestCurve B500() { return Steel(500e6 / 1.15, 200e9, 0.045); }

std::vector<Shape> Shapes(double b, double h) {
  const double t = 0.3 * b;
  const double s = 0.25 * h;
  const Ring rectangle{{-b / 2, -h / 2}, {b / 2, -h / 2}, {b / 2, h / 2}, {-b / 2, h / 2}};
  const Ring core{{-b / 2 + t, -h / 2 + s},
                  {b / 2 - t, -h / 2 + s},
                  {b / 2 - t, h / 2 - s},
                  {-b / 2 + t, h / 2 - s}};
  return {{"rectangle", rectangle, {}},
          {"L", {{0, 0}, {b, 0}, {b, s}, {t, s}, {t, h}, {0, h}}, {}},
          {"hollow box", rectangle, core},
          {"triangle", {{0, 0}, {b, 0.2 * h}, {0.3 * b, h}}, {}},
          {"circle", Polygon(40, b / 2, b / 2), {}},
          {"T",
           {{-t / 2, 0},
            {t / 2, 0},
            {t / 2, h - s},
            {b / 2, h - s},
            {b / 2, h},
            {-b / 2, h},
            {-b / 2, h - s},
            {-t / 2, h - s}},
           {}}};
}

bool Inside(const Ring& ring, Vec2<double> p) {
  bool inside = false;
  for (std::size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
    const Vec2<double> a = ring[j];
    const Vec2<double> b = ring[i];
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * (p.y - a.y) / (b.y - a.y)) {
      inside = !inside;
    }
  }
  return inside;
}

bool Inside(const Shape& shape, Vec2<double> p) {
  return Inside(shape.outline, p) && !Inside(shape.hole, p);
}

Numeric::SectionInput TestSection::Input() const {
  Numeric::SectionInput input;
  input.curves = {concrete.input, steel.input};
  Numeric::RegionInput region;
  region.rings.push_back({shape.outline, false});
  if (!shape.hole.empty()) region.rings.push_back({shape.hole, true});
  input.regions.push_back(region);
  for (const Bar& bar : bars) {
    input.points.push_back({bar.position, bar.area, 1, bar.prestrain, {}, deduct ? 0 : -1});
  }
  return input;
}

double Uniform(std::mt19937& random, double from, double to) {
  return from + (to - from) * (static_cast<double>(random()) / 4294967296.0);
}

TestSection RandomSection(std::mt19937& random) {
  const double size = Uniform(random, 0.2, 2.0);
  TestSection section;
  section.shape = Shapes(size * Uniform(random, 0.5, 1.0), size)[random() % 6];
  switch (random() % 4) {
    case 0:
      section.concrete = C30();
      break;
    case 1:
      section.concrete = C90();
      break;
    case 2:
      section.concrete = BilinearConcrete(20e6, 0.00175, 0.0035);
      break;
    default:
      section.concrete = ParabolaRectangle(15.6e6, 0.00116, 0.0035, 2.0, false);
      break;
  }
  section.steel = B500();
  const int bars = 3 + static_cast<int>(random() % 10);
  while (static_cast<int>(section.bars.size()) < bars) {
    const Vec2<double> p{Uniform(random, -size, size), Uniform(random, -size, size)};
    const double cover = 0.03 * size;
    const bool wellInside = Inside(section.shape, p) &&
                            Inside(section.shape, p + Vec2<double>{cover, 0}) &&
                            Inside(section.shape, p - Vec2<double>{cover, 0}) &&
                            Inside(section.shape, p + Vec2<double>{0, cover}) &&
                            Inside(section.shape, p - Vec2<double>{0, cover});
    if (!wellInside) continue;
    const double prestrain = random() % 5 == 0 ? Uniform(random, 0.0, 0.002) : 0.0;
    section.bars.push_back({p, Uniform(random, 0.5, 2.0) * 1e-3 * size * size, prestrain});
  }
  const double turn = Uniform(random, 0.0, 2.0 * std::numbers::pi);
  const double reach = 0.3 * size;
  const Vec2<double> shift{Uniform(random, -reach, reach), Uniform(random, -reach, reach)};
  const auto place = [&](Vec2<double> p) {
    return shift + Vec2<double>{p.x * std::cos(turn) - p.y * std::sin(turn),
                                p.x * std::sin(turn) + p.y * std::cos(turn)};
  };
  for (Vec2<double>& p : section.shape.outline) p = place(p);
  for (Vec2<double>& p : section.shape.hole) p = place(p);
  for (TestSection::Bar& bar : section.bars) bar.position = place(bar.position);
  return section;
}

Numeric::Resultant RandomLoad(std::mt19937& random, const Numeric::CompiledSection& section,
                              double size) {
  const double axial = Uniform(random, -1.0, 0.5);
  const double angle = Uniform(random, 0.0, 2.0 * std::numbers::pi);
  const double moment = 0.3 * section.radius;
  return section.LoadToOrigin(
      size * section.squash *
      Numeric::Resultant{axial, moment * std::cos(angle), moment * std::sin(angle)});
}

}  // namespace Orlix::VlSol::Test
