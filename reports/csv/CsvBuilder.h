#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "app/VelmoApp.h"
#include "model/oxutil/OrlixString.h"
#include "model/oxutil/json_fwd.h"
#include "reports/csv/CsvOptions.h"
#include "reports/csv/CsvRow.h"
#include "results/CaseRecords.h"

namespace Orlix::Velmo {

/// Writes the results of chosen cases of one task as comma-separated text, in the document's units.
/// The tables and their layout are in docs/csv-report.md. Sections, tasks and cases count from zero
/// in every call and from one in the report. The task must be solved: a case without results counts
/// as failed.
class CsvBuilder {
 public:
  /// Which case a row is of, from zero.
  struct CommonInformation {
    /// "Section,Task,Case, ", with its blank: what every heading line begins with.
    static std::string CommonHeading();
    /// "1,2,3,": what every row begins with.
    std::string CommonData() const;

    std::int32_t iSec{};
    std::int32_t iTask{};
    std::int32_t iCase{};
  };

  /// The record of a case with its place.
  template <class Details>
  struct CaseInformation {
    CommonInformation common;
    Details details;
  };
  using ULSCaseInformation = CaseInformation<Data::Velmo9::CaseULSDetails>;
  using SLSCaseInformation = CaseInformation<Data::Velmo9::CaseSLSDetails>;

  /// The result at a profile point or a bar with its place.
  template <class Result>
  struct ResultInformation {
    ResultInformation(int iSec, int iTask, int iCase, int resultIndex, const Result& resultThere)
        : common{iSec, iTask, iCase}, index(resultIndex), result(resultThere) {}

    CommonInformation common;
    std::int32_t index;  ///< within its case, over all components, from zero
    Result result;
  };
  /// The index counts the cracks, or with the widest of each face alone those, of a case.
  using CrackResultInformation = ResultInformation<Data::Velmo9::CCrack>;
  using PointULSResultInformation = ResultInformation<Data::Velmo9::PointULSResult>;
  using BarULSResultInformation = ResultInformation<Data::Velmo9::BarULSResult>;
  using PointSLSResultInformation = ResultInformation<Data::Velmo9::PointSLSResult>;
  using BarSLSResultInformation = ResultInformation<Data::Velmo9::BarSLSResult>;

  /// @param app  has the document and its results; must outlive the builder
  explicit CsvBuilder(VelmoApp& app);
  CsvBuilder(const CsvBuilder&) = default;
  CsvBuilder(CsvBuilder&&) = default;
  CsvBuilder& operator=(const CsvBuilder&) = delete;
  CsvBuilder& operator=(CsvBuilder&&) = delete;

  /// The ULS records of cases, in their order, with every output on; but while a report is built
  /// point results only where it shows them. In a task that does not compute ULS no case fails.
  virtual std::vector<ULSCaseInformation> GenerateULSResults(int iSec, int iTask,
                                                             const std::vector<int>& cases);
  /// The SLS records of those cases whose ULS record has the status true; the others become the
  /// failed cases of the report. Point results as above.
  /// @param uls  the ULS records of `cases`, position by position
  /// @throws std::out_of_range when there are fewer ULS records than cases.
  virtual std::vector<SLSCaseInformation> GenerateSLSResults(
      int iSec, int iTask, const std::vector<int>& cases,
      const std::vector<ULSCaseInformation>& uls);
  virtual ~CsvBuilder() = default;

  /// Options from the list of a front end: [{"varName": "appliedLoad", "id": 3}, …]. Of a name that
  /// both limit states have, an id below 50 means ULS. What is not understood is ignored.
  static CsvOptions GetCsvOptions(const Util::JsonValue& json);

  /// Builds the report.
  /// @return its lines, UTF-8, without line ends; valid until the next call
  /// @throws std::out_of_range for no such section or task; then there are no lines.
  const std::vector<std::string>& BuildCaseDetails(int iSec, int iTask,
                                                   const std::vector<int>& cases,
                                                   const CsvOptions& options);

  /// Writes the report as UTF-8 without a byte-order mark, whatever the locale, with a flush after
  /// every line. What fails after the file was created, a full disk for instance, is not reported:
  /// read the file back to be sure.
  /// @throws std::runtime_error when the file cannot be created.
  void SaveFile(const std::filesystem::path& path) const;

