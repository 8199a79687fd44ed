#include "host/WidgetBundle.h"

#include <QPluginLoader>

#include "cli/failure.h"

namespace quode::host {
namespace {

constexpr const char* moduleName = "quode-widget.so";

WidgetPlugin* loadedPlugin(const std::string& bundlePath) {
    const std::string module = bundlePath + "/" + moduleName;
    QPluginLoader loader(QString::fromStdString(module));
    auto* const plugin = qobject_cast<WidgetPlugin*>(loader.instance());
    if (plugin != nullptr) return plugin;
    const std::string reason =
        loader.isLoaded() ? "it holds no widget of this edition" : loader.errorString().toStdString();
    throw cli::Failure(cli::ExitCode::damagedData, "The widget \"" + module + "\" cannot be used: " + reason +
                                                       ". Install Quode again, or name the folder of its bundle in "
                                                       "QUODE_BUNDLE_DIR.");
}

}  // namespace

WidgetBundle::WidgetBundle(std::string path) : path_(std::move(path)), plugin_(loadedPlugin(path_)) {}

}  // namespace quode::host
