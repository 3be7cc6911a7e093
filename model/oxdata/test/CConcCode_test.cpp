#include "model/oxdata/codes/CConcCode.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/oxdata/codes/en1992/concrete.h"
#include "model/oxdata/materials/Materials.h"

namespace Orlix::Data::Design {
namespace {

/// A row of EN 1992-1-1:2004, Table 3.1, as printed: MPa, GPa and per mille.
struct Row {
  const wchar_t* name;
  double fck, fcm, fctm, fctk05, fctk95, Ecm, epsC1, epsCu1, epsC2, epsCu2, n, epsC3, epsCu3;
};

constexpr Row kTable31[] = {
    {L"C12/15", 12, 20, 1.6, 1.1, 2.0, 27, 1.8, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C16/20", 16, 24, 1.9, 1.3, 2.5, 29, 1.9, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C20/25", 20, 28, 2.2, 1.5, 2.9, 30, 2.0, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C25/30", 25, 33, 2.6, 1.8, 3.3, 31, 2.1, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C30/37", 30, 38, 2.9, 2.0, 3.8, 33, 2.2, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C35/45", 35, 43, 3.2, 2.2, 4.2, 34, 2.25, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C40/50", 40, 48, 3.5, 2.5, 4.6, 35, 2.3, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C45/55", 45, 53, 3.8, 2.7, 4.9, 36, 2.4, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C50/60", 50, 58, 4.1, 2.9, 5.3, 37, 2.45, 3.5, 2.0, 3.5, 2.0, 1.75, 3.5},
    {L"C55/67", 55, 63, 4.2, 3.0, 5.5, 38, 2.5, 3.2, 2.2, 3.1, 1.75, 1.8, 3.1},
    {L"C60/75", 60, 68, 4.4, 3.1, 5.7, 39, 2.6, 3.0, 2.3, 2.9, 1.6, 1.9, 2.9},
    {L"C70/85", 70, 78, 4.6, 3.2, 6.0, 41, 2.7, 2.8, 2.4, 2.7, 1.45, 2.0, 2.7},
    {L"C80/95", 80, 88, 4.8, 3.4, 6.3, 42, 2.8, 2.8, 2.5, 2.6, 1.4, 2.2, 2.6},
    {L"C90/105", 90, 98, 5.0, 3.5, 6.6, 44, 2.8, 2.8, 2.6, 2.6, 1.4, 2.3, 2.6},
};

TEST(En1992, ExpressionsGiveTable31AsPrinted) {
  for (const Row& r : kTable31) {
    SCOPED_TRACE(r.fck);
    const double f = r.fck * 1e6;
    // Half a unit of the last printed digit: 0.1 MPa, 1 GPa, 0.1 per mille, 0.05 for n and where
    // the table prints 0.05. The fractiles are printed as 0.7 and 1.3 times the printed mean.
    EXPECT_DOUBLE_EQ(En1992::MeanStrength(f), r.fcm * 1e6);
    EXPECT_NEAR(En1992::MeanTensileStrength(f) / 1e6, r.fctm, 0.05);
    EXPECT_NEAR(En1992::LowTensileStrength(f) / 1e6, r.fctk05, 0.05 + 0.7 * 0.05);
    EXPECT_NEAR(En1992::HighTensileStrength(f) / 1e6, r.fctk95, 0.05 + 1.3 * 0.05);
    EXPECT_NEAR(En1992::MeanModulus(f) / 1e9, r.Ecm, 0.5);
    EXPECT_NEAR(En1992::NonLinearPeakStrain(f) * 1e3, r.epsC1, 0.05);
    EXPECT_NEAR(En1992::NonLinearUltimateStrain(f) * 1e3, r.epsCu1, 0.05);
    EXPECT_NEAR(En1992::ParabolaPeakStrain(f) * 1e3, r.epsC2, 0.05);
    EXPECT_NEAR(En1992::ParabolaUltimateStrain(f) * 1e3, r.epsCu2, 0.05);
    EXPECT_NEAR(En1992::ParabolaExponent(f), r.n, 0.025);
    EXPECT_NEAR(En1992::BilinearPeakStrain(f) * 1e3, r.epsC3, 0.05);
    EXPECT_NEAR(En1992::BilinearUltimateStrain(f) * 1e3, r.epsCu3, 0.05);
    for (const CurveShape& shape : {En1992::ParabolaRectangleShape(f), En1992::BilinearShape(f),
                                    En1992::RectangularBlockShape(f), En1992::NonLinearShape(f)}) {
      CMatCurveParam curve(MatType::concrete);
      curve.SetShapes(shape, {}, {En1992::MeanStrength(f), En1992::MeanModulus(f)});
      EXPECT_FALSE(curve.Segments().empty()) << static_cast<int>(shape.kind);
      EXPECT_EQ(curve.CompressionLimit(), shape.epsLimit);
    }
  }
  EXPECT_DOUBLE_EQ(En1992::BlockDepth(50e6), 0.8);  // 3.1.7 (3)
  EXPECT_DOUBLE_EQ(En1992::BlockDepth(90e6), 0.7);
  EXPECT_DOUBLE_EQ(En1992::BlockStrength(50e6), 1.0);
  EXPECT_DOUBLE_EQ(En1992::BlockStrength(90e6), 0.8);
}

TEST(CConcCode, ConcretesOfEn1992AreDesignValues) {
  for (const CodeChoice& choice : KnownCodes()) {
    if (choice.code != ConcCode::en1992_2004) continue;
    const CConcCode code(choice.code, choice.country);
    const double alpha = choice.country == CCountry::Code::unitedKingdom ? 0.85 : 1.0;
    ASSERT_EQ(code.Data().concretes.size(), std::size(kTable31));
    for (std::size_t i = 0; i < std::size(kTable31); ++i) {
      const CMat& concrete = code.Data().concretes[i];
      EXPECT_EQ(concrete.Name(), kTable31[i].name);
      const CMatCurveParam& uls = concrete.Curve(LoadState::ULS);
      EXPECT_NEAR(uls.Stress(0.0026), alpha * kTable31[i].fck * 1e6 / 1.5, 1e3);
      EXPECT_EQ(uls.Stress(-0.001), 0.0);
      EXPECT_EQ(uls.UniformCompressionLimit(), En1992::ParabolaPeakStrain(kTable31[i].fck * 1e6));
      EXPECT_EQ(concrete.Model(LoadState::SLS, LoadSign::tension), CurveKind::interpolated);
      const CMatCurveParam& sls = concrete.Curve(LoadState::SLS);
      EXPECT_DOUBLE_EQ(sls.Stress(1e-4), 1e-4 * concrete.Properties().E);
      EXPECT_EQ(sls.Stress(-1e-4), 0.0);
    }
  }
}

TEST(CConcCode, BarsYieldAndStrandsHarden) {
  const CConcCode code;
  const auto& grades = code.Data().reinforcements;
  ASSERT_EQ(grades.size(), 8u);
  const CMatCurveParam& bar = grades[1].Curve(LoadState::ULS);
  EXPECT_DOUBLE_EQ(bar.Stress(-0.05), -500e6 / 1.15);
  EXPECT_TRUE(bar.IsLimitCap(LoadSign::tension));
  EXPECT_DOUBLE_EQ(grades[1].Curve(LoadState::SLS).Stress(-0.05), -500e6);  // f_yk
  // Y1860S7: 1674 MPa at yield; at 20 per mille on the line to 1860 MPa at 20/0.9 per mille.
  const CMatCurveParam& strand = grades[4].Curve(LoadState::ULS);
  const double fpd = 1674e6 / 1.15;
  const double yield = fpd / 195e9;
  EXPECT_DOUBLE_EQ(strand.TensionLimit(), 0.02);
  EXPECT_NEAR(strand.Stress(-yield), -fpd, 1.0);
  EXPECT_NEAR(strand.Stress(-0.02),
              -(fpd + (1860e6 / 1.15 - fpd) * (0.02 - yield) / (0.02 / 0.9 - yield)), 1.0);
}

TEST(CConcCode, EveryCodeHasSoundGradesOfEveryKind) {
  for (const CodeChoice& choice : KnownCodes()) {
    SCOPED_TRACE(choice.name);
    const CConcCode code(choice.code, choice.country);
    const CConcCodeData& data = code.Data();
    Materials tables;  // refuses names that repeat
    for (const CMat& grade : data.concretes) tables.Add(grade);
    for (const CMatRebar& grade : data.reinforcements) tables.Add(grade);
    for (const CMat& grade : data.steels) tables.Add(grade);
    for (const CodeConstant& constant : data.constants) EXPECT_FALSE(constant.clause.empty());
    for (const MatType type : {MatType::concrete, MatType::reinforcement, MatType::steel}) {
      EXPECT_GT(tables.NumGrades(type), 0);
      for (int i = 0; i < tables.NumGrades(type); ++i) {
        EXPECT_FALSE(tables.Grade(type, i).Curve(LoadState::ULS).Segments().empty());
        EXPECT_FALSE(tables.Grade(type, i).Curve(LoadState::SLS).Segments().empty());
      }
    }
  }
}

TEST(CConcCode, SteelsYieldUnreducedWithoutLimit) {
  const CConcCode en1992;
  const CConcCode aci318(ConcCode::aci318_2019, CCountry::Code::none);
  const auto expectYield = [](const auto& grades, double modulus, const std::vector<double>& mpa) {
    ASSERT_EQ(grades.size(), mpa.size());
    for (std::size_t i = 0; i < mpa.size(); ++i) {
      for (const LoadState state : {LoadState::ULS, LoadState::SLS}) {
        const CMatCurveParam& curve = grades[i].Curve(state);
        EXPECT_DOUBLE_EQ(curve.Stress(0.001), 0.001 * modulus);
        EXPECT_DOUBLE_EQ(curve.Stress(-0.04), -mpa[i] * 1e6);
        EXPECT_TRUE(curve.IsLimitCap(LoadSign::tension));
      }
    }
  };
  // EN 10025, at the thicknesses of the grades' names.
  expectYield(en1992.Data().steels, 210e9, {235, 225, 275, 265, 355, 345, 460, 440});
  expectYield(aci318.Data().steels, 200e9, {250, 345});
  expectYield(aci318.Data().reinforcements, 200e9, {280, 420, 550});
}

template <class Mat>
const CMat& Named(const std::vector<Mat>& grades, const wchar_t* name) {
  for (const CMat& grade : grades) {
    if (grade.Name() == name) return grade;
  }
  throw std::invalid_argument("no such grade");
}

TEST(CConcCode, ConcretesOfFurtherCodesHaveHandValues) {
  const struct {
    ConcCode code;
    const wchar_t* name;
    double fd, epsPeak, epsCu, E;  // MPa, per mille, GPa: to the digits given
    CurveKind service;
  } kRows[] = {
      {ConcCode::bs8110_1997, L"C25", 11.167, 0.97980, 3.5, 25.0, CurveKind::bs8110Tension},
      {ConcCode::bs8110_2005, L"C60", 26.800, 1.51789, 3.5, 32.0, CurveKind::bs8110Tension},
      {ConcCode::hongKong_2013, L"C40", 17.867, 1.69534, 3.5, 25.093, CurveKind::bs8110Tension},
      {ConcCode::hongKong_2013, L"C100", 44.667, 2.83951, 3.12053, 37.810,
       CurveKind::bs8110Tension},
      {ConcCode::is456_2000, L"M25", 11.167, 2.0, 3.5, 25.0, CurveKind::none},
      {ConcCode::csaA23_2014, L"f'c 40 MPa", 20.540, 0.455, 3.5, 28.460, CurveKind::none},
      {ConcCode::csaA23_2014, L"f'c 80 MPa", 37.960, 0.805, 3.5, 36.416, CurveKind::none},
      {ConcCode::as3600_2018, L"f'c 32 MPa", 25.664, 0.330, 3.0, 30.100, CurveKind::none},
      {ConcCode::as3600_2018, L"f'c 100 MPa", 70.000, 0.840, 3.0, 42.200, CurveKind::none},
  };
  for (const auto& r : kRows) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(r.code) << " " << r.fd);
    const CConcCode code(r.code, CCountry::Code::none);
    const CMat& concrete = Named(code.Data().concretes, r.name);
    const CMatCurveParam& uls = concrete.Curve(LoadState::ULS);
    EXPECT_NEAR(concrete.DesignStrength() / 1e6, r.fd, 5e-4);
    // The plateau: reached at the peak, or, of a block, begun where half of it is reached.
    EXPECT_NEAR(uls.Strain(concrete.DesignStrength()) * 1e3, r.epsPeak, 5e-5);
    EXPECT_NEAR(uls.Stress(uls.CompressionLimit()) / 1e6, r.fd, 5e-4);
    EXPECT_NEAR(uls.CompressionLimit() * 1e3, r.epsCu, 5e-5);
    EXPECT_NEAR(concrete.Properties().E / 1e9, r.E, 5e-4);
    EXPECT_EQ(concrete.Model(LoadState::SLS, LoadSign::tension), r.service);
  }
}

