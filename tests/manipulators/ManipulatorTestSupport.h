#pragma once

#include <QGraphicsItem>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QTest>

#include <memory>

// Counts the application's override cursors and leaves the stack as it found it.
inline int overrideCursorDepth()
{
    QList<QCursor> stack;
    while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
        stack.prepend(*cursor);
        QGuiApplication::restoreOverrideCursor();
    }
    for (const QCursor& cursor : std::as_const(stack))
        QGuiApplication::setOverrideCursor(cursor);
    return int(stack.size());
}

inline void clearOverrideCursors()
{
    while (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
}

// Children of the given type, in stacking order (lowest first).
template <typename T> QList<T*> childrenOfType(QGraphicsItem* parent)
{
    QList<T*> result;
    const QList<QGraphicsItem*> children = parent->childItems();
    for (QGraphicsItem* child : children) {
        if (auto* typed = dynamic_cast<T*>(child))
            result << typed;
    }
    return result;
}

template <typename T> T* childNamed(QGraphicsItem* parent, const QString& name)
{
    for (T* child : childrenOfType<T>(parent)) {
        if (child->objectName() == name)
            return child;
    }
    return nullptr;
}

// A view showing the whole scene rectangle at scale 1, so that viewport pixels map to whole
// scene units.
inline std::unique_ptr<QGraphicsView> showWholeScene(QGraphicsScene* scene)
{
    auto view = std::make_unique<QGraphicsView>(scene);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setFrameShape(QFrame::NoFrame);
    view->resize(scene->sceneRect().size().toSize());
    view->show();
    if (!QTest::qWaitForWindowExposed(view.get()))
        return nullptr;
    return view;
}
