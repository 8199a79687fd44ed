// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <functional>
#include <map>

#include "desktop/MomentWatch.h"
#include "host/PanelWindow.h"
#include "host/panel_facts.h"
#include "platform/Clock.h"
#include "widget/WidgetViewController.h"

namespace quode::host {

/// The rows of the widget that the user opens and closes.
struct OpenRows {
    bool details = false;     ///< of the city
    bool otherTimes = false;  ///< the further prayer times

    friend bool operator==(const OpenRows&, const OpenRows&) = default;
};

/// Presents the widget in its window and dismisses it. While it is presented, a change of day, of the clock or of its
/// zone, and the end of a sleep of the device present it again, so that it never shows the times of another day. While it
/// is dismissed nothing runs.
class Panel : public QObject, private WidgetHost {
    Q_OBJECT

  public:
    /// All but `prepare` are kept by the caller for as long as the panel lives.
    /// @param prepare  called before each presentation, also before a repeated one
    Panel(WidgetViewController& widget, PanelWindow& window, const Clock& clock, MomentWatch& watch,
          std::function<void()> prepare);
    ~Panel() override;

    bool isPresented() const { return isPresented_; }

    /// Called when the widget was built. It is built again when the device then has another width, as for the long name of a city.
    /// @param fit  whether the device has another width
    void setFit(std::function<bool()> fit) { fit_ = std::move(fit); }

    /// What is shown around the widget, found at each presentation and each full minute while it is presented.
    void setFacts(std::function<PanelFacts()> facts) { facts_ = std::move(facts); }

    /// Which rows of the widget are open. They are opened again at each presentation, by the widget's own buttons.
    OpenRows openRows() const;
    void setOpenRows(OpenRows rows) { openRows_ = rows; }

    /// Shows which alarms are on, where that was changed elsewhere.
    /// @param alarmsOn  by the codes of the prayers
    void showAlarms(const std::map<int, bool>& alarmsOn);

    /// Finds again what is shown around the widget.
    void refreshFacts();

    /// Presents a presented widget again.
    void presentAgain();

    /// Presents the widget; one that is presented comes to the front.
    void present(QPoint pointer);
    void dismiss();

    /// What a click on the icon in the tray does. The click itself takes the focus from a presented panel, which is
    /// dismissed by that, and is not to be presented again by the same click.
    void toggle(QPoint pointer);

  Q_SIGNALS:
    /// The widget is built, with what is shown around it; it may be so many times while the panel is presented.
    void built();
    /// The user has opened or closed rows of the widget.
    void rowsToggled();
    void dismissed();

  private:
    void invalidatePreferredViewSize() override;
    void fitWindow();
    void showWidget();
    void hideWidget();
    void dismissByUser();
    void openRememberedRows();
    void dressWidget();
    void waitForNextMinute();

    WidgetViewController& widget_;
    PanelWindow& window_;
    const Clock& clock_;
    MomentWatch& watch_;
    std::function<void()> prepare_;
    std::function<bool()> fit_;
    std::function<PanelFacts()> facts_;
    OpenRows openRows_;
    QTimer minute_;
    bool isPresented_ = false;
    bool isAttached_ = false;
    QElapsedTimer sinceDismissal_;
};

}  // namespace quode::host
