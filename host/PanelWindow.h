// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QPointer>
#include <QSize>
#include <QWidget>
#include <array>

class QLabel;
class QMenu;
class QScrollArea;

namespace quode {
struct Theme;
}

namespace quode::host {

class PanelFooter;
class PanelHeader;
class RowMarks;
struct PanelFacts;

/// How the panel is shown.
enum class PanelStyle {
    popover,  ///< beside the icon in the tray, until the user turns to something else
    window,   ///< an ordinary window, where there is no tray
};

/// The window around the widget: a header above it, footnotes and a menu below it. The widget is a column in the
/// middle, on a dark card. The window scrolls where the screen is lower, and keeps to the size that the desktop or the
/// user gives it, such as the whole screen.
class PanelWindow : public QWidget {
    Q_OBJECT

  public:
    /// @param translucent  what is behind the window may shine through, and its corners are clear; otherwise it is
    ///                     opaque, with its corners cut off
    PanelWindow(PanelStyle style, bool translucent);
    ~PanelWindow() override;

    /// Changes how the panel is shown, from the next time on that it opens; nothing happens while it is open.
    void setPanelStyle(PanelStyle style);

    void setTheme(const Theme& theme);

    /// What is shown around the widget.
    void setFacts(const PanelFacts& facts);

    /// The menu of the button below the widget, and of a click with the other button; it stays with its owner.
    /// @param menu  null while there is none yet: the button is drawn already
    /// @param name  the name of the button; empty for no button
    void setMenu(QMenu* menu, const QString& name);
    void openMenu();

    /// Shows a widget, which stays with its owner.
    void setContent(QWidget* content);
    /// Gives the widget back; to be called before it is deleted.
    void releaseContent();

    /// Sets the size in which the whole widget is seen.
    void setContentSize(QSize size);

    /// Shows a message above the widget; none when the text is empty.
    void setNotice(const QString& text);

    /// Shows the window, which takes the keyboard's focus.
    /// @param pointer  where a popover was requested, see popoverFrame
    void open(QPoint pointer);

    /// The size that shows everything.
    QSize wantedSize() const;

  Q_SIGNALS:
    /// The user is done with the panel: by Escape, by turning to something else, or by the window's own button.
    void dismissAsked();

    /// The window was drawn for the first time.
    void firstFrameShown();

  protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool isRounded() const { return style_ == PanelStyle::popover && !isSizedElsewhere_; }
    int heightAround(int width) const;
    void takeFont();
    void place();
    void placeWindow(const QRect& available);
    void resizeTo(const QRect& frame);
    void fadeIn();
    void insistOnFocus();
    void onChildOfContent(QObject* child);
    std::array<QWidget*, 3> partsAround() const;

    PanelStyle style_;
    bool canBeTranslucent_;
    const Theme* theme_;
    PanelHeader* header_;
    QLabel* notice_;
    QScrollArea* scroll_;
    PanelFooter* footer_;
    QMenu* menu_ = nullptr;
    QPointer<RowMarks> marks_;
    QSize contentSize_;
    QPoint pointer_;
    QSize askedSize_;                // the last size that the panel gave itself
    bool isSizedElsewhere_ = false;  // the desktop or the user gave it another one since it opened
    bool wasDrawn_ = false;
    bool hasFont_ = false;
};

}  // namespace quode::host
