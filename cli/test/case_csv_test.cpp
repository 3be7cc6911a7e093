#include "cli/case_csv.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cli/commands.h"

namespace Orlix::Cli {
namespace {

const std::string kHead = "name,N,Myy,Mzz\n";

std::string ErrorOf(const std::string& text, LoadAction action = LoadAction::load) {
  try {
    ReadCases(text, "a.csv", action, Data::CUnit());
  } catch (const CommandError& error) {
    return error.what();
  }
  return "";
}

TEST(ReadCases, TakesEveryFormOfTheSameCases) {
  const std::string kForms[] = {
      kHead + "\"a, \"\"b\"\"\",-1.5,2,3e1\n,4,5,6\n",
      "\xEF\xBB\xBFMzz,N,Myy,name\r\n30, -1.5 ,2,\"a, \"\"b\"\"\"\r\n\r\n6,4,\"5\",\r\n\r\n",
      "name;N;Myy;Mzz\n;MN;N mm;lbf·ft\n\"a, \"\"b\"\"\";-0.0015;2e6;22126.86448\n"
      ";0.004;5e6;4425.372896",
      "N\tMyy\tMzz\tname\nkN\tkNm\tkNm\t\n-1.5\t2\t30\ta, \"b\"\n4\t5\t6\t\n",
  };
  for (const std::string& form : kForms) {
    SCOPED_TRACE(form);
    const CaseTable table = ReadCases(form, "a.csv", LoadAction::load, Data::CUnit());
    ASSERT_EQ(table.cases.size(), 2U);
    EXPECT_EQ(table.cases[0].name, "a, \"b\"");
    EXPECT_EQ(table.cases[1].name, "");
    const Vec3<double> kInputs[] = {{-1500.0, 2000.0, 30e3}, {4000.0, 5000.0, 6000.0}};
    for (std::size_t i = 0; i < 2; ++i) {
      const Vec3<double>& input = table.cases[i].input;
      EXPECT_DOUBLE_EQ(input.x, kInputs[i].x);
      EXPECT_DOUBLE_EQ(input.y, kInputs[i].y);
      EXPECT_NEAR(input.z, kInputs[i].z, 1e-3);  // the feet above have ten digits
    }
  }
}

TEST(ReadCases, TakesPlanesInTheUnitsGiven) {
  for (const char* text : {"eps,kyy,kzz\n1,2,3\n", "eps,kyy,kzz\nmε,1/m,rad/mm\n1,2e-3,3e-6",
                           "kzz,kyy,eps\n,,%\n3,2,0.1"}) {
    const CaseTable table = ReadCases(text, "a.csv", LoadAction::deformation, Data::CUnit());
    ASSERT_EQ(table.cases.size(), 1U) << text;
    EXPECT_DOUBLE_EQ(table.cases[0].input.x, 1e-3);
    EXPECT_DOUBLE_EQ(table.cases[0].input.y, 2e-3);
    EXPECT_DOUBLE_EQ(table.cases[0].input.z, 3e-3);
  }
}

TEST(ReadCases, NamesTheCellThatIsWrong) {
  std::string many = kHead;
  for (int i = 0; i < 7000; ++i) many += "case,1,2,3\n";
  const struct {
    std::string text;
    const char* place;
    const char* found;
  } kCases[] = {
      {"", "a.csv", "is empty"},
      {"\xFF\xFEN", "a.csv", "UTF-16"},
      {"N,Myy\n", "line 1", "no column Mzz"},
      {"N,Myy,Mzz,N\n", "line 1, column 4", "each column once"},
      {"N,My,Mzz\n", "line 1, column 2", "\"My\""},
      {"eps,kyy,kzz\n", "line 1, column 1", "are loads"},
      {kHead + ",kN,kNm,kg\n", "line 2, column 4 (Mzz)", "\"kg\""},
      {kHead + ",1,2,3\n,kN,kNm,kNm\n", "line 3, column 2 (N)", "\"kN\""},
      {kHead + ",1,2,3\n,1,2\n", "line 3", "3 cells, expected 4"},
      {kHead + ",1,2,3\n,1,2,3,4\n", "line 3, column 5", "no more than 4"},
      {kHead + ",1,2,3\n,1,,3\n", "line 3, column 3 (Myy)", "nothing"},
      {kHead + ",1,2,inf\n", "line 2, column 4 (Mzz)", "\"inf\""},
      {kHead + ",1e306,2,3\n", "line 2, column 2 (N)", "\"1e306\""},  // in N it is too large
      {kHead + ",1,0x2,3\n", "line 2, column 3 (Myy)", "\"0x2\""},
      {kHead + "\"a\nb\",1,2,3\n\n\"c,1,2,3\n", "line 5, column 1 (name)", "quotation marks"},
      {kHead + "\"a\"b,1,2,3\n", "line 2, column 1 (name)", "quotation marks"},
      {kHead + "\xFF,1,2,3\n", "line 2, column 1 (name)", "UTF-8"},
      {many + "last,1,2,3x\n", "line 7002, column 4 (Mzz)", "\"3x\", expected a number"},
  };
  for (const auto& c : kCases) {
    const std::string error = ErrorOf(c.text);
    EXPECT_EQ(error.rfind("a.csv", 0), 0U) << error;
    EXPECT_NE(error.find(c.place), std::string::npos) << error << " lacks " << c.place;
    EXPECT_NE(error.find(c.found), std::string::npos) << error << " lacks " << c.found;
  }
  EXPECT_NE(ErrorOf(kHead, LoadAction::deformation).find("are deformations"), std::string::npos);
}

}  // namespace
}  // namespace Orlix::Cli
