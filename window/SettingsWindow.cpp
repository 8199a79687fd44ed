// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/SettingsWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <utility>

#include "desktop/WindowStyle.h"
#include "desktop/help.h"
#include "desktop/icon.h"
#include "desktop/window_role.h"
#include "texts/translation.h"
#include "window/AboutPage.h"
#include "window/AlarmsPage.h"
#include "window/CalendarPage.h"
#include "window/CitiesPage.h"
#include "window/LookPage.h"
#include "window/TimesPage.h"
#include "window/TimetablePage.h"
#include "window/parts.h"

namespace quode::window {
namespace {

constexpr QSize usualSize{820, 640};
constexpr int narrowBelow = 620;  // points at the usual size of texts
constexpr int listWidth = 180, widestPage = 640, pageMargin = 12;

/// The name of a page in the list, with room at both ends. A style sheet would keep the colours of its first theme.
class PageName : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const bool isOpen = (option.state & QStyle::State_Selected) != 0;
        const QPalette& colors = option.palette;
        if (isOpen) painter->fillRect(option.rect, colors.color(QPalette::Active, QPalette::Highlight));
        painter->setPen(colors.color(QPalette::Active, isOpen ? QPalette::HighlightedText : QPalette::Text));
        painter->setFont(option.font);
        const auto align = QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);
        painter->drawText(option.rect.adjusted(pageMargin, 0, -pageMargin, 0), int(align | Qt::AlignAbsolute),
                          index.data().toString());
    }
};

/// A page that scrolls, in a column that does not get too wide to read.
QScrollArea* scrolling(QWidget* page) {
    auto* const middle = new QWidget;
    auto* const row = new QHBoxLayout(middle);
    row->setContentsMargins({});
    row->addStretch(1);
    row->addWidget(page, 1000);
    row->addStretch(1);
    page->setMaximumWidth(widestPage);
    auto* const area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(middle);
    return area;
}

}  // namespace

SettingsWindow::SettingsWindow(Context& context) : context_(context), list_(new QListWidget(this)) {
    announceAsWindow<SettingsWindow>();
    setWindowTitle(_("Quode settings"));
    setAccessibleName(_("Quode settings"));
    setWindowIcon(quodeIcon());
    resize(usualSize.boundedTo(screen()->availableSize()));
    list_->setAccessibleName(_("Pages"));
    list_->setFrameShape(QFrame::NoFrame);
    list_->setItemDelegate(new PageName(list_));
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(0);
    row->addWidget(list_);
    row->addWidget(newContent(), 1);
    addPage("cities", _("Cities"), new CitiesPage(context, this));
    addPage("alarms", _("Alarms"), new AlarmsPage(context, this));
    addPage("times", _("Times"), new TimesPage(context, this));
    addPage("timetable", _("Timetable"), new TimetablePage(context, this));
    addPage("look", _("Look"), new LookPage(context, this));
    addPage("calendar", _("Calendar"), new CalendarPage(context, this));
    addPage("about", _("About and doctor"), new AboutPage(context, this));
    connectAll();
    list_->setCurrentRow(0);
    applyTheme();
    arrange();
}

QWidget* SettingsWindow::newContent() {
    content_ = new QWidget(this);
    back_ = newSignButton(isRightToLeft() ? "→" : "←", _("All pages"), content_);
    title_ = newHeading({}, content_);
    QFont font = title_->font();
    font.setPointSizeF(font.pointSizeF() * 1.25);
    title_->setFont(font);
    message_ = new QWidget(content_);
    messageText_ = newLabel({}, message_);
    messageText_->setObjectName("message");
    undo_ = new QPushButton(_("Undo"), message_);
    QToolButton* const close = newSignButton("✕", _("Close the message"), message_);
    auto* const bar = new QHBoxLayout(message_);
    bar->addWidget(messageText_, 1);
    bar->addWidget(undo_);
    bar->addWidget(close);
    message_->setAutoFillBackground(true);
    message_->setBackgroundRole(QPalette::ToolTipBase);
    message_->hide();
    stack_ = new QStackedWidget(content_);
    auto* const head = new QHBoxLayout;
    head->setContentsMargins(pageMargin, pageMargin, pageMargin, 0);
    head->addWidget(back_);
    head->addWidget(title_, 1);
    auto* const column = new QVBoxLayout(content_);
    column->setContentsMargins({});
    column->addLayout(head);
    column->addWidget(message_);
    column->addWidget(stack_, 1);
    connect(close, &QToolButton::clicked, message_, &QWidget::hide);
    return content_;
}

