#include "model/oxutil/OrlixString.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace Orlix {
namespace {

// Lengths about the border between in place and heap.
class OrlixStringLength : public testing::TestWithParam<std::size_t> {
 protected:
  const std::wstring text_ = std::wstring(GetParam(), L'x') + L"\u2030";
};

TEST_P(OrlixStringLength, CopiesAreEqualAndIndependent) {
  OrlixString<wchar_t> original(text_.c_str());
  const OrlixString<wchar_t> copy = original;
  EXPECT_EQ(copy.View(), text_);
  EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(copy)), text_);
  original = OrlixString<wchar_t>(L"other");
  EXPECT_TRUE(copy == text_.c_str());
  EXPECT_FALSE(copy == original);
}

TEST_P(OrlixStringLength, MovingLeavesAnEmptyTextThatCanBeUsedAgain) {
  OrlixString<wchar_t> source{std::wstring_view(text_)};
  OrlixString<wchar_t> target(L"a text that was on the heap before");
  target = std::move(source);
  EXPECT_EQ(target.View(), text_);
  EXPECT_TRUE(source.empty());  // NOLINT(bugprone-use-after-move): the header promises it
  EXPECT_TRUE(source == L"");
  source = target;
  OrlixString<wchar_t>& alias = source;
  source = alias;
  EXPECT_TRUE(source == target);
}

INSTANTIATE_TEST_SUITE_P(Sizes, OrlixStringLength, testing::Values(0u, 13u, 14u, 15u, 16u, 100u));

TEST(OrlixString, NullPointerIsEmpty) {
  const char* none = nullptr;
  EXPECT_TRUE(OrlixString<char>(none).empty());
  EXPECT_STREQ(OrlixString<char>(), "");
}

}  // namespace
}  // namespace Orlix
