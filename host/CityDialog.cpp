// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/CityDialog.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "texts/translation.h"

namespace quode::host {
namespace {

constexpr QSize usualSize{340, 420};  // points

QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

// "Springfield — Illinois, United States", after "formerly" where another name was typed.
QString describe(const CityHit& hit) {
    const CityRecord& city = hit.city;
    const std::string& country = languageInUse() == "tr" ? city.countryNameTr : city.countryNameEn;
    std::string text = city.name;
    if (!hit.otherName.empty()) text += " (" + hit.otherName + ")";
    text += " — ";
    if (!city.region.empty() && city.region != city.countryNameEn) text += city.region + ", ";
    return qt(text + country);
}

}  // namespace

CityDialog::CityDialog(Search search, QWidget* parent)
    : QDialog(parent),
      search_(std::move(search)),
      field_(new QLineEdit(this)),
      list_(new QListWidget(this)),
      nothing_(new QLabel(this)),
      accept_(nullptr) {
    setWindowTitle(_("Choose city"));
    resize(usualSize);
    auto* const caption = new QLabel(_("Type the name of your city:"), this);
    caption->setBuddy(field_);
    field_->setAccessibleName(_("Name of the city"));
    field_->setClearButtonEnabled(true);
    field_->installEventFilter(this);
    list_->setAccessibleName(_("Cities found"));
    list_->setAlternatingRowColors(true);
    nothing_->setWordWrap(true);
    nothing_->hide();

    auto* const buttons = new QDialogButtonBox(this);
    accept_ = buttons->addButton(_("Make it home"), QDialogButtonBox::AcceptRole);
    buttons->addButton(_("Cancel"), QDialogButtonBox::RejectRole);
    accept_->setEnabled(false);
    accept_->setDefault(true);

    auto* const column = new QVBoxLayout(this);
    column->addWidget(caption);
    column->addWidget(field_);
    column->addWidget(list_, 1);
    column->addWidget(nothing_);
    column->addWidget(buttons);

    connect(field_, &QLineEdit::textChanged, this, &CityDialog::find);
    connect(list_, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(list_, &QListWidget::currentRowChanged, this, [this](int row) { accept_->setEnabled(row >= 0); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    field_->setFocus();
}

void CityDialog::find(const QString& text) {
    list_->clear();
    hits_.clear();
    const std::string wanted = text.trimmed().toStdString();
    try {
        if (!wanted.empty()) hits_ = search_(wanted);
        nothing_->setText(_("No place goes with this. Try another spelling, or the name of a larger city nearby."));
    } catch (const std::runtime_error& error) {
        nothing_->setText(QString::fromUtf8(error.what()));
    }
    for (const CityHit& hit : hits_) list_->addItem(describe(hit));
    nothing_->setVisible(!wanted.empty() && hits_.empty());
    list_->setCurrentRow(hits_.empty() ? -1 : 0);
}

std::optional<CityRecord> CityDialog::chosen() const {
    const int row = list_->currentRow();
    if (result() != Accepted || row < 0 || std::size_t(row) >= hits_.size()) return std::nullopt;
    return hits_[std::size_t(row)].city;
}

// The keys that walk the list go to it, whatever has the focus.
bool CityDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int step = key == Qt::Key_Down ? 1 : key == Qt::Key_Up ? -1 : 0;
        if (step != 0 && list_->count() > 0) {
            list_->setCurrentRow(std::clamp(list_->currentRow() + step, 0, list_->count() - 1));
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace quode::host
