// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/CompassView.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QResizeEvent>
#include <QScreen>
#include <QSequentialAnimationGroup>
#include <QVariantAnimation>
#include <chrono>
#include <cmath>
#include <utility>

#include "compass/CompassCloseButton.h"
#include "compass/compass_texts.h"

namespace quode {
namespace {

using namespace std::chrono_literals;

constexpr double clockwiseRadians = -0.017453292519943295;  // from degrees counter-clockwise

constexpr double phoneDial = 292.0;
constexpr double tabletDial = 584.0;
constexpr double headingFilter = 1.0;  // degrees
constexpr auto firstTick = 2000ms;
constexpr auto nextTicks = 3000ms;

constexpr double fadeSeconds = 0.20000000298023224;
constexpr float popStart = 0.6F, popOver = 1.1F, popUnder = 0.9F;
constexpr double popOverSeconds = 0.20000000298023224;
constexpr double popUnderSeconds = 0.06666667014360428;
constexpr double popEndSeconds = 0.13333334028720856;

constexpr QSizeF roomAroundDial{68.0, 280.0};  // in a window: for the texts above and below

constexpr int narrowScreen = 400;   // points
constexpr int groundOpacity = 245;  // of 255

float rotationOf(float degrees) {
    return static_cast<float>(static_cast<double>(degrees) * clockwiseRadians);
}

QColor toQt(const Color& color) {
    return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                            static_cast<float>(color.blue), static_cast<float>(color.alpha));
}

CompassInk inkOf(const GlobalFuncs& services) {
    QColor ground = toQt(services.fifthColor());
    ground.setAlpha(groundOpacity);
    const int pixelSize = services.getScreenWidth() < narrowScreen ? 12 : 13;
    return {toQt(services.firstColor()), ground, QString::fromStdString(services.getSettings().fontName), pixelSize};
}

}  // namespace

std::unique_ptr<CompassView> CompassView::initWithLocation(const Rect& frame, double a, double b, double qiblaAngle,
                                                           double declination, CompassDevices devices) {
    return std::make_unique<CompassView>(Key{}, frame, a, b, qiblaAngle, declination, std::move(devices));
}

std::unique_ptr<CompassView> CompassView::initWithLocation(const Rect& frame, double a, double b, double qiblaAngle,
                                                           double declination) {
    const auto reason = compassText(GlobalFuncs::globalFuncs(), compass_text::title);
    return initWithLocation(frame, a, b, qiblaAngle, declination, systemCompassDevices(reason.value_or("Quode")));
}

CompassView::CompassView(Key, const Rect& frame, double latitude, double longitude, double qiblaAngle,
                         double declination, CompassDevices devices)
    : glbFuncs_(GlobalFuncs::globalFuncs()),
      devices_(std::move(devices)),
      frame_(frame),
      latitude_(latitude),
      longitude_(longitude),
      qiblaAngle_(qiblaAngle),
      declination_(declination),
      compassDeclination_(static_cast<float>(declination)),
      qAngle_(static_cast<float>(qiblaAngle)) {
    setGeometry(QRectF(frame.x, frame.y, frame.width, frame.height).toRect());
    makeDial();
    makeTexts();
    startHeading();
    startIdleTimer();
}

CompassView::~CompassView() {
    destroy();
}

void CompassView::makeDial() {
    const double side = glbFuncs_.getDeviceType() != 0 ? tabletDial : phoneDial;
    const CompassImages images{glbFuncs_.getImagePathWithout2X("compass"),
                               glbFuncs_.getImagePathWithout2X("compassArrow")};
    dial_ = new CompassDialView(side, images, this);
    dial_->setCenter({glbFuncs_.getScreenWidth() / 2.0, glbFuncs_.getScreenHeight() / 2.0});
    dial_->setLetters(cardinalLetters(glbFuncs_), QString::fromStdString(glbFuncs_.getSettings().fontName));
    // The dial starts with north at the top, and the arrow is right relative to it.
    dial_->setArrowRotation(rotationOf(qAngle_));
    connect(dial_, &CompassDialView::headingAsked, this, &CompassView::setManualHeading);
}

