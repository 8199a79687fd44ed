// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtPlugin>
#include <memory>
#include <string>

#include "widget/WidgetViewController.h"

namespace quode {

/// The interface of a widget bundle's module for its host, which loads it with QPluginLoader. Before creating a widget the
/// host starts the shared services (`GlobalFuncs::startUp`) and creates a QApplication. Fixed names: the interface is a
/// contract with hosts.
class WidgetPlugin {
  public:
    virtual ~WidgetPlugin() = default;

    /// Creates the widget, which builds itself once.
    /// @param bundlePath  folder of the bundle that the module was loaded from
    virtual std::unique_ptr<WidgetViewController> makeWidget(const std::string& bundlePath) = 0;
};

}  // namespace quode

Q_DECLARE_INTERFACE(quode::WidgetPlugin, "quode.WidgetPlugin/1")
