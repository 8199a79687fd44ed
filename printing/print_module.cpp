// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The module behind `PrintModule`.
#include "printing/pdf.h"

extern "C" const quode::printing::PrintModule quodePrint;
const quode::printing::PrintModule quodePrint{&quode::printing::pdfOf};
