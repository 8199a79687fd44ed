// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A timetable as a PDF to be hung up.
#pragma once

#include <string>

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

/// The operations of the module "lib/quode/quode-print.so". Cairo and Pango take longer to load than a day to compute,
/// so programs that print load them when they do; one that draws anyway links the library `Quode::pdf`.
struct PrintModule {
    std::string (*pdf)(const Timetable&, const PdfOptions&);
};

/// The name under which the module gives its operations.
inline constexpr const char* printSymbol = "quodePrint";

}  // namespace quode::printing