void SettingsWindow::addPage(const char* key, const QString& title, Page* page) {
    auto* const item = new QListWidgetItem(title, list_);
    item->setData(Qt::UserRole, key);
    item->setSizeHint({0, std::max(38, fontMetrics().height() + 18)});
    pages_.push_back(page);
    stack_->addWidget(scrolling(page));
}

void SettingsWindow::connectAll() {
    refreshing_.setSingleShot(true);
    connect(&refreshing_, &QTimer::timeout, this, &SettingsWindow::refresh);
    connect(&context_, &Context::changed, this, &SettingsWindow::refreshSoon);
    connect(&context_, &Context::messageGiven, this, &SettingsWindow::showMessage);
    connect(&context_, &Context::pageAsked, this, &SettingsWindow::openPage);
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
        stack_->setCurrentIndex(row);
        title_->setText(list_->item(row)->text());
        refreshSoon();
    });
    const auto open = [this] {
        isPageOpen_ = true;
        arrange();
    };
    connect(list_, &QListWidget::itemClicked, this, open);
    connect(list_, &QListWidget::itemActivated, this, open);
    connect(back_, &QToolButton::clicked, this, [this] {
        isPageOpen_ = false;
        arrange();
        list_->setFocus();
    });
    connect(undo_, &QPushButton::clicked, this, [this] {
        message_->hide();
        if (undoAction_) std::exchange(undoAction_, {})();
    });
    connect(&theme_, &DesktopTheme::changed, this, &SettingsWindow::applyTheme);
    connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this,
            [this] { showPage(_("Help"), helpPage(), this); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_Q, this), &QShortcut::activated, this, &QWidget::close);
    for (const int step : {1, -1}) {
        const QKeySequence keys(step > 0 ? Qt::CTRL | Qt::Key_PageDown : Qt::CTRL | Qt::Key_PageUp);
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, step] { list_->setCurrentRow((list_->currentRow() + step + list_->count()) % list_->count()); });
    }
}

void SettingsWindow::openPage(const QString& key) {
    for (int row = 0; row < list_->count(); ++row) {
        if (list_->item(row)->data(Qt::UserRole).toString() != key) continue;
        list_->setCurrentRow(row);
        isPageOpen_ = true;
        arrange();
    }
}

QString SettingsWindow::openedPage() const {
    return list_->currentItem()->data(Qt::UserRole).toString();
}

// --- what is stored

// After the event that is going on: rows that were clicked may be recreated.
void SettingsWindow::refreshSoon() {
    refreshing_.start(0);
}

void SettingsWindow::refresh() {
    try {
        pages_.at(std::size_t(list_->currentRow()))->refresh();
        if (std::exchange(showsProblem_, false)) message_->hide();
    } catch (const std::exception& error) {
        showProblem(QString::fromUtf8(error.what()));
    }
}

// --- messages

void SettingsWindow::showMessage(const QString& message, const std::function<void()>& undo) {
    showsProblem_ = false;
    undoAction_ = undo;
    messageText_->setText(message);
    undo_->setVisible(bool(undo));
    message_->show();
    QAccessibleEvent event(messageText_, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void SettingsWindow::showProblem(const QString& problem) {
    if (messageText_->text() != problem || !message_->isVisible()) showMessage(problem, {});
    showsProblem_ = true;
}

// --- layout

bool SettingsWindow::isNarrow() const {
    return width() < narrowBelow;
}

void SettingsWindow::arrange() {
    const bool narrow = isNarrow();
    list_->setVisible(!narrow || !isPageOpen_);
    content_->setVisible(!narrow || isPageOpen_);
    back_->setVisible(narrow);
    const int besidePage = std::max(listWidth, list_->sizeHintForColumn(0) + 24);
    list_->setMinimumWidth(narrow ? 0 : besidePage);
    list_->setMaximumWidth(narrow ? QWIDGETSIZE_MAX : besidePage);
}

void SettingsWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void SettingsWindow::keyPressEvent(QKeyEvent* event) {
    const bool isBack = event->key() == Qt::Key_Escape || event->matches(QKeySequence::Back);
    if (isBack && isNarrow() && isPageOpen_) return back_->click();
    QWidget::keyPressEvent(event);
}

// The colours are Quode's own: those of desktops often leave remarks too little contrast.
void SettingsWindow::applyTheme() {
    wearTheme(theme_.isDark());
}

}  // namespace quode::window
