// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QtPlugin>
#include <memory>
#include <string>

#include "widget/WidgetViewController.h"

namespace quode {

/// The face that the module of a widget bundle shows to a host, which loads it with QPluginLoader. The host has started
/// the shared services (GlobalFuncs::startUp) and has made a QApplication before it asks for a widget.
class WidgetPlugin {
  public:
    virtual ~WidgetPlugin() = default;

    /// Makes the widget, which builds itself once.
    /// @param bundlePath  folder of the bundle that the module was loaded from
    virtual std::unique_ptr<WidgetViewController> makeWidget(const std::string& bundlePath) = 0;
};

}  // namespace quode

Q_DECLARE_INTERFACE(quode::WidgetPlugin, "quode.WidgetPlugin/1")
