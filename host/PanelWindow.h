// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QSize>
#include <QWidget>

class QLabel;
class QScrollArea;

namespace quode::host {

/// How the panel is shown.
enum class PanelStyle {
    popover,  ///< beside the icon in the tray, until the user turns to something else
    window,   ///< an ordinary window, where there is no tray
};

/// The dark window around the widget. It scrolls where the screen is lower than the widget.
class PanelWindow : public QWidget {
    Q_OBJECT

  public:
    /// @param translucent  what is behind the window may shine through, and its corners are clear; otherwise it is
    ///                     opaque, with its corners cut off
    PanelWindow(PanelStyle style, bool translucent);
    ~PanelWindow() override;

    /// Shows a widget, which stays with its owner.
    void setContent(QWidget* content);
    /// Gives the widget back; to be called before it is deleted.
    void releaseContent();

    /// Sets the size in which the whole widget is seen.
    void setContentSize(QSize size);

    /// Shows a message above the widget; none when the text is empty.
    void setNotice(const QString& text);

    /// Shows the window, which takes the keyboard's focus.
    /// @param pointer  where a popover was asked for, see popoverFrame
    void open(QPoint pointer);

    /// The size that shows everything.
    QSize wantedSize() const;

  Q_SIGNALS:
    /// The user is done with the panel: by Escape, by turning to something else, or by the window's own button.
    void dismissAsked();

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool isRounded() const { return style_ == PanelStyle::popover; }
    void place();
    void fadeIn();
    void insistOnFocus();

    PanelStyle style_;
    bool translucent_;
    QLabel* notice_;
    QScrollArea* scroll_;
    QSize contentSize_;
    QPoint pointer_;
};

}  // namespace quode::host
