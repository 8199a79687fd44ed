// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/Label.h"

namespace quode {

/// The seven lines about the city and the day, from top to bottom, each 40 points high. Fixed names: all.
class UICityInfoView : public View {
    Q_OBJECT

  public:
    explicit UICityInfoView(const Rect& frame, QWidget* parent = nullptr);

    Label* labelMiladi() const { return labelMiladi_; }              ///< the Gregorian date
    Label* labelHijri() const { return labelHijri_; }                ///< the Hijri date
    Label* labelGMT() const { return labelGMT_; }                    ///< the time zone
    Label* labelQibla() const { return labelQibla_; }                ///< the direction of the qibla
    Label* labelSunInfo() const { return labelSunInfo_; }            ///< rise and set of the Sun
    Label* labelMoonInfo() const { return labelMoonInfo_; }          ///< rise and set of the Moon
    Label* labelMoonOnSunSet() const { return labelMoonOnSunSet_; }  ///< altitude of the Moon at sunset

  private:
    Label* labelMiladi_;
    Label* labelHijri_;
    Label* labelGMT_;
    Label* labelQibla_;
    Label* labelSunInfo_;
    Label* labelMoonInfo_;
    Label* labelMoonOnSunSet_;
};

}  // namespace quode
