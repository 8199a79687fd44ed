// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/UIButtonX.h"

namespace quode {

class UIFooterView;

/// Hears of the button that shows all prayer times.
class UIFooterViewDelegate {
  public:
    /// @param showAll  the new state; the button's caption has already followed it
    virtual void delegateUIFooterView_ShowAllTapped(UIFooterView& footer, bool showAll) = 0;

  protected:
    ~UIFooterViewDelegate() = default;
};

/// The last row: the button that shows or hides the further prayer times.
class UIFooterView : public View, private UIButtonXDelegate {
    Q_OBJECT

  public:
    explicit UIFooterView(const Rect& frame, QWidget* parent = nullptr);

    UIFooterViewDelegate* delegate() const { return delegate_; }
    /// The delegate is not owned.
    void setDelegate(UIFooterViewDelegate* delegate) { delegate_ = delegate; }

    UIButtonX* buttonShowAll() const { return buttonShowAll_; }

    /// Gives the button its state, and the caption that goes with it.
    void setButtonShowAllState(bool showAll);

    /// Gives the button the caption of its state.
    void refreshControls();

  private:
    void delegateUIButtonXTapped(UIButtonX& button, bool selected) override;

    UIFooterViewDelegate* delegate_ = nullptr;
    UIButtonX* buttonShowAll_ = nullptr;
};

}  // namespace quode
