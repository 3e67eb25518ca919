#pragma once

// Shared fixtures of the overlay item tests: a zoomed offscreen view, rendering it into an image,
// pixel queries and scene mouse events.

#include <QCoreApplication>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace itemtest {

/// A scene shown through a view of 300 by 200 pixels at the given zoom, centred on the origin.
struct ViewFixture
{
    QGraphicsScene scene {-500, -500, 1000, 1000};
    QGraphicsView view {&scene};

    explicit ViewFixture(qreal zoom = 1.0)
    {
        view.setFrameShape(QFrame::NoFrame);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setRenderHint(QPainter::Antialiasing, false);
        view.resize(300, 200);
        view.setTransform(QTransform::fromScale(zoom, zoom));
        view.centerOn(0, 0);
    }

    QImage render()
    {
        QImage image(view.viewport()->size(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        view.render(&painter, QRectF(), view.viewport()->rect());
        return image;
    }

    QPoint origin() const { return view.mapFromScene(QPointF(0, 0)); }
};

/// The box around the pixels that match.
template <typename Match> QRect pixelBox(const QImage& image, Match match)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (match(image.pixel(x, y)))
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

inline bool sameRgb(QRgb a, QRgb b)
{
    return (a & 0xffffff) == (b & 0xffffff);
}

/// How many pixels of the row have the colour.
inline int countInRow(const QImage& image, int y, QRgb color)
{
    int count = 0;
    for (int x = 0; x < image.width(); ++x)
        count += sameRgb(image.pixel(x, y), color) ? 1 : 0;
    return count;
}

inline bool isYellow(QRgb p)
{
    return qRed(p) > 200 && qGreen(p) > 200 && qBlue(p) < 100;
}

inline void fillPress(QGraphicsSceneMouseEvent& event, const QPointF& scenePos,
    Qt::MouseButton button, Qt::MouseButtons buttons)
{
    event.setScenePos(scenePos);
    event.setScreenPos(scenePos.toPoint());
    event.setButtonDownScenePos(button, scenePos);
    event.setButton(button);
    event.setButtons(buttons);
}

/// Delivers a mouse event through the scene, as a view would; returns whether it was accepted.
inline bool sendMouse(QGraphicsScene& scene, QEvent::Type type, const QPointF& scenePos,
    Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QGraphicsSceneMouseEvent event(type);
    fillPress(event, scenePos, button, buttons);
    QCoreApplication::sendEvent(&scene, &event);
    return event.isAccepted();
}

inline QPainterPath rectPath(const QRectF& rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

inline QPainterPath linePath(const QPointF& from, const QPointF& to)
{
    QPainterPath path;
    path.moveTo(from);
    path.lineTo(to);
    return path;
}

} // namespace itemtest
