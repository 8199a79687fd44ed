// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/WidgetBundle.h"

#include <QPluginLoader>

#include "app/failure.h"
#include "texts/translation.h"

namespace quode::host {
namespace {

constexpr const char* moduleName = "quode-widget.so";

WidgetPlugin* loadedPlugin(const std::string& bundlePath) {
    const std::string module = bundlePath + "/" + moduleName;
    QPluginLoader loader(QString::fromStdString(module));
    auto* const plugin = qobject_cast<WidgetPlugin*>(loader.instance());
    if (plugin != nullptr) return plugin;
    std::string reason = _("it has no widget of this edition");
    if (!loader.isLoaded()) reason = loader.errorString().toStdString();
    if (reason.ends_with('.')) reason.pop_back();  // some of Qt's are whole sentences
    throw app::Failure(app::ExitCode::damagedData, _("The widget \"{}\" cannot be used: {}. Install Quode again, or "
                                                     "set QUODE_BUNDLE_DIR to the folder of its bundle.",
                                                     module, reason));
}

}  // namespace

WidgetBundle::WidgetBundle(std::string path) : path_(std::move(path)), plugin_(loadedPlugin(path_)) {}

}  // namespace quode::host
