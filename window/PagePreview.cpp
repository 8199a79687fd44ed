// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/PagePreview.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QImage>
#include <QPixmap>
#include <algorithm>

#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode::window {

namespace {

constexpr int delay = 150;             // ms without a change until the page is drawn
constexpr QSizeF emptyPage{210, 297};  // until there is one

}  // namespace

/// A white sheet in a thin frame, as wide as there is room and as high as its page needs, whatever the theme.
class PageSheet : public QLabel {
  public:
    explicit PageSheet(QWidget* parent) : QLabel(parent) {
        setFrameStyle(int(QFrame::Box) | int(QFrame::Plain));
        setAlignment(Qt::AlignLeft | Qt::AlignTop | Qt::AlignAbsolute);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        QPalette colors = palette();
        colors.setColor(QPalette::Window, Qt::white);
        colors.setColor(QPalette::WindowText, Qt::gray);
        setPalette(colors);
        setAutoFillBackground(true);
    }

    int pageWidth() const { return std::max(1, width() - 2 * frameWidth()); }

    void showPage(const QPixmap& page) {
        setPixmap(page);
        fit();
    }

    QSize minimumSizeHint() const override { return {1, 1}; }

  protected:
    void resizeEvent(QResizeEvent* event) override {
        QLabel::resizeEvent(event);
        fit();
    }

  private:
    // What was drawn for another width is stretched until the page is drawn again.
    void fit() {
        const QSizeF page = pixmap().isNull() ? emptyPage : pixmap().deviceIndependentSize();
        setScaledContents(qRound(page.width()) != pageWidth());
        setFixedHeight(qRound(pageWidth() * page.height() / page.width()) + 2 * frameWidth());
    }
};

namespace {

QImage imageOf(const printing::Picture& picture) {
    const QImage shared(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
                        QImage::Format_RGB32);
    return shared.copy();
}

}  // namespace

PagePreview::PagePreview(std::function<PrintedPages()> pages, QWidget* parent)
    : Card(parent),
      newest_(std::move(pages)),
      turning_(new QWidget(this)),
      back_(newSignButton(isRightToLeft() ? "→" : "←", _("Previous page"), turning_)),
      forward_(newSignButton(isRightToLeft() ? "←" : "→", _("Next page"), turning_)),
      number_(newLabel({}, turning_)),
      problem_(newLabel({}, this)),
      sheet_(new PageSheet(this)) {
    auto* const row = new QHBoxLayout(turning_);
    row->setContentsMargins({});
    row->addWidget(back_);
    row->addWidget(number_, 1);
    row->addWidget(forward_);
    number_->setAlignment(Qt::AlignCenter);
    column()->addWidget(newHeading(_("Preview"), this));
    for (QWidget* const each : {turning_, static_cast<QWidget*>(problem_), static_cast<QWidget*>(sheet_)}) {
        column()->addWidget(each);
    }
    turning_->hide();
    problem_->hide();
    problem_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    sheet_->installEventFilter(this);
    timer_.setSingleShot(true);
    timer_.setInterval(delay);
    connect(&timer_, &QTimer::timeout, this, &PagePreview::showNow);
    connect(back_, &QToolButton::clicked, this, [this] { turn(-1); });
    connect(forward_, &QToolButton::clicked, this, [this] { turn(1); });
}

void PagePreview::updateSoon() {
    isStale_ = true;
    timer_.start();
}

// Another width needs other pixels.
bool PagePreview::eventFilter(QObject* object, QEvent* event) {
    if (object == sheet_ && event->type() == QEvent::Resize && !pages_.timetable.pages.empty()) timer_.start();
    return Card::eventFilter(object, event);
}

void PagePreview::showNow() {
    try {
        if (isStale_) compute();
        draw();
    } catch (const std::exception& error) {
        showProblem(QString::fromUtf8(error.what()));
    }
}

void PagePreview::compute() {
    pages_ = newest_();
    isStale_ = false;
    page_ = std::min(page_, pageCount() - 1);
}

std::size_t PagePreview::pageCount() const {
    return printing::pageCount(pages_.timetable, pages_.options);
}

void PagePreview::draw() {
    const double ratio = devicePixelRatioF();
    const int pixels = qRound(sheet_->pageWidth() * ratio);
    QImage image = imageOf(app::printedPage(pages_.timetable, pages_.options, page_, pixels));
    image.setDevicePixelRatio(ratio);
    sheet_->showPage(QPixmap::fromImage(image));
    describe();
    enableButtons();
    problem_->hide();
    sheet_->show();
    turning_->setVisible(pageCount() > 1);
}

void PagePreview::describe() {
    const printing::Timetable& table = pages_.timetable;
    const std::string& heading = pages_.options.isSheet ? table.year : table.pages.at(page_).heading;
    sheet_->setAccessibleName(toQt(_("Preview of the timetable, page {0} of {1}", page_ + 1, pageCount())));
    sheet_->setAccessibleDescription(toQt(table.title + " · " + table.place + " · " + heading));
    number_->setText(toQt(_("Page {0} of {1}", page_ + 1, pageCount())));
}

// A button that is switched off at the first or last page leaves the keyboard to the other one.
void PagePreview::enableButtons() {
    const bool isFirst = page_ == 0, isLast = page_ + 1 == pageCount();
    if (!isFirst) back_->setEnabled(true);
    if (!isLast) forward_->setEnabled(true);
    if (isFirst && back_->hasFocus()) forward_->setFocus();
    if (isLast && forward_->hasFocus()) back_->setFocus();
    back_->setEnabled(!isFirst);
    forward_->setEnabled(!isLast);
}

void PagePreview::turn(int step) {
    page_ = step < 0 ? page_ - 1 : page_ + 1;
    showNow();
}

void PagePreview::showProblem(const QString& problem) {
    turning_->hide();
    sheet_->hide();
    problem_->setText(problem);
    problem_->show();
}

}  // namespace quode::window
