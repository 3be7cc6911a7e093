#include "model/oxutil/text.h"

#include "model/oxutil/utf.h"

namespace Orlix {
namespace {

std::string Narrow(std::wstring_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendUtf8(NextWide(text, at), narrow);
  return narrow;
}

}  // namespace

std::string to_string(const std::wstring& text) { return Narrow(text); }

std::string to_string(const OrlixString<wchar_t>& text) { return Narrow(text.View()); }

std::wstring to_wstring(const std::string& text) {
  std::wstring wide;
  wide.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendWide(NextUtf8(text, at), wide);
  return wide;
}

std::wstring to_wstring(const OrlixString<wchar_t>& text) { return std::wstring(text.View()); }

OrlixString<wchar_t> cstr(const std::string& text) {
  return OrlixString<wchar_t>(std::wstring_view(to_wstring(text)));
}

std::string ValidUtf8(std::string_view text) {
  std::string valid;
  valid.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendUtf8(NextUtf8(text, at), valid);
  return valid;
}

}  // namespace Orlix
