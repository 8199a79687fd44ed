// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The module "quode-print.so".
#include <exception>

#include "printing/pdf.h"

using namespace quode::printing;

extern "C" void quodePrintPdf(PrintedFile& file, const Timetable& timetable, const PdfOptions& options) noexcept;
extern "C" void quodeDrawPage(DrawnPage& drawn, const Timetable& timetable, const PdfOptions& options, std::size_t page,
                              int width) noexcept;

void quodePrintPdf(PrintedFile& file, const Timetable& timetable, const PdfOptions& options) noexcept {
    try {
        file.bytes = pdfOf(timetable, options);
    } catch (const std::exception& error) {
        file.problem = error.what();
    }
}

void quodeDrawPage(DrawnPage& drawn, const Timetable& timetable, const PdfOptions& options, std::size_t page,
                   int width) noexcept {
    try {
        drawn.picture = pictureOf(timetable, options, page, width);
    } catch (const std::exception& error) {
        drawn.problem = error.what();
    }
}
