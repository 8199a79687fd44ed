// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/Color.h"
#include "views/View.h"

class QPainter;

namespace quode {

/// How a text is set in its label.
enum TextAlign : int { alignLeft = 0, alignCenter = 1, alignRight = 2 };

/// A text on a clear background, vertically in the middle. One line that does not fit is set smaller, to half of its
/// size, and then cut with an ellipsis at its end. Several lines are wrapped between words and cut after the last one.
/// A label lets touches through to the views below.
class Label : public View {
    Q_OBJECT

  public:
    explicit Label(const Rect& frame = {}, QWidget* parent = nullptr);

    /// The text in UTF-8; a missing text shows nothing.
    const std::string& text() const { return text_; }
    void setText(std::optional<std::string> text);

    /// Name of the font; where it is missing "DejaVu Sans" takes its place.
    const std::string& fontName() const { return fontName_; }
    /// Size in points of the screen.
    double fontSize() const { return fontSize_; }
    void setFont(std::string name, double size);

    const Color& textColor() const { return textColor_; }
    void setTextColor(const Color& color);

    TextAlign textAlign() const { return textAlign_; }
    void setTextAlign(TextAlign align);

    /// A black shadow, one point right and down; false at first.
    bool shadow() const { return shadow_; }
    void setShadow(bool value);

    /// 1 at first.
    int numberOfLines() const { return numberOfLines_; }
    void setNumberOfLines(int lines);

    /// Whether the label draws itself; when not, the view that holds it does so with draw(). True at first.
    bool drawsItself() const { return drawsItself_; }
    void setDrawsItself(bool value);

    /// The lines as they are shown: what of the text fits, and the part of the font size it is set in.
    struct Layout {
        std::vector<std::string> lines;
        double scale = 1.0;
    };
    Layout layout() const;

    /// Draws the text into the bounds.
    void draw(QPainter& painter) const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QFont screenFont() const;
    void drawLines(QPainter& painter, const Layout& layout) const;

    std::string text_;
    std::string fontName_;
    double fontSize_ = 15.0;
    Color textColor_;
    TextAlign textAlign_ = alignLeft;
    bool shadow_ = false;
    int numberOfLines_ = 1;
    bool drawsItself_ = true;
};

}  // namespace quode
