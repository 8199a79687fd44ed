// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <memory>
#include <utility>

#include "platform/Geometry.h"
#include "views/Point.h"

namespace quode {

/// How a view changes when its parent changes its size; a sum of values. Fixed values.
enum Autoresizing : unsigned {
    fixedAutoresizing = 0,
    flexibleLeftMargin = 1,
    flexibleWidth = 2,
    flexibleRightMargin = 4,
    flexibleTopMargin = 8,
    flexibleHeight = 16,
    flexibleBottomMargin = 32,
};

/// A widget whose frame has doubles, rounded to whole points only on the screen. Its background is transparent. Views may
/// overlap; a view that was added later is drawn above earlier ones.
class View : public QWidget {
    Q_OBJECT

  public:
    explicit View(const Rect& frame = {}, QWidget* parent = nullptr);

    /// Position and size in the parent. When the widget is moved or resized by other means, its frame follows.
    const Rect& frame() const { return frame_; }
    virtual void setFrame(const Rect& frame);

    /// The view's own area: origin 0, size of the frame.
    Rect bounds() const { return {0.0, 0.0, frame_.width, frame_.height}; }

    /// The centre of the frame. Setting it moves the frame and keeps its size.
    Point center() const;
    void setCenter(Point center);

    /// A number for use by the owner; 0 by default.
    int tag() const { return tag_; }
    void setTag(int tag) { tag_ = tag; }

    /// A sum of `Autoresizing` values; 0 by default.
    unsigned autoresizingMask() const { return autoresizingMask_; }
    void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }

    /// True, the default: child views follow a change of this view's size.
    bool autoresizesSubviews() const { return autoresizesSubviews_; }
    void setAutoresizesSubviews(bool value) { autoresizesSubviews_ = value; }

  protected:
    /// The whole points that the frame covers on the screen.
    virtual QRect screenGeometry() const;

    /// Moves the widget to `screenGeometry`.
    void placeOnScreen();

    // Called for a finger, the left mouse button or a key; locations are in the view's points. The base does nothing.
    virtual void touchesBegan(Point) {}
    virtual void touchesMoved(Point) {}
    virtual void touchesEnded(Point) {}
    virtual void touchesCancelled() {}

    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void applyFrame(const Rect& frame);
    void takeScreenGeometry();

    Rect frame_;
    int tag_ = 0;
    unsigned autoresizingMask_ = fixedAutoresizing;
    bool autoresizesSubviews_ = true;
};

/// Adds a view to a parent, above its other views, and shows it unless it was hidden before.
/// @return the view, which the parent owns
template <typename T>
T* addSubview(QWidget& parent, std::unique_ptr<T> view) {
    const bool hidden = view->testAttribute(Qt::WA_WState_ExplicitShowHide) && view->isHidden();
    view->setParent(&parent);
    view->setVisible(!hidden);
    return view.release();
}

}  // namespace quode
