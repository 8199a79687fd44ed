// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/UIFooterView.h"

#include "common/GlobalFuncs.h"
#include "views/View.h"

namespace quode {
namespace {

constexpr std::int32_t keyShowLess = 1031;
constexpr std::int32_t keyShowAll = 1032;

}  // namespace

UIFooterView::UIFooterView(const Rect& frame, QWidget* parent) : View(frame, parent) {
    auto button = std::make_unique<UIButtonX>(Rect{0.0, 0.0, 100.0, 30.0});
    button->setCenter({115.0, 20.0});
    button->setSelectedColor(GlobalFuncs::globalFuncs().thirdColor());
    button->text()->setTextAlign(alignLeft);
    button->text()->setText("");
    button->setButtonType(0);
    button->setButtonShape(0);
    button->setSelectable(true);
    button->setTag(tagShowAll);
    button->setDelegate(this);
    buttonShowAll_ = addSubview(*this, std::move(button));
}

void UIFooterView::setButtonShowAllState(bool showAll) {
    buttonShowAll_->setSelected(showAll);
    refreshControls();
}

void UIFooterView::refreshControls() {
    const std::int32_t key = buttonShowAll_->selected() ? keyShowLess : keyShowAll;
    buttonShowAll_->text()->setText(GlobalFuncs::globalFuncs().GetKeyValue(key));
}

void UIFooterView::delegateUIButtonXTapped(UIButtonX& button, bool selected) {
    if (button.tag() != tagShowAll) return;
    refreshControls();
    if (delegate_ != nullptr) delegate_->delegateUIFooterView_ShowAllTapped(*this, selected);
}

}  // namespace quode
