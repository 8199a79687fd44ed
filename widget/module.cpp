// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The interface of the bundle's module for the host that loads it.
#include <QObject>

#include "widget/QuodeController.h"
#include "widget/WidgetPlugin.h"

namespace quode {

class QuodeWidgetPlugin final : public QObject, public WidgetPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "quode.WidgetPlugin/1")
    Q_INTERFACES(quode::WidgetPlugin)

  public:
    std::unique_ptr<WidgetViewController> makeWidget(const std::string& bundlePath) override {
        QuodeController::initialize(bundlePath);
        return std::make_unique<QuodeController>();
    }
};

}  // namespace quode

#include "module.moc"
