// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/UIButtonX.h"

namespace quode {

class UITimesView;

/// Receives the taps of the alarm button of a prayer row.
class UITimesViewDelegate {
  public:
    /// @param view  the row, whose tag is the code of its prayer
    virtual void delegateUITimesView_AlarmOnOffTapped(UIButtonX& button, UITimesView& view) = 0;

  protected:
    ~UITimesViewDelegate() = default;
};

/// The row of one prayer time: its name, its time and the switch of its alarm. The tag is the code of the prayer. Fixed
/// names: all.
class UITimesView : public View, private UIButtonXDelegate {
    Q_OBJECT

  public:
    explicit UITimesView(const Rect& frame, QWidget* parent = nullptr);

    UITimesViewDelegate* delegate() const { return delegate_; }
    /// The delegate is not owned.
    void setDelegate(UITimesViewDelegate* delegate) { delegate_ = delegate; }

    Label* labelPrayName() const { return labelPrayName_; }
    Label* labelPrayTime() const { return labelPrayTime_; }
    UIButtonX* buttonAlarmOnOff() const { return buttonAlarmOnOff_; }

    /// Always null: a row has no button to set an alarm up.
    UIButtonX* buttonAlarmSet() const { return nullptr; }

    /// Shows whether the alarm of this prayer is on, from the user database.
    /// @param currentCityId  index of the city shown; a negative one, for no city, disables the button instead
    void detectAlarmOnOff(int currentCityId);

    /// The same with what was read of the alarm before.
    void showAlarmOnOff(int currentCityId, bool isActive);

  private:
    void delegateUIButtonXTapped(UIButtonX& button, bool selected) override;

    UITimesViewDelegate* delegate_ = nullptr;
    Label* labelPrayName_ = nullptr;
    Label* labelPrayTime_ = nullptr;
    UIButtonX* buttonAlarmOnOff_ = nullptr;
};

}  // namespace quode
