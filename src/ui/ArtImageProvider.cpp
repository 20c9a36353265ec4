// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ArtImageProvider.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace uke {

QImage ArtImageProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    QString stem = id;
    if (stem.endsWith(QLatin1String(".png")))
        stem.chop(4);
    const QString file = QStringLiteral(":/images/") + stem + QStringLiteral(".svg");
    QSvgRenderer renderer;
    if (!QFile::exists(file) || !renderer.load(file)) {
        // A name the resources lack shows nothing, as an empty image view would.
        QImage blank(1, 1, QImage::Format_ARGB32_Premultiplied);
        blank.fill(Qt::transparent);
        if (size)
            *size = blank.size();
        return blank;
    }
    QSize target = renderer.defaultSize();
    if (requestedSize.width() > 0 && requestedSize.height() > 0)
        target = requestedSize;
    else if (requestedSize.width() > 0)
        target = QSize(requestedSize.width(), requestedSize.width() * target.height() / std::max(1, target.width()));
    else if (requestedSize.height() > 0)
        target = QSize(requestedSize.height() * target.width() / std::max(1, target.height()), requestedSize.height());
    QImage image(target, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    if (size)
        *size = image.size();
    return image;
}

} // namespace uke
