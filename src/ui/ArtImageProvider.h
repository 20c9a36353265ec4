// SPDX-FileCopyrightText: 2026 Morvane Labs
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QQuickImageProvider>

namespace uke {

// Serves images by the names the logic uses ("green64.png") from their SVG
// sources, drawn at the size the view asks for so they stay sharp at any scale.
class ArtImageProvider : public QQuickImageProvider {
public:
    ArtImageProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace uke
