// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>

#include "app/timetable_file.h"
#include "window/Page.h"

class QCheckBox;
class QComboBox;
class QLabel;

namespace quode::window {

class IqamaPart;
class PagePreview;
struct PrintedPages;

/// A timetable to hang up or to take into a calendar, and the begin of the congregations, which it shows.
class TimetablePage : public Page {
    Q_OBJECT

  public:
    TimetablePage(Context& context, QWidget* parent);

    void refresh() override;

    /// The timetable that is chosen, as a file.
    std::string bytes(app::TimetableFormat format);

  private:
    void fillMonths();
    app::PrintRequest request();
    printing::PdfOptions pdfOptions() const;
    PrintedPages pages();
    void open();
    void save();
    QString proposedName() const;

    QTemporaryDir folder_;  // of the file that is looked at
    QLabel* place_;
    QComboBox *span_, *paper_;
    QCheckBox *sheet_, *all_, *night_;
    PagePreview* preview_;
    IqamaPart* iqama_;
};

}  // namespace quode::window
