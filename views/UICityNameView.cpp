// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/UICityNameView.h"

#include "common/GlobalFuncs.h"
#include "texts/translation.h"
#include "views/drawing.h"

namespace quode {
namespace {

constexpr std::int32_t shapeCompass = 7;
constexpr std::int32_t shapeInformation = 8;

std::unique_ptr<UIButtonX> roundButton(Point center, std::int32_t shape, int tag, const char* spokenName) {
    auto button = std::make_unique<UIButtonX>(Rect{0.0, 0.0, 50.0, 30.0});
    button->setCenter(center);
    button->setButtonType(2);
    button->setButtonShape(shape);
    button->setTag(tag);
    button->setSpokenName([spokenName] { return std::string(_(spokenName)); });
    return button;
}

}  // namespace

UICityNameView::UICityNameView(const Rect& frame, QWidget* parent) : View(frame, parent) {
    const GlobalFuncs& globalFuncs = GlobalFuncs::globalFuncs();
    const Settings& settings = globalFuncs.getSettings();
    const double w = frame.width;
    const double h = frame.height;
    labelCityName_ = addLabel(*this, {(w - 50.0) * 0.5 + 50.0 + 15.0, 20.0}, {w - 50.0, 40.0}, settings.fontName,
                              settings.fontSize, "", globalFuncs.firstColor(), alignLeft, false, false, 0);

    auto compass = roundButton({w - 65.0, h - 20.0}, shapeCompass, tagCompass, N_("Qibla compass"));
    compass->setEnabledColor(globalFuncs.thirdColor());
    compass->setDelegate(this);
    buttonCompass_ = addSubview(*this, std::move(compass));

    auto information = roundButton({w - 15.0, h - 20.0}, shapeInformation, tagCityInfo, N_("City information"));
    information->text()->setTextAlign(alignCenter);
    information->setSelectable(true);
    information->setDelegate(this);
    buttonCityInfo_ = addSubview(*this, std::move(information));
}

void UICityNameView::delegateUIButtonXTapped(UIButtonX& button, bool) {
    if (delegate_ == nullptr) return;
    if (button.tag() == tagCompass) {
        delegate_->delegateUICityNameView_CompassTapped(button, *this);
    } else if (button.tag() == tagCityInfo) {
        delegate_->delegateUICityNameView_CityInfoTapped(button, *this);
    }
}

}  // namespace quode
