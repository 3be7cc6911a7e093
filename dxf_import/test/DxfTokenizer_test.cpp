#include "dxf_import/DxfTokenizer.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "dxf_import/tag_numbers.h"

namespace Orlix::dxf_import {
namespace {

// "code=value@line" of all tags.
std::vector<std::string> TagsOf(const std::string& text, bool forgets = false) {
  std::istringstream in(text);
  DxfTokenizer tokenizer(in);
  std::vector<DxfTag> tags;
  std::vector<std::string> texts;
  const auto textOf = [](const DxfTag& tag) {
    return std::to_string(tag.code) + '=' + std::string(tag.value) + '@' + std::to_string(tag.line);
  };
  while (const auto tag = tokenizer.Next()) {
    tags.push_back(*tag);
    if (!forgets) continue;
    tokenizer.Forget();
    texts.push_back(textOf(*tag));
  }
  if (!forgets) {
    for (const DxfTag& tag : tags) texts.push_back(textOf(tag));
  }
  return texts;
}

TEST(DxfTokenizer, TakesTwoLinesATag) {
  const struct {
    const char* what;
    std::string text;
    std::vector<std::string> want;
  } kCases[] = {
      {"no text has no tags", "", {}},
      {"blanks and tabs around both lines go", " \t10\t \n \tA B\t\n", {"10=A B@1"}},
      {"line ends of both kinds mean the same", "0\r\nEOF\r\n8\n0\n", {"0=EOF@1", "8=0@3"}},
      {"one carriage return goes, a second stays", "10\r\r\nx\r\r\n", {"-1=x\r@1"}},
      {"blanks before the carriage return go", "10 \r\nx \r\n", {"10=x@1"}},
      {"the last lines need no line feed", "0\nEOF", {"0=EOF@1"}},
      {"a code without a value has an empty one", "0\nA\n10\n", {"0=A@1", "10=@3"}},
      {"an empty line is a line", "\n\n\n\n", {"-1=@1", "-1=@3"}},
      {"what is no integer has no code",
       "abc\nx\n1.0\ny\n99999999999\nz\n+5\nw\n",
       {"-1=x@1", "-1=y@3", "-1=z@5", "5=w@7"}},
      {"any byte is text", std::string("\xEF\xBB\xBF") + "0\n\xFF\0\x01\n", {"-1=\xFF@1"}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(TagsOf(c.text), c.want);
  }
}

// Blocks end anywhere: within lines, between the two of a line end, within a line longer than any.
TEST(DxfTokenizer, DoesNotShowWhereBlocksEnd) {
  std::string text;
  std::vector<std::string> want;
  for (int i = 0; text.size() < 1'000'000; ++i) {
    const std::string value(static_cast<std::size_t>(i == 500 ? 300'000 : i % 91), 'v');
    want.push_back(std::to_string(i % 7) + '=' + value + '@' + std::to_string(2 * i + 1));
    text += std::to_string(i % 7) + "\r\n" + value + "\r\n";
  }
  EXPECT_EQ(TagsOf(text), want);
  EXPECT_EQ(TagsOf(text, true), want);
}

TEST(ParseInteger, TakesOneSignAndDigitsAlone) {
  const struct {
    const char* text;
    std::optional<int> want;
  } kCases[] = {{"5", 5},
                {"+5", 5},
                {"-5", -5},
                {"007", 7},
                {"2147483647", 2147483647},
                {"-2147483648", -2147483647 - 1},
                {"2147483648", {}},
                {"", {}},
                {"+", {}},
                {"+-5", {}},
                {"--5", {}},
                {"70a", {}},
                {"1.0", {}},
                {" 5", {}},
                {"\v5", {}},
                {"0x1", {}}};
  for (const auto& c : kCases) EXPECT_EQ(ParseInteger(c.text), c.want) << '"' << c.text << '"';
}

}  // namespace
}  // namespace Orlix::dxf_import
