#pragma once
// Finding the views of a running window and touching them as a player would.
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace uke::test {

// Searched through the visual tree: items made by repeaters and views have no
// QObject parent, and the root item is not the content item's QObject child.
inline QQuickItem* findItem(QQuickItem* under, QLatin1String name) {
    if (!under)
        return nullptr;
    for (QQuickItem* child : under->childItems()) {
        if (child->objectName() == name)
            return child;
        if (QQuickItem* found = findItem(child, name))
            return found;
    }
    return nullptr;
}

inline QQuickItem* findItem(QQuickWindow* window, const char* name) {
    return window ? findItem(window->contentItem(), QLatin1String(name)) : nullptr;
}

// A tap in the middle of a view, delivered through the window like a real one.
inline void tapItem(QQuickWindow* window, QQuickItem* target) {
    const QPointF at = target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, at.toPoint());
}

} // namespace uke::test
