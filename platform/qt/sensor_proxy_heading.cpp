// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/qt/sensor_proxy_heading.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QObject>
#include <QTimer>
#include <QVariantMap>
#include <functional>
#include <utility>

#include "platform/qt/HeadingFilter.h"

namespace quode {
namespace {

const QString sensorService = QStringLiteral("net.hadess.SensorProxy");
const QString compassPath = QStringLiteral("/net/hadess/SensorProxy/Compass");
const QString compassInterface = QStringLiteral("net.hadess.SensorProxy.Compass");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString hasCompass = QStringLiteral("HasCompass");
const QString compassHeading = QStringLiteral("CompassHeading");

HeadingProblem problemOf(const QDBusError& error) {
    switch (error.type()) {
        case QDBusError::AccessDenied:
            return HeadingProblem::accessDenied;
        case QDBusError::ServiceUnknown:
        case QDBusError::UnknownObject:
        case QDBusError::UnknownInterface:
        case QDBusError::UnknownMethod:
        case QDBusError::UnknownProperty:
        case QDBusError::InvalidArgs:
            return HeadingProblem::noSensor;
        default:
            break;
    }
    const QString name = error.name();
    if (name.endsWith(QLatin1String(".NotAuthorized"))) return HeadingProblem::accessDenied;
    const bool unknown = name.endsWith(QLatin1String(".NameHasNoOwner")) || name.contains(QLatin1String(".Spawn."));
    return unknown ? HeadingProblem::noSensor : HeadingProblem::noAnswer;
}

class SensorProxyHeading : public QObject, public HeadingSource {
    Q_OBJECT

  public:
    SensorProxyHeading(QDBusConnection bus, int answerTimeoutMs)
        : bus_(std::move(bus)), answerTimeoutMs_(answerTimeoutMs) {
        watcher_.setConnection(bus_);
        watcher_.addWatchedService(sensorService);
        watcher_.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
        connect(&watcher_, &QDBusServiceWatcher::serviceUnregistered, this, &SensorProxyHeading::onServiceGone);
        connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, this, &SensorProxyHeading::lookForCompass);
    }

    ~SensorProxyHeading() override { stopUpdatingHeading(); }

    void startUpdatingHeading(double headingFilter, Callbacks callbacks) override {
        stopUpdatingHeading();
        callbacks_ = std::move(callbacks);
        filter_ = HeadingFilter(headingFilter);
        started_ = true;
        bus_.connect(sensorService, compassPath, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
                     SLOT(onPropertiesChanged(QString, QVariantMap, QStringList)));
        lookForCompass();
    }

    void stopUpdatingHeading() override {
        if (!started_) return;
        started_ = false;
        forgetCalls();
        bus_.disconnect(sensorService, compassPath, propertiesInterface, QStringLiteral("PropertiesChanged"), this,
                        SLOT(onPropertiesChanged(QString, QVariantMap, QStringList)));
        if (claimed_) bus_.send(call(compassInterface, QStringLiteral("ReleaseCompass")));
        claimed_ = false;
        callbacks_ = {};
    }

  private Q_SLOTS:
    void onPropertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated) {
        if (!started_ || interface != compassInterface) return;
        if (const auto has = changed.constFind(hasCompass); has != changed.cend()) onHasCompass(has->toBool());
        if (const auto heading = changed.constFind(compassHeading); heading != changed.cend()) onHeading(*heading);
        if (invalidated.contains(hasCompass)) lookForCompass();
        if (claimed_ && invalidated.contains(compassHeading)) readHeading();
    }

  private:
    static QDBusMessage call(const QString& interface, const QString& method, const QVariantList& arguments = {}) {
        QDBusMessage message = QDBusMessage::createMethodCall(sensorService, compassPath, interface, method);
        message.setArguments(arguments);
        return message;
    }

    // Sends a call and passes its answer on, unless the readings end before. An error is a problem.
    void ask(const QDBusMessage& message, std::function<void(const QDBusMessage&)> onAnswer) {
        auto* pending = new QDBusPendingCallWatcher(bus_.asyncCall(message, answerTimeoutMs_), this);
        connect(pending, &QDBusPendingCallWatcher::finished, this,
                [this, answer = std::move(onAnswer)](QDBusPendingCallWatcher* finished) {
                    finished->deleteLater();
                    if (finished->isError()) {
                        report(problemOf(finished->error()));
                    } else {
                        answer(finished->reply());
                    }
                });
    }

    // Their answers no longer count.
    void forgetCalls() {
        for (auto* pending : findChildren<QDBusPendingCallWatcher*>()) {
            pending->disconnect(this);
            pending->deleteLater();
        }
    }

    void readProperty(const QString& name, std::function<void(const QVariant&)> onValue) {
        ask(call(propertiesInterface, QStringLiteral("Get"), {compassInterface, name}),
            [take = std::move(onValue)](const QDBusMessage& reply) {
                take(reply.arguments().value(0).value<QDBusVariant>().variant());
            });
    }

    void lookForCompass() {
        if (!started_) return;
        if (!bus_.isConnected()) {  // a call would never return
            QTimer::singleShot(0, this, &SensorProxyHeading::onServiceGone);
            return;
        }
        readProperty(hasCompass, [this](const QVariant& value) { onHasCompass(value.toBool()); });
    }

    void onHasCompass(bool has) {
        if (!has) {
            claimed_ = false;
            return report(HeadingProblem::noSensor);
        }
        if (claimed_) return;
        claimed_ = true;
        ask(call(compassInterface, QStringLiteral("ClaimCompass")), [this](const QDBusMessage&) { readHeading(); });
    }

    void readHeading() {
        readProperty(compassHeading, [this](const QVariant& value) { onHeading(value); });
    }

    void onHeading(const QVariant& value) {
        bool isNumber = false;
        const double heading = value.toDouble(&isNumber);
        const HeadingReading reading{isNumber ? heading : -1.0, std::nullopt};
        if (!filter_.passes(reading)) return;
        const auto callback = callbacks_.reading;  // may end the readings
        callback(reading);
    }

    // A call that is still under way may be answered after this, by a service that has given its name up.
    void onServiceGone() {
        claimed_ = false;
        forgetCalls();
        if (started_) report(HeadingProblem::noSensor);
    }

    void report(HeadingProblem problem) {
        filter_.reset();
        const auto callback = callbacks_.problem;  // may end the readings
        callback(problem);
    }

    QDBusConnection bus_;
    int answerTimeoutMs_;
    QDBusServiceWatcher watcher_;
    Callbacks callbacks_;
    HeadingFilter filter_{0.0};
    bool started_ = false;
    bool claimed_ = false;  // from the moment the claim is sent
};

}  // namespace

std::unique_ptr<HeadingSource> sensorProxyHeading(const QDBusConnection& bus, std::chrono::milliseconds answerTimeout) {
    return std::make_unique<SensorProxyHeading>(bus, static_cast<int>(answerTimeout.count()));
}

bool hasCompassSensor(const QDBusConnection& bus, std::chrono::milliseconds patience) {
    if (!bus.isConnected()) return false;
    QDBusMessage get =
        QDBusMessage::createMethodCall(sensorService, compassPath, propertiesInterface, QStringLiteral("Get"));
    get.setArguments({compassInterface, hasCompass});
    get.setAutoStartService(false);
    const QDBusMessage reply = bus.call(get, QDBus::Block, static_cast<int>(patience.count()));
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.arguments().value(0).value<QDBusVariant>().variant().toBool();
}

}  // namespace quode

#include "sensor_proxy_heading.moc"
