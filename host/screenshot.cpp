// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/screenshot.h"

#include <QApplication>
#include <QEventLoop>
#include <QImage>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <utility>

#include "app/place.h"
#include "app/session.h"
#include "app/user_data.h"
#include "common/civil_date.h"
#include "compass/CompassViewOverlayWindow.h"
#include "data/city_day.h"
#include "host/Panel.h"
#include "host/PanelDevice.h"
#include "host/WidgetBundle.h"
#include "host/font_reading.h"
#include "host/user_choices.h"
#include "host/widgets.h"
#include "platform/system_platform.h"
#include "terminal/streams.h"
#include "texts/translation.h"
#include "views/UIButtonX.h"
#include "views/accessibility.h"

namespace quode::host {
namespace {

using app::ExitCode;
using app::Failure;
using app::Session;

constexpr QSize screenSize{360, 640};  // points
constexpr int compassAppears = 1500;   // ms, until its animations have ended
constexpr int quickCompression = 80;   // of 0 (smallest file) to 100 (quickest)

/// The environment with another value for one variable.
Environment with(Environment environment, std::string name, std::string value) {
    return [environment = std::move(environment), name = std::move(name),
            value = std::move(value)](std::string_view asked) -> std::optional<std::string> {
        return asked == name ? value : environment(asked);
    };
}

/// Noon of a day by the wall clock of a city.
std::chrono::sys_seconds noonOf(const VAKDate& date, const CityRecord& city) {
    const std::chrono::year_month_day day = civilDate(date);
    const ZoneClock clock{city.rule, city.known};
    return std::chrono::sys_days(day) + std::chrono::hours(12) - std::chrono::seconds(clock.offsetOn(day));
}

/// Drops what the platform without a screen says of its nature.
void passMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text.startsWith("This plugin does not support")) return;
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

/// What makes the pictures of all machines alike.
void prepareQt(const ScreenshotOptions& options, const QTemporaryDir& folder) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
    qputenv("QT_SCALE_FACTOR", QByteArray::number(options.scale));
    qputenv("QT_FONT_DPI", "96");
    qInstallMessageHandler(passMessage);
}

class NeverWatch : public MomentWatch {
  public:
    void watchFor(std::optional<Clock::TimePoint>) override {}
};

void tap(const QWidget& view, int tag) {
    for (UIButtonX* const button : view.findChildren<UIButtonX*>()) {
        if (button->tag() == tag) return button->tap();
    }
    throw std::logic_error("The widget has no button " + std::to_string(tag) + ".");
}

void wait(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

QImage pictureOfCompass() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        auto* const compass = qobject_cast<CompassViewOverlayWindow*>(window);
        if (compass == nullptr || !compass->isVisible()) continue;
        compass->showNormal();
        compass->setGeometry(QRect({0, 0}, screenSize));
        wait(compassAppears);
        return compass->grab().toImage();
    }
    throw std::logic_error("The widget shows no compass.");
}

QImage picture(const ScreenshotOptions& options, Session& session) {
    WidgetBundle bundle(session.bundle().string());
    const std::unique_ptr<WidgetViewController> widget = bundle.makeWidget();
    PanelWindow window(PanelStyle::popover, true);
    window.setMenu(nullptr, _("Menu"));
    NeverWatch watch;
    Panel panel(*widget, window, session.homeClock(), watch, [] {});
    panel.setFacts([&session] { return panelFacts(session); });
    panel.present({0, 0});
    if (options.info) tap(*widget->view(), tagCityInfo);
    if (options.all) tap(*widget->view(), tagShowAll);
    if (options.compass) tap(*widget->view(), tagCompass);
    if (options.compass) return pictureOfCompass();
    window.resize(window.wantedSize());  // the picture shows everything, whatever the screen
    QCoreApplication::processEvents();
    return window.grab().toImage();
}

void save(const QImage& image, const std::string& name) {
    QSaveFile file(QString::fromStdString(name));
    const bool isSaved = file.open(QIODevice::WriteOnly) && image.save(&file, "PNG", quickCompression) && file.commit();
    if (isSaved) return;
    throw Failure(ExitCode::outputFailed,
                  _("The picture \"{}\" cannot be written: {}.", name, file.errorString().toStdString()));
}

bool isGuess(const app::ChosenPlace& place) {
    return place.source == app::PlaceSource::systemZone || place.source == app::PlaceSource::fallback;
}

/// Whether a city that the user did not choose is in the user's files anyway.
bool isStoredGuess(Session& user, const app::ChosenPlace& place) {
    const auto home = isGuess(place) ? app::storedHome(user) : std::nullopt;
    return home && home->id == place.city.id;
}

}  // namespace

ExitCode takeScreenshot(const Environment& environment, const LanguageChoice& language,
                        const ScreenshotOptions& options) {
    ExitCode code = ExitCode::ok;
    const auto reportAndEnd = [&code](const app::Problem& problem) {
        terminal::writeProblem(problem);
        if (problem.code != ExitCode::ok) code = problem.code;
    };
    Session user(environment, {.language = language, .onProblem = reportAndEnd});
    Session::Options sessionOptions{.language = language, .onProblem = terminal::writeProblem};
    const app::ChosenPlace place = app::choosePlace(user, options.city);
    if (options.date) sessionOptions.moment = noonOf(*options.date, place.city);

    const QTemporaryDir folder;
    if (!folder.isValid()) throw Failure(ExitCode::outputFailed, _("No temporary folder can be created."));
    prepareQt(options, folder);
    int count = 1;
    char name[] = "quode-panel";
    char* arguments[] = {name, nullptr};
    const QApplication application(count, arguments);
    installAccessibility();
    const std::jthread fonts = readFonts(_("Menu"));

    // The widget reads its cities from the user's files; another city is put into files of its own.
    const bool isHome = place.source == app::PlaceSource::home || isStoredGuess(user, place);
    Session session(isHome ? environment : with(environment, "QUODE_DATA_DIR", folder.path().toStdString()),
                    sessionOptions);
    const auto device = std::make_shared<PanelDevice>(Idiom::phone, screenSize, options.scale);
    device->setWantedWidth(widthForCityName(place.city.name));
    session.setDevice(device);
    GlobalFuncs& services = session.services();
    services.getSettings().uiControlColorId = chosenColorScheme(user);
    services.updateUIColors();
    if (!isHome) makeUserDatabase(session, place.city, isGuess(place));
    session.followCity(&place.city);
    save(picture(options, session), options.file);
    return code;
}

}  // namespace quode::host
