// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/dial_accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QVariant>
#include <cmath>

#include "compass/CompassDialView.h"

namespace quode {
namespace {

class DialAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit DialAccessible(CompassDialView& dial) : QAccessibleWidget(&dial, QAccessible::Dial), dial_(dial) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = !dial_.turnsByHand();
        return state;
    }

    QVariant currentValue() const override { return dial_.heading(); }
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return 360.0; }
    QVariant minimumStepSize() const override { return 1.0; }

    void setCurrentValue(const QVariant& value) override {
        bool isNumber = false;
        const double degrees = value.toDouble(&isNumber);
        if (isNumber && std::isfinite(degrees)) Q_EMIT dial_.headingAsked(degrees);
    }

  private:
    CompassDialView& dial_;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* dial = qobject_cast<CompassDialView*>(object);
    return dial != nullptr ? new DialAccessible(*dial) : nullptr;  // Qt owns it
}

}  // namespace

void installDialAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace quode
