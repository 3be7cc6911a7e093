#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/oxnumeric/Vec.h"
#include "model/oxutil/Enumerations.h"
#include "model/oxutil/OrlixString.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/CCrack.h"
#include "model/vldata/records/CaseSLSDetails.h"
#include "model/vldata/records/CaseULSDetails.h"
#include "model/vldata/records/FileIOAttributes.h"
#include "model/vldata/records/OutputOptions.h"

namespace Orlix {

struct ClipboardCaseData;
namespace VlSol {
struct Diagram;
struct DiagramRequest;
struct SolveOptions;
}  // namespace VlSol

/// The one object a front end holds: it owns a document and offers every command on it. Indices of
/// sections, tasks and cases count from zero, a negative one is out of range; numbers in messages
/// count from one. Copies are independent. docs/facade-json.md has the form of every JSON value.
class VelmoApp {
 public:
  /// A case index with its ULS and SLS record.
  using CaseRecords =
      std::pair<int, std::pair<Data::Velmo9::CaseULSDetails, Data::Velmo9::CaseSLSDetails>>;

  /// The document; owned by this object. `New` and `Open` replace what it holds.
  Data::CVelmoData* pData() { return &document_; }
  const Data::CVelmoData* pData() const { return &document_; }

  // Life of the document.

  /// Starts an empty document.
  void New();
  void New(const OrlixString<wchar_t>& title, const Data::CUnit& units);
  /// Reads a document. One that was saved under another path gets a new model identity. What could
  /// not be taken over stands in the document's read problems.
  /// @param[out] message  set only when the file was not opened
  Data::Velmo9::FileIOAttributes Open(const std::filesystem::path& path, std::string& message);
  /// Writes the document, which from then on lives at `path`.
  /// @param newModelId  gives the document a new identity first
  /// @return true, also when the file cannot be written: read it back to be sure
  bool Save(const std::filesystem::path& path, bool newModelId);
  /// The text that `Save` writes.
  /// @param withFilePath  also the path where the document lives
  std::wstring fileString(bool withFilePath) const;
  /// Moves grades that components carry themselves into the document's tables.
  static void SetUserDefinedGradesToSections(Data::CVelmoData& document);

  // Settings.

  void setTitles(const Util::JsonValue& json);
  /// Sets all units; what is missing or unknown takes its default. Bars stay where they are: bar
  /// descriptions without a unit get the one that they had so far.
  void setUnits(const Util::JsonValue& json);
  void setCodes(const Util::JsonValue& json);
  void setGrade(const Util::JsonValue& json);
  void resetGrade(MatType type, int grade);
  /// Makes a curve given as points the explicit curve of a grade; MaterialCurveImporter.h has the
  /// form of the text. Points are in the document's units, compression positive.
  /// @return false, with a message, when the curve is not taken; then nothing changes
  bool setExplicitCurve(MatType type, int grade, LoadState state, LoadSign sign, std::string& text,
                        std::string& message);
  bool importExplicitCurve(MatType type, int grade, LoadState state, LoadSign sign,
                           const std::filesystem::path& path, std::string& message);

  // Sections and tasks. An edit drops the results that it makes wrong and puts their cases on the
  // queue of the document; while it lasts nothing is taken off. Where nothing else is said, a
  // section that is not there is std::out_of_range.

  /// Appends a section of that geometry, without tasks.
  Data::Velmo9::VelmoSection& AddSection(Data::CSection section);
  /// Replaces a section by one that stands in JSON as in a document, and generates its bars. Tasks
  /// that stay what they were keep their results. Something wrong changes nothing and stands in the
  /// document's read problems.
  void setSection(int iSec, const Util::JsonValue& json);
  /// Builds a section from JSON, with its bars, without storing it. What is wrong takes its default
  /// and stands in the document's read problems.
  Data::Velmo9::VelmoSection section(const Util::JsonValue& json);
  void deleteSection(int iSec);
  /// The properties of a section as JSON, from its geometry alone.
  Util::JsonValue sectionProperties(int iSec, Util::JsonAllocator& allocator) const;
  /// Area of the bars over that of the concrete, in per cent.
  double rebarPercentage(int iSec) const;

