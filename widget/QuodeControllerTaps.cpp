// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The actions of the widget's buttons.
#include "alarms/DatabaseFunctions.h"
#include "common/GlobalFuncs.h"
#include "data/city_day.h"
#include "texts/translation.h"
#include "views/MessageView.h"
#include "widget/QuodeController.h"

namespace quode {
namespace {

constexpr std::int32_t shapeAlarmOn = 9;
constexpr std::int32_t shapeAlarmOff = 10;

constexpr std::int32_t keyAlarmNotSetUp = 1021;
constexpr std::int32_t keyAlarmWithoutCity = 1022;

}  // namespace

void QuodeController::delegateUICityNameView_CompassTapped(UIButtonX&, UICityNameView&) {
    const City* city = currentCity();
    if (city == nullptr) return;
    const Rect screen{0.0, 0.0, static_cast<double>(globalFuncs_.getScreenWidth()),
                      static_cast<double>(globalFuncs_.getScreenHeight())};
    const Site site = siteOf(*city);
    const double qibla = city->getQiblaAngle();
    const double declination = city->getMagneticVariation();
    compass_ = compassDevices_
                   ? CompassView::initWithLocation(screen, site.latitude, site.longitude, qibla, declination,
                                                   compassDevices_())
                   : CompassView::initWithLocation(screen, site.latitude, site.longitude, qibla, declination);
    QObject::connect(compass_.get(), &CompassView::closed, compass_.get(), &QObject::deleteLater);
    compass_->show();
}

void QuodeController::delegateUICityNameView_CityInfoTapped(UIButtonX&, UICityNameView&) {
    mainTable_->reloadData();
    refreshMainTableHeight();
}

void QuodeController::delegateUIFooterView_ShowAllTapped(UIFooterView&, bool showAll) {
    showOtherTimes_ = showAll;
    mainTable_->reloadData();
    refreshMainTableHeight();
}

void QuodeController::delegateUITimesView_AlarmOnOffTapped(UIButtonX& button, UITimesView& view) {
    DatabaseFunctions database;
    database.setPatience(DatabaseFunctions::drawingPatience);
    if (database.getAlarmInfo(view.tag()).melodyName.empty()) {
        toast(keyAlarmNotSetUp);
        resetAlarmButton(button);
        return;
    }
    if (currentCityId_ < 0 || userCities_.empty()) {
        toast(keyAlarmWithoutCity);
        resetAlarmButton(button);
        return;
    }
    const bool isWantedOn = button.buttonShape() != shapeAlarmOn;
    showAlarmState(button, isWantedOn);
    if (isWantedOn) {
        database.reCalculateAlarm(view.tag());
    } else {
        database.deleteAlarm(view.tag());
    }
    // Show the stored state. A row without a sound could not be read: it had one a moment ago.
    const AlarmInfo stored = database.getAlarmInfo(view.tag());
    if (!stored.melodyName.empty() && stored.active == isWantedOn) return;
    showAlarmState(button, stored.melodyName.empty() ? !isWantedOn : stored.active);
    MessageView::toastInView(*myView_, _("The alarm could not be changed. Please try again."));
}

void QuodeController::showAlarmState(UIButtonX& button, bool isOn) {
    button.setButtonShape(isOn ? shapeAlarmOn : shapeAlarmOff);
    button.setSelected(isOn);
    button.update();
}

void QuodeController::resetAlarmButton(UIButtonX& button) {
    showAlarmState(button, false);
}

void QuodeController::toast(std::int32_t textKey) {
    if (const std::optional<std::string> text = globalFuncs_.GetKeyValue(textKey)) {
        MessageView::toastInView(*myView_, *text);
    }
}

}  // namespace quode
