// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The module of the bundle, loaded as by a host.
#include <QPluginLoader>

#include "widget/WidgetPlugin.h"
#include "widget/widget_fixture.h"

namespace quode::test {
namespace {

class Module : public WidgetTest {
  protected:
    Module() : loader(QString::fromStdString(std::string(QUODE_BUNDLE) + "/quode-widget.so")) {}

    WidgetPlugin& plugin() {
        auto* found = qobject_cast<WidgetPlugin*>(loader.instance());
        if (found == nullptr) throw std::runtime_error(loader.errorString().toStdString());
        return *found;
    }

    QPluginLoader loader;
};

TEST_F(Module, IsLoadedFromTheBundle) {
    EXPECT_NO_THROW(plugin());
    EXPECT_EQ("quode.WidgetPlugin/1", loader.metaData().value("IID").toString().toStdString());
}

TEST_F(Module, MakesAWidgetThatIsPresentedAndDismissed) {
    keepCities({{cityNamed("Istanbul"), 1}});
    const auto made = plugin().makeWidget(QUODE_BUNDLE);
    made->setWidgetHost(&host);
    made->hostDidPresent();
    EXPECT_EQ((Size{320.0, 317.0}), made->preferredViewSize());
    ASSERT_NE(nullptr, made->view());
    EXPECT_NO_THROW(spokenAs(*made->view(), "Fajr 06:06"));
    EXPECT_GT(host.invalidations, 0);
    made->hostDidDismiss();
    EXPECT_EQ(nullptr, made->view());
}

TEST_F(Module, SharesTheServicesOfItsHost) {
    const auto made = plugin().makeWidget(QUODE_BUNDLE);
    EXPECT_EQ(QUODE_BUNDLE, GlobalFuncs::globalFuncs().appBundlePath());
    GlobalFuncs::globalFuncs().chooseLanguage("tr");
    made->hostDidPresent();
    EXPECT_NO_THROW(spokenAs(*made->view(), "Tüm vakitler"));
}

}  // namespace
}  // namespace quode::test
