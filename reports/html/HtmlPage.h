#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Orlix::Velmo {

/// Text as it stands in HTML: what means something there is escaped, control characters become
/// spaces, bytes that are no UTF-8 U+FFFD.
std::string Escaped(std::string_view text);

/// A table of texts.
struct HtmlTable {
  struct Column {
    std::string heading;
    std::string unit{};
    bool isNumber{true};  ///< stands at the right
  };
  std::string caption{};
  std::vector<Column> columns;
  /// As many cells a row as there are columns.
  std::vector<std::vector<std::string>> rows{};
  /// Rows to be looked at, by index; set in bold.
  std::vector<std::size_t> emphasised{};
};

/// One HTML page that needs nothing beside it: no script, no file, no network. Made for A4: text
/// upright, sheets of drawings on pages of their own, lying. All texts are escaped here.
class HtmlPage {
 public:
  explicit HtmlPage(std::string_view title);

  void Heading(std::string_view text);
  void Subheading(std::string_view text);
  void Paragraph(std::string_view text);
  /// A paragraph that stands out.
  void Verdict(std::string_view text);
  void List(const std::vector<std::string>& lines);
  /// Pairs of a label and its text; those without a text are left out.
  void Facts(const std::vector<std::vector<std::string>>& pairs);
  void Table(const HtmlTable& table);
  /// A drawing on an A4 sheet, lying.
  /// @param svg  an element without XML declaration, its ids unique on the page; is not escaped
  void Sheet(std::string_view svg, std::string_view caption);

  /// Ends the page. @return its text.
  std::string Finish();

 private:
  void Element(std::string_view tag, std::string_view text);

  std::string text_;
};

}  // namespace Orlix::Velmo
