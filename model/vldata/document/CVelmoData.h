#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "model/oxdata/codes/CConcCode.h"
#include "model/oxdata/materials/Materials.h"
#include "model/oxdata/reinforcement/CBarHelper.h"
#include "model/oxdata/reinforcement/CRebarHelper.h"
#include "model/oxutil/OrlixString.h"
#include "model/oxutil/json_fwd.h"
#include "model/vldata/document/AnalysisQueue.h"
#include "model/vldata/document/CModelData.h"
#include "model/vldata/document/GradeChange.h"
#include "model/vldata/document/VelmoSection.h"
#include "model/vldata/json/ProblemList.h"

namespace Orlix::Data {

/// Switches of a document that change numbers.
struct DocumentOptions {
  bool deductDisplacedConcrete{true};  ///< bars displace the concrete they sit in

  friend bool operator==(const DocumentOptions&, const DocumentOptions&) = default;
};

/// The model document: titles, units, code, materials and sections with their tasks. Copies are
/// independent, their material tables included.
class CVelmoData : public CModelData {
 public:
  /// An empty document: default units, EN 1992-1-1:2004 with its standard grades, a fresh identity.
  CVelmoData();
  CVelmoData(const OrlixString<wchar_t>& title, const CUnit& units);
  /// Builds the model from the form that `toJson` writes. Absent members take their defaults; what
  /// is wrong takes its default too and stands in `ReadProblems`. Never throws for any JSON.
  explicit CVelmoData(Util::JsonDocument& json);
  CVelmoData(const CVelmoData& other);
  CVelmoData& operator=(const CVelmoData& other);
  CVelmoData(CVelmoData&&) noexcept = default;
  CVelmoData& operator=(CVelmoData&&) noexcept = default;
  ~CVelmoData() override = default;

  /// Writes the whole model into a document, which becomes an object.
  /// @param withFilePath  also where the document lives
  void toJson(Util::JsonDocument& json, Util::JsonAllocator& allocator, bool withFilePath) const;
  /// What the last reading of JSON into this document, by the constructor, `SetCodes`, `SetGrade`,
  /// `setSection` or `section`, could not take over.
  const std::vector<ReadProblem>& ReadProblems() const { return readProblems_; }

  void setFilePath(const std::filesystem::path& path) { filePath_ = path; }
  const std::filesystem::path& FilePath() const { return filePath_; }
  /// Gives the document a fresh identity.
  void UpdateModelId();
  const std::string& ModelId() const { return modelId_; }

  /// Whether components carry grades of their own that have to be moved into the tables.
  bool IsMigrationOfGradesRequired() const;
  /// Moves such grades into the tables (one that is there already is used) and points the
  /// components to them.
  void SetUserDefinedGradesToSections();

  std::vector<Velmo9::VelmoSection>& Sections() { return sections_; }
  const std::vector<Velmo9::VelmoSection>& Sections() const { return sections_; }
  int NumSections() const { return static_cast<int>(sections_.size()); }
  /// A section. @throws std::out_of_range for no such section.
  const Velmo9::VelmoSection& Section(int iSec) const;
  Velmo9::VelmoSection& getSection(int iSec);
  /// Appends a section with one default task.
  Velmo9::VelmoSection& AddSection();
  /// Appends a section of that geometry, without tasks.
  Velmo9::VelmoSection& AddSection(const CSection& geometry);
  Velmo9::VelmoSection& AddSection(const Velmo9::VelmoSection& section);
  /// Replaces a section, its tasks included, by one that stands in JSON as in a document. Something
  /// wrong changes nothing and stands in `ReadProblems`.
  /// @throws std::out_of_range for no such section.
  void setSection(int iSec, const Util::JsonValue& json);
  /// Builds a section from JSON without storing it. What is wrong takes its default and stands in
  /// `ReadProblems`.
  Velmo9::VelmoSection section(const Util::JsonValue& json);
  /// Removes a section. @throws std::out_of_range for no such section.
  void DeleteSection(int iSec);

  /// The cases that wait for a solution. The operations of the document that add or remove whole
  /// sections keep it; edits of a section's tasks are followed by one of the two below.
  AnalysisQueue& Queue() { return queue_; }
  const AnalysisQueue& Queue() const { return queue_; }
  /// Drops a task's cases from the queue, because they are about to go or to change.
  /// @param andLaterTasks  also those of the tasks behind it, whose indices are about to move
  void ClearTaskCasesFromAnalysisQueue(int iSec, int iTask, bool andLaterTasks);
  /// Puts the cases without results of a section, and of all behind it, on the queue, in place of
  /// what the queue had from there on. An index just past the end is the end.
  /// @throws std::out_of_range for an index further away.
  void RequeueLastAnalysedCases(int iSec);
  /// The same of a task and of those behind it in its section.
  void RequeueLastAnalysedCases(int iSec, int iTask);
  /// Brings the queue up to date with the results of a section: the cases without results are put
  /// on it, those with results are taken off, none of them while a pauser holds.
  /// @throws std::out_of_range for no such section.
  void UpdateAnalysisQueue(int iSec);

