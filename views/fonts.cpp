// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/fonts.h"

#include <QFontDatabase>
#include <QHash>
#include <QMutex>
#include <QStringList>

namespace quode {
namespace {

constexpr auto otherwise = "DejaVu Sans";

bool isInstalled(const QString& name) {
    static QMutex mutex;
    static QHash<QString, bool> known;  // Qt lists all fonts for each answer
    const QMutexLocker locker(&mutex);
    const auto found = known.constFind(name);
    return found != known.cend() ? *found : *known.insert(name, QFontDatabase::hasFamily(name));
}

}  // namespace

// Qt would sort all fonts of the device by their likeness to one that is missing, before it takes the next name.
QFont fontNamed(const std::string& name, int pixelSize) {
    const auto wanted = QString::fromStdString(name);
    QFont font;
    font.setFamilies(!isInstalled(wanted) && isInstalled(otherwise) ? QStringList{otherwise}
                                                                    : QStringList{wanted, otherwise});
    font.setPixelSize(pixelSize);
    return font;
}

}  // namespace quode
