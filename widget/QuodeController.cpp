// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "widget/QuodeController.h"

#include <chrono>
#include <set>
#include <utility>

#include "alarms/DatabaseFunctions.h"
#include "common/GlobalFuncs.h"
#include "data/city_day.h"

namespace quode {
namespace {

using namespace std::chrono_literals;

constexpr double rowHeight = 40.0;
constexpr double fullInfoHeight = 280.0;
constexpr double infoHeightWithoutCity = 80.0;
constexpr double hiddenRowHeight = 0.01;

// The heights of the rows in the height of the widget, independent of their own heights.
constexpr double mainTimesHeight = 240.0;
constexpr double otherTimesHeight = 120.0;
constexpr double footerHeight = 37.0;

constexpr EdgeInsets separatorInset{0.0, 50.0, 0.0, 0.0};
constexpr auto tickInterval = 100ms;

// The rows of the table.
constexpr int rowReligious = 0, rowCityName = 1, rowCityInfo = 2, rowFirstTime = 3, rowFirstOtherTime = 9,
              rowFooter = 12, rowCount = 13;
constexpr int cityNameTag = 101;
constexpr int footerTag = 0;

double heightOf(const View* view) {
    return view == nullptr ? 0.0 : view->frame().height;
}

constexpr int codeOfRow(int row) {
    return firstPrayer + row - rowFirstTime;
}

}  // namespace

void QuodeController::initialize(const std::string& bundlePath) {
    GlobalFuncs::globalFuncs().setApplicationBundlePath(bundlePath);
}

QuodeController::QuodeController(std::function<CompassDevices()> compassDevices)
    : globalFuncs_(GlobalFuncs::globalFuncs()), compassDevices_(std::move(compassDevices)) {
    currentInfo_.MiladiDate.Minutes = -1;  // no date yet
    loadView();
}

QuodeController::~QuodeController() {
    unloadView();
}

void QuodeController::hostDidPresent() {
    loadView();
    refreshMainTableHeight();
}

void QuodeController::hostDidDismiss() {
    unloadView();
}

Size QuodeController::preferredViewSize() const {
    return {static_cast<double>(globalFuncs_.getWidgetWidth()), getWidgetHeight()};
}

// --- building and tearing down ---------------------------------------------------------------------------------------

void QuodeController::loadView() {
    isWidgetLoading_ = true;
    userCities_.clear();
    loadAllUserCities();
    const double width = globalFuncs_.getWidgetWidth();
    myView_ = std::make_unique<View>(Rect{0.0, 0.0, width, getWidgetHeight()});
    myView_->setAutoresizingMask(flexibleWidth);
    initializeParameters();
    makeCityRows(width);
    makeTimesRows(width);
    footerView_ = std::make_unique<UIFooterView>(Rect{0.0, 0.0, width, rowHeight});
    footerView_->setDelegate(this);
    makeTable();
    finalizeButtonStateInViews();
    view_ = myView_.get();
    refresh();
    isWidgetLoading_ = false;
    isWidgetUnloading_ = false;
    startTimer();
}

void QuodeController::makeCityRows(double width) {
    cityNameView_ = std::make_unique<UICityNameView>(Rect{0.0, 0.0, width, rowHeight});
    cityNameView_->setDelegate(this);
    if (userCities_.empty()) cityNameView_->buttonCompass()->hide();
    cityInfoView_ = std::make_unique<UICityInfoView>(Rect{0.0, 0.0, width, heightOfCityInfo()});
    religiousView_ = std::make_unique<UIReligiousView>(Rect{0.0, 0.0, width, rowHeight});
}

void QuodeController::makeTimesRows(double width) {
    const std::set<int> alarms = currentCityId_ < 0 ? std::set<int>() : DatabaseFunctions().activeAlarms();
    for (int code = firstPrayer; code <= lastPrayer; ++code) {
        auto row = std::make_unique<UITimesView>(Rect{0.0, 0.0, width, rowHeight});
        row->setTag(code);
        row->labelPrayName()->setText(globalFuncs_.GetTextPrayLabels(code));
        if (code <= lastMainPrayer) {
            row->setAutoresizingMask(flexibleHeight);
            row->setDelegate(this);
            row->showAlarmOnOff(currentCityId_, alarms.contains(code));
        } else {
            row->buttonAlarmOnOff()->hide();  // these times have no alarms
        }
        timesViews_[static_cast<std::size_t>(code - firstPrayer)] = std::move(row);
    }
}

void QuodeController::makeTable() {
    const double left = globalFuncs_.getWidgetLeft();
    const double width = globalFuncs_.getWidgetWidth();
    mainTable_ = std::make_unique<WidgetTable>(Rect{left, 0.0, width, getWidgetHeight()});
    mainTable_->setAutoresizesSubviews(true);
    mainTable_->setSeparatorInset(separatorInset);
    refreshMainTableHeight();
    mainTable_->setDataSource(this);
    mainTable_->setParent(myView_.get());
    mainTable_->show();
}

void QuodeController::unloadView() {
    isWidgetUnloading_ = true;
    userCities_.clear();
    mainTable_.reset();
    cityNameView_.reset();
    cityInfoView_.reset();
    religiousView_.reset();
    for (Owned<UITimesView>& row : timesViews_) row.reset();
    footerView_.reset();
    myView_.reset();  // with its toast, if any
    timer_.reset();
    isWidgetUnloading_ = false;
}

void QuodeController::startTimer() {
    timer_ = std::make_unique<QTimer>();
    timer_->setTimerType(Qt::CoarseTimer);
    timer_->setInterval(tickInterval);
    QObject::connect(timer_.get(), &QTimer::timeout, timer_.get(), [this] { tick(); });
    timer_->start();
}

void QuodeController::finalizeButtonStateInViews() {
    if (footerView_) footerView_->setButtonShowAllState(showOtherTimes_);
}

// --- heights ---------------------------------------------------------------------------------------------------------

bool QuodeController::isCityInfoShown() const {
    return cityNameView_ && cityNameView_->buttonCityInfo()->selected();
}

double QuodeController::heightOfCityInfo() const {
    return userCities_.empty() ? infoHeightWithoutCity : fullInfoHeight;
}

double QuodeController::getWidgetHeight() const {
    return heightOf(cityNameView_.get()) + heightOf(religiousView_.get()) +
           (isCityInfoShown() ? heightOfCityInfo() : 0.0) + mainTimesHeight +
           (showOtherTimes_ ? otherTimesHeight : 0.0) + footerHeight;
}

void QuodeController::refreshMainTableHeight() {
    if (!mainTable_ || !myView_) return;
    const double height = getWidgetHeight();
    mainTable_->setFrame({0.0, 0.0, static_cast<double>(globalFuncs_.getWidgetWidth()), height});
    const Rect& frame = myView_->frame();
    myView_->setFrame({frame.x, frame.y, frame.width, height});
    if (widgetHost() != nullptr) widgetHost()->invalidatePreferredViewSize();
}

// --- the table -------------------------------------------------------------------------------------------------------

UITimesView* QuodeController::timesView(int code) const {
    return timesViews_.at(static_cast<std::size_t>(code - firstPrayer)).get();
}

int QuodeController::numberOfSectionsInTableView() const {
    return 1;
}

int QuodeController::numberOfRowsInSection(int) const {
    return rowCount;
}

double QuodeController::heightForRowAtIndexPath(IndexPath path) const {
    switch (path.row) {
        case rowReligious:
            return religiousView_->religiousDaysArray().empty() ? hiddenRowHeight : heightOf(religiousView_.get());
        case rowCityName:
            return heightOf(cityNameView_.get());
        case rowCityInfo:
            if (!isCityInfoShown()) return hiddenRowHeight;
            return userCities_.empty() ? infoHeightWithoutCity : heightOf(cityInfoView_.get());
        case rowFooter:
            return heightOf(footerView_.get());
        default:
            const bool isShown = path.row < rowFirstOtherTime || showOtherTimes_;
            return isShown ? heightOf(timesImsakView()) : hiddenRowHeight;
    }
}

void QuodeController::cellForRowAtIndexPath(WidgetTableCell& cell, IndexPath path) const {
    switch (path.row) {
        case rowReligious:
            cell.setAccessoryView(religiousView_->religiousDaysArray().empty() ? nullptr : religiousView_.get());
            break;
        case rowCityName:
            cell.setAccessoryView(cityNameView_.get());
            cell.setTag(cityNameTag);
            break;
        case rowCityInfo:
            cell.setAccessoryView(isCityInfoShown() ? cityInfoView_.get() : nullptr);
            break;
        case rowFooter:
            cell.setAccessoryView(footerView_.get());
            cell.setTag(footerTag);
            break;
        default:
            const int code = codeOfRow(path.row);
            const bool isShown = path.row < rowFirstOtherTime || showOtherTimes_;
            cell.setAccessoryView(isShown ? timesView(code) : nullptr);
            cell.setTag(code);
    }
}

}  // namespace quode
