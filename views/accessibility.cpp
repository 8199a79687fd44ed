// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QStringList>
#include <memory>

#include "texts/translation.h"
#include "views/MessageView.h"
#include "views/UIButtonX.h"
#include "views/UICityInfoView.h"
#include "views/UICityNameView.h"
#include "views/UIFooterView.h"
#include "views/UIReligiousView.h"
#include "views/UITimesView.h"
#include "views/qt_conversions.h"

namespace quode {
namespace {

// A view whose name is asked for when it is needed, because texts change.
class NamedView : public QAccessibleWidget {
  public:
    using Name = std::function<std::string()>;

    NamedView(QWidget& view, QAccessible::Role role, Name name)
        : QAccessibleWidget(&view, role), name_(std::move(name)) {}

    QString text(QAccessible::Text kind) const override {
        const QString given = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && given.isEmpty() ? toQt(name_()) : given;
    }

  private:
    Name name_;
};

// A button is one thing: its caption is its name, not a text of its own.
class ButtonInterface final : public NamedView {
  public:
    explicit ButtonInterface(UIButtonX& button)
        : NamedView(button, button.selectable() ? QAccessible::CheckBox : QAccessible::Button,
                    [&button] { return button.spokenName(); }),
          button_(button) {}

    QAccessible::Role role() const override {
        return button_.selectable() ? QAccessible::CheckBox : QAccessible::Button;
    }

    QAccessible::State state() const override {
        QAccessible::State state = NamedView::state();
        state.checkable = button_.selectable();
        state.checked = button_.selected();
        state.pressed = button_.isSelecting();
        return state;
    }

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QStringList actionNames() const override {
        QStringList names = NamedView::actionNames();
        if (button_.isEnabled()) names.prepend(tapAction());
        return names;
    }

    void doAction(const QString& name) override {
        if (name == toggleAction() || name == pressAction()) {
            button_.tap();
        } else {
            NamedView::doAction(name);
        }
    }

    QStringList keyBindingsForAction(const QString& name) const override {
        return name == tapAction() ? QStringList{QStringLiteral("Space")} : NamedView::keyBindingsForAction(name);
    }

  private:
    QString tapAction() const { return button_.selectable() ? toggleAction() : pressAction(); }

    UIButtonX& button_;
};

QAccessibleInterface* row(QWidget& view, NamedView::Name name) {
    return new NamedView(view, QAccessible::Row, std::move(name));
}

// The framework takes the interface over.
QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    if (auto* label = qobject_cast<Label*>(object)) {
        return new NamedView(*label, QAccessible::StaticText, [label] { return label->text(); });
    }
    if (auto* button = qobject_cast<UIButtonX*>(object)) return new ButtonInterface(*button);
    if (auto* toast = qobject_cast<MessageView*>(object)) {
        return new NamedView(*toast, QAccessible::AlertMessage, [toast] { return toast->textLabel()->text(); });
    }
    if (auto* times = qobject_cast<UITimesView*>(object)) {
        return row(*times, [times] { return times->labelPrayName()->text() + " " + times->labelPrayTime()->text(); });
    }
    if (auto* city = qobject_cast<UICityNameView*>(object)) {
        return row(*city, [] { return std::string(_("City")); });
    }
    if (auto* information = qobject_cast<UICityInfoView*>(object)) {
        return row(*information, [] { return std::string(_("Details of the city")); });
    }
    if (auto* days = qobject_cast<UIReligiousView*>(object)) {
        return row(*days, [] { return std::string(_("Religious days")); });
    }
    if (auto* footer = qobject_cast<UIFooterView*>(object)) {
        return row(*footer, [] { return std::string(_("Further prayer times")); });
    }
    return nullptr;
}

}  // namespace

void installAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(interfaceOf);
        return true;
    }();
    static_cast<void>(installed);
}

}  // namespace quode
