#include "model/oxnumeric/section/kernel.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace Orlix::Numeric {
namespace {

// Gauss-Legendre on [0, 1]: abscissae and weights (Abramowitz and Stegun, table 25.4).
template <std::size_t n>
struct Rule {
  std::array<double, n> t;
  std::array<double, n> w;
};
constexpr Rule<2> kGauss2{{0.21132486540518711775, 0.78867513459481288225}, {0.5, 0.5}};
constexpr Rule<3> kGauss3{{0.11270166537925831148, 0.5, 0.88729833462074168852},
                          {0.27777777777777777778, 0.44444444444444444444, 0.27777777777777777778}};
constexpr Rule<10> kGauss10{
    {0.01304673574141413996, 0.06746831665550774463, 0.16029521585048779688, 0.28330230293537640460,
     0.42556283050918439456, 0.57443716949081560544, 0.71669769706462359540, 0.83970478414951220312,
     0.93253168334449225537, 0.98695326425858586004},
    {0.03333567215434406880, 0.07472567457529029657, 0.10954318125799102200, 0.13463335965499817754,
     0.14776211235737643509, 0.14776211235737643509, 0.13463335965499817754, 0.10954318125799102200,
     0.07472567457529029657, 0.03333567215434406880}};

// A point in the frame of the strain gradient: u along it, v across.
struct FramePoint {
  double e;
  double u;
  double v;
};

FramePoint Between(const FramePoint& a, const FramePoint& b, double t) {
  return {a.e + t * (b.e - a.e), a.u + t * (b.u - a.u), a.v + t * (b.v - a.v)};
}

// Line integrals in the frame: force parts and, where wanted, tangent parts.
template <bool kTangent>
struct FrameSums {
  double n{}, au{}, av{};
  double t00{}, t0u{}, tuu{}, t0v{}, tuv{}, tvv{};

  void Add(double stress, double slope, double u, double v, double w) {
    const double sv = stress * v * w;
    n -= sv;
    au -= sv * u;
    av -= 0.5 * sv * v;
    if constexpr (kTangent) {
      const double ev = slope * v * w;
      t00 -= ev;
      t0u -= ev * u;
      tuu -= ev * u * u;
      t0v -= 0.5 * ev * v;
      tuv -= 0.5 * ev * v * u;
      tvv -= ev * v * v / 3.0;
    }
  }

  // Constant stress between two points, in closed form.
  void AddConstant(double stress, const FramePoint& a, const FramePoint& b) {
    const double sdu = stress * (b.u - a.u);
    n -= sdu * (a.v + b.v) / 2.0;
    au -= sdu * (2.0 * (a.u * a.v + b.u * b.v) + a.u * b.v + b.u * a.v) / 6.0;
    av -= sdu * (a.v * a.v + a.v * b.v + b.v * b.v) / 6.0;
  }