TEST(CConcCode, BarsWithSeveralBranchesTurnWhereTheirFiguresDo) {
  const struct {
    ConcCode code;
    const wchar_t* name;
    double stress, strain;  // MPa and per mille, to the digits printed or given
  } kCorners[] = {          // SP 16 (1980), Table A: design stress and strain of cold-worked bars.
                  {ConcCode::is456_2000, L"Fe 415", 288.7, 1.44},
                  {ConcCode::is456_2000, L"Fe 415", 306.7, 1.63},
                  {ConcCode::is456_2000, L"Fe 415", 324.8, 1.92},
                  {ConcCode::is456_2000, L"Fe 415", 342.8, 2.41},
                  {ConcCode::is456_2000, L"Fe 415", 351.8, 2.76},
                  {ConcCode::is456_2000, L"Fe 415", 360.9, 3.80},
                  {ConcCode::is456_2000, L"Fe 500", 347.8, 1.74},
                  {ConcCode::is456_2000, L"Fe 500", 369.6, 1.95},
                  {ConcCode::is456_2000, L"Fe 500", 391.3, 2.26},
                  {ConcCode::is456_2000, L"Fe 500", 413.0, 2.77},
                  {ConcCode::is456_2000, L"Fe 500", 423.9, 3.12},
                  {ConcCode::is456_2000, L"Fe 500", 434.8, 4.17},
                  // BS 8110-1, Figure 2.3, by hand.
                  {ConcCode::bs8110_1997, L"Strand 1860", 1417.1, 7.27},
                  {ConcCode::bs8110_1997, L"Strand 1860", 1771.4, 14.08},
                  {ConcCode::bs8110_2005, L"Wire 1670", 1161.7, 5.67},
                  {ConcCode::bs8110_2005, L"Wire 1670", 1452.2, 12.08}};
  for (const auto& c : kCorners) {
    SCOPED_TRACE(c.stress);
    const CConcCode code(c.code, CCountry::Code::none);
    const CMatCurveParam& curve = Named(code.Data().reinforcements, c.name).Curve(LoadState::ULS);
    // 0.1 MPa off at the flattest branch, 17 GPa, is 0.006 per mille; half a digit comes on top.
    EXPECT_NEAR(curve.Strain(c.stress * 1e6) * 1e3, c.strain, 0.011);
    EXPECT_NEAR(curve.Strain(-c.stress * 1e6) * 1e3, -c.strain, 0.011);
    EXPECT_NEAR(curve.Stress(0.09), curve.Stress(0.03), 1.0);  // horizontal, far beyond
  }
}

TEST(CConcCode, RefusesUnknownAnnexes) {
  EXPECT_THROW(CConcCode(ConcCode::en1992_2004, static_cast<CCountry::Code>(1)),
               std::invalid_argument);
  EXPECT_THROW(CConcCode(ConcCode::aci318_2019, CCountry::Code::unitedKingdom),
               std::invalid_argument);
}

}  // namespace
}  // namespace Orlix::Data::Design
