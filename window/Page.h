// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QVBoxLayout>
#include <QWidget>

#include "window/Context.h"

namespace quode::window {

/// A page of the window.
class Page : public QWidget {
    Q_OBJECT

  public:
    Page(Context& context, QWidget* parent) : QWidget(parent), context_(context) {}

    /// Shows what is stored now. What has the keyboard keeps it. Throws what the databases throw.
    virtual void refresh() = 0;

  protected:
    /// The column of the page's parts.
    QVBoxLayout* newColumn() {
        auto* const column = new QVBoxLayout(this);
        column->setContentsMargins(12, 6, 12, 18);
        column->setSpacing(12);
        return column;
    }

    Context& context() { return context_; }
    app::Session& session() { return context_.session(); }

  private:
    Context& context_;
};

}  // namespace quode::window
