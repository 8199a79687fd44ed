// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A timetable as a PDF to be hung up, and what its pages look like.
#pragma once

#include <cstddef>
#include <string>

#include "printing/Picture.h"
#include "printing/PrintedFile.h"
#include "printing/Timetable.h"

namespace quode::printing {

enum class Paper { a4, letter };

struct PdfOptions {
    Paper paper = Paper::a4;
    bool isSheet = false;  ///< all months on one page, in small letters, in place of a page for each
};

/// The bytes of the file, with its fonts embedded: DejaVu Sans, and for what that lacks the fonts of this system.
/// Throws std::runtime_error when Cairo cannot make it.
std::string pdfOf(const Timetable& timetable, const PdfOptions& options);

/// How many pages the file has.
inline std::size_t pageCount(const Timetable& timetable, const PdfOptions& options) {
    return options.isSheet ? 1 : timetable.pages.size();
}

/// A page of the file, counted from 0, as a picture that is so many pixels wide and as high as the paper then is. Throws
/// std::out_of_range for another page and std::runtime_error when Cairo cannot make it.
Picture pictureOf(const Timetable& timetable, const PdfOptions& options, std::size_t page, int width);

/// The operations of the module "lib/quode/quode-print.so", by their names there. Cairo and Pango take longer to load than a
/// day to compute, so programs that print load them when they do; one that draws anyway links the library `Quode::pdf`.
/// They throw nothing: program and module may have a C++ library each.
using PrintPdf = void(PrintedFile& file, const Timetable& timetable, const PdfOptions& options) noexcept;
inline constexpr const char* printPdfSymbol = "quodePrintPdf";
using DrawPage = void(DrawnPage& drawn, const Timetable& timetable, const PdfOptions& options, std::size_t page,
                      int width) noexcept;
inline constexpr const char* drawPageSymbol = "quodeDrawPage";

}  // namespace quode::printing
