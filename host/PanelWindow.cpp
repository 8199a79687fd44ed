// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <QPropertyAnimation>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "common/Settings.h"
#include "desktop/icon.h"
#include "desktop/theme.h"
#include "desktop/window_role.h"
#include "host/PanelFooter.h"
#include "host/PanelHeader.h"
#include "host/RowMarks.h"
#include "host/SlimBarStyle.h"
#include "host/panel_facts.h"
#include "host/placement.h"
#include "host/widgets.h"
#include "texts/reading_order.h"
#include "views/MessageView.h"
#include "views/contrast.h"
#include "views/fonts.h"

namespace quode::host {
namespace {

constexpr double cornerRadius = 14.0;
constexpr int padding = 8;                                   // above and below the widget
constexpr QMargins noticeMargins(16, padding, 16, padding);  // around the text of a message
constexpr int fadeDuration = 150;                            // ms
constexpr int secondRequest = 60;                            // ms after the first request for the focus
constexpr int timeOfFirstFrame = 200;  // ms; searching the themes of icons takes longer than the frame
constexpr double enoughContrast = 4.5;

QPainterPath outlineOf(const QRectF& area) {
    QPainterPath path;
    path.addRoundedRect(area, cornerRadius, cornerRadius);
    return path;
}

Qt::WindowFlags flagsOf(PanelStyle style) {
    if (style == PanelStyle::window) return Qt::Window;
    return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint;
}

class CardArea : public QScrollArea {
  public:
    explicit CardArea(QWidget* parent) : QScrollArea(parent) { setViewportMargins(0, padding, 0, padding); }
};

QScrollArea* newScrollArea(QWidget* parent) {
    auto* const scroll = new CardArea(parent);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    QPalette card = scroll->palette();
    card.setColor(QPalette::Window, cardColor);
    scroll->setPalette(card);
    scroll->setAutoFillBackground(true);
    scroll->viewport()->setAutoFillBackground(true);
    auto* const slim = new SlimBarStyle;
    slim->setParent(scroll);
    scroll->verticalScrollBar()->setStyle(slim);
    return scroll;
}

// What the host shows around the widget stands in the widget's column: a part is as wide as it may be, in the middle.
QHBoxLayout* columnOf(QWidget* part) {
    constexpr int nearlyAll = 10000;
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    row->addStretch(1);
    row->addWidget(part, nearlyAll);
    row->addStretch(1);
    return row;
}

// The letters of a toast are those of the colour scheme. One scheme's are too dark for the grey of the box.
void makeReadable(const MessageView& toast) {
    const Color card{cardColor.redF(), cardColor.greenF(), cardColor.blueF(), 1.0};
    const Color box = over(MessageView::boxColor, card);
    if (contrastRatio(toast.textLabel()->textColor(), box) >= enoughContrast) return;
    toast.textLabel()->setTextColor({1.0, 1.0, 1.0, 1.0});
}

}  // namespace

PanelWindow::PanelWindow(PanelStyle style, bool translucent)
    : QWidget(nullptr, flagsOf(style)),
      style_(style),
      canBeTranslucent_(translucent),
      theme_(&themeOf(isDarkPalette(palette()))),
      header_(new PanelHeader(this)),
      notice_(newTextLabel(this)),
      scroll_(newScrollArea(this)),
      footer_(new PanelFooter(this)) {
    announceAsWindow<PanelWindow>();
    setWindowTitle("Quode");
    setAccessibleName("Quode");
    QTimer::singleShot(timeOfFirstFrame, this, [this] { setWindowIcon(quodeIcon()); });
    setAttribute(Qt::WA_TranslucentBackground, canBeTranslucent_);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::StrongFocus);  // keys reach the panel before anything in it was chosen

    notice_->setObjectName("notice");
    notice_->setContentsMargins(noticeMargins);
    notice_->hide();

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(columnOf(header_));
    layout->addLayout(columnOf(notice_));
    layout->addWidget(scroll_, 1);
    layout->addLayout(columnOf(footer_));
    setTheme(*theme_);
}

PanelWindow::~PanelWindow() {
    releaseContent();
}

void PanelWindow::setPanelStyle(PanelStyle style) {
    if (isVisible() || style == style_) return;
    style_ = style;
    setWindowFlags(flagsOf(style));
}

void PanelWindow::setTheme(const Theme& theme) {
    theme_ = &theme;
    setPalette(paletteOf(theme));
    setTextColor(*notice_, theme.notice);
    header_->setTheme(theme);
    footer_->setTheme(theme);
    update();
}

// Late, for the list of fonts is still being read when the window is made.
void PanelWindow::takeFont() {
    if (!std::exchange(hasFont_, true)) setFont(fontNamed(Settings().fontName, textPixels));
}

void PanelWindow::setFacts(const PanelFacts& facts) {
    takeFont();
    header_->setFacts(facts);
    footer_->setFacts(facts);
    if (marks_) marks_->setRows(facts.currentCode, facts.nextCode);
    if (isVisible()) place();
}

