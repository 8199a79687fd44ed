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

/// A toast: a short message in a grey box that pops in over a view, stays for three seconds and fades out. Toasts that
/// are asked for meanwhile wait in one queue for the whole process and are shown one after the other, in the parent of
/// the one before. When that parent goes, its toast and those that wait go with it. Touches pass through a toast.
class MessageView : public View {
    Q_OBJECT

  public:
    static constexpr Color boxColor{0.5, 0.5, 0.5, 0.8};

    /// Shows a toast in a view, at once or when those before it have gone.
    static void toastInView(QWidget& parent, const std::string& text);

    /// Shows the first toast of the queue, if there is one.
    static void nextToastInView(QWidget& parent);

    /// Number of toasts that show or wait.
    static std::size_t queueLength();

    /// Whether a toast that is asked for takes the place of those before it, which go at once, instead of waiting for
    /// them. False at first; for the whole process.
    static void setKeepsNewestOnly(bool value);

    /// Takes away all toasts, those that show and those that wait.
    static void clearQueue();

    /// The clock of all toasts to come; null for the clock of the machine. Not owned.
    static void setAnimationClock(AnimationClock* clock);

    /// A toast that is not shown yet.
    static std::unique_ptr<MessageView> initWithText(const std::string& text);

    ~MessageView() override;

    Label* textLabel() const { return textLabel_; }

    /// Begins the end of a shown toast: it fades for two seconds and goes. It comes by itself three seconds after the
    /// toast was shown.
    void fadeToastOut();

    /// The present state of the animation: 0 is clear and 1 opaque; 1 is the natural size.
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
    std::size_t run_ = 0;  // tells the wake-ups of this run of the animation from older ones
};

}  // namespace quode
