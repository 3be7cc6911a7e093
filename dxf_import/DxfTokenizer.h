#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "dxf_import/DxfTag.h"

namespace Orlix::dxf_import {

/// Cuts a stream into tags, two lines each, in one pass. Lines end in a line feed or in a carriage
/// return and one; what they say is not looked at.
///
/// The text is read in blocks and stays where it was read: the values of all tags are good for as
/// long as the tokenizer lives, or until Forget.
class DxfTokenizer {
 public:
  /// Reads nothing yet. `in` must outlive the tokenizer; from the first Next on it may be read
  /// beyond the tag that is returned.
  explicit DxfTokenizer(std::istream& in) : in_(in) {}

  /// @return the next tag, or nothing at the end of the stream. A group code without a value line
  /// has an empty value; a line that is no integer of 32 bits gives kNoGroupCode.
  std::optional<DxfTag> Next();

  /// Gives back the text of all tags but the latest.
  void Forget() {
    if (blocks_.size() > 1) blocks_.erase(blocks_.begin(), blocks_.end() - 1);
  }

 private:
  static void TrimCarriageReturn(std::string_view& line);
  static std::string_view TrimWhitespace(std::string_view text);
  static int ParseGroupCode(std::string_view line);
  bool ReadLine(std::string_view& line);
  bool ReadBlock();

  std::istream& in_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  // What is left of the last block.
  const char* at_ = nullptr;
  const char* end_ = nullptr;
  int line_ = 0;
  bool isAtEnd_ = false;  ///< of the stream; the last block may still hold lines
};

}  // namespace Orlix::dxf_import
