// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QPixmap>
#include <vector>

namespace quode::window {

/// A colour scheme to choose, drawn with the times of today in its colours.
class SchemePicture : public QAbstractButton {
    Q_OBJECT

  public:
    struct Row {
        QString name, time;
    };

    SchemePicture(int scheme, const QString& name, QWidget* parent);

    void setRows(const std::vector<Row>& rows);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    int scheme_;
    QPixmap picture_;
};

}  // namespace quode::window
