#include "model/oxnumeric/area_moments.h"

namespace Orlix::Numeric {

AreaMoments& AreaMoments::operator+=(const AreaMoments& b) {
  area += b.area;
  sy += b.sy;
  sz += b.sz;
  syy += b.syy;
  szz += b.szz;
  syz += b.syz;
  return *this;
}

AreaMoments PointMoments(double area, Vec2<double> point) {
  const auto [y, z] = point;
  return {area, area * y, area * z, area * y * y, area * z * z, area * y * z};
}

AreaMoments Shifted(const AreaMoments& m, Vec2<double> shift) {
  const auto [y, z] = shift;
  return {m.area,
          m.sy + y * m.area,
          m.sz + z * m.area,
          m.syy + y * (2.0 * m.sy + y * m.area),
          m.szz + z * (2.0 * m.sz + z * m.area),
          m.syz + y * m.sz + z * m.sy + y * z * m.area};
}

AreaMoments MomentsOf(std::span<const Vec2<double>> outline) {
  if (outline.size() < 3) return {};
  AreaMoments m;
  const Vec2<double> first = outline.front();
  Vec2<double> a = outline[1] - first;
  for (const Vec2<double>& vertex : outline.subspan(2)) {
    const Vec2<double> b = vertex - first;
    // The triangle (first, a, b): its area times the mean of the integrand over it.
    const double area = Cross(a, b) / 2.0;
    m.area += area;
    m.sy += area * (a.x + b.x) / 3.0;
    m.sz += area * (a.y + b.y) / 3.0;
    m.syy += area * (a.x * (a.x + b.x) + b.x * b.x) / 6.0;
    m.szz += area * (a.y * (a.y + b.y) + b.y * b.y) / 6.0;
    m.syz += area * (2.0 * (a.x * a.y + b.x * b.y) + a.x * b.y + b.x * a.y) / 12.0;
    a = b;
  }
  return Shifted(m, first);
}

}  // namespace Orlix::Numeric
