#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxdata/codes/aci318/concrete.h"

namespace Orlix::Data::Design {
namespace {

/// Values by hand from the code's expressions, to the digits given: MPa and GPa.
struct Row {
  const wchar_t* name;
  double fc, beta1, Ec, fr;
};

constexpr Row kConcretes[] = {
    {L"f'c 20 MPa", 20, 0.850, 21.019, 2.773}, {L"f'c 25 MPa", 25, 0.850, 23.500, 3.100},
    {L"f'c 28 MPa", 28, 0.850, 24.870, 3.281}, {L"f'c 30 MPa", 30, 0.836, 25.743, 3.396},
    {L"f'c 35 MPa", 35, 0.800, 27.806, 3.668}, {L"f'c 40 MPa", 40, 0.764, 29.725, 3.921},
    {L"f'c 45 MPa", 45, 0.729, 31.529, 4.159}, {L"f'c 50 MPa", 50, 0.693, 33.234, 4.384},
    {L"f'c 55 MPa", 55, 0.650, 34.856, 4.598},
};

TEST(Aci318, ConcretesHaveTheNominalBlock) {
  const CConcCode code(ConcCode::aci318_2019, CCountry::Code::none);
  ASSERT_EQ(code.Data().concretes.size(), std::size(kConcretes));
  for (std::size_t i = 0; i < std::size(kConcretes); ++i) {
    const Row& r = kConcretes[i];
    SCOPED_TRACE(r.fc);
    const CMat& concrete = code.Data().concretes[i];
    EXPECT_EQ(concrete.Name(), r.name);
    EXPECT_NEAR(Aci318::BlockDepth(r.fc * 1e6), r.beta1, 5e-4);  // half of the last digit given
    EXPECT_NEAR(concrete.Properties().E / 1e9, r.Ec, 5e-4);
    EXPECT_NEAR(concrete.Properties().f_ct / 1e6, r.fr, 5e-4);

    const CMatCurveParam& uls = concrete.Curve(LoadState::ULS);
    const double start = 0.003 * (1 - r.beta1);
    EXPECT_EQ(uls.Stress(start - 2e-6), 0.0);
    EXPECT_DOUBLE_EQ(uls.Stress(start + 2e-6), 0.85 * r.fc * 1e6);
    EXPECT_EQ(uls.CompressionLimit(), 0.003);
    EXPECT_FALSE(uls.IsLimitCap(LoadSign::compression));
    EXPECT_EQ(uls.UniformCompressionLimit(), 0.0);
    const CMatCurveParam& sls = concrete.Curve(LoadState::SLS);
    EXPECT_NEAR(sls.Stress(0.001) / 1e6, r.Ec, 5e-4);
  }
}

}  // namespace
}  // namespace Orlix::Data::Design
