// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <QPointer>
#include <QTest>
#include <map>

#include "views/MessageView.h"
#include "views/drawing.h"
#include "views_support.h"

namespace quode::test {
namespace {

// A clock that the test advances; wake-ups come at their exact moments.
class DrivenClock : public AnimationClock {
  public:
    Duration now() const override { return now_; }

    void wakeAfter(Duration delay, QObject& context, std::function<void()> callback) override {
        wakeUps_.emplace((now_ + delay).count(), WakeUp{&context, std::move(callback)});
    }

    void advance(double seconds) {
        const double end = now_.count() + seconds;
        while (!wakeUps_.empty() && wakeUps_.begin()->first <= end + 1e-9) {
            const auto next = wakeUps_.extract(wakeUps_.begin());
            now_ = Duration(next.key());
            ++wakeUpCount;
            if (next.mapped().context) next.mapped().callback();
        }
        now_ = Duration(end);
    }

    int wakeUpCount = 0;

  private:
    struct WakeUp {
        QPointer<QObject> context;
        std::function<void()> callback;
    };

    Duration now_{100.0};
    std::multimap<double, WakeUp> wakeUps_;
};

class Toast : public ViewsTest {
  protected:
    Toast() { MessageView::setAnimationClock(&clock); }
    ~Toast() override { MessageView::setAnimationClock(nullptr); }

    // The toast on screen in a view; null when there is none.
    static MessageView* shown(const QWidget& parent) { return parent.findChild<MessageView*>(); }

    static std::string textShown(const QWidget& parent) {
        const MessageView* toast = shown(parent);
        return toast == nullptr ? "" : toast->textLabel()->text();
    }