void CompassView::makeTexts() {
    const CompassInk ink = inkOf(glbFuncs_);
    status_ = new CompassPlate(ink, this);
    numbers_ = new CompassPlate(ink, this);
    auto lines = compassNumbers(glbFuncs_, qiblaAngle_, declination_);
    // Only together with the others: a pack without them shows no numbers at all.
    if (!lines.empty()) lines.push_back(currentFieldLine(glbFuncs_, latitude_, longitude_));
    numbers_->setLines(lines, true);

    closeButton_ = new CompassCloseButton(ink, this);
    closeButton_->setAccessibleName(QString::fromStdString(compassText(glbFuncs_, compass_text::close).value_or("")));
    closeButton_->setToolTip(closeButton_->accessibleName());
    connect(closeButton_, &QAbstractButton::clicked, this, &CompassView::destroy);

    const QString title = QString::fromStdString(compassText(glbFuncs_, compass_text::title).value_or(""));
    setWindowTitle(title);
    dial_->setAccessibleName(lines.empty() ? title : title + ". " + QString::fromStdString(lines.front()));
}

void CompassView::startHeading() {
    setGuide(Guide::none);
    devices_.headingSource->startUpdatingHeading(headingFilter,
                                                 {[this](const HeadingReading& reading) { didUpdateHeading(reading); },
                                                  [this](HeadingProblem problem) { onProblem(problem); }});
}

void CompassView::startIdleTimer() {
    idleTimer_ = new QTimer(this);
    connect(idleTimer_, &QTimer::timeout, this, [this] {
        idleTimer_->setInterval(nextTicks);
        onTick();
    });
    idleTimer_->start(firstTick);
}

void CompassView::onTick() {
    if (window_) devices_.screenKeeper->keepAwake();
}

// --- heading ---------------------------------------------------------------------------------------------------------

void CompassView::didUpdateHeading(const HeadingReading& reading) {
    if (isDestroyed_) return;
    const double heading = reading.magneticHeading;
    const bool isTrusted = !reading.accuracy || *reading.accuracy > 0.0;
    if (!(heading >= 0.0 && heading <= 360.0) || !isTrusted) {
        if (locationManagerShouldDisplayHeadingCalibration()) setGuide(Guide::calibrating);
        return;
    }
    lastHeading_ = static_cast<float>(heading);
    setGuide(Guide::sensor);
    applyHeading(*lastHeading_);
}

void CompassView::applyHeading(float magneticHeading) {
    applyDialAngle(rotationOf(magneticHeading + fixAngle_ + compassDeclination_));
}

void CompassView::applyDialAngle(float radians) {
    if (radians == compassAngle_) return;
    compassAngle_ = radians;
    dial_->setDialRotation(radians);
    dial_->setArrowRotation(rotationOf(qAngle_));
    showStatus();
}

void CompassView::onProblem(HeadingProblem problem) {
    if (isDestroyed_) return;
    switch (problem) {
        case HeadingProblem::noSensor:
            return setGuide(Guide::noSensor);
        case HeadingProblem::accessDenied:
            return setGuide(Guide::accessDenied);
        case HeadingProblem::noAnswer:
            return setGuide(Guide::noAnswer);
    }
}

void CompassView::setGuide(Guide guide) {
    if (guide_ == Guide::sensor && guide != Guide::sensor) {
        manualHeading_ = dial_->heading();  // turning by hand continues from the sensor's last heading
        lastHeading_.reset();
    }
    guide_ = guide;
    dial_->setTurnsByHand(guide != Guide::sensor);
    showStatus();
}

void CompassView::turnByHand(double degrees) {
    setManualHeading(manualHeading_ - degrees);
}

void CompassView::setManualHeading(double degrees) {
    if (isDestroyed_ || guide_ == Guide::sensor || !std::isfinite(degrees)) return;
    const double rest = std::fmod(degrees, 360.0);
    manualHeading_ = rest < 0.0 ? rest + 360.0 : rest;
    applyDialAngle(rotationOf(static_cast<float>(manualHeading_)));
    QAccessibleValueChangeEvent event(dial_, manualHeading_);
    QAccessible::updateAccessibility(&event);
}

DeviceOrientation CompassView::orientation() const {
    if (devices_.orientation) return devices_.orientation();
    const QScreen* shown = screen();
    if (shown == nullptr) return DeviceOrientation::unknown;
    return deviceOrientation(shown->nativeOrientation(), shown->orientation());
}

