// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "desktop/help.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <array>
#include <string>

#include "app/place.h"
#include "app/session.h"
#include "texts/markup.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr QSize helpSize{420, 520};  // points

struct Section {
    const char* title;
    const char* text;
};

constexpr std::array<Section, 7> sections{{
    {N_("The times"),
     N_("The panel shows the prayer times of your home city for today. A bar marks the prayer whose time it is, and a "
        "pointer the next one. \"--:--\" means that there is no such time on this day; the reason stands below the "
        "widget.")},
    {N_("Another city"), N_("Press Ctrl+F, or choose \"Choose city\" in the menu, and type the name.")},
    {N_("Alarms"),
     N_("Press the bell of a row to switch its alarm on or off. The alarms ring also when the panel is closed.")},
    {N_("Details"),
     N_("The button ℹ opens the dates, Sun, Moon, time zone and qibla of the city. \"Show all\" opens further times.")},
    {N_("The compass"), N_("The button ✧ shows the direction of the qibla. Without a sensor, turn the dial with the "
                           "mouse or with the arrow "
                           "keys until it agrees with where north is.")},
    {N_("Keys"), N_("Tab and Shift+Tab go from button to button, Space presses one. F10 opens the menu, Ctrl+C copies "
                    "today’s times, "
                    "Ctrl+F chooses a city, Ctrl+P prints a timetable, F1 opens this help, Escape closes the panel, "
                    "Ctrl+Q ends the program.")},
    {N_("In a terminal"), N_("The command quode does the same. See \"quode --help\".")},
}};

QString escaped(const std::string& text) {
    return QString::fromStdString(escapedMarkup(text));
}

}  // namespace

QString helpPage() {
    QString page;
    for (const Section& section : sections) {
        page += "<h3>" + escaped(_(section.title)) + "</h3><p>" + escaped(_(section.text)) + "</p>";
    }
    return page;
}

QString aboutPage(app::Session& session) {
    const auto line = [](const std::string& text) { return "<p>" + escaped(text) + "</p>"; };
    QString page = "<h2>Quode " + escaped(QUODE_VERSION) + "</h2>";
    page += line(_("Islamic prayer times, computed on this device. Nothing is sent anywhere, and no network is used."));
    try {
        page += line(_("City database: {}", app::editionText(session)));
    } catch (const std::runtime_error& error) {
        page += line(error.what());
    }
    page += line(_(
        "Up to 60° of latitude sunrise, noon and sunset agree with a modern ephemeris to a third of a minute; the rule "
        "of each time decides the rest."));
    page +=
        line(_("The places come from GeoNames (CC BY 4.0), the time zones from the IANA time zone database and the map "
               "from Natural Earth (both public "
               "domain)."));
    return page;
}

void showPage(const QString& title, const QString& html, QWidget* parent) {
    auto* const window = new QDialog(parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(title);
    window->resize(helpSize);
    auto* const page = new QTextBrowser(window);
    page->setAccessibleName(title);
    page->setHtml(html);
    auto* const buttons = new QDialogButtonBox(window);
    buttons->addButton(_("Close"), QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::rejected, window, &QDialog::close);
    auto* const column = new QVBoxLayout(window);
    column->addWidget(page);
    column->addWidget(buttons);
    window->show();
    window->activateWindow();
}

}  // namespace quode
