// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/fonts.h"

#include <QStringList>

namespace quode {

QFont fontNamed(const std::string& name, int pixelSize) {
    QFont font;
    font.setFamilies({QString::fromStdString(name), "DejaVu Sans"});
    font.setPixelSize(pixelSize);
    return font;
}

}  // namespace quode
