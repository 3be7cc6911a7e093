#include "model/oxutil/OrlixString.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Orlix {
namespace {

TEST(OrlixString, CopiesAreIndependentAndAMovedTextIsEmpty) {
  for (const std::size_t length : {0u, 14u, 15u, 16u, 100u}) {  // in place and on the heap
    SCOPED_TRACE(length);
    const std::wstring text = std::wstring(length, L'x') + L"\u2030";
    OrlixString<wchar_t> source(text.c_str());
    const OrlixString<wchar_t> copy = source;
    OrlixString<wchar_t> target(L"a text that was on the heap before");
    target = std::move(source);
    EXPECT_EQ(target.View(), text);
    EXPECT_TRUE(source.empty());  // NOLINT(bugprone-use-after-move): the header promises it
    source = target;
    OrlixString<wchar_t>& alias = source;
    source = alias;
    EXPECT_TRUE(source == target);
    EXPECT_EQ(OrlixString<wchar_t>(std::move(target)).View(), text);
    target = OrlixString<wchar_t>(L"other");
    EXPECT_FALSE(source == target);
    EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(copy)), text);
  }
  const char* none = nullptr;
  EXPECT_STREQ(OrlixString<char>(none), "");
}

}  // namespace
}  // namespace Orlix
