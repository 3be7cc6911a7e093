#include "reports/html/HtmlPage.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "plot/drawing_text.h"

namespace Orlix::Velmo {

namespace {

// Dark on white, lines instead of colours; headings stay with what follows, rows stay whole and
// headings of tables are repeated on every page.
constexpr std::string_view kStyle = R"(
@page { size: A4 portrait; margin: 16mm 14mm 16mm 18mm;
  @bottom-right { content: "Page " counter(page) " of " counter(pages); font-size: 8pt; } }
@page sheet { size: A4 landscape; margin: 7mm; }
html { background: #fff; color: #000; }
body { font: 10pt/1.35 "DejaVu Sans", Verdana, Arial, sans-serif; max-width: 178mm;
  margin: 8mm auto; padding: 0 4mm; }
h1 { font-size: 16pt; margin: 0 0 2mm; }
h2 { font-size: 12.5pt; margin: 7mm 0 2mm; border-bottom: 0.4mm solid #000; }
h3 { font-size: 10.5pt; margin: 4mm 0 1.5mm; }
h1, h2, h3, caption { break-after: avoid; }
p, ul { margin: 1.5mm 0; orphans: 3; widows: 3; }
ul { padding-left: 5mm; }
.verdict { border: 0.4mm solid #000; padding: 2mm 3mm; font-weight: bold; break-inside: avoid; }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; margin: 2mm 0 3mm; font-size: 8.5pt; }
caption { text-align: left; font-weight: bold; padding: 1mm 0; }
thead { display: table-header-group; }
tr { break-inside: avoid; }
thead, thead tr { break-inside: avoid; break-after: avoid; }
tbody tr:first-child { break-before: avoid; break-after: avoid; }
tbody tr:last-child { break-before: avoid; }
th, td { padding: 0.5mm 1.5mm; text-align: left; vertical-align: top; overflow-wrap: break-word; }
td { border-top: 0.15mm solid #999; }
thead th { border-bottom: 0.3mm solid #000; vertical-align: bottom; }
th span { font-weight: normal; }
.n { text-align: right; font-variant-numeric: tabular-nums; }
td { max-width: 70mm; }
td.n { white-space: nowrap; }
tr.e td { font-weight: bold; }
.facts th { font-weight: normal; color: #333; white-space: nowrap; padding-left: 0; }
.facts td, .facts th { border: 0; max-width: none; }
.facts td { overflow-wrap: anywhere; }
figure { margin: 4mm 0; }
figure svg { display: block; width: 100%; height: auto; border: 0.15mm solid #999; }
figcaption { font-size: 9pt; padding-top: 1mm; }
h1, h2, h3, p, li, caption, figcaption { overflow-wrap: anywhere; }
@media screen { figure { width: min(277mm, 96vw); position: relative; left: 50%;
  transform: translateX(-50%); } }
@media print { body { margin: 0; padding: 0; max-width: none; } .scroll { overflow: visible; }
  figure { page: sheet; break-before: page; break-after: page; margin: 0; }
  figure svg { max-height: 187mm; border: 0; } }
)";

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : Plot::Drawable(text)) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&#39;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

HtmlPage::HtmlPage(std::string_view title) {
  text_.append("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n")
      .append("<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>")
      .append(Escaped(title))
      .append("</title>\n<style>")
      .append(kStyle)
      .append("</style>\n</head>\n<body>\n");
  Element("h1", title);
}

void HtmlPage::Element(std::string_view tag, std::string_view text) {
  text_.append("<").append(tag).append(">").append(Escaped(text));
  text_.append("</").append(tag).append(">\n");
}

void HtmlPage::Heading(std::string_view text) { Element("h2", text); }
void HtmlPage::Subheading(std::string_view text) { Element("h3", text); }
void HtmlPage::Paragraph(std::string_view text) { Element("p", text); }

void HtmlPage::Verdict(std::string_view text) {
  text_.append("<p class=\"verdict\">").append(Escaped(text)).append("</p>\n");
}

void HtmlPage::List(const std::vector<std::string>& lines) {
  text_ += "<ul>\n";
  for (const std::string& line : lines) Element("li", line);
  text_ += "</ul>\n";
}

void HtmlPage::Facts(const std::vector<std::vector<std::string>>& pairs) {
  text_ += "<table class=\"facts\">\n";
  for (const auto& pair : pairs) {
    assert(pair.size() == 2);
    if (pair[1].empty()) continue;
    text_.append("<tr><th>").append(Escaped(pair[0])).append("</th><td>").append(Escaped(pair[1]));
    text_ += "</td></tr>\n";
  }
  text_ += "</table>\n";
}

void HtmlPage::Table(const HtmlTable& table) {
  const auto open = [&](const char* tag, const HtmlTable::Column& column) {
    text_.append("<").append(tag).append(column.isNumber ? " class=\"n\">" : ">");
  };
  text_ += "<div class=\"scroll\"><table>\n";
  if (!table.caption.empty()) Element("caption", table.caption);
  text_ += "<thead><tr>";
  for (const HtmlTable::Column& column : table.columns) {
    open("th", column);
    text_ += Escaped(column.heading);
    if (!column.unit.empty()) text_ += "<br><span>[" + Escaped(column.unit) + "]</span>";
    text_ += "</th>";
  }
  text_ += "</tr></thead>\n<tbody>\n";
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    assert(table.rows[i].size() == table.columns.size());
    const bool isEmphasised = std::ranges::find(table.emphasised, i) != table.emphasised.end();
    text_ += isEmphasised ? "<tr class=\"e\">" : "<tr>";
    for (std::size_t j = 0; j < table.columns.size(); ++j) {
      open("td", table.columns[j]);
      text_.append(Escaped(table.rows[i][j])).append("</td>");
    }
    text_ += "</tr>\n";
  }
  text_ += "</tbody></table></div>\n";
}

void HtmlPage::Sheet(std::string_view svg, std::string_view caption) {
  text_.append("<figure>\n").append(svg).append("\n");
  Element("figcaption", caption);
  text_ += "</figure>\n";
}

std::string HtmlPage::Finish() { return std::move(text_.append("</body>\n</html>\n")); }

}  // namespace Orlix::Velmo