    DrivenClock clock;
    View view{Rect{0.0, 0.0, 320.0, 357.0}};
};

TEST_F(Toast, IsAGreyBoxWithALabelToItsLeft) {
    MessageView::toastInView(view, "Choose a city first.");
    const MessageView& toast = *shown(view);
    EXPECT_EQ((Rect{10.0, 133.5, 300.0, 50.0}), toast.frame());
    EXPECT_EQ((Point{160.0, 158.5}), toast.center());
    const Label& label = *toast.textLabel();
    EXPECT_EQ((Point{140.0, 24.0}), label.center());
    EXPECT_EQ((Rect{0.0, 4.0, 280.0, 40.0}), label.frame());
    EXPECT_EQ("Verdana", label.fontName());
    EXPECT_EQ(15.0, label.fontSize());
    EXPECT_EQ(globalFuncs.firstColor(), label.textColor());
    EXPECT_EQ(alignCenter, label.textAlign());
    EXPECT_EQ(2, label.numberOfLines());
    EXPECT_FALSE(label.isHidden());
    EXPECT_FALSE(label.shadow());
    EXPECT_EQ(0, label.tag());
    EXPECT_FALSE(toast.autoresizesSubviews());
    EXPECT_EQ(0U, toast.autoresizingMask());
    clock.advance(1.0);
    const QImage picture = pictureOf(view, 1.0);
    const int grey = int(127.5 * 0.8 + panelColor.red() * 0.2);
    EXPECT_NEAR(grey, qRed(picture.pixel(305, 158)), 2);
    EXPECT_EQ(panelColor.rgb(), picture.pixel(5, 158));
    EXPECT_EQ(panelColor.rgb(), picture.pixel(10, 134));  // a round corner
}

TEST_F(Toast, UsesTheDefaultFontWhateverTheSettings) {
    globalFuncs.getSettings().fontSize = 30;
    globalFuncs.getSettings().fontName = "Other";
    const auto toast = MessageView::initWithText("x");
    EXPECT_EQ(15.0, toast->textLabel()->fontSize());
    EXPECT_EQ("Verdana", toast->textLabel()->fontName());
    EXPECT_EQ((Rect{}), toast->frame());
}

TEST_F(Toast, PopsInBeyondItsSizeStaysAndFades) {
    MessageView::toastInView(view, "Hello");
    QPointer<MessageView> toast = shown(view);
    EXPECT_EQ(0.0, toast->alpha());
    EXPECT_DOUBLE_EQ(0.1, toast->scale());
    clock.advance(0.2);
    EXPECT_NEAR(1.0, toast->alpha(), 0.05);
    EXPECT_NEAR((0.1 + 1.6) * 0.5, toast->scale(), 0.1);
    clock.advance(0.2);
    EXPECT_NEAR(1.6, toast->scale(), 0.02);
    clock.advance(0.201);
    EXPECT_EQ(1.0, toast->scale());
    EXPECT_EQ(1.0, toast->alpha());
    clock.advance(2.389);
    EXPECT_DOUBLE_EQ(1.0, toast->alpha());
    EXPECT_DOUBLE_EQ(1.0, toast->scale());
    clock.advance(0.01 + 0.5);
    EXPECT_NEAR(1.6, toast->scale(), 0.02);
    EXPECT_LT(toast->alpha(), 1.0);
    clock.advance(0.5);
    EXPECT_NEAR(0.1, toast->scale(), 0.02);
    EXPECT_NEAR(0.5, toast->alpha(), 0.02);
    clock.advance(0.99);
    ASSERT_FALSE(toast.isNull());
    EXPECT_NEAR(0.0, toast->alpha(), 0.01);
    clock.advance(0.02);
    EXPECT_TRUE(toast.isNull());
    EXPECT_EQ(nullptr, shown(view));
}

TEST_F(Toast, GrowsOnTheScreenWithItsScale) {
    MessageView::toastInView(view, "Hello");
    const MessageView& toast = *shown(view);
    EXPECT_LE(toast.geometry().width(), 32);
    clock.advance(0.4);
    EXPECT_NEAR(480, toast.geometry().width(), 8);
    clock.advance(1.0);
    EXPECT_EQ(QRect(10, 133, 300, 51), toast.geometry());
    EXPECT_EQ((Rect{10.0, 133.5, 300.0, 50.0}), toast.frame());
}

TEST_F(Toast, SleepsWhileItStays) {
    MessageView::toastInView(view, "Hello");
    clock.advance(0.7);
    const int before = clock.wakeUpCount;
    clock.advance(2.2);
    EXPECT_EQ(before, clock.wakeUpCount);
}

TEST_F(Toast, ComesOneAfterTheOtherInTheFirstParent) {
    View other({0.0, 0.0, 320.0, 100.0});
    MessageView::toastInView(view, "one");
    clock.advance(0.1);
    MessageView::toastInView(other, "two");
    clock.advance(0.1);
    MessageView::toastInView(other, "three");
    EXPECT_EQ(3U, MessageView::queueLength());
    EXPECT_EQ("one", textShown(view));
    EXPECT_EQ(1, view.findChildren<MessageView*>().size());
    clock.advance(4.79);  // 4.99 s after the first
    EXPECT_EQ("one", textShown(view));
    clock.advance(0.02);  // 5.01 s
    EXPECT_EQ("two", textShown(view));
    EXPECT_EQ(2U, MessageView::queueLength());
    clock.advance(4.98);  // 9.99 s
    EXPECT_EQ("two", textShown(view));
    clock.advance(0.02);  // 10.01 s
    EXPECT_EQ("three", textShown(view));
    EXPECT_EQ(30.0, shown(view)->center().y);  // the position in its parent
    clock.advance(4.98);
    EXPECT_EQ(1U, MessageView::queueLength());
    clock.advance(0.02);
    EXPECT_EQ(0U, MessageView::queueLength());
    EXPECT_EQ(nullptr, shown(view));
    EXPECT_EQ(nullptr, shown(other));
    MessageView::toastInView(other, "four");
    EXPECT_EQ("four", textShown(other));
}

TEST_F(Toast, TakesThePlaceOfOlderOnesWhereOnlyTheNewestIsKept) {
    MessageView::setKeepsNewestOnly(true);
    MessageView::toastInView(view, "one");
    clock.advance(0.1);
    MessageView::toastInView(view, "two");
    EXPECT_EQ(1U, MessageView::queueLength());
    EXPECT_EQ("two", textShown(view));
    EXPECT_EQ(1, view.findChildren<MessageView*>().size());
    clock.advance(4.98);
    EXPECT_EQ("two", textShown(view));  // its duration is the usual one
    MessageView::clearQueue();
    EXPECT_EQ(nullptr, shown(view));
    MessageView::setKeepsNewestOnly(false);
}

TEST_F(Toast, GoesWithTheViewThatShowsItAndSoDoThoseThatWait) {
    auto mortal = std::make_unique<View>(Rect{0.0, 0.0, 320.0, 100.0});
    MessageView::toastInView(*mortal, "one");
    MessageView::toastInView(view, "two");
    clock.advance(0.3);
    mortal.reset();
    EXPECT_EQ(0U, MessageView::queueLength());
    clock.advance(10.0);
    MessageView::toastInView(view, "three");
    EXPECT_EQ("three", textShown(view));
}

TEST_F(Toast, EndsEvenWhenItIsTakenOutOfItsView) {
    MessageView::toastInView(view, "one");
    MessageView::toastInView(view, "two");
    shown(view)->setParent(nullptr);
    clock.advance(5.1);
    EXPECT_EQ(0U, MessageView::queueLength());
}

TEST_F(Toast, CanFadeBefore) {
    MessageView::toastInView(view, "one");
    clock.advance(1.0);
    QPointer<MessageView> toast = shown(view);
    toast->fadeToastOut();
    clock.advance(1.0);
    toast->fadeToastOut();  // it fades already
    clock.advance(1.01);
    EXPECT_TRUE(toast.isNull());
    clock.advance(10.0);
    EXPECT_EQ(0U, MessageView::queueLength());
}

TEST_F(Toast, WrapsALongTextAndCutsItAtTwoLines) {
    std::string text;
    for (int i = 0; i < 30; ++i) text += "word" + std::to_string(i) + " ";
    MessageView::toastInView(view, text);
    const auto lines = shown(view)->textLabel()->layout().lines;
    ASSERT_EQ(2U, lines.size());
    EXPECT_TRUE(lines[0].starts_with("word0"));
    EXPECT_EQ(std::string::npos, lines[1].find("word29"));
    EXPECT_EQ(text, spokenNames(*shown(view)).front());
}

TEST_F(Toast, LetsTapsThrough) {
    auto* below = addSubview(view, std::make_unique<View>(Rect{0.0, 0.0, 320.0, 357.0}));
    MessageView::toastInView(view, "one");
    clock.advance(1.0);
    EXPECT_EQ(below, view.childAt(160, 158));
}

TEST_F(Toast, DoesNothingWhenTheQueueIsEmpty) {
    MessageView::nextToastInView(view);
    EXPECT_EQ(nullptr, shown(view));
}

TEST_F(Toast, IsDescribedAsAnAlert) {
    MessageView::toastInView(view, "Choose a sound for this alarm first.");
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(shown(view));
    EXPECT_EQ(QAccessible::AlertMessage, spoken->role());
    EXPECT_EQ("Choose a sound for this alarm first.", spoken->text(QAccessible::Name).toStdString());
}

// Only where assistive technology listens: see CMakeLists.txt.
TEST_F(Toast, AnnouncesItselfOnceItIsShown) {
    if (!somethingListens()) GTEST_SKIP() << "nothing listens on this platform";
    static std::vector<std::string> alerts;
    alerts.clear();
    const auto previous = QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
        if (event->type() != QAccessible::Alert) return;
        alerts.push_back(event->accessibleInterface()->text(QAccessible::Name).toStdString());
    });
    MessageView::toastInView(view, "one");
    MessageView::toastInView(view, "two");
    EXPECT_EQ(std::vector<std::string>{"one"}, alerts);
    clock.advance(5.1);
    EXPECT_EQ((std::vector<std::string>{"one", "two"}), alerts);
    QAccessible::installUpdateHandler(previous);
}

TEST_F(Toast, RunsByTheClockOfTheMachine) {
    MessageView::setAnimationClock(nullptr);
    MessageView::toastInView(view, "real");
    QPointer<MessageView> toast = shown(view);
    QTest::qWait(700);
    EXPECT_EQ(1.0, toast->alpha());
    EXPECT_EQ(1.0, toast->scale());
}

}  // namespace
}  // namespace quode::test
