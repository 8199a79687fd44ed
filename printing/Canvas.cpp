// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Cairo writes the file or the picture and Pango the texts: it joins the letters of Arabic and finds a font for every script.
#include "printing/Canvas.h"

#include <cairo-pdf.h>
#include <pango/pangocairo.h>

#include <algorithm>
#include <stdexcept>

namespace quode::printing {
namespace {

constexpr const char* family = "DejaVu Sans";

struct DestroySurface {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
struct DestroyContext {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
struct FreeOptions {
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};
struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
struct FreeFont {
    void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};

cairo_status_t take(void* bytes, const unsigned char* data, unsigned length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

struct Canvas::Parts {
    std::string bytes;
    std::unique_ptr<cairo_surface_t, DestroySurface> surface;
    std::unique_ptr<cairo_t, DestroyContext> context;
    std::unique_ptr<PangoLayout, Unref> layout;
    std::unique_ptr<PangoFontDescription, FreeFont> font;
};

Canvas::Canvas(double width, double height, const Timetable& timetable)
    : width_(width), height_(height), isRightToLeft_(timetable.isRightToLeft), parts_(std::make_unique<Parts>()) {
    Parts& parts = *parts_;
    parts.surface.reset(cairo_pdf_surface_create_for_stream(&take, &parts.bytes, width, height));
    cairo_surface_t* const surface = parts.surface.get();
    const std::string title = timetable.place + " · " + timetable.title;
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, title.c_str());
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_CREATOR, "Quode");
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_CREATE_DATE, timetable.made.c_str());
    parts.context.reset(cairo_create(surface));
    prepareTexts(timetable);
}

Canvas::Canvas(double width, double height, const Timetable& timetable, Picture& picture)
    : width_(width), height_(height), isRightToLeft_(timetable.isRightToLeft), parts_(std::make_unique<Parts>()) {
    constexpr std::uint32_t paper = 0xffffff;
    Parts& parts = *parts_;
    picture.pixels.assign(std::size_t(picture.width) * std::size_t(picture.height), paper);
    parts.surface.reset(cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(picture.pixels.data()), CAIRO_FORMAT_RGB24, picture.width, picture.height,
        cairo_format_stride_for_width(CAIRO_FORMAT_RGB24, picture.width)));
    parts.context.reset(cairo_create(parts.surface.get()));
    cairo_scale(parts.context.get(), picture.width / width, picture.height / height);
    prepareTexts(timetable);
    // Letters as wide as in the file, and grey at their edges: nothing is fitted to the pixels.
    const std::unique_ptr<cairo_font_options_t, FreeOptions> options(cairo_font_options_create());
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(pango_layout_get_context(parts.layout.get()), options.get());
}

void Canvas::prepareTexts(const Timetable& timetable) {
    Parts& parts = *parts_;
    parts.layout.reset(pango_cairo_create_layout(parts.context.get()));
    parts.font.reset(pango_font_description_new());
    PangoContext* const texts = pango_layout_get_context(parts.layout.get());
    // Positions do not snap to the pixels of a screen.
    pango_context_set_round_glyph_positions(texts, FALSE);
    pango_context_set_base_dir(texts, isRightToLeft_ ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
    pango_context_set_language(texts, pango_language_from_string(timetable.language.c_str()));
    pango_layout_set_auto_dir(parts.layout.get(), FALSE);
}

Canvas::~Canvas() = default;

double Canvas::left(const Box& box) const {
    return isRightToLeft_ ? width_ - box.x - box.width : box.x;
}

void Canvas::fill(const Box& box, const Ink& ink) {
    cairo_t* const context = parts_->context.get();
    cairo_set_source_rgb(context, ink.red, ink.green, ink.blue);
    cairo_rectangle(context, left(box), box.y, box.width, box.height);
    cairo_fill(context);
}

void Canvas::prepare(const std::string& text, const Font& font) {
    PangoFontDescription* const description = parts_->font.get();
    pango_font_description_set_family_static(description, family);
    pango_font_description_set_absolute_size(description, font.size * PANGO_SCALE);
    pango_font_description_set_weight(description, font.isBold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(description, font.isItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    PangoLayout* const layout = parts_->layout.get();
    pango_layout_set_font_description(layout, description);
    pango_layout_set_width(layout, -1);
    pango_layout_set_text(layout, text.c_str(), static_cast<int>(text.size()));
}

double Canvas::widthOf(const std::string& text, const Font& font) {
    prepare(text, font);
    int width = 0;
    pango_layout_get_size(parts_->layout.get(), &width, nullptr);
    return double(width) / PANGO_SCALE;
}

double Canvas::heightOf(const std::string& paragraph, double width, const Font& font) {
    prepare(paragraph, font);
    pango_layout_set_width(parts_->layout.get(), static_cast<int>(width * PANGO_SCALE));
    int height = 0;
    pango_layout_get_size(parts_->layout.get(), nullptr, &height);
    return double(height) / PANGO_SCALE;
}

Font Canvas::fitted(const std::string& text, Font font, double width) {
    const double natural = widthOf(text, font);
    if (natural > width) font.size *= width / natural;
    return font;
}

void Canvas::text(const Box& box, const std::string& text, const Font& font, const Ink& ink, Align align) {
    const double width = widthOf(text, font);
    int height = 0;
    pango_layout_get_size(parts_->layout.get(), nullptr, &height);
    const double room = box.width - width;
    const bool isAtRight = (align == Align::end) != isRightToLeft_;
    const double indent = align == Align::centre ? room / 2.0 : isAtRight ? room : 0.0;
    cairo_t* const context = parts_->context.get();
    cairo_set_source_rgb(context, ink.red, ink.green, ink.blue);
    cairo_move_to(context, left(box) + indent, box.y + (box.height - double(height) / PANGO_SCALE) / 2.0);
    pango_cairo_show_layout(context, parts_->layout.get());
}

void Canvas::paragraph(const Box& box, const std::string& text, const Font& font, const Ink& ink) {
    heightOf(text, box.width, font);
    pango_layout_set_alignment(parts_->layout.get(), isRightToLeft_ ? PANGO_ALIGN_RIGHT : PANGO_ALIGN_LEFT);
    cairo_t* const context = parts_->context.get();
    cairo_set_source_rgb(context, ink.red, ink.green, ink.blue);
    cairo_move_to(context, left(box), box.y);
    pango_cairo_show_layout(context, parts_->layout.get());
    pango_layout_set_alignment(parts_->layout.get(), PANGO_ALIGN_LEFT);
}

void Canvas::nextPage() {
    cairo_show_page(parts_->context.get());
}

std::string Canvas::finished() {
    cairo_surface_finish(parts_->surface.get());
    const cairo_status_t status = cairo_surface_status(parts_->surface.get());
    if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
    return std::move(parts_->bytes);
}

}  // namespace quode::printing
