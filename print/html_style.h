#pragma once

#include <string_view>

namespace tarvex::print {

// One accent, hairlines, digits of one width. On narrow screens a table scrolls inside its own frame and the
// page stands still.
inline constexpr std::string_view kHtmlStyle = R"css(
:root {
  color-scheme: light dark;
  --base: #fff; --alt: #f7f9f9; --head: #ebeff1; --text: #1a2327; --text2: #52606a; --line: #dce1e4; --accent: #0a6478;
}
@media (prefers-color-scheme: dark) {
  :root {
    --base: #161b1e; --alt: #1b2124; --head: #252d31; --text: #e6ebed; --text2: #a6b2b9; --line: #333c41;
    --accent: #5cbbd0;
  }
}
* { box-sizing: border-box; }
html { -webkit-text-size-adjust: 100%; }
body {
  margin: 0 auto; padding: 16px; max-width: 60rem; background: var(--base); color: var(--text);
  font: 14px/1.4 Roboto, "Noto Sans", "DejaVu Sans", system-ui, sans-serif; font-variant-numeric: tabular-nums;
}
header { padding-bottom: 12px; border-bottom: 2px solid var(--accent); }
header p { margin: 0; color: var(--text2); }
header .meet { font-size: 16px; font-weight: 500; color: var(--text); }
h1 { margin: 4px 0 0; font-size: 22px; font-weight: 500; line-height: 1.25; }
nav { margin: 12px 0; columns: 18rem; column-gap: 24px; }
nav a { display: block; padding: 2px 0; color: var(--accent); text-decoration: none; break-inside: avoid; }
nav a:hover, nav a:focus { text-decoration: underline; }
section { margin: 24px 0 0; }
h2 { margin: 0 0 4px; font-size: 17px; font-weight: 500; }
h2 .round { color: var(--text2); font-weight: 400; }
.note { margin: 2px 0; color: var(--text2); }
.table { margin: 8px 0 16px; overflow-x: auto; }
table { width: 100%; border-collapse: collapse; }
.narrow { max-width: 28rem; }
caption { padding: 4px 0; text-align: left; font-weight: 500; white-space: nowrap; color: var(--accent); }
th, td { padding: 4px 8px; text-align: left; font-weight: 400; vertical-align: baseline; white-space: nowrap; }
thead th { background: var(--head); color: var(--text2); font-size: 12px; font-weight: 500; }
tbody { border-bottom: 1px solid var(--line); }
tbody .r, thead .r { text-align: right; }
tbody th { font-weight: 500; }
.details td { padding: 0 8px 4px; color: var(--text2); white-space: normal; }
.details span { display: inline-block; margin-right: 16px; }
.faint td, .faint th { color: var(--text2); }
@media (max-width: 40rem) {
  body { padding: 12px; font-size: 13px; }
  th, td, .details td { padding-left: 4px; padding-right: 4px; }
  tbody th, tbody .wrap { white-space: normal; }
}
@page { margin: 15mm 12mm; }
@media print {
  :root {
    color-scheme: light;
    --base: #fff; --alt: #fff; --head: #fff; --text: #000; --text2: #333; --line: #bbb; --accent: #000;
  }
  body { max-width: none; padding: 0; font-size: 9.5pt; }
  nav { display: none; }
  section { margin-top: 14pt; }
  .table { margin: 4pt 0 8pt; overflow: visible; }
  thead th { border-bottom: 1px solid #000; }
  th, td { padding: 1.5pt 4pt; }
  h2, caption, thead, .note { break-after: avoid; }
  thead { display: table-header-group; }
  tbody, .whole { break-inside: avoid; }
  .page { break-before: page; margin-top: 0; }
}
)css";

}  // namespace tarvex::print
