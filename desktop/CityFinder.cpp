// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/CityFinder.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "texts/translation.h"
#include "views/qt_conversions.h"

namespace quode {
namespace {

// "Springfield — Illinois, United States", with the name that was typed where that is another one.
QString describe(const CityHit& hit) {
    std::string text = hit.city.name;
    if (!hit.otherName.empty()) text += " (" + hit.otherName + ")";
    return toQt(text) + " — " + regionAndCountryOf(hit.city);
}

// The database knows small places by names in Latin letters alone.
bool hasOtherLetters(const QString& text) {
    return std::ranges::any_of(text, [](QChar c) { return c.isLetter() && c.script() != QChar::Script_Latin; });
}

}  // namespace

QString regionAndCountryOf(const CityRecord& city) {
    const std::string& country = languageInUse() == "tr" ? city.countryNameTr : city.countryNameEn;
    const bool hasRegion = !city.region.empty() && city.region != city.countryNameEn && city.region != country;
    return toQt(hasRegion ? city.region + ", " + country : country);
}

CityFinder::CityFinder(Search search, QWidget* parent)
    : QWidget(parent),
      search_(std::move(search)),
      field_(new QLineEdit(this)),
      list_(new QListWidget(this)),
      nothing_(new QLabel(this)) {
    field_->setAccessibleName(_("Name of the city"));
    field_->setClearButtonEnabled(true);
    field_->installEventFilter(this);
    list_->setAccessibleName(_("Cities found"));
    list_->setAlternatingRowColors(true);
    list_->setFocusPolicy(Qt::ClickFocus);  // the arrow keys of the field reach it
    nothing_->setWordWrap(true);
    nothing_->hide();
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(field_);
    column->addWidget(list_, 1);
    column->addWidget(nothing_);
    setFocusProxy(field_);
    connect(field_, &QLineEdit::textChanged, this, &CityFinder::find);
    connect(list_, &QListWidget::itemActivated, this, &CityFinder::chosen);
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { Q_EMIT currentChanged(row >= 0); });
}

void CityFinder::find(const QString& text) {
    list_->clear();
    hits_.clear();
    const std::string wanted = text.trimmed().toStdString();
    try {
        if (!wanted.empty()) hits_ = search_(wanted);
        nothing_->setText(hasOtherLetters(text)
                              ? _("In these letters only large cities are known. Try the name in Latin letters.")
                              : _("No place matches. Try another spelling, or the name of a larger city nearby."));
    } catch (const std::runtime_error& error) {
        nothing_->setText(QString::fromUtf8(error.what()));
    }
    for (const CityHit& hit : hits_) list_->addItem(describe(hit));
    nothing_->setVisible(!wanted.empty() && hits_.empty());
    list_->setCurrentRow(hits_.empty() ? -1 : 0);
}

std::optional<CityRecord> CityFinder::current() const {
    const int row = list_->currentRow();
    if (row < 0 || std::size_t(row) >= hits_.size()) return std::nullopt;
    return hits_[std::size_t(row)].city;
}

void CityFinder::clear() {
    field_->clear();
}

bool CityFinder::isStep(int key) {
    const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
    if (step == 0 || list_->count() == 0) return false;
    list_->setCurrentRow(std::clamp(list_->currentRow() + step, 0, list_->count() - 1));
    return true;
}

// The keys that walk the list go to it while the field has the focus. Return chooses, where something was found.
bool CityFinder::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (isStep(key)) return true;
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isReturn || !current()) return QWidget::eventFilter(watched, event);
    Q_EMIT chosen();
    return true;
}

}  // namespace quode
