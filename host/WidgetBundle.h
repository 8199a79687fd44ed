// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "widget/WidgetPlugin.h"

namespace quode::host {

/// The module of a bundle, "quode-widget.so", loaded into this process and kept in it until the end.
class WidgetBundle {
  public:
    /// Throws `app::Failure` (damagedData) when the bundle has no module, or one that this program cannot use.
    explicit WidgetBundle(std::string path);

    std::unique_ptr<WidgetViewController> makeWidget() { return plugin_->makeWidget(path_); }

  private:
    std::string path_;
    WidgetPlugin* plugin_;
};

}  // namespace quode::host