  /// Positions the bars of a section of the document, or of a copy of one, from its bar
  /// descriptions; bars given as points stay. When a description cannot be read or placed nothing
  /// changes; the checks before a solution say which and why.
  void generateRebar(Data::Velmo9::VelmoSection& section) const;
  /// Makes the bars of all sections again from their descriptions. Results that this makes wrong go
  /// and their cases are queued.
  /// @param updateGrades  the grades that descriptions name, or the letters of their sizes stand
  ///                      for, become those of the descriptions
  /// @param unit          is appended to descriptions whose lengths have no unit; empty: nothing
  void updateSections(bool updateGrades, const std::wstring& unit);
  /// The links of a section's components as JSON, in display units.
  Util::JsonValue SectionLinksToJson(int iSec, Util::JsonAllocator& allocator);

  /// Appends a copy of a task, or a default task.
  void addTask(int iSec, const Data::Velmo9::AnalysisTask& task);
  void addTask(int iSec);
  /// Replaces a task by a copy; without such a task nothing happens.
  void updateTask(int iSec, int iTask, const Data::Velmo9::AnalysisTask& task);
  /// Removes a task; without such a task nothing happens. Preload references follow their task to
  /// its new number; those to the removed task become 0, which the checks before a solution name.
  void deleteTask(int iSec, int iTask);
  /// Whether a later task of the section takes its component preload from this one.
  bool IsTaskReferenced(int iSec, int iTask) const;
  /// Whether two tasks say the same in a document.
  /// @param withNames  names of tasks and cases count, too
  static bool AreTasksEqual(const Data::Velmo9::AnalysisTask& a,
                            const Data::Velmo9::AnalysisTask& b, bool withNames);
  /// Sets the input of a case, (N, Myy, Mzz) or (eps0, kyy, kzz) by the task's action. Sections, of
  /// one default task each, and empty cases are appended until there is such a case.
  /// @throws std::out_of_range for a task that is not there; sections appended before stay.
  void setCaseInput(int iSec, int iTask, int iCase, Vec3<double> input);

  // Indices.

  bool isValidSectionIndex(int iSec) const;
  /// False, too, when there is no such section.
  bool isValidTaskIndex(int iSec, int iTask) const;

  // Checks before solving; see PreSolutionChecks.

  /// Appends the problems of a task and of its section.
  /// @return whether `messages` is empty afterwards
  bool preSolutionChecksPassed(std::vector<std::string>& messages, int iSec, int iTask) const;
  /// Appends the problems of a section.
  bool preSolutionChecksPassed(std::vector<std::string>& messages, int iSec) const;
  /// Each appends to `bad` the numbers, from one, of the components that fail, and returns whether
  /// there are none.
  bool allComponentsHaveMaterialType(int iSec, std::vector<int>& bad) const;
  bool allComponentsHaveMaterialGrade(int iSec, std::vector<int>& bad) const;
  bool allComponentsHaveMaterialCurves(int iSec, std::vector<int>& bad) const;
  bool allComponentsHavePolygons(int iSec, std::vector<int>& bad) const;
  /// Whether every bar description of a section can be read.
  /// @param[out] message  set only when not
  bool allComponentsHaveValidRebarDefinition(int iSec, std::string& message) const;
  bool isAtleastOneComponentEnabled(int iSec, int iTask) const;
  void CheckCustomPhiFactors(int iSec, int iTask, std::vector<std::string>& messages) const;
  void CheckForComponentPreloadInputValidity(int iSec, int iTask,
                                             std::vector<std::string>& messages) const;
  /// Whether a case that a component preload may refer to has results.
  static bool IsPreloadCaseResultsValid(const Data::Velmo9::VelmoSection& section, int iTask,
                                        int iCase);
  /// "1, 2 and 3".
  static std::string StringifyVectorInts(const std::vector<int>& list);

  // Solving and results.

