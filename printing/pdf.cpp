// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "printing/pdf.h"

#include <cmath>

#include "printing/pages.h"

namespace quode::printing {
namespace {

struct Size {
    double width, height;
};

Size sizeOf(Paper paper) {
    return paper == Paper::letter ? Size{612.0, 792.0} : Size{595.276, 841.890};
}

constexpr Font remarkFont{7.5}, noteFont{7.0};
constexpr double paragraphGap = 1.5;

double heightOf(Canvas& canvas, const std::vector<std::string>& texts, const Font& font) {
    double height = 0.0;
    for (const std::string& text : texts) {
        height += canvas.heightOf(text, canvas.width() - 2 * margin, font) + paragraphGap;
    }
    return height;
}

void drawTexts(Canvas& canvas, double& y, const std::vector<std::string>& texts, const Font& font, const Ink& ink) {
    const double width = canvas.width() - 2 * margin;
    for (const std::string& text : texts) {
        canvas.paragraph({margin, y, width, 0.0}, text, font, ink);
        y += canvas.heightOf(text, width, font) + paragraphGap;
    }
}

void drawPage(Canvas& canvas, const Timetable& timetable, const PdfOptions& options, std::size_t page) {
    if (options.isSheet) {
        drawYear(canvas, timetable);
    } else {
        drawMonth(canvas, timetable, timetable.pages.at(page));
    }
}

}  // namespace

double drawBand(Canvas& canvas, const Timetable& timetable, const std::string& heading, const std::string& below) {
    constexpr double height = 58.0, inner = 12.0;
    const Box band{margin, margin, canvas.width() - 2 * margin, height};
    canvas.fill(band, accent);
    const Box upper{band.x + inner, band.y + 7.0, (band.width - 3 * inner) / 2.0, 26.0};
    const Box lower{upper.x, band.y + 34.0, upper.width, 16.0};
    const auto opposite = [&](Box box) {
        box.x = canvas.width() - box.x - box.width;
        return box;
    };
    const auto put = [&](const Box& box, const std::string& text, Font font, Align align) {
        canvas.text(box, text, canvas.fitted(text, font, box.width), white, align);
    };
    put(upper, timetable.place, {22.0, true}, Align::start);
    put(lower, timetable.title, {11.0}, Align::start);
    put(opposite(upper), heading, {18.0, true}, Align::end);
    put(opposite(lower), below, {10.0}, Align::end);
    const Box details{margin, margin + height + 2.0, band.width, 13.0};
    canvas.text(details, timetable.placeDetails, canvas.fitted(timetable.placeDetails, {7.5}, details.width), grey,
                Align::centre);
    return details.y + details.height + 2.0;
}

double drawFooter(Canvas& canvas, const std::vector<std::string>& remarks, const std::vector<std::string>& notes) {
    constexpr double gap = 5.0;
    const double top =
        canvas.height() - margin - heightOf(canvas, remarks, remarkFont) - heightOf(canvas, notes, noteFont) - 2 * gap;
    double y = top + gap;
    drawTexts(canvas, y, remarks, remarkFont, black);
    canvas.fill({margin, y + 1.0, canvas.width() - 2 * margin, 0.5}, accent);
    y += gap;
    drawTexts(canvas, y, notes, noteFont, grey);
    return top;
}

std::string pdfOf(const Timetable& timetable, const PdfOptions& options) {
    const Size size = sizeOf(options.paper);
    Canvas canvas(size.width, size.height, timetable);
    for (std::size_t page = 0; page < pageCount(timetable, options); ++page) {
        drawPage(canvas, timetable, options, page);
        canvas.nextPage();
    }
    return canvas.finished();
}

Picture pictureOf(const Timetable& timetable, const PdfOptions& options, std::size_t page, int width) {
    const Size size = sizeOf(options.paper);
    Picture picture{width, int(std::lround(width * size.height / size.width)), {}};
    Canvas canvas(size.width, size.height, timetable, picture);
    drawPage(canvas, timetable, options, page);
    canvas.finished();
    return picture;
}

}  // namespace quode::printing
