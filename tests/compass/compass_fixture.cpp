// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/compass_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <fstream>
#include <iterator>

namespace quode::test {
namespace {

// Exists until the process ends, as Qt requires.
class Application : public testing::Environment {
  public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QApplication>(count_, arguments_);
    }
    void TearDown() override { application_.reset(); }

  private:
    int count_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> application_;
};

const testing::Environment* const application = testing::AddGlobalTestEnvironment(new Application);

class SaidHeading : public HeadingSource {
  public:
    explicit SaidHeading(std::shared_ptr<FakeHeading> state) : state_(std::move(state)) {}

    void startUpdatingHeading(double headingFilter, Callbacks callbacks) override {
        state_->callbacks = std::move(callbacks);
        state_->filter = headingFilter;
        ++state_->starts;
    }
    void stopUpdatingHeading() override {
        state_->callbacks = {};
        ++state_->stops;
    }

  private:
    std::shared_ptr<FakeHeading> state_;
};

class LoggedKeeper : public ScreenKeeper {
  public:
    explicit LoggedKeeper(std::shared_ptr<ScreenLog> log) : log_(std::move(log)) { log_->isAlive = true; }
    ~LoggedKeeper() override { log_->isAlive = false; }

    void keepAwake() override {
        log_->isAwake = true;
        ++log_->requests;
    }
    void letGo() override { log_->isAwake = false; }

  private:
    std::shared_ptr<ScreenLog> log_;
};

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

CompassFixture::CompassFixture() {
    const QSize size = QGuiApplication::primaryScreen()->size();
    device.device->bounds = {0.0, 0.0, double(size.width()), double(size.height())};
    for (const int language : {languageTurkish, languageEnglish, languageFrench, languageGerman}) {
        const std::string path = std::string(QUODE_TEST_BUNDLE) + "/" + std::string(languageFile(language));
        device.files->contents[path] = contentOf(path);
    }
    GlobalFuncs::startUp(device.platform()).setApplicationBundlePath(QUODE_TEST_BUNDLE);
    useLanguage(languageEnglish);
}

void CompassFixture::useLanguage(int languageId) {
    GlobalFuncs& services = GlobalFuncs::globalFuncs();
    services.setLanguageId(languageId);
    const auto problem = services.loadLanguageFile();
    ASSERT_FALSE(problem) << *problem;
}

std::unique_ptr<CompassView> CompassFixture::compass(double qiblaAngle, double declination) {
    return compass(fakeDevices(), qiblaAngle, declination);
}

CompassDevices CompassFixture::fakeDevices() {
    return {std::make_unique<SaidHeading>(heading), std::make_unique<LoggedKeeper>(screen),
            [this] { return orientation; }};
}

std::unique_ptr<CompassView> CompassFixture::compass(CompassDevices devices, double qiblaAngle, double declination) {
    const Rect frame = device.device->bounds;
    return CompassView::initWithLocation(frame, 41.0, 29.0, qiblaAngle, declination, std::move(devices));
}

QString CompassFixture::textsOf(const QWidget& widget) {
    QString texts;
    for (const auto* label : widget.findChildren<QLabel*>()) {
        if (!label->isHidden()) texts += label->text() + "\n";
    }
    return texts;
}

QAbstractButton* CompassFixture::buttonNamed(const QWidget& widget, const QString& name) {
    for (auto* button : widget.findChildren<QAbstractButton*>()) {
        if (button->accessibleName() == name) return button;
    }
    ADD_FAILURE() << "no button named " << name.toStdString();
    return nullptr;
}

}  // namespace quode::test
