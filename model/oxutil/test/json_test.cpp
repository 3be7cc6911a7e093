#include "model/oxutil/json.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>
#include <stdexcept>

namespace Orlix::Util {
namespace {

TEST(ParseJson, SaysWhereTheTextIsWrongAndWhatWasExpected) {
  const std::string deep = std::string(64, '[');
  const struct {
    std::string text;
    const char* error;
  } kCases[] = {
      {"", "line 1, column 1: expected a value"},
      {"[1, 2", "line 1, column 6: expected a comma or ']'"},
      {"[1,]", "line 1, column 4: expected a value"},
      {"{\n  \"a\" 1}", "line 2, column 7: expected a colon after the member name"},
      {"{\"a\": 1 \"b\"}", "line 1, column 9: expected a comma or '}'"},
      {"{a: 1}", "line 1, column 2: expected a member name in quotation marks"},
      {"{} {}", "line 1, column 4: expected the end of the text"},
      {std::string("[]\0[]", 5), "line 1, column 3: expected the end of the text"},
      {"[\"\u2030\u2030\", x]", "line 1, column 8: expected a value"},  // columns are characters
      {"[\"a", "line 1, column 4: expected a closing quotation mark"},
      {"[\"\\q\"]",
       "line 1, column 3: expected no control character and no unknown escape in a string"},
      {"[1e999]", "line 1, column 2: expected a number within the range of doubles"},
      {"[1.]", "line 1, column 4: expected a digit"},
      {"[\"\xFF\"]", "line 1, column 5: expected UTF-8 text"},
      {"[\"\\uDC00\"]", "line 1, column 10: expected UTF-8 text"},
      {deep + "[", "line 1, column 65: expected at most 64 arrays and objects within one another"},
      {deep + "{}", "line 1, column 65: expected at most 64 arrays and objects within one another"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.text);
    JsonDocument document;
    document.SetInt(1);
    std::string error;
    EXPECT_FALSE(ParseJson(c.text, document, error));
    EXPECT_EQ(error, c.error);
    EXPECT_TRUE(document.IsNull());

    std::istringstream stream(c.text);
    EXPECT_FALSE(ParseJson(stream, document, error));
    EXPECT_EQ(error, c.error);
  }
}

TEST(ParseJson, AcceptsTheDeepestNestingAndReadsNoFurtherThanTheFirstFault) {
  const std::string deepest =
      std::string(kMaxJsonDepth - 1, '[') + std::string(kMaxJsonDepth - 1, ']');
  JsonDocument document;
  std::string error = "an old error";
  EXPECT_TRUE(ParseJson("\xEF\xBB\xBF[[],{\"a\":[]}," + deepest + "]", document, error)) << error;
  EXPECT_EQ(error, "");
  std::istringstream stream(std::string(1'000'000, '['));
  EXPECT_FALSE(ParseJson(stream, document, error));
  EXPECT_LE(stream.tellg(), 70);  // 65 brackets and what the reader looks ahead
}

TEST(ParseJson, KeepsIntegersWhole) {
  JsonDocument d;
  std::string error;
  ASSERT_TRUE(
      ParseJson("[-9223372036854775808, 18446744073709551615, 18446744073709551616]", d, error));
  EXPECT_EQ(d[0].GetInt64(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(d[1].GetUint64(), std::numeric_limits<std::uint64_t>::max());
  EXPECT_EQ(d[2].GetDouble(), 0x1p64);
}

TEST(PrettyJson, EveryFiniteDoubleComesBack) {
  std::mt19937_64 random(20);
  JsonDocument written(rapidjson::kArrayType);
  for (int i = 0; i < 20'000; ++i) {
    const double value = std::bit_cast<double>(random());
    if (std::isfinite(value)) written.PushBack(value, written.GetAllocator());
  }
  for (const double value : {0.1, 5.0, -0.0, 1e22, 1e15, 5e-324, 1.7976931348623157e308}) {
    written.PushBack(value, written.GetAllocator());
  }
  const std::string text = PrettyJson(written);
  JsonDocument read;
  std::string error;
  ASSERT_TRUE(ParseJson(text, read, error)) << error;
  EXPECT_TRUE(read == written);
  EXPECT_EQ(PrettyJson(read), text);
}

TEST(PrettyJson, WritesWhatJsonCanHold) {
  JsonDocument d(rapidjson::kObjectType);
  JsonAllocator& memory = d.GetAllocator();
  JsonValue list(rapidjson::kArrayType);
  list.PushBack(-std::numeric_limits<double>::infinity(), memory).PushBack(1, memory);
  d.AddMember("number", 5.0, memory).AddMember("list", list, memory);
  d.AddMember("bad", "\xFF\u2030", memory);
  EXPECT_EQ(PrettyJson(d),
            "{\n    \"number\": 5.0,\n    \"list\": [\n        null,\n        1\n    ],\n"
            "    \"bad\": \"\uFFFD\u2030\"\n}");
  EXPECT_EQ(FindMember(d, "list")->Size(), 2u);
  EXPECT_EQ(FindMember(d, "absent"), nullptr);
  EXPECT_EQ(FindMember(d["list"], "list"), nullptr);
}

TEST(CopyJson, RefusesWhatIsTooDeepToRecurse) {
  JsonDocument d;
  for (int level = 0; level < kMaxJsonDepth; ++level) {
    JsonValue outer(rapidjson::kArrayType);
    outer.PushBack(d, d.GetAllocator());
    static_cast<JsonValue&>(d) = outer;
  }
  JsonAllocator memory;
  EXPECT_TRUE(CopyJson(d, memory) == d);
  JsonValue tooDeep(rapidjson::kObjectType);
  tooDeep.AddMember("a", d, memory);
  EXPECT_THROW(CopyJson(tooDeep, memory), std::length_error);
  EXPECT_THROW(PrettyJson(tooDeep), std::length_error);
}

}  // namespace
}  // namespace Orlix::Util
