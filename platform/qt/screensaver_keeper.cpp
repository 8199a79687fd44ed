// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/qt/screensaver_keeper.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QUuid>
#include <optional>
#include <utility>

namespace quode {
namespace {

const QString service = QStringLiteral("org.freedesktop.ScreenSaver");
const QString path = QStringLiteral("/org/freedesktop/ScreenSaver");

// letGo waits for the service, so that no request remains; the limit keeps the user from waiting.
constexpr int answerTimeoutMs = 1000;

QDBusMessage call(const QString& method, const QVariantList& arguments) {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, service, method);
    message.setArguments(arguments);
    return message;
}

// A private connection to the session bus. When it ends, the service drops its requests.
class OwnConnection {
  public:
    OwnConnection()
        : name_(QStringLiteral("quode-screen-keeper-") + QUuid::createUuid().toString(QUuid::WithoutBraces)),
          bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name_)) {}
    ~OwnConnection() { QDBusConnection::disconnectFromBus(name_); }
    OwnConnection(const OwnConnection&) = delete;
    OwnConnection& operator=(const OwnConnection&) = delete;

    QDBusConnection& bus() { return bus_; }

  private:
    QString name_;
    QDBusConnection bus_;
};

class ScreenSaverKeeper : public QObject, public ScreenKeeper {
  public:
    ScreenSaverKeeper(std::string application, std::string reason)
        : application_(QString::fromStdString(application)), reason_(QString::fromStdString(reason)) {}

    ~ScreenSaverKeeper() override { letGo(); }

    void keepAwake() override {
        if (!connection_) connect();
        if (cookie_ || request_ || isAbsent_ || !connection_->bus().isConnected()) return;
        const auto message = call(QStringLiteral("Inhibit"), {application_, reason_});
        request_ = std::make_unique<QDBusPendingCallWatcher>(connection_->bus().asyncCall(message, answerTimeoutMs));
        QObject::connect(request_.get(), &QDBusPendingCallWatcher::finished, this, [this] { takeAnswer(); });
    }

    void letGo() override {
        if (request_) {
            request_->disconnect(this);
            request_->waitForFinished();
            takeAnswer();
        }
        if (cookie_)
            connection_->bus().call(call(QStringLiteral("UnInhibit"), {*cookie_}), QDBus::Block, answerTimeoutMs);
        cookie_.reset();
        watcher_.reset();
        connection_.reset();
        isAbsent_ = false;
    }

  private:
    void connect() {
        connection_ = std::make_unique<OwnConnection>();
        watcher_ = std::make_unique<QDBusServiceWatcher>(service, connection_->bus());
        QObject::connect(watcher_.get(), &QDBusServiceWatcher::serviceUnregistered, this, [this] { cookie_.reset(); });
        QObject::connect(watcher_.get(), &QDBusServiceWatcher::serviceRegistered, this, [this] {
            isAbsent_ = false;
            keepAwake();
        });
    }

    void takeAnswer() {
        const QDBusPendingReply<uint> answer = *request_;
        request_.release()->deleteLater();
        if (answer.isValid()) cookie_ = answer.value();
        if (answer.isError()) isAbsent_ = answer.error().type() == QDBusError::ServiceUnknown;
    }

    QString application_, reason_;
    std::unique_ptr<OwnConnection> connection_;
    std::unique_ptr<QDBusServiceWatcher> watcher_;
    std::unique_ptr<QDBusPendingCallWatcher> request_;  // until the service answers
    std::optional<uint> cookie_;                        // the service's identifier of the granted request
    bool isAbsent_ = false;                             // until the service starts
};

}  // namespace

std::unique_ptr<ScreenKeeper> screenSaverKeeper(std::string application, std::string reason) {
    return std::make_unique<ScreenSaverKeeper>(std::move(application), std::move(reason));
}

}  // namespace quode
