// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <numeric>

#include "printing/pages.h"

namespace quode::printing {
namespace {

constexpr double headShare = 1.4;  // of the head of the table, in rows
constexpr double largestRow = 22.0, largestLetters = 11.0;
constexpr double cellPadding = 7.0;  // of both sides together

Font fontOf(const Column& column, const Row& row, double size) {
    const bool isAside = column.kind == Column::Kind::iqama || column.kind == Column::Kind::night;
    return {size, row.isFriday && !isAside, isAside};
}

Font headFont(double size) {
    return {size * 0.92, true};
}

std::string cellText(const Column& column, const Row& row, std::size_t index) {
    const bool hasStar = column.kind == Column::Kind::day && row.isReligiousDay;
    return hasStar ? row.cells[index] + " ★" : row.cells[index];
}

std::vector<double> naturalWidths(Canvas& canvas, const Timetable& timetable, const Page& page, double size) {
    std::vector<double> widths;
    for (std::size_t i = 0; i < timetable.columns.size(); ++i) {
        const Column& column = timetable.columns[i];
        double widest = canvas.widthOf(column.heading, headFont(size));
        for (const Row& row : page.rows) {
            widest = std::max(widest, canvas.widthOf(cellText(column, row, i), fontOf(column, row, size)));
        }
        widths.push_back(widest + cellPadding);
    }
    return widths;
}

struct Grid {
    double top = 0.0, rowHeight = 0.0, letters = 0.0;
    std::vector<double> widths;
};

Grid gridFor(Canvas& canvas, const Timetable& timetable, const Page& page, double top, double bottom) {
    Grid grid{top, std::min(largestRow, (bottom - top) / (double(page.rows.size()) + headShare)), 0.0, {}};
    grid.letters = std::min(largestLetters, grid.rowHeight * 0.58);
    const double width = canvas.width() - 2 * margin;
    grid.widths = naturalWidths(canvas, timetable, page, grid.letters);
    double natural = std::accumulate(grid.widths.begin(), grid.widths.end(), 0.0);
    if (natural > width) {
        // Only the letters become smaller, not the room between them.
        const double padding = cellPadding * double(grid.widths.size());
        grid.letters *= std::max(0.3, (width - padding) / (natural - padding));
        grid.widths = naturalWidths(canvas, timetable, page, grid.letters);
        natural = std::accumulate(grid.widths.begin(), grid.widths.end(), 0.0);
    }
    const double more = (width - natural) / double(grid.widths.size());
    for (double& each : grid.widths) each += more;
    return grid;
}

Align alignOf(const Column& column) {
    return column.kind == Column::Kind::weekday ? Align::start : Align::centre;
}

void drawHead(Canvas& canvas, const Timetable& timetable, const Grid& grid) {
    double x = margin;
    const double height = grid.rowHeight * headShare;
    for (std::size_t i = 0; i < timetable.columns.size(); ++i) {
        const Column& column = timetable.columns[i];
        canvas.text(Box{x, grid.top, grid.widths[i], height}.inset(3.0), column.heading, headFont(grid.letters), accent,
                    alignOf(column));
        x += grid.widths[i];
    }
    canvas.fill({margin, grid.top + height - 1.0, canvas.width() - 2 * margin, 1.0}, accent);
}

void drawRow(Canvas& canvas, const Timetable& timetable, const Row& row, const Grid& grid, double y) {
    const double width = canvas.width() - 2 * margin;
    if (row.isFriday) canvas.fill({margin, y, width, grid.rowHeight}, tint);
    canvas.fill({margin, y + grid.rowHeight - 0.4, width, 0.4}, line);
    double x = margin;
    for (std::size_t i = 0; i < timetable.columns.size(); ++i) {
        const Column& column = timetable.columns[i];
        const Ink& ink = row.isReligiousDay && column.kind == Column::Kind::day ? accent : black;
        canvas.text(Box{x, y, grid.widths[i], grid.rowHeight}.inset(3.0), cellText(column, row, i),
                    fontOf(column, row, grid.letters), ink, alignOf(column));
        x += grid.widths[i];
    }
}

}  // namespace

void drawMonth(Canvas& canvas, const Timetable& timetable, const Page& page) {
    const double top = drawBand(canvas, timetable, page.heading, page.hijriHeading);
    const double bottom = drawFooter(canvas, page.remarks, timetable.notes);
    const Grid grid = gridFor(canvas, timetable, page, top, bottom);
    drawHead(canvas, timetable, grid);
    double y = grid.top + grid.rowHeight * headShare;
    for (const Row& row : page.rows) {
        drawRow(canvas, timetable, row, grid, y);
        y += grid.rowHeight;
    }
}

}  // namespace quode::printing
