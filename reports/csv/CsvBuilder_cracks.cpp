// The crack tables, a row a crack: a part of CsvBuilder.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "model/oxutil/text.h"
#include "reports/csv/CsvBuilder.h"

namespace Orlix::Velmo {

using Data::Velmo9::CCrack;

namespace {

constexpr std::size_t kRowsWithoutEnvelope = 2;

// The widest crack of each face, from those of a component, the widest first.
std::vector<CCrack> WidestOfFaces(const std::vector<CCrack>& cracks) {
  std::vector<CCrack> widest;
  for (const CCrack& crack : cracks) {
    const auto isOfFace = [&](const CCrack& c) { return c.face == crack.face; };
    if (std::none_of(widest.begin(), widest.end(), isOfFace)) widest.push_back(crack);
  }
  std::sort(widest.begin(), widest.end(),
            [](const CCrack& a, const CCrack& b) { return a.face < b.face; });
  return widest;
}

std::string Capitalised(std::string_view name) {
  std::string text(name);
  text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
  return text;
}

OrlixString<wchar_t> RemarkOf(const CCrack& crack) {
  if (crack.remark == Data::Velmo9::CrackRemark::none) return L"-";
  return to_wstring(CrackRemarkText(crack.remark)).c_str();
}

}  // namespace

void CsvBuilder::AddCrackLine(const CrackRow& row) {
  const CCrack& crack = row.info.result;
  AddLine(StartRow(row.info.common)
              .AddNumberFromOne(row.component)
              .AddNumberFromOne(crack.face)
              .AddNumberFromOne(crack.bar)
              .AddPosition(crack.CrackPos())
              .AddLength(crack.width)
              .AddLength(crack.spacing)
              .AddStrain(crack.strain)
              .AddText(RemarkOf(crack)));
}

void CsvBuilder::AddCrackTable(const std::string& title, const SlsList& list, bool perFace) {
  const auto& code = app_.pData()->concreteCode().Data();
  const auto names = Data::Design::NamesOfCrackFactors(*code.crackWidth);
  AddTableHeading(title + " (" + code.name + ")",
                  "Component,Face,Bar,Position y,Position z,Crack width," +
                      Capitalised(names.length) + "," + Capitalised(names.strain) + ",Remark");
  std::optional<CrackRow> widest;
  std::optional<CrackRow> narrowest;
  std::size_t count = 0;
  const auto add = [&](const CrackRow& row) {
    AddCrackLine(row);
    ++count;
    if (!widest || row.info.result.width > widest->info.result.width) widest.emplace(row);
    if (!narrowest || row.info.result.width < narrowest->info.result.width) narrowest.emplace(row);
  };
  constexpr std::size_t kBlock = 4096;
  for (std::size_t begin = 0; begin < list.size(); begin += kBlock) {
    const auto some = std::span(list).subspan(begin, std::min(kBlock, list.size() - begin));
    std::vector<int> cases;
    for (const SLSCaseInformation& info : some) cases.push_back(info.common.iCase);
    const auto [iSec, iTask, iFirst] = some.front().common;
    const auto results = app_.CompileCrackResults(iSec, iTask, cases);
    for (std::size_t i = 0; i < cases.size(); ++i) {
      int index = 0;
      for (const auto& [component, cracks] : results[i]) {
        for (const CCrack& crack : perFace ? WidestOfFaces(cracks) : cracks) {
          add({component, {iSec, iTask, cases[i], index++, crack}});
        }
      }
    }
  }
  if (count <= kRowsWithoutEnvelope) return;
  lines_.emplace_back("Maximum crack width");
  AddCrackLine(*widest);
  lines_.emplace_back("Minimum crack width");
  AddCrackLine(*narrowest);
}

void CsvBuilder::AddSlsCracks(const SlsList& list, bool perFace) {
  if (!app_.pData()->concreteCode().IsCrackWidthCode()) return;
  AddCrackTable("SLS - Crack results", list, false);
  if (perFace) AddCrackTable("SLS - Crack results per face", list, true);
}

}  // namespace Orlix::Velmo
