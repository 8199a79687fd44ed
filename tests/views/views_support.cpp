// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views_support.h"
#include "support/fixtures.h"
#include "texts/translation.h"

#include <QAccessibleActionInterface>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace quode::test {
namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), {}};
}

void sendMouse(QWidget& widget, QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons buttons) {
    QMouseEvent event(type, place, widget.mapToGlobal(place), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void sendKey(QWidget& widget, QEvent::Type type, Qt::Key key) {
    QKeyEvent event(type, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

// What is hidden is not told of; a root that is not on a screen counts as shown.
void collect(QAccessibleInterface* element, QWidget& root, std::vector<QAccessibleInterface*>& elements) {
    const auto* widget = qobject_cast<QWidget*>(element->object());
    if (widget != nullptr && widget != &root && !widget->isVisibleTo(&root)) return;
    elements.push_back(element);
    for (int i = 0; i < element->childCount(); ++i) collect(element->child(i), root, elements);
}

std::vector<QAccessibleInterface*> elementsOf(QWidget& root) {
    std::vector<QAccessibleInterface*> elements;
    collect(QAccessible::queryAccessibleInterface(&root), root, elements);
    return elements;
}

std::string nameOf(QAccessibleInterface& element) {
    return element.text(QAccessible::Name).toStdString();
}

}  // namespace

ViewsTest::ViewsTest() : globalFuncs(GlobalFuncs::startUp(device.platform())) {
    globalFuncs.setApplicationBundlePath("/bundle");
    for (const int id : {languageTurkish, languageEnglish, languageFrench, languageGerman}) {
        const std::string file(languageFile(id));
        device.files->contents["/bundle/" + file] = contentOf(test::sourceFile("resources/" + std::string(file)));
    }
    speak("en");
}

void ViewsTest::speak(const std::string& language) {
    ASSERT_TRUE(globalFuncs.setLanguage(language));
    ASSERT_FALSE(globalFuncs.loadLanguageFile());
    useLanguage(language, QUODE_BUNDLE);
}

QPoint middleOf(const QWidget& widget) {
    return widget.rect().center();
}

void click(QWidget& widget) {
    pressAt(widget, middleOf(widget));
    releaseAt(widget, middleOf(widget));
}

void pressAt(QWidget& widget, QPoint place) {
    sendMouse(widget, QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
}

void dragTo(QWidget& widget, QPoint place) {
    sendMouse(widget, QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton);
}

void releaseAt(QWidget& widget, QPoint place) {
    sendMouse(widget, QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
}

void pressKey(QWidget& widget, Qt::Key key) {
    sendKey(widget, QEvent::KeyPress, key);
}

void releaseKey(QWidget& widget, Qt::Key key) {
    sendKey(widget, QEvent::KeyRelease, key);
}

QAccessibleInterface& spokenAs(QWidget& root, const std::string& name) {
    QAccessibleInterface* found = nullptr;
    for (QAccessibleInterface* element : elementsOf(root)) {
        if (nameOf(*element) != name) continue;
        if (found != nullptr) throw std::runtime_error("several elements are called \"" + name + "\"");
        found = element;
    }
    if (found == nullptr) throw std::runtime_error("nothing is called \"" + name + "\"");
    return *found;
}

std::vector<std::string> spokenNames(QWidget& root) {
    std::vector<std::string> names;
    for (QAccessibleInterface* element : elementsOf(root)) names.push_back(nameOf(*element));
    return names;
}

bool somethingListens() {
    return QGuiApplication::platformName() != QLatin1String("offscreen") &&
           QTest::qWaitFor([] { return QAccessible::isActive(); }, 5000);
}

QImage pictureOf(QWidget& view, double pixelsPerPoint) {
    QImage image((QSizeF(view.size()) * pixelsPerPoint).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(pixelsPerPoint);
    image.fill(panelColor);
    QPainter painter(&image);
    view.render(&painter, {}, {}, QWidget::DrawChildren);
    return image;
}

double differenceOf(const QImage& a, const QImage& b) {
    double sum = 0.0;
    int drawn = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            if ((p & RGB_MASK) == (panelColor.rgb() & RGB_MASK) && (q & RGB_MASK) == (p & RGB_MASK)) continue;
            ++drawn;
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    }
    return drawn == 0 ? 0.0 : sum / (3.0 * drawn);
}

}  // namespace quode::test
