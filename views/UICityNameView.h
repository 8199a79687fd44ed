// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/UIButtonX.h"

namespace quode {

class UICityNameView;

/// Receives the taps of the buttons beside the name of the city.
class UICityNameViewDelegate {
  public:
    virtual void delegateUICityNameView_CompassTapped(UIButtonX& button, UICityNameView& view) = 0;
    /// The button is a toggle and already has its new state.
    virtual void delegateUICityNameView_CityInfoTapped(UIButtonX& button, UICityNameView& view) = 0;

  protected:
    ~UICityNameViewDelegate() = default;
};

/// The row of the city: its name, the compass button and the button that shows the lines about the city. Fixed names: all.
class UICityNameView : public View, private UIButtonXDelegate {
    Q_OBJECT

  public:
    explicit UICityNameView(const Rect& frame, QWidget* parent = nullptr);

    UICityNameViewDelegate* delegate() const { return delegate_; }
    /// The delegate is not owned.
    void setDelegate(UICityNameViewDelegate* delegate) { delegate_ = delegate; }

    Label* labelCityName() const { return labelCityName_; }
    UIButtonX* buttonCompass() const { return buttonCompass_; }
    UIButtonX* buttonCityInfo() const { return buttonCityInfo_; }

  private:
    void delegateUIButtonXTapped(UIButtonX& button, bool selected) override;

    UICityNameViewDelegate* delegate_ = nullptr;
    Label* labelCityName_ = nullptr;
    UIButtonX* buttonCompass_ = nullptr;
    UIButtonX* buttonCityInfo_ = nullptr;
};

}  // namespace quode
