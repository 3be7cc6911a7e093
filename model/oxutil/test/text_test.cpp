#include "model/oxutil/text.h"

#include <gtest/gtest.h>

#include "model/oxutil/utf.h"

namespace Orlix {
namespace {

// The Unicode Standard 15.0, Table 3-8 and section 3.9, give the bad sequences and their
// replacements.
TEST(Text, ReadsUtf8AndReplacesWhatIsNone) {
  const struct {
    const char* what;
    std::string narrow;
    std::u32string want;
  } kCases[] = {
      {"first and last of each length", "\x7F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF",
       U"\x7F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"},
      {"zero byte", std::string("a\0b", 3), std::u32string(U"a\0b", 3)},
      {"overlong slash", "\xC0\xAF", U"\uFFFD\uFFFD"},
      {"overlong in three bytes", "\xE0\x9F\xBF", U"\uFFFD\uFFFD\uFFFD"},
      {"surrogate", "\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},
      {"above the last character", "\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"cut short, then a letter", "\xF0\x9F\x98z", U"\uFFFDz"},
      {"cut short at the end", "\xE2\x80", U"\uFFFD"},
      {"lone continuation", "\x80", U"\uFFFD"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const std::wstring want(c.want.begin(), c.want.end());
    EXPECT_EQ(to_wstring(c.narrow), want);
    EXPECT_EQ(cstr(c.narrow).View(), want);
    EXPECT_EQ(ValidUtf8(c.narrow), to_string(want));
  }
}

TEST(Text, WideTextSurvivesTheWayThereAndBack) {
  std::wstring all;
  for (char32_t c = 0; c <= 0x10FFFF; c += c < 0x900 ? 1 : 0x0B) {
    if (c < 0xD800 || c > 0xDFFF) all.push_back(static_cast<wchar_t>(c));
  }
  EXPECT_EQ(to_wstring(to_string(all)), all);
  const std::wstring bad = {static_cast<wchar_t>(0xD800), L'a', static_cast<wchar_t>(0x110000)};
  EXPECT_EQ(to_string(bad), "\uFFFDa\uFFFD");
}

TEST(Text, PairsSurrogatesInSixteenBitUnits) {
  std::u16string text;
  AppendWide(U'\U0001F600', text);
  EXPECT_EQ(text, u"\U0001F600");
  const char16_t kUnits[] = {0xD83D, 0xDE00, 0xDE00, 0xD83D, u'a', 0xD83D};
  const std::u16string_view units(kUnits, std::size(kUnits));
  std::u32string characters;
  for (std::size_t at = 0; at < units.size();) characters.push_back(NextWide(units, at));
  EXPECT_EQ(characters, U"\U0001F600\uFFFD\uFFFDa\uFFFD");
}

}  // namespace
}  // namespace Orlix
