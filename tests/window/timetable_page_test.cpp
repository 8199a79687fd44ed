// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The preview of the page Timetable shows what would be saved.
#include <QCheckBox>
#include <QComboBox>

#include "app/city_changes.h"
#include "fixture.h"

namespace quode::test {
namespace {

class TimetablePage : public WindowTest {
  protected:
    TimetablePage() { open("timetable"); }

    static QString name(int page, int count) {
        return QString("Preview of the timetable, page %1 of %2").arg(page).arg(count);
    }

    /// The sheet that is called so, as soon as it is.
    QLabel* sheet(int page = 1, int count = 1) const {
        QLabel* found = nullptr;
        const auto look = [&] {
            for (QLabel* const each : shown->findChildren<QLabel*>()) {
                if (each->accessibleName() == name(page, count) && each->isVisible()) found = each;
            }
            return found != nullptr;
        };
        EXPECT_TRUE(QTest::qWaitFor(look)) << name(page, count).toStdString();
        return found;
    }

    /// The picture on a sheet once it is another one than `former`.
    static QImage changed(const QLabel* sheet, const QImage& former) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return sheet->pixmap().toImage() != former; }));
        return sheet->pixmap().toImage();
    }

    void choose(const QString& box, const QString& entry) const {
        auto* const found = control<QComboBox>(box);
        ASSERT_GE(found->findText(entry), 0) << entry.toStdString();
        found->setCurrentIndex(found->findText(entry));
    }

    static double ratio(const QSize& size) { return double(size.height()) / size.width(); }
};

int darkPixels(const QImage& image) {
    int count = 0;
    for (int y = image.height() / 5; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += qGray(image.pixel(x, y)) < 100 ? 1 : 0;
    }
    return count;
}

TEST_F(TimetablePage, ShowsThePaperThatIsChosen) {
    const QLabel* const page = sheet();
    const QImage a4 = page->pixmap().toImage();
    EXPECT_NEAR(ratio(a4.size()), 297.0 / 210.0, 0.004);
    EXPECT_NEAR(ratio(page->size()), 297.0 / 210.0, 0.01);
    EXPECT_GE(a4.width(), page->width() - 4) << "as wide as there is room";
    choose("Paper", "Letter");
    EXPECT_NEAR(ratio(changed(page, a4).size()), 11.0 / 8.5, 0.004);
}

TEST_F(TimetablePage, DrawsTextsOnWhitePaperInTheDarkThemeToo) {
    EXPECT_GT(darkPixels(sheet()->pixmap().toImage()), 1000) << "the times of 30 days";
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::Base, Qt::black);
    shown->setPalette(dark);
    const QImage page = sheet()->grab().toImage();
    EXPECT_EQ(page.pixelColor(5, 5), QColor(Qt::white));
}

TEST_F(TimetablePage, FollowsTheChoices) {
    const QLabel* const page = sheet();
    const QImage november = page->pixmap().toImage();
    EXPECT_TRUE(page->accessibleDescription().contains("Kathmandu"));
    EXPECT_TRUE(page->accessibleDescription().contains("November 2026"));
    control<QComboBox>("Month or year")->setCurrentIndex(1);
    const QImage december = changed(page, november);
    EXPECT_TRUE(page->accessibleDescription().contains("December 2026"));
    press("Thirds of the night and midnight");
    const QImage withNight = changed(page, december);
    const CityRecord city = *database().home()->city;
    context.change([&] { app::chooseIqama(session, city, {int(Prayer::fajr)}, Iqama{false, 20}); });
    const QImage withIqama = changed(page, withNight);
    const int ankara = session.cities().named("Ankara").at(0).city.id;
    context.change([&] {
        database().addCity(ankara);
        database().chooseHome(ankara);
    });
    changed(page, withIqama);
    EXPECT_TRUE(page->accessibleDescription().contains("Ankara"));
}

TEST_F(TimetablePage, TurnsThePagesOfAYear) {
    const QLabel* const month = sheet();
    EXPECT_EQ(month->parentWidget()->findChildren<QToolButton*>().size(), 2);
    for (const QToolButton* const each : month->parentWidget()->findChildren<QToolButton*>()) {
        EXPECT_FALSE(each->isVisible()) << "there is one page";
    }
    choose("Month or year", "2026");
    const QImage january = sheet(1, 12)->pixmap().toImage();
    EXPECT_TRUE(shows("Page 1 of 12"));
    EXPECT_FALSE(button("Previous page")->isEnabled());
    button("Next page")->setFocus();
    for (int turned = 0; turned < 11; ++turned) press("Next page");
    const QLabel* const december = sheet(12, 12);
    EXPECT_NE(december->pixmap().toImage(), january);
    EXPECT_TRUE(december->accessibleDescription().contains("December 2026"));
    EXPECT_FALSE(button("Next page")->isEnabled());
    EXPECT_TRUE(button("Previous page")->hasFocus()) << "the keyboard stays with the pages";
    press("Previous page");
    sheet(11, 12);
    press("The whole year on one page");
    sheet(1, 1);
}

TEST_F(TimetablePage, FitsThePhone) {
    const QLabel* const page = sheet();
    shown->resize(360, 720);
    settle();
    EXPECT_TRUE(QTest::qWaitFor([&] { return page->pixmap().width() <= page->width(); }));
    EXPECT_LE(page->width(), 360);
    EXPECT_NEAR(ratio(page->size()), 297.0 / 210.0, 0.01);
    EXPECT_GE(page->pixmap().width(), page->width() - 4);
}

}  // namespace
}  // namespace quode::test
