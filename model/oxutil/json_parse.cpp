#include <rapidjson/reader.h>

#include <charconv>
#include <cstdint>
#include <istream>
#include <optional>
#include <streambuf>
#include <system_error>

#include "model/oxutil/ParseDouble.h"
#include "model/oxutil/json.h"
#include "model/oxutil/text.h"

namespace Orlix::Util {
namespace {

// Bytes in memory, seen as a stream.
class ViewBuffer : public std::streambuf {
 public:
  explicit ViewBuffer(std::string_view text) {
    char* const begin = const_cast<char*>(text.data());  // the get area is never written to
    setg(begin, begin, begin + text.size());
  }
};

// What the reader takes its bytes from; knows line and column.
class Input {
 public:
  using Ch = char;

  explicit Input(std::streambuf& bytes) : bytes_(bytes) {}

  // A zero byte at the end, as the reader wants it.
  char Peek() const {
    return AtEnd() ? '\0' : std::char_traits<char>::to_char_type(bytes_.sgetc());
  }
  char Take() {
    const char taken = Peek();
    if (AtEnd()) return taken;
    bytes_.sbumpc();
    ++taken_;
    if (taken == '\n') {
      ++line_;
      column_ = 1;
    } else if ((static_cast<unsigned char>(taken) & 0xC0) != 0x80) {  // not inside a character
      ++column_;
    }
    return taken;
  }
  std::size_t Tell() const { return taken_; }
  bool AtEnd() const { return bytes_.sgetc() == std::char_traits<char>::eof(); }

  // Skips a byte-order mark; false when only a part of one is there.
  bool SkipMark() {
    if (Peek() != '\xEF') return true;
    for (const char byte : {'\xEF', '\xBB', '\xBF'}) {
      if (Take() != byte) return false;
    }
    column_ = 1;
    return true;
  }

  // The reader blames places that it has passed only within a number or an escape, which are one
  // line of ASCII.
  std::string Place(std::size_t offset) const {
    const std::size_t back = std::min(taken_ - offset, column_ - 1);
    return "line " + std::to_string(line_) + ", column " + std::to_string(column_ - back);
  }

  // Part of the reader's stream concept, used for reading in place only.
  char* PutBegin() { return nullptr; }
  void Put(char) {}
  std::size_t PutEnd(char*) { return 0; }

 private:
  std::streambuf& bytes_;
  std::size_t taken_{};
  std::size_t line_{1};
  std::size_t column_{1};
};

constexpr const char* kNotUtf8 = "UTF-8 text";
constexpr const char* kTooBig = "a number within the range of doubles";
constexpr const char* kTooDeep = "at most 64 arrays and objects within one another";
static_assert(kMaxJsonDepth == 64);

template <class Integer>
bool Fills(std::string_view text, Integer& value) {
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && stop == text.data() + text.size();
}

// Hands the reader's events on to the document, but for what the document must not hold.
class Filter : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Filter> {
 public:
  explicit Filter(JsonDocument& document) : document_(document) {}

  bool Null() { return document_.Null(); }
  bool Bool(bool value) { return document_.Bool(value); }
  // The reader's own conversion is wrong in the last place, or, in its full-precision mode, reads
  // outside its table for an exponent such as that of 0e-99999999999.
  bool RawNumber(const char* text, rapidjson::SizeType size, bool) {
    const std::string_view view(text, size);
    if (std::int64_t value = 0; Fills(view, value)) return document_.Int64(value);
    if (std::uint64_t value = 0; Fills(view, value)) return document_.Uint64(value);
    const std::optional<double> value = ParseDouble(view);
    return value ? document_.Double(*value) : Refuse(kTooBig);
  }
  bool String(const char* text, rapidjson::SizeType size, bool copy) {
    // Escaped halves of a surrogate pair pass the reader.
    const std::string_view view(text, size);
    return ValidUtf8(view) == view ? document_.String(text, size, copy) : Refuse(kNotUtf8);
  }
  bool Key(const char* text, rapidjson::SizeType size, bool copy) {
    return String(text, size, copy);
  }
  bool StartObject() { return Enter() && document_.StartObject(); }
  bool EndObject(rapidjson::SizeType count) { return Leave() && document_.EndObject(count); }
  bool StartArray() { return Enter() && document_.StartArray(); }
  bool EndArray(rapidjson::SizeType count) { return Leave() && document_.EndArray(count); }

  // What was expected where the filter ended the reading.
  const char* Expected() const { return expected_; }

 private:
  bool Refuse(const char* expected) {
    expected_ = expected;
    return false;
  }
  bool Enter() { return ++depth_ <= kMaxJsonDepth || Refuse(kTooDeep); }
  bool Leave() {
    --depth_;
    return true;
  }

  JsonDocument& document_;
  int depth_{};
  const char* expected_{""};
};

const char* ExpectedAt(rapidjson::ParseErrorCode code) {
  switch (code) {
    case rapidjson::kParseErrorDocumentRootNotSingular:
      return "the end of the text";
    case rapidjson::kParseErrorObjectMissName:
      return "a member name in quotation marks";
    case rapidjson::kParseErrorObjectMissColon:
      return "a colon after the member name";
    case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
      return "a comma or '}'";
    case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
      return "a comma or ']'";
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
      return "four hexadecimal digits after \\u";
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
      return "both halves of a surrogate pair";
    case rapidjson::kParseErrorStringEscapeInvalid:
      return "no control character and no unknown escape in a string";
    case rapidjson::kParseErrorStringMissQuotationMark:
      return "a closing quotation mark";
    case rapidjson::kParseErrorStringInvalidEncoding:
      return kNotUtf8;
    case rapidjson::kParseErrorNumberTooBig:
      return kTooBig;
    case rapidjson::kParseErrorNumberMissFraction:
    case rapidjson::kParseErrorNumberMissExponent:
      return "a digit";
    default:
      return "a value";
  }
}

bool Parse(std::streambuf& bytes, JsonDocument& document, std::string& error) {
  error.clear();
  document.SetNull();
  Input input(bytes);
  const auto fail = [&](std::size_t offset, const char* expected) {
    error = input.Place(offset) + ": expected " + expected;
    return false;
  };
  if (!input.SkipMark()) return fail(0, kNotUtf8);

  const auto read = [&](JsonDocument& target) {
    constexpr unsigned kFlags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;
    Filter filter(target);
    rapidjson::Reader reader;
    const rapidjson::ParseResult result = reader.Parse<kFlags>(input, filter);
    if (result.IsError()) {
      return fail(result.Offset(), result.Code() == rapidjson::kParseErrorTermination
                                       ? filter.Expected()
                                       : ExpectedAt(result.Code()));
    }
    // The reader takes a zero byte for the end.
    return input.AtEnd() || fail(input.Tell(), "the end of the text");
  };
  document.Populate(read);
  return error.empty();
}

}  // namespace

bool ParseJson(std::string_view text, JsonDocument& document, std::string& error) {
  ViewBuffer bytes(text);
  return Parse(bytes, document, error);
}

bool ParseJson(std::istream& stream, JsonDocument& document, std::string& error) {
  if (!stream.good() || stream.rdbuf() == nullptr) {
    document.SetNull();
    error = "line 1, column 1: expected a readable stream";
    return false;
  }
  return Parse(*stream.rdbuf(), document, error);
}

}  // namespace Orlix::Util
