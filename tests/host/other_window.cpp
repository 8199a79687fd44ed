// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Another program on the desktop: a plain window that the user can turn to.
#include <QGuiApplication>
#include <QRasterWindow>

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    QRasterWindow window;
    window.setTitle("Another program");
    window.setGeometry(20, 40, 200, 120);
    window.show();
    return QGuiApplication::exec();
}