void CompassView::updateDisplay() {
    if (isDestroyed_) return;
    switch (orientation()) {
        case DeviceOrientation::portrait:
            setFixAngle(0.0F);
            break;
        case DeviceOrientation::upsideDown:
            setFixAngle(180.0F);
            break;
        case DeviceOrientation::landscapeLeft:
            setFixAngle(90.0F);
            break;
        case DeviceOrientation::landscapeRight:
            setFixAngle(-90.0F);
            break;
        case DeviceOrientation::unknown:
            break;
    }
    // The screen may turn without a new reading of the device.
    if (lastHeading_) applyHeading(*lastHeading_);
    placeParts();
}

// --- on the screen ---------------------------------------------------------------------------------------------------

void CompassView::show() {
    if (isDestroyed_ || window_) return;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    const auto place = devices_.hasSensor ? CompassPlace::overEverything : CompassPlace::inWindow;
    window_ = std::make_unique<CompassViewOverlayWindow>(*devices_.screenKeeper, place);
    window_->setWindowLook((QSizeF(dial_->side(), dial_->side()) + roomAroundDial).toSize(),
                           toQt(glbFuncs_.fifthColor()));
    window_->setWindowTitle(windowTitle());
    connect(window_.get(), &CompassViewOverlayWindow::alphaChanged, this, &CompassView::setAlpha);
    connect(window_.get(), &CompassViewOverlayWindow::closeAsked, this, &CompassView::destroy);
    window_->setAlpha(0.0);
    window_->makeKeyAndVisible();

    auto* fade = animation(0.0, 1.0, fadeSeconds);
    connect(fade, &QVariantAnimation::valueChanged, window_.get(),
            [this](const QVariant& value) { window_->setAlpha(value.toDouble()); });
    fade->start(QAbstractAnimation::DeleteWhenStopped);

    setParent(&window_->rootViewController());
    setGeometry(window_->rootViewController().rect());
    QWidget::show();
    dial_->setFocus(Qt::ActiveWindowFocusReason);
    updateDisplay();
    backgroungEffect();
}

void CompassView::destroy() {
    if (isDestroyed_) return;
    isDestroyed_ = true;
    idleTimer_->stop();
    devices_.headingSource->stopUpdatingHeading();
    devices_.screenKeeper->letGo();
    for (auto* running : findChildren<QAbstractAnimation*>()) running->stop();
    if (window_) {
        setParent(nullptr);
        window_->resignKeyWindow();
        window_.release()->deleteLater();
    }
    // Deferred: the call may come from one of their events.
    for (QWidget* part : {static_cast<QWidget*>(dial_), static_cast<QWidget*>(status_), static_cast<QWidget*>(numbers_),
                          static_cast<QWidget*>(closeButton_)}) {
        part->deleteLater();
    }
    dial_ = nullptr;
    Q_EMIT closed();
}

QVariantAnimation* CompassView::animation(double from, double to, double seconds) {
    auto* result = new QVariantAnimation(this);
    result->setStartValue(from);
    result->setEndValue(to);
    result->setDuration(static_cast<int>(std::lround(seconds * 1000.0)));
    result->setEasingCurve(QEasingCurve::InOutSine);
    return result;
}

void CompassView::backgroungEffect() {
    if (isDestroyed_) return;
    dial_->setScale(popStart);
    auto* steps = new QSequentialAnimationGroup(this);
    for (QVariantAnimation* step :
         {animation(popStart, popOver, popOverSeconds), animation(popOver, popUnder, popUnderSeconds),
          animation(popUnder, 1.0, popEndSeconds)}) {
        connect(step, &QVariantAnimation::valueChanged, dial_,
                [this](const QVariant& value) { dial_->setScale(value.toDouble()); });
        steps->addAnimation(step);
    }
    steps->start(QAbstractAnimation::DeleteWhenStopped);
}

void CompassView::setAlpha(double alpha) {
    if (isDestroyed_) return;
    dial_->setAlpha(alpha);
    status_->setAlpha(alpha);
    numbers_->setAlpha(alpha);
    closeButton_->setAlpha(alpha);
}

void CompassView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!isDestroyed_ && window_) updateDisplay();
}

}  // namespace quode
