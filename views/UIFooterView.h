// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "views/UIButtonX.h"

namespace quode {

class UIFooterView;

/// Receives the taps of the button that shows all prayer times.
class UIFooterViewDelegate {
  public:
    /// @param showAll  the new state; the button already has its caption
    virtual void delegateUIFooterView_ShowAllTapped(UIFooterView& footer, bool showAll) = 0;

  protected:
    ~UIFooterViewDelegate() = default;
};

/// The last row: the button that shows or hides the further prayer times. Fixed names: all.
class UIFooterView : public View, private UIButtonXDelegate {
    Q_OBJECT

  public:
    explicit UIFooterView(const Rect& frame, QWidget* parent = nullptr);

    UIFooterViewDelegate* delegate() const { return delegate_; }
    /// The delegate is not owned.
    void setDelegate(UIFooterViewDelegate* delegate) { delegate_ = delegate; }

    UIButtonX* buttonShowAll() const { return buttonShowAll_; }

    /// Sets the state of the button, with its caption.
    void setButtonShowAllState(bool showAll);

    /// Sets the caption of the button from its state.
    void refreshControls();

  private:
    void delegateUIButtonXTapped(UIButtonX& button, bool selected) override;

    UIFooterViewDelegate* delegate_ = nullptr;
    UIButtonX* buttonShowAll_ = nullptr;
};

}  // namespace quode