  /// Solves all cases of a task of a section of the document, which takes them off the queue, or of
  /// a copy of one.
  void SolveTask(Data::Velmo9::VelmoSection& section, int iTask);
  /// As above, and tells of the progress.
  /// @return false when the options stopped it; then the task has no results
  bool SolveTask(Data::Velmo9::VelmoSection& section, int iTask,
                 const VlSol::SolveOptions& options);
  /// Appends the records of cases in the order of `cases`; an index that is no case has the default
  /// record, as has a limit state that the task does not compute; a case that is not solved, or was
  /// before the model changed, counts as failed.
  /// @return false, with a message and nothing appended, when there is no such section or task
  /// @throws what the computation of the first failing case threw; then nothing is appended
  bool CompileCaseResults(int iSec, int iTask, const std::vector<int>& cases, std::string& message,
                          std::vector<CaseRecords>& results,
                          const Data::Velmo9::OutputOptions& options) const;
  /// The record of one case; the default one when there is no such case, a failed one when the case
  /// is not solved or the model changed since.
  /// @param withPoints  false: no point results, whatever the options want
  Data::Velmo9::CaseULSDetails CaseULSDetails(int iSec, int iTask, int iCase,
                                              const Data::Velmo9::UlsOutputOptions& options,
                                              bool withPoints) const;
  /// The serviceability record of one case; the default one when there is no such case or its input
  /// is zero, one without a solution when the case is not solved or the model changed since.
  /// @param withPoints  false: no point results, whatever the options want
  Data::Velmo9::CaseSLSDetails CaseSLSDetails(int iSec, int iTask, int iCase,
                                              const Data::Velmo9::SlsOutputOptions& options,
                                              bool withPoints) const;
  /// Cracks by component index, the widest of a component first.
  using CrackResults = std::map<int, std::vector<Data::Velmo9::CCrack>>;
  /// The cracks of a case.
  /// @return nothing when there is no such case, it is not solved, has no solution or is not
  ///         cracked, or when the code computes no crack widths
  CrackResults GetCrackResults(int iSec, int iTask, int iCase) const;
  /// The same of many cases, in their order, at a fraction of the cost.
  std::vector<CrackResults> CompileCrackResults(int iSec, int iTask,
                                                const std::vector<int>& cases) const;
  /// The results of cases as JSON. Solves the task first when asked to or when a case has no result
  /// that belongs to the model as it is; the results stay in the document.
  /// @param[out] json  becomes an object
  /// @return false, with a message, when there are no results
  bool GetCaseResults(int iSec, int iTask, const std::vector<int>& cases, Util::JsonDocument& json,
                      std::string& message, bool solve);

  // Diagrams of capacity and of curvature; docs/diagrams.md says what is held and what is named.

  /// The diagram of a task. One of failure loads shows the task's own: it is solved first when a
  /// case has no result that belongs to the model as it is, and the results stay in the document.
  /// @return false, with a message, when there is no such task, a member of the request is out of
  ///         range or there is no curve; then `diagram` stays
  bool GetDiagram(int iSec, int iTask, const VlSol::DiagramRequest& request,
                  VlSol::Diagram& diagram, std::string& message);
  /// As above, with request and diagram as JSON.
  /// @param[out] json  becomes an object, empty when the call fails
  bool GetDiagram(const Util::JsonValue& request, Util::JsonDocument& json, std::string& message);

  // Clipboard: the text goes to the desktop's own program, see Orlix::CopyToClipboard; false when
  // none takes it.

  /// Copies a JSON value as text, four spaces a level.
  /// @throws std::length_error when `value` is nested deeper than JSON texts may be
  static bool CopyToClipboard(const Util::JsonValue& value);
  /// Copies the document as `Save` writes it.
  bool CopyAll() const;
  /// Formats a range of a task's case table for a spreadsheet; docs/clipboard.md lists the columns.
  /// Cases that are not analysed have their inputs only. Nothing is put on the clipboard.
  /// @param request  range and options, see docs/facade-json.md
  /// @return false when the request is not of that form or there is no such task; then `text` stays
  bool CopyTaskData(const Util::JsonValue& request, std::string& text) const;

  // Other answers.

  /// Strain that the preload of a bar locks in; a tensile preload gives a negative number.
  double BarPreStrain(const Data::CBar& bar, LoadState state) const;

 private:
  void OpenJson(Util::JsonDocument& json, const std::filesystem::path& path);
  void AppendUnit(Data::CSecComp& component, const std::wstring& unit) const;
  void SectionChanged(int iSec);
  void DropOutdated(int iSec);
  void SectionSolved(int iSec);
  void MaterialsChanged();
  bool TaskExists(int iSec, int iTask, std::string& message) const;
  /// The inputs of a case and, when it is analysed, what `options` want of its results, of the
  /// serviceability states the meaningful ones; nothing when there is no such case.
  std::optional<ClipboardCaseData> BuildClipboardCaseData(
      const Data::Velmo9::AnalysisTask& task, int iSec, int iTask, int iCase,
      const Data::Velmo9::OutputOptions& options) const;

  Data::CVelmoData document_;
};

}  // namespace Orlix
