// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPropertyAnimation>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include "host/icon.h"
#include "host/placement.h"

namespace quode::host {
namespace {

constexpr double cornerRadius = 14.0;
constexpr int padding = 8;         // above and below the widget
constexpr int noticeMargin = 14;   // beside the text of a message
constexpr int fadeDuration = 150;  // ms
constexpr int secondRequest = 60;  // ms after the first request for the focus
constexpr QColor opaqueColor(28, 28, 30), translucentColor(28, 28, 30, 230), edgeColor(255, 255, 255, 34),
    textColor(236, 236, 236), noticeColor(255, 211, 78);

QPalette darkPalette() {
    QPalette palette(textColor, opaqueColor);
    palette.setColor(QPalette::Button, QColor(70, 72, 78));  // of the scroll bar
    return palette;
}

QPainterPath outlineOf(const QRectF& area) {
    QPainterPath path;
    path.addRoundedRect(area, cornerRadius, cornerRadius);
    return path;
}

Qt::WindowFlags flagsOf(PanelStyle style) {
    if (style == PanelStyle::window) return Qt::Window;
    return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
}

QScrollArea* newScrollArea(QWidget* parent) {
    auto* const scroll = new QScrollArea(parent);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->viewport()->setAutoFillBackground(false);
    return scroll;
}

}  // namespace

PanelWindow::PanelWindow(PanelStyle style, bool translucent)
    : QWidget(nullptr, flagsOf(style)),
      style_(style),
      translucent_(translucent && style == PanelStyle::popover),
      notice_(new QLabel(this)),
      scroll_(newScrollArea(this)) {
    setWindowTitle("Quode");
    setAccessibleName("Quode");
    setWindowIcon(quodeIcon());
    setAttribute(Qt::WA_TranslucentBackground, translucent_);
    setAttribute(Qt::WA_QuitOnClose, false);
    setPalette(darkPalette());
    setFocusPolicy(Qt::StrongFocus);  // keys reach the panel before anything in it was chosen

    notice_->setWordWrap(true);
    notice_->setContentsMargins(noticeMargin, padding, noticeMargin, padding);
    QPalette palette = notice_->palette();
    palette.setColor(QPalette::WindowText, noticeColor);
    notice_->setPalette(palette);
    notice_->hide();

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, padding, 0, padding);
    layout->setSpacing(0);
    layout->addWidget(notice_);
    layout->addWidget(scroll_);
}

PanelWindow::~PanelWindow() {
    releaseContent();
}

void PanelWindow::setContent(QWidget* content) {
    releaseContent();
    scroll_->setWidget(content);
    if (content != nullptr) content->setAutoFillBackground(false);  // the scroll area asks for a background
}

void PanelWindow::releaseContent() {
    if (QWidget* const content = scroll_->takeWidget()) content->hide();
}

void PanelWindow::setContentSize(QSize size) {
    contentSize_ = size;
    if (isVisible()) place();
}

void PanelWindow::setNotice(const QString& text) {
    notice_->setText(text);
    notice_->setVisible(!text.isEmpty());
}

QSize PanelWindow::wantedSize() const {
    const int noticeHeight = notice_->isHidden() ? 0 : notice_->heightForWidth(contentSize_.width());
    return contentSize_ + QSize(0, 2 * padding + noticeHeight);
}

void PanelWindow::place() {
    const QRect available = screen()->availableGeometry();
    QSize wanted = wantedSize();
    const int limit = style_ == PanelStyle::window ? largestWindow(available).height()
                                                   : popoverFrame(wanted, pointer_, available).height();
    if (wanted.height() > limit) wanted += QSize(scroll_->verticalScrollBar()->sizeHint().width(), 0);
    if (style_ == PanelStyle::window) {
        setFixedWidth(wanted.width());
        setMaximumHeight(wantedSize().height());
        resize(wanted.boundedTo(largestWindow(available)));
    } else {
        setGeometry(popoverFrame(wanted, pointer_, available));
    }
}

void PanelWindow::open(QPoint pointer) {
    pointer_ = pointer;
    if (isVisible()) {
        raise();
        activateWindow();
        return;
    }
    if (QScreen* const target = QGuiApplication::screenAt(pointer)) setScreen(target);
    place();
    fadeIn();
    show();
    raise();
    activateWindow();
    setFocus();
    QTimer::singleShot(secondRequest, this, &PanelWindow::insistOnFocus);
}

// A click in the tray is no event of this program's own, so a window manager that guards the focus finds the request
// older than the user's last deed elsewhere. Showing the window has brought newer events.
void PanelWindow::insistOnFocus() {
    if (isVisible() && !isActiveWindow() && QApplication::activeWindow() == nullptr) activateWindow();
}

void PanelWindow::fadeIn() {
    const bool isAnimated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (!isAnimated || !translucent_) return;
    auto* const fade = new QPropertyAnimation(this, "windowOpacity", this);
    fade->setDuration(fadeDuration);
    fade->setStartValue(0.0);
    fade->setEndValue(1.0);
    setWindowOpacity(0.0);
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

bool PanelWindow::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    // A window of this program, such as the compass, does not end the panel.
    const bool isLeft = event->type() == QEvent::WindowDeactivate && QApplication::activeWindow() == nullptr;
    if (isLeft && style_ == PanelStyle::popover && isVisible()) Q_EMIT dismissAsked();
    return handled;
}

void PanelWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    Q_EMIT dismissAsked();
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    Q_EMIT dismissAsked();
}

void PanelWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!isRounded()) return painter.fillRect(rect(), opaqueColor);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edgeColor);
    painter.setBrush(translucent_ ? translucentColor : opaqueColor);
    painter.drawPath(outlineOf(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5)));
}

void PanelWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isRounded() && !translucent_) setMask(QRegion(outlineOf(rect()).toFillPolygon().toPolygon()));
}

}  // namespace quode::host