  /// Whether the concrete of some component has the tension model of BS 8110-2 in service.
  /// @throws std::out_of_range for no such section.
  bool HasBS8110TensionModel(int iSec) const;

  // What tables are made of; a derived builder may add its own.

  /// Appends a blank line and the heading between two rules.
  void AddSideHeading(const std::string& heading);
  void AddUnits();
  void AddFailedCasesString();
  /// "2 to 5,8,9,": runs of three and more as ranges, a comma behind each.
  std::string GetFailedCasesString() const;
  static std::string Join(const std::vector<std::string>& texts, const std::string& separator);
  static OrlixString<wchar_t> Join(const std::vector<OrlixString<wchar_t>>& texts,
                                   const OrlixString<wchar_t>& separator);

 private:
  using UlsList = std::vector<ULSCaseInformation>;
  using SlsList = std::vector<SLSCaseInformation>;
  /// A ULS table with a row a case.
  struct UlsTable {
    const char* title;
    std::string columns;
    void (CsvBuilder::*addRow)(const ULSCaseInformation&);
    double Data::Velmo9::CaseULSDetails::*envelopeOf;  ///< null: the table has no envelope
    const char* envelopeName;
  };

  CsvRow& StartRow(const CommonInformation& common) { return row_.Start(common.CommonData()); }
  void AddLine(const CsvRow& row) { lines_.push_back(row.Line()); }
  void AddTableHeading(const std::string& title, std::string_view columns);

  // Ultimate limit state, a row a case.
  void AddUlsAppliedLoads(const UlsList& list);
  void AddUlsResponseDeformations(const UlsList& list);
  void AddUlsAppliedDeformations(const UlsList& list);
  void AddUlsResponseLoads(const UlsList& list);
  void AddUlsFailureLoads(const UlsList& list);
  void AddUlsFailureDeformations(const UlsList& list);
  void AddUlsTable(const UlsTable& table, const UlsList& list);
  void AddLoadLineWithUtilisation(const ULSCaseInformation& info);
  void AddDeformationLineWithUtilisation(const ULSCaseInformation& info);
  void AddLoadLineWithMomentRatio(const ULSCaseInformation& info);
  void AddLoadWithMomentRatio(const ULSCaseInformation& info);
  void AddFailureDeformationLine(const ULSCaseInformation& info);

  // Serviceability, a row a case.
  void AddSlsAppliedLoads(const SlsList& list);
  void AddSlsResponseDeformations(const SlsList& list);
  void AddSlsAppliedDeformations(const SlsList& list);
  void AddSlsResponseLoads(const SlsList& list);
  void AddSlsInterpolatedStrains(const SlsList& list);
  void AddSlsStiffnesses(const SlsList& list);
  template <class AddFields>
  void AddSlsTable(const std::string& title, std::string_view columns, const SlsList& list,
                   AddFields addFields);

  // Cracks, a row a crack.
  struct CrackRow {
    int component;
    CrackResultInformation info;
  };
  /// @param perFace  adds the table of the widest crack of each face
  void AddSlsCracks(const SlsList& list, bool perFace);
  void AddCrackTable(const std::string& title, const SlsList& list, bool perFace);
  void AddCrackLine(const CrackRow& row);

  // Both limit states, a row a point or bar.
  void AddUlsProfile(const UlsList& list);
  void AddUlsRebar(const UlsList& list);
  void AddSlsProfile(const SlsList& list);
  void AddSlsRebar(const SlsList& list);
  template <class Result, class Details>
  void AddStressStrainTable(const std::string& title, std::string_view columns,
                            const std::vector<CaseInformation<Details>>& list,
                            std::map<int, std::vector<Result>> Details::*resultsOf);

  VelmoApp& app_;
  std::vector<std::string> lines_;
  bool interpolatedModel_{};
  bool bs8110TensionModel_{};
  std::int32_t taskKind_{1};               ///< of the chosen task: 0 deformations, 1 loads
  std::vector<std::int64_t> failedCases_;  ///< from one; of the last report with SLS tables
  bool strengthReduction_{};
  Data::Velmo9::OutputOptions wanted_;  ///< of the application; all but while a report is built
  CsvRow row_;                          ///< the line that is being written
};

}  // namespace Orlix::Velmo
