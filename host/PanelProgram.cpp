// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/PanelProgram.h"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QShortcut>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "alarms/DatabaseFunctions.h"
#include "app/session.h"
#include "app/user_data.h"
#include "companion/UserEventStore.h"
#include "data/user_places.h"
#include "desktop/CityDialog.h"
#include "desktop/FirstStartDialog.h"
#include "desktop/display.h"
#include "desktop/help.h"
#include "desktop/settings_program.h"
#include "host/coming_prayer.h"
#include "host/user_choices.h"
#include "platform/zone_name.h"
#include "texts/translation.h"
#include "views/MessageView.h"

namespace quode::host {
namespace {

using namespace std::chrono_literals;

constexpr auto settle = 150ms;         // until who writes the user's files has finished
constexpr auto latestFirstFrame = 1s;  // a window that nobody sees is not drawn

std::vector<std::filesystem::path> userFiles(app::Session& session) {
    const std::filesystem::path database = userDatabaseFile(session.dataFolder());
    return {database, database.string() + "-wal"};
}

// What is still to be told at a later presentation, which finds out itself whether the database is locked then.
QString lastingNotice(const Preparation& preparation) {
    return preparation.isLocked ? QString() : preparation.notice;
}

}  // namespace

PanelProgram::PanelProgram(app::Session& session, std::shared_ptr<UserEventStore> calendar,
                           std::shared_ptr<PanelDevice> device, std::optional<std::string> languageOption)
    : session_(session),
      calendar_(std::move(calendar)),
      device_(std::move(device)),
      languageOption_(std::move(languageOption)),
      window_(trayWatch_.wasTrayThere() && wantsTrayIcon(session_) ? PanelStyle::popover : PanelStyle::window,
              isComposited()),
      // The widget reads the user's cities as soon as it is made. Notices of that moment are shown with the first panel.
      first_(prepareUserChoices(session_, *calendar_)),
      told_(lastingNotice(*first_)),
      bundle_(session_.bundle().string()),
      widget_(bundle_.makeWidget()),
      watch_(
          systemMomentWatch(session_.deviceClock(), {systemZoneFile}),
          systemMomentWatch(session_.deviceClock(), userFiles(session_)), [this] { return shownChoices(session_); },
          settle),
      panel_(*widget_, window_, session_.homeClock(), watch_, [this] { prepare(); }),
      storedRows_(rememberedRows(session_)) {
    MessageView::setKeepsNewestOnly(true);
    connectPanel();
    QTimer::singleShot(0, this, [this] { first_.reset(); });
    connect(&window_, &PanelWindow::firstFrameShown, this, &PanelProgram::finishStart);
    QTimer::singleShot(latestFirstFrame, this, &PanelProgram::finishStart);
}

PanelProgram::~PanelProgram() {
    window_.setMenu(nullptr, {});
}

void PanelProgram::present() {
    const app::OpenUserData reading(session_);
    panel_.present(QCursor::pos());
}

// The icon in the tray waits for the first frame, because its search through the themes of icons takes as long; and so does
// the menu, which nobody opens before.
void PanelProgram::finishStart() {
    if (std::exchange(isStarted_, true)) return;
    menu();
    offerTray();
    Q_EMIT started();
}

void PanelProgram::offerTray() {
    if (std::exchange(isTrayOffered_, true) || !wantsTrayIcon(session_)) return;
    if (trayWatch_.wasTrayThere()) return showTray();
    connect(&trayWatch_, &TrayWatch::appeared, this, &PanelProgram::showTray);
    trayWatch_.watch();
}

void PanelProgram::askOnFirstStart() {
    tell(quode::askOnFirstStart(session_, dialogParent()));
}

// Another program may keep the user's files locked.
void PanelProgram::lookAgainForWhatCannotBeRead() {
    if (panel_.isPresented() && homeIsMissing(session_)) watch_.lookAgain();
}

void PanelProgram::prepare() {
    followLanguage(session_, languageOption_);
    const bool isRightToLeft = quode::isRightToLeft(languageInUse());
    // Of the panel's own parts, menus and dialogs. The widget's rows have one order in every language.
    QGuiApplication::setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    const bool isJustDone = first_ && !first_->isLocked;
    const Preparation present = isJustDone ? *first_ : prepareUserChoices(session_, *calendar_);
    first_.reset();
    isPrepared_ = !present.isLocked;
    notice_ = told_.isEmpty() ? present.notice : std::exchange(told_, {});
    held_.emplace(session_);
    window_.setTheme(theme_.theme());
    GlobalFuncs& services = session_.services();
    services.getSettings().uiControlColorId = chosenColorScheme(session_);
    services.updateUIColors();
}

// What needs fonts, which a thread reads until here.
bool PanelProgram::fit() {
    window_.setMenu(menu_.get(), _("Menu"));
    window_.setNotice(notice_);
    if (!device_->setWantedWidth(widthForCityName(homeName(session_)))) return false;
    session_.services().measureScreen();
    return true;
}

// What is shown while something was locked does not stay.
void PanelProgram::onBuilt() {
    alarmsOn_ = alarmStates(session_).value_or(std::map<int, bool>{});
    const bool isWhole = isPrepared_ && held_ && !held_->isLocked();
    held_.reset();
    watch_.setShownWhole(isWhole);
    if (isWhole) lookAgainForWhatCannotBeRead();
}

void PanelProgram::connectPanel() {
    panel_.setFit([this] { return fit(); });
    panel_.setFacts([this] { return panelFacts(session_); });
    panel_.setOpenRows(storedRows_);
    connect(&panel_, &Panel::built, this, &PanelProgram::onBuilt);
    connect(&panel_, &Panel::rowsToggled, this, &PanelProgram::storeRows);
    connect(&panel_, &Panel::dismissed, this, &PanelProgram::onDismissed);
    connect(&watch_, &HomeWatch::otherChoicesWritten, this, [this] {
        showAlarms();
        lookAgainForWhatCannotBeRead();
    });
    connect(&theme_, &DesktopTheme::changed, this, [this] { window_.setTheme(theme_.theme()); });
}

PanelMenu& PanelProgram::menu() {
    if (menu_) return *menu_;
    menu_ = std::make_unique<PanelMenu>([this] { return menuState(); });
    connectMenu();
    window_.setMenu(menu_.get(), _("Menu"));
    return *menu_;
}

void PanelProgram::connectMenu() {
    connect(menu_.get(), &PanelMenu::openAsked, this, &PanelProgram::present);
    connect(menu_.get(), &PanelMenu::copyAsked, this, &PanelProgram::copyTimes);
    connect(menu_.get(), &PanelMenu::cityAsked, this, &PanelProgram::chooseCity);
    connect(menu_.get(), &PanelMenu::alarmSwitched, this, &PanelProgram::switchAlarm);
    connect(menu_.get(), &PanelMenu::colorSchemeChosen, this, &PanelProgram::chooseColors);
    connect(menu_.get(), &PanelMenu::muteAsked, this, [this](bool isMuted) { tell(muteAlarms(session_, isMuted)); });
    connect(menu_.get(), &PanelMenu::settingsAsked, this, [this](const QString& page) {
        if (!openSettings(page)) tell(_("The settings cannot be opened. Install Quode again."));
    });
    connect(menu_.get(), &PanelMenu::helpAsked, this, [this] { showPage(_("Help"), helpPage(), dialogParent()); });
    connect(menu_.get(), &PanelMenu::aboutAsked, this,
            [this] { showPage(_("About Quode"), aboutPage(session_), dialogParent()); });
    connect(menu_.get(), &PanelMenu::quitAsked, this, &PanelProgram::end);
    window_.addActions(menu_->actions());  // for their keys
    auto* const openMenu = new QShortcut(Qt::Key_F10, &window_);
    connect(openMenu, &QShortcut::activated, &window_, &PanelWindow::openMenu);
}

// A panel that was opened as a window stays one until it is dismissed.
void PanelProgram::showTray() {
    if (tray_) return;
    auto files = userFiles(session_);
    files.emplace_back(systemZoneFile);
    toolTipWatch_ = systemMomentWatch(session_.deviceClock(), files);
    tray_ = std::make_unique<PanelTray>([this] { return comingPrayerNow(); }, *toolTipWatch_, menu());
    connect(tray_.get(), &PanelTray::clicked, this, [this] { panel_.toggle(QCursor::pos()); });
}

// At once: the program may end while the panel is open, by its menu or with the session.
void PanelProgram::storeRows() {
    const OpenRows rows = panel_.openRows();
    if (rows != storedRows_ && rememberRows(session_, rows).isEmpty()) storedRows_ = rows;
}

// What could not be stored when the rows were opened is tried again.
void PanelProgram::onDismissed() {
    storeRows();
    offerTray();
    if (!tray_) return end();
    window_.setPanelStyle(PanelStyle::popover);
}

// --- the entries of the menu -----------------------------------------------------------------------------------------

// Of the tray, which may be looked at long after the last presentation.
ComingPrayer PanelProgram::comingPrayerNow() {
    followLanguage(session_, languageOption_);
    return comingPrayer(session_);
}

MenuState PanelProgram::menuState() {
    MenuState state;
    state.next = comingPrayer(session_).exact;
    state.isMuted = alarmsAreMuted(session_);
    state.colorScheme = chosenColorScheme(session_);
    state.hasCity = panel_.isPresented() ? true : !timesAsText(session_).isEmpty();
    for (const auto& [code, isOn] : alarmStates(session_).value_or(std::map<int, bool>{})) {
        state.alarms.push_back({code, session_.prayerName(code), isOn});
    }
    return state;
}

void PanelProgram::showAlarms() {
    const auto states = alarmStates(session_);
    if (!states) return watch_.lookAgain();
    takeAlarms(*states);
}

// An alarm that was switched on in the panel is to ring after the next login, too.
void PanelProgram::takeAlarms(const std::map<int, bool>& alarmsOn) {
    panel_.showAlarms(alarmsOn);
    const bool isOneMore = std::ranges::any_of(alarmsOn, [this](const auto& alarm) {
        const auto before = alarmsOn_.find(alarm.first);
        return alarm.second && before != alarmsOn_.end() && !before->second;
    });
    alarmsOn_ = alarmsOn;
    const QString start = isOneMore ? assureAlarmsAfterLogin(session_) : QString();
    if (start.isEmpty()) return;
    if (panel_.isPresented()) {
        window_.setNotice(start);
    } else {
        told_ = start;
    }
}

void PanelProgram::switchAlarm(int code, bool isOn) {
    DatabaseFunctions database;
    database.setPatience(DatabaseFunctions::drawingPatience);
    if (isOn) {
        database.reCalculateAlarm(code);
    } else {
        database.deleteAlarm(code);
    }
    const auto states = alarmStates(session_);
    if (states) takeAlarms(*states);
    if (!states || states->at(code) != isOn) tell(_("The alarm could not be changed. Please try again."));
}

void PanelProgram::chooseColors(int scheme) {
    tell(chooseColorScheme(session_, scheme));
}

void PanelProgram::chooseCity() {
    CityDialog dialog([this](const std::string& text) { return session_.cities().search(text); }, dialogParent());
    if (dialog.exec() != QDialog::Accepted || !dialog.chosen()) return;
    const QString problem = makeHome(session_, dialog.chosen()->id);
    if (!problem.isEmpty()) return tell(problem);
    present();
}

void PanelProgram::copyTimes() {
    const QString text = timesAsText(session_);
    if (text.isEmpty()) return;
    QGuiApplication::clipboard()->setText(text);
    if (panel_.isPresented()) MessageView::toastInView(*widget_->view(), _("Today’s times are copied."));
}

// What cannot be shown on an open panel is shown with the next one.
void PanelProgram::tell(const QString& problem) {
    if (problem.isEmpty()) return;
    if (panel_.isPresented()) {
        window_.setNotice(problem);
    } else {
        told_ = problem;
        present();
    }
}

QWidget* PanelProgram::dialogParent() {
    return panel_.isPresented() ? &window_ : nullptr;
}

// Not by quit, which gives up when a window will not close: panel and compass are dismissed instead.
void PanelProgram::end() {
    QCoreApplication::exit();
}

}  // namespace quode::host
