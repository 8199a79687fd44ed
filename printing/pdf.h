// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A timetable as a PDF to be hung up.
#pragma once

#include <string>

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

/// The operation of the module "lib/quode/quode-print.so", by its name there. Cairo and Pango take longer to load than a
/// day to compute, so programs that print load them when they do; one that draws anyway links the library `Quode::pdf`.
/// It throws nothing: program and module may have a C++ library each.
using PrintPdf = void(PrintedFile& file, const Timetable& timetable, const PdfOptions& options) noexcept;
inline constexpr const char* printPdfSymbol = "quodePrintPdf";

}  // namespace quode::printing
