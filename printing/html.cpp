// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "printing/html.h"

#include <fmt/format.h>

#include <string_view>

#include "texts/markup.h"

namespace quode::printing {
namespace {

constexpr std::string_view style = R"css(
:root { color-scheme: light dark; --text: #1a1d21; --page: #fff; --accent: #0b5d4e; --line: #d5dbd9; --friday: #e7f2ef; }
@media (prefers-color-scheme: dark) {
  :root { --text: #e9ecec; --page: #15181a; --accent: #7fd1be; --line: #363d3f; --friday: #1f3530; }
}
@page { margin: 12mm; }
body { margin: 0 auto; padding: 1.5rem; max-width: 62rem; background: var(--page); color: var(--text);
  font-family: "DejaVu Sans", "Noto Sans", "Noto Naskh Arabic", sans-serif; font-size: 0.9rem; line-height: 1.4; }
header { text-align: center; border-bottom: 3px double var(--accent); margin-bottom: 1rem; }
h1, h2 { margin: 0.2em 0; color: var(--accent); }
h1 { font-size: 1.7rem; }
h2 { font-size: 1.3rem; }
p { margin: 0.2em 0; }
section { margin-bottom: 2.5rem; overflow-x: auto; }
table { width: 100%; border-collapse: collapse; font-variant-numeric: tabular-nums; }
th, td { padding: 0.22em 0.4em; border-bottom: 1px solid var(--line); text-align: center; white-space: nowrap; }
th { color: var(--accent); border-bottom: 2px solid var(--accent); }
td.weekday, th.weekday { text-align: start; }
td.iqama, th.iqama, td.night, th.night { font-style: italic; font-weight: normal; }
tr.friday { background: var(--friday); font-weight: bold; }
tr.religious td.day::after { content: "\00a0★"; color: var(--accent); }
footer, .remarks { font-size: 0.8rem; }
@media print {
  :root { --text: #000; --page: #fff; --accent: #0b5d4e; --line: #d5dbd9; --friday: #e7f2ef; }
  body { padding: 0; max-width: none; font-size: 9pt; -webkit-print-color-adjust: exact; print-color-adjust: exact; }
  section { break-after: page; margin: 0; }
  section:last-of-type { break-after: auto; }
  tr { break-inside: avoid; }
}
)css";

std::string_view classOf(Column::Kind kind) {
    switch (kind) {
        case Column::Kind::weekday:
            return "weekday";
        case Column::Kind::day:
            return "day";
        case Column::Kind::hijri:
            return "hijri";
        case Column::Kind::iqama:
            return "iqama";
        case Column::Kind::night:
            return "night";
        default:
            return "prayer";
    }
}

std::string rowOf(const Timetable& timetable, const Row& row) {
    std::string classes = row.isFriday ? "friday" : "";
    if (row.isReligiousDay) classes += classes.empty() ? "religious" : " religious";
    std::string text = classes.empty() ? "<tr>" : fmt::format("<tr class=\"{}\">", classes);
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const Column::Kind kind = timetable.columns[i].kind;
        const std::string cell = escapedMarkup(row.cells[i]);
        text += kind == Column::Kind::day
                    ? fmt::format("<td class=\"day\"><time datetime=\"{}\">{}</time></td>", row.date, cell)
                    : fmt::format("<td class=\"{}\">{}</td>", classOf(kind), cell);
    }
    return text + "</tr>\n";
}

std::string tableOf(const Timetable& timetable, const Page& page) {
    std::string text = "<table>\n<thead><tr>";
    for (const Column& column : timetable.columns) {
        text +=
            fmt::format("<th scope=\"col\" class=\"{}\">{}</th>", classOf(column.kind), escapedMarkup(column.heading));
    }
    text += "</tr></thead>\n<tbody>\n";
    for (const Row& row : page.rows) text += rowOf(timetable, row);
    return text + "</tbody>\n</table>\n";
}

std::string sectionOf(const Timetable& timetable, const Page& page) {
    std::string text = "<section>\n<header>\n";
    text +=
        fmt::format("<h1>{} · {}</h1>\n<p>{}</p>\n<h2>{}</h2>\n<p>{}</p>\n</header>\n", escapedMarkup(timetable.place),
                    escapedMarkup(timetable.title), escapedMarkup(timetable.placeDetails), escapedMarkup(page.heading),
                    escapedMarkup(page.hijriHeading));
    text += tableOf(timetable, page);
    text += "<div class=\"remarks\">\n";
    for (const std::string& remark : page.remarks) text += "<p>" + escapedMarkup(remark) + "</p>\n";
    text += "</div>\n<footer>\n";
    for (const std::string& note : timetable.notes) text += "<p>" + escapedMarkup(note) + "</p>\n";
    return text + "</footer>\n</section>\n";
}

}  // namespace

std::string htmlOf(const Timetable& timetable) {
    std::string text = fmt::format(
        "<!DOCTYPE html>\n<html lang=\"{}\" dir=\"{}\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>{} · {}</title>\n<style>",
        timetable.language, timetable.isRightToLeft ? "rtl" : "ltr", escapedMarkup(timetable.place),
        escapedMarkup(timetable.title));
    text += style;
    text += "</style>\n</head>\n<body>\n";
    for (const Page& page : timetable.pages) text += sectionOf(timetable, page);
    return text + "</body>\n</html>\n";
}

}  // namespace quode::printing
