#pragma once

#include <functional>
#include <random>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxnumeric/section/CompiledSection.h"

/// Sections for the solver's tests, made without documents: curves with a second, independent
/// formula each, shapes, and random sections from a fixed seed.
namespace Orlix::VlSol::Test {

/// A curve as the solver gets it, and the same curve as a plain formula.
struct TestCurve {
  Numeric::CurveInput input;
  std::function<double(double)> stress;  ///< tension positive, within the limits
  double lower{};                        ///< strain limits, tension positive
  double upper{};
};

/// Concrete without tension; strengths [Pa] and strains positive.
TestCurve ParabolaRectangle(double f, double epsPeak, double epsLimit, double exponent,
                            bool limitUnderUniformCompression);
TestCurve BilinearConcrete(double f, double epsPeak, double epsLimit);
TestCurve Block(double f, double from, double epsLimit);
/// EN 1992-1-1, (3.14); softens beyond epsPeak.
TestCurve NonLinear(double f, double epsPeak, double epsLimit, double k);
/// Points (strain, stress) of compression, from the origin.
TestCurve Explicit(const std::vector<Vec2<double>>& points);
/// Elastic-plastic on both sides.
TestCurve Steel(double fy, double modulus, double epsLimit);

TestCurve C30();  ///< f_cd 17 MPa, with the limit under uniform compression
TestCurve C90();  ///< f_cd 51 MPa, exponent 1.4, strains 0.0026
TestCurve B500();

using Ring = std::vector<Vec2<double>>;

/// An outline with at most one hole, about any point.
struct Shape {
  const char* name{};
  Ring outline;
  Ring hole;  ///< empty: none
};

/// Rectangle, L, hollow box, triangle, 40-gon and T, about b x h [m] in size.
std::vector<Shape> Shapes(double b, double h);

bool Inside(const Ring& ring, Vec2<double> p);
/// Inside the outline and outside the hole.
bool Inside(const Shape& shape, Vec2<double> p);

/// One concrete shape with bars of one steel.
struct TestSection {
  Shape shape;
  TestCurve concrete;
  TestCurve steel;
  struct Bar {
    Vec2<double> position;
    double area{};
    double prestrain{};  ///< tension positive
  };
  std::vector<Bar> bars;
  bool deduct{true};

  /// Curve 0 the concrete, curve 1 the steel; region 0 hosts the bars.
  Numeric::SectionInput Input() const;
};

/// A shape of 0.2 to 2 m, turned and moved, of one of the non-softening concretes, with 3 to 12
/// bars well inside, some of them prestrained.
TestSection RandomSection(std::mt19937& random);

/// A load of the given size [squash force], in a random direction of (N, My/R, Mz/R) that keeps
/// off pure tension and pure compression, where planes are not unique.
Numeric::Resultant RandomLoad(std::mt19937& random, const Numeric::CompiledSection& section,
                              double size);

/// A number in [from, to): spelled out, so that every platform draws the same.
double Uniform(std::mt19937& random, double from, double to);

}  // namespace Orlix::VlSol::Test
