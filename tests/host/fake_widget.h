// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <memory>
#include <optional>

#include "desktop/MomentWatch.h"
#include "widget/WidgetViewController.h"

namespace quode::test {

/// A widget that counts what its host does.
class FakeWidget : public WidgetViewController {
  public:
    int presented = 0, dismissed = 0;
    Size size{340.0, 400.0};

    void hostDidPresent() override {
        ++presented;
        view_ = std::make_unique<QWidget>();
        view_->resize(int(size.width), int(size.height));
        field_ = new QLineEdit(view_.get());
        if (widgetHost() != nullptr) widgetHost()->invalidatePreferredViewSize();
    }
    void hostDidDismiss() override {
        ++dismissed;
        view_.reset();
    }
    Size preferredViewSize() const override { return size; }
    QWidget* view() const override { return view_.get(); }

    /// What has the keyboard's focus when the user works in the widget.
    QWidget* field() const { return field_; }

    void grow(double height) {
        size.height = height;
        view_->resize(int(size.width), int(height));
        widgetHost()->invalidatePreferredViewSize();
    }

  private:
    std::unique_ptr<QWidget> view_;
    QWidget* field_ = nullptr;
};

/// A watch whose moments come when the test says so.
class FakeWatch : public MomentWatch {
  public:
    std::optional<Clock::TimePoint> moment;

    void watchFor(std::optional<Clock::TimePoint> wanted) override { moment = wanted; }
};

}  // namespace quode::test