  /// Sets the design code: {"concrete": name, "annex": "recommended" | "UK" | an annex of the
  /// user's as an object (docs/national-annex.md)}, or the name alone.
  /// Grades that are the old code's standard ones become the new code's of the same name; others
  /// stay. Another code brings its standard grades along, and the old code's of other names go
  /// unless something is made of them: such a grade stays too, and stands in `ReadProblems`.
  /// Something unknown changes nothing and stands in `ReadProblems`.
  /// A code or an annex that is absent stays; of a new code it is the first one listed.
  void SetCodes(const Util::JsonValue& json);
  void SetCodes(const OrlixString<wchar_t>& name);
  /// What the last `SetCodes` did to the grades, in the order of the tables; nothing of those whose
  /// values are the same under both codes.
  const std::vector<GradeChange>& GradeChanges() const { return gradeChanges_; }
  /// Sets or adds a grade: {"type": "concrete", "name": …, …} as in a document's material table.
  /// Absent members are those of the grade that has the name now, else of the code's standard one.
  /// Something wrong changes nothing and stands in `ReadProblems`.
  /// @param onlyExisting  a grade of a new name is refused
  void SetGrade(const Util::JsonValue& json, bool onlyExisting);
  /// Gives a grade the standard values that the code has for its name; without such a standard
  /// grade nothing changes.
  void ResetGrade(MatType type, int grade);

  const Design::ConcreteCode& concreteCode() const { return code_; }
  /// A copy of the code's data: changing it changes nothing here.
  std::shared_ptr<Design::CConcCodeData> CodePointer() const {
    return std::make_shared<Design::CConcCodeData>(code_.Data());
  }
  std::shared_ptr<Materials> getMaterials() { return materials_; }
  std::shared_ptr<const Materials> getMaterials() const { return materials_; }
  /// @throws std::out_of_range for no such grade.
  const Design::CMatRebar& ReinforcementMaterial(int grade) const {
    return materials_->Reinforcement(grade);
  }
  /// The bar sizes that descriptions know.
  Util::CBarHelper& GenerateBarHelper() { return barHelper_; }
  const Util::CBarHelper& GetBarHelper() const { return barHelper_; }
  /// The reinforcement grades by name; they follow the document's table.
  Util::CRebarHelper& GenerateRebarHelper() { return rebarHelper_; }
  const Util::CRebarHelper& GetRebarHelper() const { return rebarHelper_; }
  const DocumentOptions& Options() const { return options_; }
  void SetOptions(const DocumentOptions& options) { options_ = options; }

  /// Positions the bars of a section from its bar descriptions, as `Velmo::CPositionRebar` does.
  /// Sections that are read from JSON have them already.
  void GenerateRebar(CSection& section) const;

  /// Whether some concrete component that a task includes has a material model in a load state
  /// (for either load sign).
  bool HasMaterialModel(const Velmo9::VelmoSection& section, int iTask, LoadState state,
                        int model) const;
  /// Whether cracked serviceability results apply to a task: model 20 or 22.
  bool ShouldCalculateCracked(const Velmo9::VelmoSection& section, int iTask) const;
  /// Whether a component that a task includes and its reference task does not overlaps one that the
  /// reference task includes. Outlines that touch do not overlap, nor do those that are not valid.
  /// @throws std::out_of_range for no such section or task.
  bool IsComponentOverlappedInStages(int iSec, int iTask, int iReference) const;

 private:
  void ChangeCode(const Design::ConcreteCode& code, ProblemList& problems);
  void QueueCasesWithoutResults(int iSec, int iTask);

  std::vector<Velmo9::VelmoSection> sections_;
  AnalysisQueue queue_;
  Design::ConcreteCode code_;
  std::shared_ptr<Materials> materials_;  // never null but after a move
  Util::CBarHelper barHelper_;
  Util::CRebarHelper rebarHelper_;  // of materials_, by which it stands
  DocumentOptions options_;
  std::filesystem::path filePath_;
  std::string modelId_;
  std::vector<ReadProblem> readProblems_;
  std::vector<GradeChange> gradeChanges_;
};

}  // namespace Orlix::Data
