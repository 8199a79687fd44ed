// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/TimetablePage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStandardPaths>
#include <QUrl>

#include "app/day_view.h"
#include "app/place.h"
#include "app/user_data.h"
#include "texts/translation.h"
#include "views/qt_conversions.h"
#include "window/IqamaPart.h"
#include "window/PagePreview.h"
#include "window/parts.h"

namespace quode::window {
namespace {

using app::TimetableFormat;

constexpr int monthsOffered = 12, monthsOfYear = 12;

// A month as "2026-11", a year as "2026".
QString keyOf(int year, int month) {
    return month == 0 ? QString::number(year) : QString("%1-%2").arg(year).arg(month, 2, 10, QChar('0'));
}

TimetableFormat formatOf(const QString& file) {
    if (file.endsWith(".html")) return TimetableFormat::html;
    return file.endsWith(".ics") ? TimetableFormat::ics : TimetableFormat::pdf;
}

}  // namespace

TimetablePage::TimetablePage(Context& context, QWidget* parent)
    : Page(context, parent),
      place_(newRemark({}, this)),
      span_(newChoice(_("Month or year"), this)),
      paper_(newChoice(_("Paper"), this)),
      sheet_(new QCheckBox(_("The whole year on one page"), this)),
      all_(new QCheckBox(_("All nine times"), this)),
      night_(new QCheckBox(_("Thirds of the night and midnight"), this)),
      preview_(new PagePreview([this] { return pages(); }, this)),
      iqama_(new IqamaPart(context, this)) {
    paper_->addItem("A4", int(printing::Paper::a4));
    paper_->addItem("Letter", int(printing::Paper::letter));
    auto* const card = new Card(this);
    auto* const form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    form->addRow(_("Month or year"), span_);
    form->addRow(_("Paper"), paper_);
    card->column()->addLayout(form);
    for (QCheckBox* const box : {sheet_, all_, night_}) card->column()->addWidget(box);
    auto* const look = new QPushButton(_("Look at it and print…"), card);
    auto* const store = new QPushButton(_("Save…"), card);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(look);
    buttons->addWidget(store);
    buttons->addStretch(1);
    card->column()->addLayout(buttons);
    card->column()->addWidget(
        newRemark(_("Saved as PDF, as a web page, or as a calendar with an event for each prayer."), card));
    QVBoxLayout* const column = newColumn();
    column->addWidget(place_);
    column->addWidget(card);
    column->addWidget(preview_);
    column->addWidget(iqama_);
    column->addStretch(1);
    connect(span_, &QComboBox::currentIndexChanged, this,
            [this] { sheet_->setEnabled(!span_->currentData().toString().contains('-')); });
    for (QComboBox* const box : {span_, paper_}) {
        connect(box, &QComboBox::currentIndexChanged, preview_, &PagePreview::updateSoon);
    }
    for (QCheckBox* const box : {sheet_, all_, night_}) {
        connect(box, &QCheckBox::toggled, preview_, &PagePreview::updateSoon);
    }
    connect(look, &QPushButton::clicked, this, &TimetablePage::open);
    connect(store, &QPushButton::clicked, this, &TimetablePage::save);
}

void TimetablePage::fillMonths() {
    const VAKDate now = app::today(session(), siteOf(app::chooseHomePlace(session()).city));
    if (span_->count() > 0 && span_->itemData(0) == keyOf(now.Years, now.Months)) return;
    span_->clear();
    for (int ahead = 0; ahead < monthsOffered; ++ahead) {
        const int month = (now.Months - 1 + ahead) % monthsOfYear + 1;
        const int year = now.Years + (now.Months - 1 + ahead) / monthsOfYear;
        span_->addItem(toQt(session().monthName(month)) + " " + QString::number(year), keyOf(year, month));
    }
    for (const int year : {now.Years, now.Years + 1}) span_->addItem(QString::number(year), keyOf(year, 0));
}

void TimetablePage::refresh() {
    place_->setText(toQt(_("For {}.", app::chooseHomePlace(session()).city.name)));
    fillMonths();
    const std::optional<UserCity> home = app::storedHome(session());
    iqama_->refresh(home ? home->city : std::nullopt);
    preview_->updateSoon();
}

app::PrintRequest TimetablePage::request() {
    app::PrintRequest request{app::chooseHomePlace(session()), {}};
    const QString span = span_->currentData().toString();
    const int year = span.section('-', 0, 0).toInt(), month = span.section('-', 1, 1).toInt();
    for (int each = month == 0 ? 1 : month; each <= (month == 0 ? monthsOfYear : month); ++each) {
        request.months.push_back({year, each});
    }
    request.allTimes = all_->isChecked();
    request.withNight = night_->isChecked();
    request.isSheet = pdfOptions().isSheet;
    return request;
}

printing::PdfOptions TimetablePage::pdfOptions() const {
    return {printing::Paper(paper_->currentData().toInt()), sheet_->isEnabled() && sheet_->isChecked()};
}

std::string TimetablePage::bytes(TimetableFormat format) {
    return app::timetableFile(session(), request(), format, pdfOptions());
}

PrintedPages TimetablePage::pages() {
    return {app::printedTimes(session(), request()), pdfOptions()};
}

// The desktop's own program shows the pages, and prints them.
void TimetablePage::open() {
    const QString file = folder_.filePath(proposedName() + ".pdf");
    const bool isWritten = context().change([&] { app::writeFile(file.toStdString(), bytes(TimetableFormat::pdf)); });
    if (!isWritten || QDesktopServices::openUrl(QUrl::fromLocalFile(file))) return;
    context().tell(_("No program of this desktop shows PDF files. Save the timetable instead."));
}

void TimetablePage::save() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString chosen;
    QString file = QFileDialog::getSaveFileName(this, _("Save the timetable"), folder + "/" + proposedName() + ".pdf",
                                                "PDF (*.pdf);;HTML (*.html);;iCalendar (*.ics)", &chosen);
    if (file.isEmpty()) return;
    if (!QFileInfo(file).fileName().contains('.')) file += chosen.section('*', 1).section(')', 0, 0);
    const bool isWritten = context().change([&] { app::writeFile(file.toStdString(), bytes(formatOf(file))); });
    if (isWritten) context().tell(toQt(_("Written: {}", file.toStdString())));
}

QString TimetablePage::proposedName() const {
    return "quode-" + span_->currentData().toString();
}

}  // namespace quode::window
