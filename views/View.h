// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <memory>
#include <utility>

#include "platform/Geometry.h"
#include "views/Point.h"

namespace quode {

/// How a view follows when the view that holds it changes its size; values are added up.
enum Autoresizing : unsigned {
    fixedAutoresizing = 0,
    flexibleLeftMargin = 1,
    flexibleWidth = 2,
    flexibleRightMargin = 4,
    flexibleTopMargin = 8,
    flexibleHeight = 16,
    flexibleBottomMargin = 32,
};

/// A widget whose place is kept in doubles and rounded to whole points only for the screen. Its background is clear.
/// Views that were added later are drawn above those added before, and views may lie one upon the other.
class View : public QWidget {
    Q_OBJECT

  public:
    explicit View(const Rect& frame = {}, QWidget* parent = nullptr);

    /// Place and size in the view that holds this one. A widget that is moved or resized by other means takes its new
    /// place as its frame.
    const Rect& frame() const { return frame_; }
    virtual void setFrame(const Rect& frame);

    /// The view's own area: origin 0, size of the frame.
    Rect bounds() const { return {0.0, 0.0, frame_.width, frame_.height}; }

    /// The middle of the frame. Setting it moves the frame and keeps its size.
    Point center() const;
    void setCenter(Point center);

    /// A number that its owner gives it; 0 at first.
    int tag() const { return tag_; }
    void setTag(int tag) { tag_ = tag; }

    /// A sum of Autoresizing values; 0 at first.
    unsigned autoresizingMask() const { return autoresizingMask_; }
    void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }

    /// Whether views in this one follow a change of its size; true at first.
    bool autoresizesSubviews() const { return autoresizesSubviews_; }
    void setAutoresizesSubviews(bool value) { autoresizesSubviews_ = value; }

  protected:
    /// The whole points that the frame covers on the screen.
    virtual QRect screenGeometry() const;

    /// Brings the widget to screenGeometry.
    void placeOnScreen();

    // What a finger, the mouse's left button or a key does to the view; locations are in the view's own points. A plain
    // view does nothing with it.
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

/// Puts a new view into another one, above those already there, and shows it unless it was hidden before.
/// Returned: the view, which the parent now owns.
template <typename T>
T* addSubview(QWidget& parent, std::unique_ptr<T> view) {
    const bool hidden = view->testAttribute(Qt::WA_WState_ExplicitShowHide) && view->isHidden();
    view->setParent(&parent);
    view->setVisible(!hidden);
    return view.release();
}

}  // namespace quode
