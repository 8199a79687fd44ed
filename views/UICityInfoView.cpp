// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/UICityInfoView.h"

#include "common/GlobalFuncs.h"
#include "views/drawing.h"

namespace quode {

UICityInfoView::UICityInfoView(const Rect& frame, QWidget* parent) : View(frame, parent) {
    const GlobalFuncs& globalFuncs = GlobalFuncs::globalFuncs();
    const Settings& settings = globalFuncs.getSettings();
    const double width = frame.width - 65.0;
    const auto line = [&](double centerY) {
        return addLabel(*this, {width * 0.5 + 65.0, centerY}, {width, 40.0}, settings.fontName, settings.fontSize + 2,
                        "", globalFuncs.firstColor(), alignLeft, false, false, 0);
    };
    labelMiladi_ = line(20.0);
    labelHijri_ = line(60.0);
    labelGMT_ = line(100.0);
    labelQibla_ = line(140.0);
    labelSunInfo_ = line(180.0);
    labelMoonInfo_ = line(220.0);
    labelMoonOnSunSet_ = line(260.0);
}

}  // namespace quode
