// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>

#include "app/printed_times.h"
#include "window/parts.h"

namespace quode::window {

class PageSheet;

/// A timetable with what its pages look like.
struct PrintedPages {
    printing::Timetable timetable;
    printing::PdfOptions options;
};

/// A page of a timetable as it is printed, in the width that there is, with buttons to turn to the others.
class PagePreview : public Card {
    Q_OBJECT

  public:
    /// @param pages  computes what is shown; what it throws is shown in place of the page
    PagePreview(std::function<PrintedPages()> pages, QWidget* parent);

    /// Shows the pages as they are now, as soon as no further change comes for a moment.
    void updateSoon();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void showNow();
    void compute();
    void draw();
    void describe();
    void enableButtons();
    void turn(int step);
    void showProblem(const QString& problem);
    std::size_t pageCount() const;

    std::function<PrintedPages()> newest_;
    PrintedPages pages_;
    bool isStale_ = true;
    std::size_t page_ = 0;
    QTimer timer_;
    QWidget* turning_;  // the row with the buttons
    QToolButton *back_, *forward_;
    QLabel *number_, *problem_;
    PageSheet* sheet_;
};

}  // namespace quode::window
