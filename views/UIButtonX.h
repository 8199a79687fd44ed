// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "common/Color.h"
#include "views/Label.h"
#include "views/View.h"

class QPen;
class QTouchEvent;

namespace quode {

class GlobalFuncs;
struct Settings;
class UIButtonX;

/// Receives the taps of a button.
class UIButtonXDelegate {
  public:
    /// @param selected  the state of the button after the tap; always false for a button that is not a toggle
    virtual void delegateUIButtonXTapped(UIButtonX& button, bool selected) = 0;

  protected:
    ~UIButtonXDelegate() = default;
};

/// The tags of the views' buttons. Fixed values.
enum ButtonTag : int { tagAlarmOnOff = 222, tagCityInfo = 224, tagShowAll = 225, tagCompass = 226 };

/// A button, optionally a toggle, that draws a frame and a glyph in the colours of the current scheme.
///
/// It reacts to touch, to the left mouse button, to the Space and Enter keys and to the accessibility interface, where it
/// is a check box when it is a toggle, else a push button, with the name `spokenName`.
///
/// Fixed names: all, except `spokenName`, `setSpokenName`, `frameColor` and `glyphColor`; the numbers of buttonType and
/// buttonShape:
/// buttonType: 0 no frame, 1 ellipse, 2 circle, 3 rounded rectangle, 4 rectangle.
/// buttonShape: 0 no glyph, 1 dots, 2 plus, 3 arrows outwards, 4 arrows inwards, 5 house, 6 stepped figure, 7 star of
/// the compass, 8 information, 9 alarm on, 10 alarm off, 11 bell, 12 open circle. Other numbers draw nothing.
class UIButtonX : public View {
    Q_OBJECT

  public:
    explicit UIButtonX(const Rect& frame = {}, QWidget* parent = nullptr);

    UIButtonXDelegate* delegate() const { return delegate_; }
    /// The delegate is not owned; while it is null, taps have no receiver.
    void setDelegate(UIButtonXDelegate* delegate) { delegate_ = delegate; }

    std::int32_t buttonType() const { return buttonType_; }
    void setButtonType(std::int32_t type);

    /// Shapes 7 and 8 are symbols that replace the text of the caption.
    std::int32_t buttonShape() const { return buttonShape_; }
    void setButtonShape(std::int32_t shape);

    /// The caption.
    Label* text() const { return text_; }
    /// Replaces the caption; the old one is deleted.
    void setText(std::unique_ptr<Label> text);

    /// True for a toggle; false by default.
    bool selectable() const { return selectable_; }
    void setSelectable(bool value);

    bool selected() const { return selected_; }
    /// Does nothing unless the button is a toggle.
    void setSelected(bool selected);

    bool enabled() const { return isEnabled(); }

    /// The stroke of a selected toggle.
    const Color& selectedColor() const { return selectedColor_; }
    void setSelectedColor(const Color& color);

    /// The stroke of the frame while enabled.
    const Color& enabledColor() const { return enabledColor_; }
    void setEnabledColor(const Color& color);

    /// True, the default: frame and glyph have a shadow.
    bool isShadow() const { return isShadow_; }
    void setIsShadow(bool value);

    /// A second number for use by the owner.
    std::int32_t tag2() const { return tag2_; }
    void setTag2(std::int32_t tag) { tag2_ = tag; }

    /// The name for assistive technology: the current result of the function; without a function, the caption.
    std::string spokenName() const;
    void setSpokenName(std::function<std::string()> name) { spokenName_ = std::move(name); }

    /// True while a finger, the mouse button or the Space key is down inside the button.
    bool isSelecting() const { return isSelecting_; }

    /// Sets the frame; the caption fills the button except its two lowest points.
    void setFrame(const Rect& frame) override;

    /// Has the effect of a tap inside the button. Does nothing while the button is disabled.
    void tap();

    /// An arc about (10, 10) with radius 5, from the right clockwise over 135 degrees.
    static QPainterPath createArcPath();

    /// The colours of frame and glyph in the current state.
    Color frameColor() const;
    Color glyphColor() const;

  protected:
    void touchesBegan(Point location) override;
    void touchesMoved(Point location) override;
    void touchesEnded(Point location) override;
    void touchesCancelled() override;

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void initialize();
    void setSelecting(bool value);
    void setFocusRing(bool value);
    void touchEvent(const QTouchEvent& event);
    void showSign();
    void clearSign();
    void drawRect(QPainter& painter) const;
    void drawPressed(QPainter& painter) const;
    void drawFrame(QPainter& painter) const;
    void drawGlyph(QPainter& painter) const;
    void drawFocusRing(QPainter& painter) const;
    void stroke(QPainter& painter, const QPainterPath& path, const QPen& pen, bool filled) const;

    GlobalFuncs& globalFuncs_;
    const Settings& glbSettings_;
    bool isSelecting_ = false;
    bool selectable_ = false;
    bool selected_ = false;
    bool isShadow_ = true;
    bool isTouched_ = false;
    bool hasFocusRing_ = false;
    std::int32_t buttonType_ = 0;
    std::int32_t buttonShape_ = 0;
    std::int32_t tag2_ = 0;
    UIButtonXDelegate* delegate_ = nullptr;
    Label* text_ = nullptr;
    Color selectedColor_;
    Color enabledColor_;
    std::function<std::string()> spokenName_;
};

}  // namespace quode
