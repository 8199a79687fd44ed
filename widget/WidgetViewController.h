// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"

class QWidget;

namespace quode {

/// The host of a widget, as the widget sees it. Fixed names: all of this file are a contract with hosts.
class WidgetHost {
  public:
    /// Called when the widget's preferred size has changed; the host then reads it again.
    virtual void invalidatePreferredViewSize() = 0;

  protected:
    ~WidgetHost() = default;
};

/// A widget, as the host sees it: created once, then presented and dismissed any number of times, on the main thread.
class WidgetViewController {
  public:
    virtual ~WidgetViewController() = default;

    /// The host shows the widget, which rebuilds itself with today's data.
    virtual void hostDidPresent() = 0;

    /// The host has hidden the widget, which releases its views and stops its timer.
    virtual void hostDidDismiss() = 0;

    /// The size of the whole widget without scrolling, in points. It is valid only while the widget is built.
    virtual Size preferredViewSize() const = 0;

    /// The widget's root view, a new one for each presentation; null while dismissed. The widget owns it, and the host may
    /// give it a parent.
    virtual QWidget* view() const = 0;

    /// The host, which is not owned; may be null.
    WidgetHost* widgetHost() const { return widgetHost_; }
    void setWidgetHost(WidgetHost* host) { widgetHost_ = host; }

  private:
    WidgetHost* widgetHost_ = nullptr;
};

}  // namespace quode
