#include "model/vldata/document/CModelData.h"

#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix::Data {
namespace {

std::string TextMember(const Util::JsonValue& json, const char* name) {
  const Util::JsonValue* member = Util::FindMember(json, name);
  if (member == nullptr || !member->IsString()) return {};
  return ValidUtf8({member->GetString(), member->GetStringLength()});
}

}  // namespace

CTitles::CTitles(const Util::JsonValue& json)
    : project(TextMember(json, "project")),
      part(TextMember(json, "part")),
      description(TextMember(json, "description")),
      jobNumber(TextMember(json, "jobNumber")),
      initials(TextMember(json, "initials")) {}

}  // namespace Orlix::Data
