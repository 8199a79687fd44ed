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

/// The alignment of a text in its label. Fixed values.
enum TextAlign : int { alignLeft = 0, alignCenter = 1, alignRight = 2 };

/// A text on a transparent background, vertically centred. A single line that does not fit is drawn smaller, down to half
/// size, and then truncated with an ellipsis. Several lines are wrapped between words and truncated after the last line.
/// Touches pass through a label to the views below.
class Label : public View {
    Q_OBJECT

  public:
    explicit Label(const Rect& frame = {}, QWidget* parent = nullptr);

    /// The text in UTF-8; a missing text shows nothing.
    const std::string& text() const { return text_; }
    void setText(std::optional<std::string> text);

    /// Name of the font; "DejaVu Sans" replaces a missing font.
    const std::string& fontName() const { return fontName_; }
    /// Size in points of the screen.
    double fontSize() const { return fontSize_; }
    void setFont(std::string name, double size);

    const Color& textColor() const { return textColor_; }
    void setTextColor(const Color& color);

    TextAlign textAlign() const { return textAlign_; }
    void setTextAlign(TextAlign align);

    /// A black shadow, one point right and down; false by default.
    bool shadow() const { return shadow_; }
    void setShadow(bool value);

    /// 1 by default.
    int numberOfLines() const { return numberOfLines_; }
    void setNumberOfLines(int lines);

    /// True, the default: the label draws itself; else its parent draws it with `draw`.
    bool drawsItself() const { return drawsItself_; }
    void setDrawsItself(bool value);

    /// The lines as drawn: the part of the text that fits, and the scale of the font size.
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
