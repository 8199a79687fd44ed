// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "astro/VAKDate.h"
#include "compass/CompassView.h"
#include "data/City.h"
#include "views/UICityInfoView.h"
#include "views/UICityNameView.h"
#include "views/UIFooterView.h"
#include "views/UIReligiousView.h"
#include "views/UITimesView.h"
#include "widget/Owned.h"
#include "widget/WidgetTable.h"
#include "widget/WidgetViewController.h"

namespace quode {

class GlobalFuncs;

/// A date in both calendars.
struct DateInformation {
    std::int32_t dayofWeek = 0;  ///< 0 = Sunday
    VAKDate MiladiDate;          ///< Gregorian, with the time of day
    VAKDate HijriDate;           ///< by the table of the Hijri months
};

/// The widget: a table of the religious days, the city, its details, six prayer times with their alarms, three further
/// times, and a footer.
///
/// Every build reads the user's cities and computes the day of the city shown. While it is built, a timer checks for a
/// change of day, which updates the two date labels only; everything else waits for the next build. Nothing throws: after
/// a failure the labels stay as they were, and the debug log has the reason.
///
/// It needs the shared services and a call of `initialize`, on the main thread.
///
/// Fixed names: all, except `timesView`.
class QuodeController final : public WidgetViewController,
                              public WidgetTableSource,
                              public UICityNameViewDelegate,
                              public UITimesViewDelegate,
                              public UIFooterViewDelegate {
  public:
    /// Sets the folder of the bundle in the shared services. Call it once, before creating a widget.
    static void initialize(const std::string& bundlePath);

    /// Builds the widget.
    /// @param compassDevices  creates the devices of a compass; empty: those of this system
    explicit QuodeController(std::function<CompassDevices()> compassDevices = {});
    ~QuodeController() override;
    QuodeController(const QuodeController&) = delete;
    QuodeController& operator=(const QuodeController&) = delete;

    void hostDidPresent() override;
    void hostDidDismiss() override;
    /// The width of the shared services' widget area, and `getWidgetHeight`.
    Size preferredViewSize() const override;
    QWidget* view() const override { return view_.data(); }

    /// Builds views and data; those of an earlier build are released.
    void loadView();

    /// Releases views and data, and stops the timer. A compass on the screen stays.
    void unloadView();

    /// The height of all rows, points; parts that are not built count as 0.
    double getWidgetHeight() const;

    /// Sets table and root view to `getWidgetHeight`, and notifies the host.
    void refreshMainTableHeight();

    /// Sets the footer's state: whether the further times are shown.
    void finalizeButtonStateInViews();

    // --- the refresh cycle, in the order of a build

    /// Updates language, 12/24-hour convention and texts.
    void initializeParameters();

    /// Reads the user's cities and chooses the one to show; none when the database is missing or cannot be read.
    void loadAllUserCities();

    /// Chooses the first city that is marked as home, else the first city.
    /// @return false without cities
    bool findHomeCityId();

    /// Takes today's date from the clock.
    void setDatesInfo();

    void refreshDateLabels();

    /// Computes the day of the city shown.
    void calculatePrayerTimes() noexcept;

    /// Shows the name of the city and its prayer times.
    void updatePrayerTimes() noexcept;

    /// Shows zone, qibla, Sun and Moon of the city; without a city, a message in place of its name.
    void updateCityInfo() noexcept;

    /// Checks for a change of day, and then updates the date. Does nothing during a build.
    void timerFireMethod(const VAKDate& now) noexcept;

    // --- taps

    void delegateUICityNameView_CompassTapped(UIButtonX& button, UICityNameView& view) override;
    void delegateUICityNameView_CityInfoTapped(UIButtonX& button, UICityNameView& view) override;
    void delegateUIFooterView_ShowAllTapped(UIFooterView& footer, bool showAll) override;
    void delegateUITimesView_AlarmOnOffTapped(UIButtonX& button, UITimesView& view) override;

    // --- the rows of the table

    int numberOfSectionsInTableView() const override;
    int numberOfRowsInSection(int section) const override;
    double heightForRowAtIndexPath(IndexPath path) const override;
    void cellForRowAtIndexPath(WidgetTableCell& cell, IndexPath path) const override;

    // --- the parts; null while the widget is torn down

    View* myView() const { return myView_.get(); }
    WidgetTable* mainTable() const { return mainTable_.get(); }
    UICityNameView* cityNameView() const { return cityNameView_.get(); }
    UICityInfoView* cityInfoView() const { return cityInfoView_.get(); }
    UIReligiousView* religiousView() const { return religiousView_.get(); }
    UITimesView* timesImsakView() const { return timesView(200); }
    UITimesView* timesGunesView() const { return timesView(201); }
    UITimesView* timesOgleView() const { return timesView(202); }
    UITimesView* timesIkindiView() const { return timesView(203); }
    UITimesView* timesAksamView() const { return timesView(204); }
    UITimesView* timesYatsiView() const { return timesView(205); }
    UITimesView* timesIsrakView() const { return timesView(206); }
    UITimesView* timesAsrSaniView() const { return timesView(207); }
    UITimesView* timesIsfirarSemsView() const { return timesView(208); }
    UIFooterView* footerView() const { return footerView_.get(); }

    /// The row of a prayer 200..208.
    UITimesView* timesView(int code) const;

    /// The compass on the screen; null when there is none.
    CompassView* compass() const { return compass_.get(); }

    /// The tick; null while the widget is torn down.
    const QTimer* timer() const { return timer_.get(); }

    bool showOtherTimes() const { return showOtherTimes_; }

    /// The user's cities in the order of the database, with the computed day of the one that is shown.
    const std::vector<City>& userCities() const { return userCities_; }

    /// Index of the city shown; -1 for none.
    std::int32_t currentCityId() const { return currentCityId_; }
    std::int32_t nextCityId() const { return nextCityId_; }
    std::int32_t prevCityId() const { return prevCityId_; }

    /// The date of the build or of the last change of day.
    const DateInformation& currentInfo() const { return currentInfo_; }

  private:
    void makeCityRows(double width);
    void makeTimesRows(double width);
    void makeTable();
    void refresh();
    void showReligiousDays();
    void startTimer();
    void tick();
    void showCityInformation(const City& city);
    void showAlarmState(UIButtonX& button, bool isOn);
    void resetAlarmButton(UIButtonX& button);
    void toast(std::int32_t textKey);
    const City* currentCity() const;
    bool isCityInfoShown() const;
    double heightOfCityInfo() const;

    GlobalFuncs& globalFuncs_;
    std::function<CompassDevices()> compassDevices_;

    bool isWidgetLoading_ = false;
    bool isWidgetUnloading_ = false;
    bool showOtherTimes_ = false;
    std::vector<City> userCities_;
    std::int32_t currentCityId_ = -1;
    std::int32_t nextCityId_ = -1;
    std::int32_t prevCityId_ = -1;
    DateInformation currentInfo_;

    QPointer<QWidget> view_;
    Owned<View> myView_;
    Owned<WidgetTable> mainTable_;
    Owned<UICityNameView> cityNameView_;
    Owned<UICityInfoView> cityInfoView_;
    Owned<UIReligiousView> religiousView_;
    std::array<Owned<UITimesView>, 9> timesViews_;  // in the order of their codes
    Owned<UIFooterView> footerView_;
    Owned<CompassView> compass_;
    std::unique_ptr<QTimer> timer_;
};

}  // namespace quode
