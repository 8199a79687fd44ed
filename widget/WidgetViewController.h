// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Geometry.h"

class QWidget;

namespace quode {

/// What a widget asks of the place that shows it.
class WidgetHost {
  public:
    /// The widget's preferred size has changed; the host asks for it again.
    virtual void invalidatePreferredViewSize() = 0;

  protected:
    ~WidgetHost() = default;
};

/// A widget as its host knows it: made once, then presented and dismissed as often as the host likes, all on the main
/// thread.
class WidgetViewController {
  public:
    virtual ~WidgetViewController() = default;

    /// The host shows the widget: it is rebuilt with the present day's data.
    virtual void hostDidPresent() = 0;

    /// The host has hidden the widget: its views are released and nothing of it runs any more.
    virtual void hostDidDismiss() = 0;

    /// The size, in points, in which the whole widget is seen without scrolling. It is known only while the widget is
    /// built.
    virtual Size preferredViewSize() const = 0;

    /// The widget's root view; null while it is torn down. Each presentation makes another one. The widget owns it, and
    /// the host may give it a parent.
    virtual QWidget* view() const = 0;

    /// The host, which is not owned; null when there is none.
    WidgetHost* widgetHost() const { return widgetHost_; }
    void setWidgetHost(WidgetHost* host) { widgetHost_ = host; }

  private:
    WidgetHost* widgetHost_ = nullptr;
};

}  // namespace quode
