// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The parts that pages are made of.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QToolButton>

class QVBoxLayout;

namespace quode::window {

/// A rounded area for what belongs together, in the colour of lists.
class Card : public QFrame {
  public:
    explicit Card(QWidget* parent);

    QVBoxLayout* column() { return column_; }

    /// A line across, between two rows.
    void addLine();

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    QVBoxLayout* column_;
};

/// A switch that is on or off; a check box to assistive technology.
class Switch : public QAbstractButton {
  public:
    Switch(const QString& name, QWidget* parent);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent*) override;
};

/// Aligns a label to the side where the lines of the layout begin, whatever its language.
void alignToLayout(QLabel& label);

/// A label whose lines break.
QLabel* newLabel(const QString& text, QWidget* parent);
/// The same in bold.
QLabel* newHeading(const QString& text, QWidget* parent);
/// The same in the quieter colour of remarks.
QLabel* newRemark(const QString& text, QWidget* parent);

/// A small button with a sign on it, and the name of what it does.
QToolButton* newSignButton(const QString& sign, const QString& name, QWidget* parent);

/// A box to choose from that may be narrower than its longest entry.
QComboBox* newChoice(const QString& name, QWidget* parent);

/// Marks the entry with these data; the first one where there is none.
void choose(QComboBox& box, const QVariant& data);

/// Removes what a layout holds, at once.
void removeAll(QLayout& layout);

/// Shows a state that was read, without the signal of a change. What somebody switches is heard by `toggled`, which assistive
/// technology gives too; `clicked` is the mouse's and the keyboard's alone.
void showChecked(QAbstractButton& button, bool isOn);

}  // namespace quode::window
