// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// A window of Qt with a text and nothing else: what first_frame measures of the panel beyond it is the panel's own.
#include <QApplication>
#include <QLabel>

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    QLabel window("A window\nwith some lines\nof text");
    window.resize(340, 500);
    window.show();
    return QApplication::exec();
}
