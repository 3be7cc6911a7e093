#include "legacy/RecordReader.h"

#include <algorithm>
#include <cmath>

#include "model/oxutil/ParseDouble.h"
#include "model/oxutil/text.h"

namespace Orlix::Legacy {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::size_t kShownBytes = 60;  // of a text that stands where it should not

std::string Shown(std::string_view text) {
  const bool isWhole = text.size() <= kShownBytes;
  return "\"" + ValidUtf8(text.substr(0, kShownBytes)) + (isWhole ? "\"" : "…\"");
}

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// Takes a text in quotes, in which two quotes stand for one. Nothing when it has no end.
std::optional<std::string> TakeQuoted(std::string_view& text) {
  std::string taken;
  text.remove_prefix(1);
  for (;;) {
    const std::size_t quote = text.find('"');
    if (quote == std::string_view::npos) return std::nullopt;
    taken.append(text.substr(0, quote));
    text.remove_prefix(quote + 1);
    if (!text.starts_with('"')) return taken;
    taken += '"';
    text.remove_prefix(1);
  }
}

std::string TakeBare(std::string_view& text, std::string_view ends) {
  const std::size_t end = std::min(text.find_first_of(ends), text.size());
  std::string taken(text.substr(0, end));
  text.remove_prefix(end);
  return taken;
}

const char* NameOf(Range range) {
  switch (range) {
    case Range::any:
      break;
    case Range::positive:
      return "a positive number";
    case Range::notNegative:
      return "a number, not negative";
    case Range::zeroToOne:
      return "a number from 0 to 1";
  }
  return "a number";
}

bool IsWithin(double number, Range range) {
  if (!std::isfinite(number)) return false;
  if (range == Range::positive) return number > 0.0;
  if (range == Range::zeroToOne && number > 1.0) return false;
  return range == Range::any || number >= 0.0;
}

}  // namespace

RecordReader::RecordReader(std::string_view module, const ModuleText& text, bool isNewer,
                           Notes& notes)
    : module_(module),
      rest_(text.text),
      line_(text.firstLine - 1),
      isNewer_(isNewer),
      notes_(notes) {}

bool RecordReader::Next() {
  Finish();
  while (!rest_.empty()) {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    ++line_;
    if (Split(line)) return true;
  }
  return false;
}

bool RecordReader::Split(std::string_view line) {
  keyword_.clear();
  fields_.clear();
  attributes_.clear();
  nextField_ = 0;
  isSound_ = true;
  SkipBlanks(line);
  if (line.empty() || line.front() == '#') return false;
  keyword_ = TakeBare(line, kBlanks);
  for (SkipBlanks(line); !line.empty(); SkipBlanks(line)) {
    Field field;
    bool isQuoted = line.front() == '"';
    if (!isQuoted) field.text = TakeBare(line, " \t=\"");
    if (!isQuoted && line.starts_with('=')) {
      field.key = std::move(field.text);
      line.remove_prefix(1);
      isQuoted = line.starts_with('"');
      if (!isQuoted) field.text = TakeBare(line, " \t=\"");
    }
    if (isQuoted) {
      auto text = TakeQuoted(line);
      if (!text) {
        Problem("has a text without its closing quote");
        return false;
      }
      field.text = std::move(*text);
    }
    const bool isEnded = line.empty() || kBlanks.find(line.front()) != std::string_view::npos;
    if (!isEnded || (field.key.empty() && !attributes_.empty())) {
      Problem(isEnded ? "has a field after an attribute" : "has fields without a blank between");
      return false;
    }
    (field.key.empty() ? fields_ : attributes_).push_back(std::move(field));
  }
  return true;
}

bool RecordReader::IsFirst(std::set<std::string, std::less<>>& seen) {
  if (seen.emplace(keyword_).second) return true;
  Problem(keyword_ + " stands twice");
  return false;
}

std::optional<std::string> RecordReader::OptionalText() {
  if (!HasField()) return std::nullopt;
  return fields_[nextField_++].text;
}

std::string RecordReader::Text(std::string_view what) {
  auto text = OptionalText();
  if (!text) Mismatch(what, {}, "a field");
  return text.value_or("");
}

double RecordReader::Number(std::string_view what, Range range) {
  const auto text = OptionalText();
  if (!text) Mismatch(what, {}, NameOf(range));
  return text ? ToNumber(what, *text, range).value_or(0.0) : 0.0;
}

int RecordReader::Index(std::string_view what, int last) {
  const std::string text = Text(what);
  if (!isSound_) return -1;
  const auto number = ParseDouble(text);
  if (number && *number >= 1.0 && *number <= last && *number == std::floor(*number)) {
    return static_cast<int>(*number) - 1;
  }
  Mismatch(what, text, "a whole number, 1 to " + std::to_string(last));
  return -1;
}

RecordReader::Field* RecordReader::FindAttribute(std::string_view key) {
  const auto found = std::find_if(attributes_.begin(), attributes_.end(),
                                  [key](const Field& field) { return field.key == key; });
  return found == attributes_.end() ? nullptr : &*found;
}

bool RecordReader::HasAttribute(std::string_view key) const {
  return std::any_of(attributes_.begin(), attributes_.end(),
                     [key](const Field& field) { return field.key == key; });
}

std::optional<std::string> RecordReader::TextAttribute(std::string_view key) {
  Field* field = FindAttribute(key);
  if (field == nullptr) return std::nullopt;
  field->isAsked = true;
  return field->text;
}

std::optional<double> RecordReader::NumberAttribute(std::string_view key, Range range) {
  const auto text = TextAttribute(key);
  return text ? ToNumber(key, *text, range) : std::nullopt;
}

std::optional<double> RecordReader::ToNumber(std::string_view what, const std::string& text,
                                             Range range) {
  const auto number = ParseDouble(text);
  if (number && IsWithin(*number, range)) return number;
  Mismatch(what, text, NameOf(range));
  return std::nullopt;
}

void RecordReader::Mismatch(std::string_view what, std::string_view found,
                            std::string_view expected) {
  const std::string there = found.data() == nullptr ? "nothing" : Shown(found);
  Problem(std::string(what) + ": found " + there + ", expected " + std::string(expected));
}

void RecordReader::ReportUnknown() {
  const std::string text = Shown(keyword_) + " is no record that this module knows";
  nextField_ = fields_.size();
  attributes_.clear();
  LeaveOut(text);
}

void RecordReader::Finish() {
  if (keyword_.empty() || !isSound_) return;
  std::string text;
  if (HasField()) text = Shown(fields_[nextField_].text) + " is one field more than expected";
  for (const Field& attribute : attributes_) {
    if (attribute.isAsked) continue;
    // The second of two attributes of one name, too, is never asked for.
    text = Shown(attribute.key) + " is no attribute of this record, or stands twice";
  }
  if (!text.empty()) LeaveOut(text);
}

void RecordReader::LeaveOut(const std::string& text) {
  if (isNewer_) {
    Warning(text + "; left out");
  } else {
    Problem(text);
  }
}

void RecordReader::Problem(std::string_view text) {
  isSound_ = false;
  notes_.AddProblem(module_, line_, text);
}

void RecordReader::Warning(std::string_view text) { notes_.AddWarning(module_, line_, text); }

}  // namespace Orlix::Legacy
