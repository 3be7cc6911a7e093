#include "legacy/ModuleText.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace Orlix::Legacy {
namespace {

using FileIO::CDataFile;
using FileIO::LineStatus;

constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kMaxName = 32;

bool IsKnown(std::string_view name) {
  const auto& known = KnownModules();
  return std::find(known.begin(), known.end(), name) != known.end();
}

bool IsModuleName(std::string_view name) {
  return !name.empty() && name.size() <= kMaxName &&
         name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") == std::string_view::npos;
}

// Takes the next field between blanks off the line; empty at its end.
std::string_view TakeField(std::string_view& line) {
  const std::size_t begin = std::min(line.find_first_not_of(kBlanks), line.size());
  const std::size_t end = std::min(line.find_first_of(kBlanks, begin), line.size());
  const std::string_view field = line.substr(begin, end - begin);
  line.remove_prefix(end);
  return field;
}

// The name in a line "KEYWORD NAME" and nothing else.
std::optional<std::string_view> NameAfter(std::string_view keyword, std::string_view line) {
  if (TakeField(line) != keyword) return std::nullopt;
  const std::string_view name = TakeField(line);
  if (!IsModuleName(name) || !TakeField(line).empty()) return std::nullopt;
  return name;
}

bool IsComment(std::string_view line) {
  const std::string_view field = TakeField(line);
  return field.empty() || field.starts_with('#');
}

// The names in "CONTENTS NAME NAME ..."; none when that is not what the line says.
std::set<std::string, std::less<>> ContentsOf(std::string_view line) {
  std::set<std::string, std::less<>> names;
  if (TakeField(line) != "CONTENTS") return names;
  for (std::string_view name = TakeField(line); !name.empty(); name = TakeField(line)) {
    if (!IsModuleName(name) || !names.emplace(name).second) return {};
  }
  return names;
}

// Puts lines into the modules that they belong to.
class Sorter {
 public:
  Sorter(std::set<std::string, std::less<>> contents, ModuleTexts& modules, Notes& notes)
      : contents_(std::move(contents)), modules_(modules), notes_(notes) {}

  void Add(const CDataFile& file, const std::string& line) {
    const std::size_t number = file.LineNumber();
    if (const auto name = NameAfter("MODULE", line)) {
      Begin(*name, number);
    } else if (!isOpen_) {
      if (!IsComment(line)) notes_.AddWarning("", number, "stands outside any module; left out");
    } else if (NameAfter("END", line) == name_) {
      isOpen_ = false;
    } else {
      if (current_ != nullptr) current_->text.append(line).append(1, '\n');
    }
    if (file.HasReplacedBytes()) {
      notes_.AddWarning(isOpen_ ? name_ : "", number,
                        "has bytes that are no UTF-8, read as U+FFFD");
    }
  }

  // The rest of the file is lost; to whom that matters says what is missing then.
  void EndAtLongLine(std::size_t number) {
    const std::string text =
        "is longer than " + std::to_string(FileIO::CFile::kMaxLine) + " bytes; the file ends here";
    if (isOpen_ && IsExpected(name_)) {
      notes_.AddProblem(name_, number, text);
    } else {
      notes_.AddWarning(isOpen_ ? name_ : "", number, text);
    }
    isOpen_ = false;
  }

  void Finish(std::size_t lastLine) {
    if (isOpen_) Unfinished(lastLine);
    for (const std::string& name : contents_) {
      if (!seen_.contains(name)) notes_.AddProblem(name, 0, "stands in the contents alone");
    }
  }

 private:
  void Begin(std::string_view name, std::size_t number) {
    if (isOpen_) Unfinished(number);
    isOpen_ = true;
    name_ = name;
    current_ = nullptr;
    const bool isListed = contents_.contains(name);
    if (!IsKnown(name)) {
      notes_.AddWarning(name, number, "is no module that this version knows; left out");
      if (isListed) seen_.emplace(name);
    } else if (!isListed) {
      notes_.AddProblem(name, number, "does not stand in the contents");
    } else if (!seen_.emplace(name).second) {
      notes_.AddProblem(name, number, "stands twice");
    } else {
      current_ = &modules_[std::string(name)];
      current_->firstLine = number + 1;
    }
  }

  // A module that is not known is missed only when the contents count on it.
  bool IsExpected(std::string_view name) const { return IsKnown(name) || contents_.contains(name); }

  void Unfinished(std::size_t line) {
    if (IsExpected(name_)) {
      notes_.AddProblem(name_, line, "has no end before this line: END " + name_);
    }
  }

  std::set<std::string, std::less<>> contents_;
  std::set<std::string, std::less<>> seen_;
  ModuleTexts& modules_;
  Notes& notes_;
  bool isOpen_{};
  std::string name_;       // of the module that the lines stand in
  ModuleText* current_{};  // null when it is left out
};

}  // namespace

const std::vector<std::string_view>& KnownModules() {
  static const std::vector<std::string_view> kNames = {
      "TITLES", "UNITS", "CODES", "CONCRETE", "REINFORCEMENT",
      "LINKS",  "STEEL", "FRP",   "SECTIONS", "TASKS"};
  return kNames;
}

bool ReadModules(CDataFile& file, ModuleTexts& modules, Notes& notes) {
  std::string line;
  do {
    if (file.NextLine(line) != LineStatus::line) return false;
  } while (IsComment(line));
  auto contents = ContentsOf(line);
  if (contents.empty()) return false;
  Sorter sorter(std::move(contents), modules, notes);
  LineStatus status = file.NextLine(line);
  for (; status == LineStatus::line; status = file.NextLine(line)) sorter.Add(file, line);
  if (status == LineStatus::tooLong) sorter.EndAtLongLine(file.LineNumber() + 1);
  if (status == LineStatus::unreadable) return false;
  sorter.Finish(file.LineNumber());
  return true;
}

}  // namespace Orlix::Legacy