void PanelWindow::setMenu(QMenu* menu, const QString& name) {
    takeFont();
    menu_ = menu;
    footer_->setMenu(menu, name);
}

void PanelWindow::openMenu() {
    if (menu_ != nullptr) footer_->menuButton()->showMenu();
}

void PanelWindow::setContent(QWidget* content) {
    takeFont();
    releaseContent();
    scroll_->setWidget(content);
    if (content == nullptr) return;
    content->setAutoFillBackground(false);  // the scroll area asks for a background
    content->installEventFilter(this);
    marks_ = new RowMarks(content);
}

void PanelWindow::releaseContent() {
    QWidget* const content = scroll_->takeWidget();
    if (content == nullptr) return;
    content->removeEventFilter(this);
    content->hide();
    delete marks_;
}

void PanelWindow::setContentSize(QSize size) {
    contentSize_ = size;
    for (QWidget* const part : partsAround()) part->setMaximumWidth(size.width());
    if (isVisible()) place();
}

void PanelWindow::setNotice(const QString& text) {
    takeFont();
    notice_->setText(QString::fromStdString(inReadingOrder(text.toStdString())));
    notice_->setVisible(!text.isEmpty());
    if (isVisible()) place();
}

std::array<QWidget*, 3> PanelWindow::partsAround() const {
    return {header_, notice_, footer_};
}

int PanelWindow::heightAround(int width) const {
    int height = 2 * padding;
    for (const QWidget* const part : partsAround()) {
        if (part->isHidden()) continue;
        height += part->hasHeightForWidth() ? part->heightForWidth(width) : part->sizeHint().height();
    }
    return height;
}

QSize PanelWindow::wantedSize() const {
    return contentSize_ + QSize(0, heightAround(contentSize_.width()));
}

void PanelWindow::place() {
    if (isVisible() && isSizedElsewhere_) return;
    const QRect available = screen()->availableGeometry();
    if (style_ == PanelStyle::window) return placeWindow(available);
    const auto frameOf = [&](QSize wanted) {
        return isVisible() ? grownFrame(geometry(), wanted, available) : popoverFrame(wanted, pointer_, available);
    };
    const QSize wanted = wantedSize();
    const QRect frame = frameOf(wanted);
    resizeTo(frame.height() < wanted.height() ? frameOf(wanted + QSize(SlimBarStyle::width, 0)) : frame);
}

void PanelWindow::placeWindow(const QRect& available) {
    const QSize largest = largestWindow(available);
    QSize wanted = wantedSize();
    if (wanted.height() > largest.height()) wanted += QSize(SlimBarStyle::width, 0);
    resizeTo(QRect(pos(), wanted.boundedTo(largest)));
}

void PanelWindow::resizeTo(const QRect& frame) {
    askedSize_ = frame.size();
    if (style_ == PanelStyle::window) {
        resize(frame.size());
    } else {
        setGeometry(frame);
    }
    askedSize_ = size();
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
// older than the user's last action elsewhere. Showing the window has caused newer events.
void PanelWindow::insistOnFocus() {
    if (isVisible() && !isActiveWindow() && QApplication::activeWindow() == nullptr) activateWindow();
}

void PanelWindow::fadeIn() {
    const bool isAnimated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
    if (!isAnimated || !canBeTranslucent_ || style_ == PanelStyle::window) return;
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

// A toast comes into the view when it is shown; the screen may be too low for its place.
bool PanelWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ChildAdded) onChildOfContent(static_cast<QChildEvent*>(event)->child());
    return QWidget::eventFilter(watched, event);
}

void PanelWindow::onChildOfContent(QObject* child) {
    const auto* const toast = qobject_cast<MessageView*>(child);
    if (toast == nullptr) return;
    makeReadable(*toast);
    const Rect& frame = toast->frame();
    const Point middle = toast->center();
    scroll_->ensureVisible(int(middle.x), int(middle.y), 0, int(frame.height / 2.0) + padding);
}

void PanelWindow::contextMenuEvent(QContextMenuEvent* event) {
    if (menu_ != nullptr) menu_->popup(event->globalPos());
}

void PanelWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    isSizedElsewhere_ = false;
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
    // What is drawn comes to the screen when all parts of the window are drawn.
    if (!std::exchange(wasDrawn_, true)) QTimer::singleShot(0, this, &PanelWindow::firstFrameShown);
    QPainter painter(this);
    if (!isRounded()) return painter.fillRect(rect(), theme_->ground);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme_->edge);
    painter.setBrush(theme_->ground);
    painter.drawPath(outlineOf(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5)));
}

void PanelWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isVisible() && event->size() != askedSize_) isSizedElsewhere_ = true;
    if (canBeTranslucent_) return;
    if (isRounded()) {
        setMask(QRegion(outlineOf(rect()).toFillPolygon().toPolygon()));
    } else {
        clearMask();
    }
}

}  // namespace quode::host
