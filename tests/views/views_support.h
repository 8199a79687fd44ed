// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QColor>
#include <QImage>
#include <QWidget>
#include <string>
#include <vector>

#include "common/GlobalFuncs.h"
#include "support/fake_platform.h"
#include "views/View.h"

namespace quode::test {

/// The dark background of pictures of views.
inline const QColor panelColor(28, 28, 30);

/// Starts the shared services on a test device, in English and with 24 hours, with the bundle's texts.
class ViewsTest : public testing::Test {
  protected:
    ViewsTest();

    /// Loads the texts of a language, "tr", "en", "fr" or "de".
    void speak(const std::string& language);

    FakePlatform device;
    GlobalFuncs& globalFuncs;
};

/// The centre of a widget in its own coordinates.
QPoint middleOf(const QWidget& widget);

/// User input with the left mouse button, a finger or a key.
void click(QWidget& widget);
void pressAt(QWidget& widget, QPoint place);
void dragTo(QWidget& widget, QPoint place);
void releaseAt(QWidget& widget, QPoint place);
void pressKey(QWidget& widget, Qt::Key key);
void releaseKey(QWidget& widget, Qt::Key key);

/// The accessibility interface of the view with a name, in or below `root`. Fails the test and throws when there is none or
/// several have the name.
QAccessibleInterface& spokenAs(QWidget& root, const std::string& name);

/// The names of all exposed elements, in order.
std::vector<std::string> spokenNames(QWidget& root);

/// True when assistive technology gets changes; waits for its bus where the platform has one.
bool somethingListens();

/// A picture of a view on the panel's colour.
QImage pictureOf(QWidget& view, double pixelsPerPoint);

/// The difference of two pictures of the same size: the mean difference of a colour component, 0..255, over the pixels that
/// differ from the panel's colour in either.
double differenceOf(const QImage& a, const QImage& b);

}  // namespace quode::test
