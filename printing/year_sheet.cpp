// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <algorithm>

#include "printing/pages.h"

namespace quode::printing {
namespace {

constexpr std::size_t across = 3;
constexpr double gap = 8.0;
constexpr double mostRows = 31.0, headRows = 2.6;
constexpr double dayShare = 0.6;  // of the width of a time

/// The columns that fit: the day of the month and the prayers.
std::vector<std::size_t> shownColumns(const Timetable& timetable) {
    std::vector<std::size_t> shown;
    for (std::size_t i = 0; i < timetable.columns.size(); ++i) {
        const Column::Kind kind = timetable.columns[i].kind;
        if (kind == Column::Kind::day || kind == Column::Kind::prayer) shown.push_back(i);
    }
    return shown;
}

class MonthBlock {
  public:
    MonthBlock(Canvas& canvas, const Timetable& timetable, const Box& box)
        : canvas_(&canvas), timetable_(&timetable), box_(box), shown_(shownColumns(timetable)) {
        rowHeight_ = box.height / (mostRows + headRows);
        letters_ = rowHeight_ * 0.78;
        timeWidth_ = box.width / (double(shown_.size()) - 1.0 + dayShare);
        for (const Page& page : timetable.pages) fitLetters(page);
    }

    void draw(const Page& page, double x, double top) {
        box_.x = x;
        box_.y = top;
        const Box head{box_.x, box_.y, box_.width, rowHeight_ * 1.5};
        canvas_->fill(head, accent);
        canvas_->text(head, page.heading, {rowHeight_, true}, white, Align::centre);
        double y = head.y + head.height;
        forEachCell(y, [&](const Box& cell, std::size_t column) {
            const std::string& text = timetable_->columns[column].heading;
            canvas_->text(cell, text, canvas_->fitted(text, {letters_, true}, cell.width - 1.0), accent, Align::centre);
        });
        y += rowHeight_ * 1.1;
        for (const Row& row : page.rows) {
            drawRow(row, y);
            y += rowHeight_;
        }
    }

  private:
    template <typename Draw>
    void forEachCell(double y, const Draw& draw) {
        double x = box_.x;
        for (std::size_t i = 0; i < shown_.size(); ++i) {
            const double width = timeWidth_ * (i == 0 ? dayShare : 1.0);
            draw(Box{x, y, width, rowHeight_}, shown_[i]);
            x += width;
        }
    }

    // Every time of the year in letters of one size.
    void fitLetters(const Page& page) {
        for (const Row& row : page.rows) {
            for (std::size_t i = 1; i < shown_.size(); ++i) {
                letters_ = canvas_->fitted(row.cells[shown_[i]], {letters_, true}, timeWidth_ - 2.0).size;
            }
        }
    }

    void drawRow(const Row& row, double y) {
        if (row.isFriday) canvas_->fill({box_.x, y, box_.width, rowHeight_}, tint);
        canvas_->fill({box_.x, y + rowHeight_ - 0.2, box_.width, 0.2}, line);
        forEachCell(y, [&](const Box& cell, std::size_t column) {
            const bool isDay = timetable_->columns[column].kind == Column::Kind::day;
            const bool isMarked = isDay && row.isReligiousDay;
            canvas_->text(cell, row.cells[column], {letters_, row.isFriday || isMarked}, isMarked ? accent : black,
                          Align::centre);
        });
    }

    Canvas* canvas_;
    const Timetable* timetable_;
    Box box_;
    std::vector<std::size_t> shown_;
    double rowHeight_ = 0.0, letters_ = 0.0, timeWidth_ = 0.0;
};

}  // namespace

void drawYear(Canvas& canvas, const Timetable& timetable) {
    const double top = drawBand(canvas, timetable, timetable.year, "");
    const double bottom = drawFooter(canvas, timetable.remarks, timetable.notes);
    const std::size_t down = std::max<std::size_t>(1, (timetable.pages.size() + across - 1) / across);
    const double width = (canvas.width() - 2 * margin - gap * (across - 1)) / across;
    const double height = (bottom - top - gap * double(down - 1)) / double(down);
    MonthBlock block(canvas, timetable, {margin, top, width, height});
    for (std::size_t i = 0; i < timetable.pages.size(); ++i) {
        block.draw(timetable.pages[i], margin + double(i % across) * (width + gap),
                   top + double(i / across) * (height + gap));
    }
}

}  // namespace quode::printing
