// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "window/SchemePicture.h"

#include <QPainter>
#include <QPainterPath>

#include "common/GlobalFuncs.h"
#include "desktop/theme.h"
#include "views/Label.h"
#include "views/UIButtonX.h"
#include "views/UITimesView.h"

namespace quode::window {
namespace {

constexpr int rowWidth = 320, rowHeight = 40, rowsShown = 2;  // points, of the widget
constexpr int emptyLeft = 44, marginRight = 6;                // cut off from a row; added, for a bell reaches its edge
constexpr int bellOfAlarmOn = 9;                              // a shape of `UIButtonX`
constexpr double pictureScale = 0.45;                         // two beside each other fit a phone
constexpr double cornerRadius = 8.0;
constexpr int edge = 3;
constexpr QSize pictureSize(int((rowWidth - emptyLeft + marginRight) * pictureScale),
                            int(rowHeight* pictureScale* rowsShown));

/// The services' colours are those of a scheme while this lives: rows take them when they are made.
class OtherColors {
  public:
    explicit OtherColors(int scheme) : services_(GlobalFuncs::globalFuncs()), former_(present()) { use(scheme); }
    ~OtherColors() { use(former_); }
    OtherColors(const OtherColors&) = delete;
    OtherColors& operator=(const OtherColors&) = delete;

  private:
    int present() { return services_.getSettings().uiControlColorId; }
    void use(int scheme) {
        services_.getSettings().uiControlColorId = scheme;
        services_.updateUIColors();
    }

    GlobalFuncs& services_;
    int former_;
};

}  // namespace

SchemePicture::SchemePicture(int scheme, const QString& name, QWidget* parent)
    : QAbstractButton(parent), scheme_(scheme) {
    setCheckable(true);
    setAutoExclusive(true);
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
}

QSize SchemePicture::sizeHint() const {
    return pictureSize + QSize(2 * edge, 2 * edge) + QSize(8, 8);
}

void SchemePicture::setRows(const std::vector<Row>& rows) {
    const double pixels = devicePixelRatioF();
    const OtherColors colors(scheme_);
    picture_ = QPixmap(pictureSize * pixels);
    picture_.setDevicePixelRatio(pixels);
    picture_.fill(cardColor);
    QPainter painter(&picture_);
    painter.scale(pictureScale, pictureScale);
    for (int at = 0; at < std::min(rowsShown, int(rows.size())); ++at) {
        UITimesView row({0.0, 0.0, rowWidth, rowHeight});
        row.labelPrayName()->setText(rows[std::size_t(at)].name.toStdString());
        row.labelPrayTime()->setText(rows[std::size_t(at)].time.toStdString());
        row.buttonAlarmOnOff()->setSelected(at == 0);
        if (at == 0) row.buttonAlarmOnOff()->setButtonShape(bellOfAlarmOn);
        row.render(&painter, QPoint(-emptyLeft, at * rowHeight), {}, QWidget::DrawChildren);
    }
    update();
}

void SchemePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF area = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    if (isChecked() || hasFocus()) {
        painter.setPen(QPen(palette().color(isChecked() ? QPalette::Highlight : QPalette::WindowText), edge - 0.5,
                            hasFocus() ? Qt::DashLine : Qt::SolidLine));
        painter.drawRoundedRect(area, cornerRadius, cornerRadius);
    }
    const QRectF inner = area.adjusted(edge + 2, edge + 2, -edge - 2, -edge - 2);
    QPainterPath outline;
    outline.addRoundedRect(inner, cornerRadius - 3, cornerRadius - 3);
    painter.setClipPath(outline);
    painter.fillRect(inner, cardColor);
    painter.drawPixmap(inner.toRect(), picture_);
}

}  // namespace quode::window
