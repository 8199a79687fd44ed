// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// On the screen of a phone, 360 points wide, every page is readable as a whole.
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QStyle>
#include <QStyleOptionFrame>

#include "app/city_changes.h"
#include "fixture.h"
#include "texts/translation.h"

namespace quode::test {
namespace {

constexpr QSize phone{360, 720};

std::string describe(const QWidget& widget) {
    QString text = widget.accessibleName();
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) text = label->text();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) text += " " + button->text();
    return std::string(widget.metaObject()->className()) + " \"" + text.toStdString() + "\"";
}

/// Whether the widget has the room that its text needs.
bool showsAll(const QWidget& widget) {
    if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
        const bool isWideEnough = label->width() >= label->minimumSizeHint().width();
        return isWideEnough && (!label->wordWrap() || label->height() >= label->heightForWidth(label->width()));
    }
    if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->width() >= button->fontMetrics().horizontalAdvance(button->text());
    }
    if (const auto* const box = qobject_cast<const QAbstractSpinBox*>(&widget)) {
        const auto* const line = box->findChild<QLineEdit*>();
        QStyleOptionFrame option;
        option.initFrom(line);
        option.lineWidth = 0;
        const QRect text = line->style()->subElementRect(QStyle::SE_LineEditContents, &option, line);
        return text.width() >= line->fontMetrics().horizontalAdvance(line->text());
    }
    if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) return box->width() >= 100;
    return true;
}

class Phone : public WindowTest, public testing::WithParamInterface<const char*> {
  protected:
    Phone() : WindowTest(GetParam()) {
        useLanguage(GetParam(), QUODE_TEST_BUNDLE);
        QApplication::setLayoutDirection(isRightToLeft(GetParam()) ? Qt::RightToLeft : Qt::LeftToRight);
        const CityRecord city = *database().home()->city;
        app::chooseIqama(session, city, {int(Prayer::fajr)}, Iqama{false, 120});
        app::chooseIqama(session, city, {int(Prayer::dhuhr)}, Iqama{true, 11 * 60});
    }

    ~Phone() override {
        useLanguage("en", QUODE_TEST_BUNDLE);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void openOnPhone(const char* page) {
        open(page).resize(phone);
        settle();
        openAllDetails();
    }

    void expectWholeWidth(const QWidget& each, const char* page) const {
        const QRect area(each.mapTo(shown.get(), QPoint()), each.size());
        EXPECT_GE(area.left(), 0) << page << ": " << describe(each);
        EXPECT_LE(area.right() + 1, phone.width()) << page << ": " << describe(each);
    }
};

TEST_P(Phone, ShowsThePagesInItsWidth) {
    for (const char* const page : pages) {
        openOnPhone(page);
        ASSERT_EQ(shown->width(), phone.width()) << page;
        for (const QWidget* const each : shown->findChildren<QWidget*>()) {
            if (each->isVisible()) expectWholeWidth(*each, page);
        }
    }
}

TEST_P(Phone, CutsNoText) {
    for (const char* const page : pages) {
        openOnPhone(page);
        for (const QWidget* const each : shown->findChildren<QWidget*>()) {
            EXPECT_TRUE(!each->isVisible() || showsAll(*each)) << page << ": " << describe(*each);
        }
    }
}

TEST_P(Phone, LeavesRoomBetweenButtons) {
    for (const char* const page : pages) {
        openOnPhone(page);
        for (const auto* const each : shown->findChildren<QAbstractButton*>()) {
            const QRect around = each->geometry().adjusted(-1, -1, 1, 1);
            for (const auto* const other :
                 each->parentWidget()->findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly)) {
                const bool isApart =
                    other == each || !each->isVisible() || !other->isVisible() || !around.intersects(other->geometry());
                EXPECT_TRUE(isApart) << page << ": " << describe(*each) << " and " << describe(*other);
            }
        }
    }
}

class Narrow : public Phone {};

TEST_P(Narrow, ShowsOnePageAtATime) {
    for (const char* const page : pages) {
        openOnPhone(page);
        auto* const list = shown->findChild<QListWidget*>();
        EXPECT_FALSE(list->isVisible()) << page;
        press(QString(_("All pages")));
        EXPECT_TRUE(list->isVisible()) << page;
        EXPECT_EQ(shown->width(), phone.width()) << page;
    }
    shown->resize(820, 640);
    settle();
    EXPECT_TRUE(shown->findChild<QListWidget*>()->isVisible());
}

TEST_P(Narrow, MayBecomeNarrowerWhileTheListIsShown) {
    openOnPhone("cities");
    press(QString(_("All pages")));
    shown->resize(500, 720);
    settle();
    shown->resize(phone);
    settle();
    EXPECT_EQ(shown->width(), phone.width());
}

INSTANTIATE_TEST_SUITE_P(Languages, Narrow, testing::Values("en", "ar"),
                         [](const auto& language) { return std::string(language.param); });
INSTANTIATE_TEST_SUITE_P(Languages, Phone, testing::Values("en", "tr", "de", "fr", "ar", "ur", "fa", "id", "ms", "ru"),
                         [](const auto& language) { return std::string(language.param); });

}  // namespace
}  // namespace quode::test
