// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/GlobalFuncs.h"
#include "compass/CompassDevices.h"
#include "compass/CompassDialView.h"
#include "compass/CompassPlate.h"
#include "compass/CompassViewOverlayWindow.h"
#include "platform/Geometry.h"

class QVariantAnimation;

namespace quode {

class CompassCloseButton;

/// The compass that covers the screen: a dial that follows the device's heading, with an arrow to the qibla.
///
/// Create it with `initWithLocation`, show it with `show`; `destroy` closes it, which a tap, Escape, the close button and
/// the destructor also call. While shown it keeps the screen awake. Without a heading from the device the dial has north
/// at the top, shows the reason, and the user turns it by dragging, with the arrow keys, or with assistive technology.
///
/// Its owner keeps it at least until `closed`; a closed compass uses no device. It needs the shared services, on the main
/// thread.
///
/// Fixed names: all, except `turnByHand`, `dialView` and `overlayWindow`.
class CompassView : public QWidget {
    Q_OBJECT

    struct Key {};  // keeps the constructor to this class

  public:
    /// @param frame        the area of the screen, in points
    /// @param a,b          latitude and longitude of the place, degrees
    /// @param qiblaAngle   degrees from true north, counter-clockwise
    /// @param declination  magnetic declination in degrees, positive in the east
    static std::unique_ptr<CompassView> initWithLocation(const Rect& frame, double a, double b, double qiblaAngle,
                                                         double declination, CompassDevices devices);

    /// The same with the devices of this system.
    static std::unique_ptr<CompassView> initWithLocation(const Rect& frame, double a, double b, double qiblaAngle,
                                                         double declination);

    CompassView(Key, const Rect& frame, double latitude, double longitude, double qiblaAngle, double declination,
                CompassDevices devices);
    ~CompassView() override;

    /// Shows the compass in a new window, which fades in while the compass pops up.
    void show();

    /// Closes the compass and releases the device's services. Further calls do nothing.
    void destroy();

    /// Updates the correction for the device's orientation, and centres the dial.
    void updateDisplay();

    /// The animation of the appearance: the compass grows from 0.6 to 1.1, shrinks to 0.9 and ends at its own size.
    void backgroungEffect();

    /// Renews the request to keep the screen awake while the compass is shown. A timer calls it 2 s after creation and then
    /// every 3 s.
    void onTick();

    void tapActionCompassTapped() { destroy(); }
    void tapActionCompassArrowTapped() { destroy(); }

    /// Turns the dial to a heading. A failed reading, or one with an accuracy of 0 or below, is ignored.
    void didUpdateHeading(const HeadingReading& reading);

    /// True: a sensor without a known heading makes the compass ask for a calibration.
    bool locationManagerShouldDisplayHeadingCalibration() const { return true; }

    /// Turns the dial by hand, degrees clockwise. Does nothing while the device's heading turns it.
    void turnByHand(double degrees);

    float compassAngle() const { return compassAngle_; }              ///< turn of the dial, radians clockwise
    float fixAngle() const { return fixAngle_; }                      ///< degrees
    float compassDeclination() const { return compassDeclination_; }  ///< degrees
    float qAngle() const { return qAngle_; }                          ///< degrees, counter-clockwise
    void setFixAngle(float degrees) { fixAngle_ = degrees; }

    /// The frame as set; on the screen the compass covers its window, whatever the frame.
    const Rect& frame() const { return frame_; }
    void setFrame(const Rect& frame) { frame_ = frame; }

    /// The dial, and the window while the compass is shown; null after closing.
    CompassDialView* dialView() const { return dial_; }
    CompassViewOverlayWindow* overlayWindow() const { return window_.get(); }

  Q_SIGNALS:
    /// The compass is closed.
    void closed();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    /// The source of the dial's heading, or why it is missing.
    enum class Guide { none, calibrating, sensor, noSensor, accessDenied, noAnswer };

    void makeDial();
    void makeTexts();
    void startHeading();
    void startIdleTimer();
    void onProblem(HeadingProblem problem);
    void setGuide(Guide guide);
    void applyHeading(float magneticHeading);
    void applyDialAngle(float radians);
    void setManualHeading(double degrees);
    void placeParts();
    void placeTexts();
    void placeCloseButton();
    void showStatus();
    std::vector<std::string> statusLines();
    void setAlpha(double alpha);
    QVariantAnimation* animation(double from, double to, double seconds);
    DeviceOrientation orientation() const;
    std::optional<double> directionOf(QPointF position) const;

    GlobalFuncs& glbFuncs_;
    CompassDevices devices_;
    Rect frame_;
    double latitude_, longitude_;      // for the texts
    double qiblaAngle_, declination_;  // for the texts
    float compassAngle_ = 0.0F;
    float fixAngle_ = 0.0F;
    float compassDeclination_;
    float qAngle_;

    Guide guide_ = Guide::none;
    std::optional<float> lastHeading_;  // the last reading that turned the dial, degrees from magnetic north
    double manualHeading_ = 0.0;        // degrees from true north
    std::optional<QPointF> press_;      // where the pointer went down
    bool isDragged_ = false;
    std::optional<double> dragDirection_;

    CompassDialView* dial_ = nullptr;
    CompassPlate* status_ = nullptr;
    CompassPlate* numbers_ = nullptr;
    CompassCloseButton* closeButton_ = nullptr;
    QTimer* idleTimer_;
    std::unique_ptr<CompassViewOverlayWindow> window_;
    bool isDestroyed_ = false;
};

}  // namespace quode
