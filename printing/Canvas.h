// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "printing/Picture.h"
#include "printing/Timetable.h"

namespace quode::printing {

struct Ink {
    double red = 0.0, green = 0.0, blue = 0.0;
};

struct Box {
    double x = 0.0, y = 0.0, width = 0.0, height = 0.0;  ///< points; x counts from where reading begins

    Box inset(double by) const { return {x + by, y, width - 2 * by, height}; }
};

enum class Align { start, centre, end };

struct Font {
    double size = 10.0;  ///< points
    bool isBold = false;
    bool isItalic = false;
};

/// The pages of a PDF file, drawn one after another, or a picture of one page. Lengths are points, 1/72 inch. In a document that is read from
/// right to left all positions are mirrored.
class Canvas {
  public:
    /// A file.
    Canvas(double width, double height, const Timetable& timetable);
    /// A picture of the page in the size of `picture`, which is filled by `finished`, and must live until then.
    Canvas(double width, double height, const Timetable& timetable, Picture& picture);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    double width() const { return width_; }
    double height() const { return height_; }

    void fill(const Box& box, const Ink& ink);
    /// A text in one line, in the middle of the box's height.
    void text(const Box& box, const std::string& text, const Font& font, const Ink& ink, Align align);
    /// A text in as many lines as its box is wide, from the box's top on.
    void paragraph(const Box& box, const std::string& text, const Font& font, const Ink& ink);

    double widthOf(const std::string& text, const Font& font);
    double heightOf(const std::string& paragraph, double width, const Font& font);
    /// The font, or the largest smaller one with which the text is no wider.
    Font fitted(const std::string& text, Font font, double width);

    void nextPage();
    /// Ends the file or the picture. Throws std::runtime_error when it could not be made.
    /// @return the bytes of the file; of a picture none
    std::string finished();

  private:
    struct Parts;
    void prepareTexts(const Timetable& timetable);
    double left(const Box& box) const;
    void prepare(const std::string& text, const Font& font);

    double width_, height_;
    bool isRightToLeft_;
    std::unique_ptr<Parts> parts_;
};

}  // namespace quode::printing
