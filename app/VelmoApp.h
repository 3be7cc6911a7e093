#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "model/oxutil/Enumerations.h"
#include "model/oxutil/OrlixString.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/CVelmoData.h"
#include "model/vldata/records/CaseSLSDetails.h"
#include "model/vldata/records/CaseULSDetails.h"
#include "model/vldata/records/FileIOAttributes.h"
#include "model/vldata/records/OutputOptions.h"

namespace Orlix {

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
  /// Sets all units; what is missing or unknown takes its default.
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
  bool isAtleastOneComponentEnabled(int iSec, int iTask) const;
  /// "1, 2 and 3".
  static std::string StringifyVectorInts(const std::vector<int>& list);

  // Solving and results.

  /// Solves all cases of a task of a section of the document or a copy of one.
  void SolveTask(Data::Velmo9::VelmoSection& section, int iTask) const;
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
  /// The results of cases as JSON. Solves the task first when asked to or when a case has no result
  /// that belongs to the model as it is; the results stay in the document.
  /// @param[out] json  becomes an object
  /// @return false, with a message, when there are no results
  bool GetCaseResults(int iSec, int iTask, const std::vector<int>& cases, Util::JsonDocument& json,
                      std::string& message, bool solve);
  /// Strain that the preload of a bar locks in; a tensile preload gives a negative number.
  double BarPreStrain(const Data::CBar& bar, LoadState state) const;

 private:
  void OpenJson(Util::JsonDocument& json, const std::filesystem::path& path);
  bool TaskExists(int iSec, int iTask, std::string& message) const;

  Data::CVelmoData document_;
};

}  // namespace Orlix
