// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/UITimesView.h"

#include "alarms/DatabaseFunctions.h"
#include "common/GlobalFuncs.h"
#include "texts/translation.h"
#include "views/drawing.h"

namespace quode {
namespace {

constexpr Size buttonSize{50.0, 30.0};
constexpr std::int32_t shapeAlarmOn = 9;
constexpr std::int32_t shapeAlarmOff = 10;

}  // namespace

UITimesView::UITimesView(const Rect& frame, QWidget* parent) : View(frame, parent) {
    GlobalFuncs& globalFuncs = GlobalFuncs::globalFuncs();
    const Settings& settings = globalFuncs.getSettings();
    const Size nameSize{120.0, 40.0};
    const Point nameCenter{125.0, 20.0};
    labelPrayName_ = addLabel(*this, nameCenter, nameSize, settings.fontName, settings.fontSize, "",
                              globalFuncs.firstColor(), alignLeft, false, false, 0);
    const Point timeCenter{nameCenter.x + nameSize.width * 0.5 + 20.0 + 15.0, 20.0};
    labelPrayTime_ = addLabel(*this, timeCenter, {100.0, 40.0}, settings.fontName, settings.fontSize, "00:00",
                              globalFuncs.firstColor(), alignCenter, false, false, 0);

    auto button = std::make_unique<UIButtonX>(Rect{0.0, 0.0, buttonSize.width, buttonSize.height});
    button->setCenter({frame.width - 15.0, frame.height * 0.5});
    button->setButtonType(2);
    button->setButtonShape(shapeAlarmOff);
    button->setSelectable(true);
    button->setTag(tagAlarmOnOff);
    button->setDelegate(this);
    // Translators: spoken for the bell of a prayer
    button->setSpokenName([this] { return _("Alarm for {}", labelPrayName_->text()); });
    buttonAlarmOnOff_ = addSubview(*this, std::move(button));
}

void UITimesView::detectAlarmOnOff(int currentCityId) {
    showAlarmOnOff(currentCityId, currentCityId >= 0 && DatabaseFunctions().getAlarmInfo(tag()).active);
}

void UITimesView::showAlarmOnOff(int currentCityId, bool isActive) {
    if (currentCityId < 0) {
        buttonAlarmOnOff_->setEnabled(false);
        return;
    }
    buttonAlarmOnOff_->setButtonShape(isActive ? shapeAlarmOn : shapeAlarmOff);
    buttonAlarmOnOff_->setSelected(isActive);
    buttonAlarmOnOff_->update();
}

void UITimesView::delegateUIButtonXTapped(UIButtonX& button, bool) {
    if (button.tag() == tagAlarmOnOff && delegate_ != nullptr) {
        delegate_->delegateUITimesView_AlarmOnOffTapped(button, *this);
    }
}

}  // namespace quode
