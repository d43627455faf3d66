#include "print/html.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "print/html_style.h"

namespace tarvex::print {
namespace {

using reports::Column;
using reports::Part;
using reports::Report;
using reports::Row;
using reports::Section;

// From so many sections on, links to them stand at the top.
constexpr size_t kSectionsWorthLinks = 3;
// Up to so many columns a table across the whole page would tear its ends apart.
constexpr size_t kNarrowColumns = 3;

std::string Element(std::string_view tag, std::string_view text, std::string_view attributes = "") {
  return "<" + std::string(tag) + std::string(attributes) + ">" + Escaped(text) + "</" + std::string(tag) +
         ">";
}

void AddParagraphs(std::string& out, const std::vector<std::string>& lines, std::string_view css_class) {
  const std::string attributes = css_class.empty() ? "" : " class=\"" + std::string(css_class) + "\"";
  for (const std::string& line : lines) out += Element("p", line, attributes) + "\n";
}

std::vector<size_t> DrawnColumns(const Part& part) {
  std::vector<size_t> drawn;
  for (size_t i = 0; i < part.columns.size(); ++i) {
    if (part.columns[i].width > 0) drawn.push_back(i);
  }
  return drawn;
}

// The widest column names the row: the athlete, or the team.
size_t NamingColumn(const Part& part, const std::vector<size_t>& drawn) {
  return *std::max_element(drawn.begin(), drawn.end(),
                           [&](size_t a, size_t b) { return part.columns[a].width < part.columns[b].width; });
}

// The relative widths as shares, so that the columns of one event's heats stand below each other.
void AddColumnWidths(std::string& out, const Part& part, const std::vector<size_t>& drawn) {
  const int sum = std::accumulate(drawn.begin(), drawn.end(), 0, [&](int total, size_t column) {
    return total + part.columns[column].width;
  });
  out += "<colgroup>";
  for (const size_t column : drawn) {
    out += "<col style=\"width:" + std::to_string(100 * part.columns[column].width / sum) + "%\">";
  }
  out += "</colgroup>\n";
}

std::string ClassOf(const Column& column) {
  if (column.align == Align::Right) return " class=\"r\"";
  return " class=\"wrap\"";
}

void AddHeadings(std::string& out, const Part& part, const std::vector<size_t>& drawn) {
  out += "<thead><tr>";
  for (const size_t column : drawn) {
    const Column& definition = part.columns[column];
    out += Element("th", definition.heading, " scope=\"col\"" + ClassOf(definition));
  }
  out += "</tr></thead>\n";
}

// A row and its details are one group: nothing comes between them, on paper neither.
void AddRow(std::string& out, const Part& part, const Row& row, const std::vector<size_t>& drawn,
            size_t naming) {
  out += row.is_faint ? "<tbody class=\"faint\"><tr>" : "<tbody><tr>";
  for (const size_t column : drawn) {
    const std::string_view cell = column < row.cells.size() ? std::string_view(row.cells[column]) : "";
    const std::string css_class = ClassOf(part.columns[column]);
    out +=
        column == naming ? Element("th", cell, " scope=\"row\"" + css_class) : Element("td", cell, css_class);
  }
  out += "</tr>";
  if (!row.details.empty()) {
    const auto before = static_cast<size_t>(std::find(drawn.begin(), drawn.end(), naming) - drawn.begin());
    out += "<tr class=\"details\">";
    if (before > 0) out += "<td colspan=\"" + std::to_string(before) + "\"></td>";
    out += "<td colspan=\"" + std::to_string(drawn.size() - before) + "\">";
    for (const std::string& detail : row.details) out += Element("span", detail);
    out += "</td></tr>";
  }
  out += "</tbody>\n";
}

void AddPart(std::string& out, const Part& part) {
  const std::vector<size_t> drawn = DrawnColumns(part);
  if (part.rows.empty() || drawn.empty()) {
    if (!part.heading.empty()) out += Element("h3", part.heading) + "\n";
    AddParagraphs(out, part.notes, "note");
    return;
  }
  AddParagraphs(out, part.notes, "note");
  out += "<div class=\"table";
  if (part.keep_together) out += " whole";
  if (drawn.size() <= kNarrowColumns) out += " narrow";
  out += "\"><table>\n";
  if (!part.heading.empty()) out += Element("caption", part.heading) + "\n";
  AddColumnWidths(out, part, drawn);
  AddHeadings(out, part, drawn);
  const size_t naming = NamingColumn(part, drawn);
  for (const Row& row : part.rows) AddRow(out, part, row, drawn, naming);
  out += "</table></div>\n";
}

void AddSection(std::string& out, const Section& section, size_t number) {
  out += "<section id=\"s" + std::to_string(number) + "\"" + (section.starts_page ? " class=\"page\"" : "") +
         ">\n";
  if (!section.heading.empty()) {
    out += "<h2>" + Escaped(section.heading);
    if (!section.subheading.empty()) out += " " + Element("span", section.subheading, " class=\"round\"");
    out += "</h2>\n";
  }
  AddParagraphs(out, section.notes, "note");
  for (const Part& part : section.parts) AddPart(out, part);
  out += "</section>\n";
}

void AddLinks(std::string& out, const Report& report) {
  if (report.sections.size() < kSectionsWorthLinks) return;
  out += "<nav>\n";
  for (size_t i = 0; i < report.sections.size(); ++i) {
    const Section& section = report.sections[i];
    out += Element("a", section.heading, " href=\"#s" + std::to_string(i + 1) + "\"") + "\n";
  }
  out += "</nav>\n";
}

std::string PageTitle(const Report& report) {
  return report.meet_name.empty() ? report.title : report.title + " - " + report.meet_name.front();
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      case '\'':
        out += "&#39;";
        break;
      default:
        out += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
  }
  return out;
}

std::string ToHtml(const Report& report) {
  std::string out =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";
  out += Element("title", PageTitle(report)) + "\n<style>" + std::string(kHtmlStyle) +
         "</style>\n</head>\n<body>\n";
  out += "<header>\n";
  AddParagraphs(out, report.meet_name, "meet");
  AddParagraphs(out, report.meet_info, "");
  out += Element("h1", report.title) + "\n</header>\n";
  AddParagraphs(out, report.notes, "note");
  AddLinks(out, report);
  out += "<main>\n";
  for (size_t i = 0; i < report.sections.size(); ++i) AddSection(out, report.sections[i], i + 1);
  out += "</main>\n</body>\n</html>\n";
  return out;
}

}  // namespace tarvex::print
