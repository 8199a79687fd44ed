// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "views/AnimationClock.h"
#include "views/Label.h"
#include "views/toast_motion.h"

namespace quode {

/// A toast: a short message in a grey box that pops in over a view, stays for three seconds and fades out. Further toasts
/// wait in one queue for the whole process and are shown one after the other, in the parent of the previous one. When
/// that parent is deleted, its toast and the waiting ones are deleted too. Touches pass through a toast.
///
/// Fixed names: all, except `queueLength`, `setKeepsNewestOnly`, `clearQueue` and `setAnimationClock`.
class MessageView : public View {
    Q_OBJECT

  public:
    static constexpr Color boxColor{0.5, 0.5, 0.5, 0.8};

    /// Shows a toast in a view, at once or after the earlier ones.
    static void toastInView(QWidget& parent, const std::string& text);

    /// Shows the first toast of the queue, if any.
    static void nextToastInView(QWidget& parent);

    /// The number of toasts that are shown or waiting.
    static std::size_t queueLength();

    /// True: a new toast replaces the earlier ones at once instead of waiting for them. False by default; for the whole
    /// process.
    static void setKeepsNewestOnly(bool value);

    /// Removes all toasts, shown and waiting.
    static void clearQueue();

    /// Sets the clock of all future toasts; null for the clock of the machine. Not owned.
    static void setAnimationClock(AnimationClock* clock);

    /// Makes a toast without showing it.
    static std::unique_ptr<MessageView> initWithText(const std::string& text);

    ~MessageView() override;

    Label* textLabel() const { return textLabel_; }

    /// Fades a shown toast out within two seconds and deletes it. Called automatically three seconds after the toast is
    /// shown.
    void fadeToastOut();

    /// The current state of the animation: alpha 0 is transparent and 1 opaque; scale 1 is the natural size.
    double alpha() const { return alpha_; }
    double scale() const { return scale_; }

  protected:
    QRect screenGeometry() const override;
    void paintEvent(QPaintEvent* event) override;

  private:
    explicit MessageView(const std::string& text);

    void popIn();
    void begin();
    void animate();
    void wakeAfter(double seconds, void (MessageView::*step)());
    void removeFromQueue();

    AnimationClock& clock_;
    Label* textLabel_ = nullptr;
    double alpha_ = 1.0;
    double scale_ = 1.0;
    AnimationClock::Duration began_{};
    bool fading_ = false;
    toast::Look lookAtFade_;
    std::size_t run_ = 0;  // distinguishes the wake-ups of this run of the animation from older ones
};

}  // namespace quode
