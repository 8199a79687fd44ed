// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

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
    Context& context() { return context_; }
    app::Session& session() { return context_.session(); }

  private:
    Context& context_;
};

}  // namespace quode::window