  // The moving front of a stress step, crossed at one end of its chord.
  void AddFront(double w, double u, double v) {
    t00 += w * v;
    t0u += w * v * u;
    tuu += w * v * u * u;
    t0v += w * v * v / 2.0;
    tuv += w * v * v * u / 2.0;
    tvv += w * v * v * v / 3.0;
  }
};

template <bool kTangent, std::size_t n>
void AddPolynomial(const CSegment& s, const FramePoint& a, const FramePoint& b, const Rule<n>& rule,
                   FrameSums<kTangent>& sums) {
  const double du = b.u - a.u;
  for (std::size_t i = 0; i < n; ++i) {
    const FramePoint p = Between(a, b, rule.t[i]);
    const double x = p.e - s.origin;
    if constexpr (n == 2) {  // a straight line
      sums.Add(s.c[0] + s.c[1] * x, s.c[1], p.u, p.v, rule.w[i] * du);
    } else {
      sums.Add(s.PolynomialStress(x), s.PolynomialTangent(x), p.u, p.v, rule.w[i] * du);
    }
  }
}

template <bool kTangent>
void AddRational(const CSegment& s, const FramePoint& a, const FramePoint& b,
                 FrameSums<kTangent>& sums) {
  const double du = b.u - a.u;
  for (std::size_t i = 0; i < kGauss10.t.size(); ++i) {
    const FramePoint p = Between(a, b, kGauss10.t[i]);
    sums.Add(s.Stress(p.e), kTangent ? s.Tangent(p.e) : 0.0, p.u, p.v, kGauss10.w[i] * du);
  }
}

// q = t³ takes the singular derivative of q^n at q = 0 out of the integrand.
template <bool kTangent>
void AddPower(const CSegment& s, const FramePoint& a, const FramePoint& b,
              FrameSums<kTangent>& sums) {
  const double qa = std::fmax(s.c[2] * (a.e - s.origin), 0.0);
  const double qb = std::fmax(s.c[2] * (b.e - s.origin), 0.0);
  const double ta = std::cbrt(qa);
  const double tb = std::cbrt(qb);
  // dq = 3 t² dt, and along the edge du = (ub - ua) dq / (qb - qa); the differences of the cubes
  // are taken from their factors, so that short pieces lose no digits.
  const double factor = ta * ta + ta * tb + tb * tb;
  if (factor == 0.0) return;
  const double du = b.u - a.u;
  for (std::size_t i = 0; i < kGauss10.t.size(); ++i) {
    const double t = ta + kGauss10.t[i] * (tb - ta);
    const double along = kGauss10.t[i] * (t * t + t * ta + ta * ta) / factor;
    const double q = t * t * t;
    const double qn1 = std::pow(q, s.c[3] - 1.0);
    sums.Add(s.c[0] + s.c[1] * q * qn1, s.c[1] * s.c[2] * s.c[3] * qn1, a.u + along * du,
             a.v + along * (b.v - a.v), kGauss10.w[i] * 3.0 * t * t / factor * du);
  }
}

template <bool kTangent>
void AddPiece(const CSegment& s, const FramePoint& a, const FramePoint& b,
              FrameSums<kTangent>& sums) {
  switch (s.kind) {
    case SegmentKind::zero:
      return;
    case SegmentKind::constant:
      return sums.AddConstant(s.c[0], a, b);
    case SegmentKind::linear:
      return AddPolynomial(s, a, b, kGauss2, sums);
    case SegmentKind::cubic:
      return AddPolynomial(s, a, b, kGauss3, sums);
    case SegmentKind::power:
      return AddPower(s, a, b, sums);
    case SegmentKind::rational:
      return AddRational(s, a, b, sums);
  }
}

// Walks one edge through the segments of the curve; `from` is the segment of a, `to` that of b.
template <bool kTangent>
void AddEdge(const PiecewiseCurve& curve, FramePoint a, const FramePoint& b, std::size_t from,
             std::size_t to, double kappa, FrameSums<kTangent>& sums) {
  const FramePoint start = a;
  while (from != to) {
    const bool rises = from < to;
    const std::size_t next = rises ? from + 1 : from - 1;
    const std::size_t upper = rises ? next : from;
    const double at = curve[upper].from;
    FramePoint cut = Between(start, b, (at - start.e) / (b.e - start.e));
    cut.e = at;
    AddPiece(curve[from], a, cut, sums);
    if constexpr (kTangent) {
      const double step = curve.Jump(upper);
      if (step != 0.0) sums.AddFront((rises ? -step : step) / kappa, cut.u, cut.v);
    }
    a = cut;
    from = next;
  }
  AddPiece(curve[to], a, b, sums);
}

// Turns the sums of a frame with unit gradient p (y, z) into resultant and tangent.
template <bool kTangent>
void FromFrame(const FrameSums<kTangent>& s, Vec2<double> p, Response& r) {
  const double a1 = p.y;
  const double b1 = p.x;  // z = p_z u + p_y v
  const double a2 = -p.x;
  const double b2 = p.y;  // -y = -p_y u + p_z v
  r.force += Resultant{s.n, a1 * s.au + b1 * s.av, a2 * s.au + b2 * s.av};
  if constexpr (kTangent) {
    r.tangent.xx += s.t00;
    r.tangent.xy += a1 * s.t0u + b1 * s.t0v;
    r.tangent.xz += a2 * s.t0u + b2 * s.t0v;
    r.tangent.yy += a1 * a1 * s.tuu + 2.0 * a1 * b1 * s.tuv + b1 * b1 * s.tvv;
    r.tangent.yz += a1 * a2 * s.tuu + (a1 * b2 + a2 * b1) * s.tuv + b1 * b2 * s.tvv;
    r.tangent.zz += a2 * a2 * s.tuu + 2.0 * a2 * b2 * s.tuv + b2 * b2 * s.tvv;
  }
}

template <bool kTangent>
void AddRegion(const CompiledSection::Region& region, const PiecewiseCurve& curve, const Plane& d,
               Response& r) {
  const Plane t = d + region.locked;
  // Below this curvature the direction has no meaning and any frame serves.
  constexpr double kNoCurvature = 1e-200;
  double kappa = std::sqrt(t.y * t.y + t.z * t.z);
  Vec2<double> p{0.0, 1.0};
  if (kappa < kNoCurvature) {
    kappa = 0.0;
  } else {
    p = {-t.z / kappa, t.y / kappa};
  }
  FrameSums<kTangent> sums;
  for (const std::vector<Vec2<double>>& ring : region.rings) {
    const auto inFrame = [&](Vec2<double> r0) {
      const double u = p.x * r0.x + p.y * r0.y;
      return FramePoint{t.x + kappa * u, u, p.x * r0.y - p.y * r0.x};
    };
    FramePoint a = inFrame(ring.back());
    std::size_t ia = curve.Locate(a.e);
    for (const Vec2<double>& vertex : ring) {
      const FramePoint b = inFrame(vertex);
      const std::size_t ib = curve.Locate(b.e);
      if (ia == ib) {
        AddPiece(curve[ia], a, b, sums);
      } else {
        AddEdge(curve, a, b, ia, ib, kappa, sums);
      }
      a = b;
      ia = ib;
    }
  }
  FromFrame(sums, p, r);
}

// Adds the point areas; the sums are local so that they stay in registers.
template <bool kTangent>
void AddPoints(const CompiledSection& section, const Plane& d, CurveForm form, Response& r) {
  Resultant f{};
  Sym3 k{};
  for (const CompiledSection::PointArea& point : section.points) {
    const StressCurve& own = section.curves[static_cast<std::size_t>(point.curve)];
    const PiecewiseCurve& curve = form == CurveForm::ramp ? own.ramp : own.exact;
    const double z = point.position.y;
    const double minusY = -point.position.x;
    const double e = d.x + d.y * z + d.z * minusY;
    const double es = e + point.strainOffset;
    const CSegment& s = curve[curve.Locate(es)];
    double stress = s.Stress(es);
    double slope = kTangent ? s.Tangent(es) : 0.0;
    if (point.displacedCurve >= 0) {
      const StressCurve& host = section.curves[static_cast<std::size_t>(point.displacedCurve)];
      const PiecewiseCurve& displaced = form == CurveForm::exact ? host.exact : host.displaced;
      const double ec = e + point.displacedOffset;
      const CSegment& c = displaced[displaced.Locate(ec)];
      if (c.kind != SegmentKind::zero) {
        stress -= c.Stress(ec);
        if constexpr (kTangent) slope -= c.Tangent(ec);
      }
    }
    const double force = point.area * stress;
    f.x += force;
    f.y += force * z;
    f.z += force * minusY;
    if constexpr (kTangent) {
      const double stiffness = point.area * slope;
      const double sz = stiffness * z;
      const double sy = stiffness * minusY;
      k.xx += stiffness;
      k.xy += sz;
      k.xz += sy;
      k.yy += sz * z;
      k.yz += sz * minusY;
      k.zz += sy * minusY;
    }
  }
  r.force += f;
  if constexpr (kTangent) r.tangent = r.tangent + k;
}

template <bool kTangent>
Response IntegrateAll(const CompiledSection& section, const Plane& d, CurveForm form) {
  Response r;
  for (const CompiledSection::Region& region : section.regions) {
    const StressCurve& curve = section.curves[static_cast<std::size_t>(region.curve)];
    AddRegion<kTangent>(region, form == CurveForm::ramp ? curve.ramp : curve.exact, d, r);
  }
  AddPoints<kTangent>(section, d, form, r);
  return r;
}

}  // namespace

Resultant Integrate(const CompiledSection& section, const Plane& d, CurveForm form) {
  return IntegrateAll<false>(section, d, form).force;
}

Response IntegrateWithTangent(const CompiledSection& section, const Plane& d, CurveForm form) {
  return IntegrateAll<true>(section, d, form);
}

}  // namespace Orlix::Numeric
