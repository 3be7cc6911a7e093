// The stress-strain tables, a row a profile point or bar: a part of CsvBuilder.

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

#include "reports/csv/CsvBuilder.h"

namespace Orlix::Velmo {

using Data::Velmo9::BarSLSResult;
using Data::Velmo9::BarULSResult;
using Data::Velmo9::CaseSLSDetails;
using Data::Velmo9::CaseULSDetails;
using Data::Velmo9::PointSLSResult;
using Data::Velmo9::PointULSResult;

namespace {

constexpr std::size_t kRowsWithoutEnvelope = 2;

void AddFields(CsvRow& row, const PointULSResult& r) {
  row.AddText(r.materialType)
      .AddText(r.grade)
      .AddPosition(r.position)
      .AddStressAndStrain(r.stress, r.strain);
}

void AddFields(CsvRow& row, const BarULSResult& r) {
  row.AddInteger(r.number + 1)
      .AddText(r.grade)
      .AddPosition(r.position)
      .AddStressAndStrain(r.stress, r.strain)
      .AddForce(r.force);
}

void AddFields(CsvRow& row, const PointSLSResult& r) {
  row.AddText(r.materialType)
      .AddText(r.grade)
      .AddPosition(r.position)
      .AddStressAndStrain(r.stressUncracked, r.strainUncracked)
      .AddStressAndStrain(r.stressCracked, r.strainCracked);
}

void AddFields(CsvRow& row, const BarSLSResult& r) {
  row.AddInteger(r.number + 1)
      .AddText(r.grade)
      .AddPosition(r.position)
      .AddStressAndStrain(r.stressUncracked, r.strainUncracked)
      .AddForce(r.forceUncracked)
      .AddStressAndStrain(r.stressCracked, r.strainCracked)
      .AddForce(r.forceCracked);
}

// A value that has an envelope.
template <class Result>
struct Enveloped {
  const char* name;
  double Result::*value;
};

template <class Result>
constexpr auto EnvelopesOf() {
  if constexpr (requires { &Result::stress; }) {
    return std::array{Enveloped<Result>{"stress", &Result::stress},
                      Enveloped<Result>{"strain", &Result::strain}};
  } else {
    return std::array{Enveloped<Result>{"stress (uncracked)", &Result::stressUncracked},
                      Enveloped<Result>{"strain (uncracked)", &Result::strainUncracked},
                      Enveloped<Result>{"stress (cracked)", &Result::stressCracked},
                      Enveloped<Result>{"strain (cracked)", &Result::strainCracked}};
  }
}

// A row with the number of its component, from zero.
template <class Result>
struct ComponentRow {
  int component;
  CsvBuilder::ResultInformation<Result> info;
};

// The rows with the greatest and the smallest value met so far, the first of equals.
template <class Result>
class Envelope {
 public:
  using Row = ComponentRow<Result>;

  explicit Envelope(Enveloped<Result> enveloped) : enveloped_(enveloped) {}

  void Widen(const Row& row) {
    const double value = ValueOf(row);
    if (!std::isfinite(value)) return;
    if (!greatest_ || value > ValueOf(*greatest_)) greatest_.emplace(row);
    if (!smallest_ || value < ValueOf(*smallest_)) smallest_.emplace(row);
  }

  const char* Name() const { return enveloped_.name; }
  /// Both there or none: no value was calculated.
  const std::optional<Row>& Greatest() const { return greatest_; }
  const std::optional<Row>& Smallest() const { return smallest_; }

 private:
  double ValueOf(const Row& row) const { return row.info.result.*enveloped_.value; }

  Enveloped<Result> enveloped_;
  std::optional<Row> greatest_;
  std::optional<Row> smallest_;
};

}  // namespace

template <class Result, class Details>
void CsvBuilder::AddStressStrainTable(const std::string& title, std::string_view columns,
                                      const std::vector<CaseInformation<Details>>& list,
                                      std::map<int, std::vector<Result>> Details::*resultsOf) {
  AddTableHeading(title, columns);
  const auto addRow = [this](const ComponentRow<Result>& row) {
    CsvRow& line = StartRow(row.info.common).AddInteger(row.component + 1);
    AddFields(line, row.info.result);
    AddLine(line);
  };
  std::vector<Envelope<Result>> envelopes;
  for (const auto& enveloped : EnvelopesOf<Result>()) envelopes.emplace_back(enveloped);
  std::size_t rows = 0;
  for (const CaseInformation<Details>& info : list) {
    const auto [iSec, iTask, iCase] = info.common;
    int index = 0;
    for (const auto& [component, results] : info.details.*resultsOf) {
      for (const Result& result : results) {
        const ComponentRow<Result> row{component, {iSec, iTask, iCase, index++, result}};
        addRow(row);
        for (Envelope<Result>& envelope : envelopes) envelope.Widen(row);
        ++rows;
      }
    }
  }
  if (rows <= kRowsWithoutEnvelope) return;
  for (const Envelope<Result>& envelope : envelopes) {
    if (!envelope.Greatest()) continue;
    lines_.push_back(std::string("Maximum ") + envelope.Name());
    addRow(*envelope.Greatest());
    lines_.push_back(std::string("Minimum ") + envelope.Name());
    addRow(*envelope.Smallest());
  }
}

void CsvBuilder::AddUlsProfile(const UlsList& list) {
  AddStressStrainTable("ULS - Stresses and strains of the profile",
                       "Component,Type,Grade,Position y,Position z,Stress,Strain", list,
                       &CaseULSDetails::pointResults);
}

void CsvBuilder::AddUlsRebar(const UlsList& list) {
  AddStressStrainTable("ULS - Stresses and strains of the reinforcement",
                       "Component,Bar,Grade,Position y,Position z,Stress,Strain,Force", list,
                       &CaseULSDetails::barResults);
}

void CsvBuilder::AddSlsProfile(const SlsList& list) {
  AddStressStrainTable("SLS - Stresses and strains of the profile",
                       "Component,Type,Grade,Position y,Position z,Stress (uncracked),"
                       "Strain (uncracked),Stress (cracked),Strain (cracked)",
                       list, &CaseSLSDetails::pointResults);
}

void CsvBuilder::AddSlsRebar(const SlsList& list) {
  AddStressStrainTable("SLS - Stresses and strains of the reinforcement",
                       "Component,Bar,Grade,Position y,Position z,Stress (uncracked),"
                       "Strain (uncracked),Force (uncracked),Stress (cracked),Strain (cracked),"
                       "Force (cracked)",
                       list, &CaseSLSDetails::barResults);
}

}  // namespace Orlix::Velmo
