#include "Viewer2D.h"

#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsLineSetItem.h>
#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsTextItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>
#include <guicore/style/StyleManager.h>

#include <QDebug>
#include <QEvent>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QLineF>
#include <QMouseEvent>
#include <QPen>
#include <QPixmap>
#include <QScrollBar>
#include <QTimer>
#include <QUuid>
#include <cmath>

namespace {

QColor styleColor(const char* id, const QColor& fallback)
{
    if (!StyleManager::hasManager())
        return fallback;
    const QColor color
        = StyleManager::manager().getOptionalColor(QLatin1Char('@') + QString::fromLatin1(id));
    return color.isValid() ? color : fallback;
}

QList<QLineF> polyline(const QList<QPointF>& points, bool closed)
{
    QList<QLineF> lines;
    for (int i = 1; i < points.size(); ++i)
        lines.append(QLineF(points[i - 1], points[i]));
    if (closed && points.size() > 2)
        lines.append(QLineF(points.last(), points.first()));
    return lines;
}

// One wheel step zooms by this factor; the zoom stays within these multiples of the fitted scale.
constexpr double ZOOM_STEP = 1.25;
constexpr double MIN_ZOOM = 0.25;
constexpr double MAX_ZOOM = 20.0;

// The line width of measurements, from the style; the default style has one.
double measurementLineWidth()
{
    const double width = StyleManager::hasManager()
        ? StyleManager::manager().getSize(QStringLiteral("@MEASUREMENT_LINE_WIDTH"))
        : 0.0;
    return width > 0.0 ? width : 2.0;
}

// The view's scroll area reaches an image's size beyond each edge, so that a zoomed-in image can
// be panned until its border reaches the middle and a zoom about a point near the edge keeps
// that point under the cursor.
QRectF panningArea(const QRectF& image)
{
    return image.adjusted(-image.width(), -image.height(), image.width(), image.height());
}

double polygonArea(const QList<QPointF>& points)
{
    double twice = 0.0;
    for (int i = 0; i < points.size(); ++i) {
        const QPointF& a = points[i];
        const QPointF& b = points[(i + 1) % points.size()];
        twice += a.x() * b.y() - b.x() * a.y();
    }
    return std::abs(twice) / 2.0;
}

} // namespace

Viewer2D::Viewer2D(const QString& id, double pixelSpacing, QObject* parent)
    : QObject(parent)
    , m_id(id)
    , m_pixelSpacing(pixelSpacing)
    , m_scene(new GraphicsSceneExtra(this))
{
    m_scene->setViewerTag(id);
    // A press anywhere but on a note being edited ends its editing.
    connect(
        m_scene, &GraphicsSceneExtra::mousePressed, this, [this](QGraphicsSceneMouseEvent* event) {
            const QPointF at = event->scenePos();
            endTextEditing(&at);
        });
    m_scene->setBackgroundBrush(styleColor("VIEWER_BACKGROUND_COLOR", Qt::black));
    m_image = new CustomGraphicsPixmapItem(id + QStringLiteral("_image"));
    m_image->setZValue(-100);
    // The image is a backdrop. The scene offers a press to pixmap items before line draggers, and
    // a pixmap item takes every left press, so an enabled image would leave the draggers drawn
    // over it (a cross-section's cross) nothing to grab. Disabled, it still paints.
    m_image->setEnabled(false);
    m_scene->addItem(m_image);
}

Viewer2D::~Viewer2D()
{
    qDeleteAll(m_measurements);
}

GraphicsViewExtra* Viewer2D::view()
{
    if (!m_view) {
        m_view = new GraphicsViewExtra(GraphicsViewExtra::OnScreen, m_scene);
        m_view->setObjectName(m_id);
        m_view->setRenderHint(QPainter::Antialiasing);
        m_view->setMinimumSize(320, 240);
        m_view->setSceneRect(panningArea(imageRect()));
        // The viewport is resized after the view's layout, so its size is final in the filter.
        m_viewport = m_view->viewport();
        m_view->viewport()->installEventFilter(this);
        // The wheel zooms. A wheel turn the scene's items leave alone would otherwise go on to
        // the hidden scroll bars and scroll the image after the zoom.
        m_view->horizontalScrollBar()->installEventFilter(this);
        m_view->verticalScrollBar()->installEventFilter(this);
        connect(m_scene, &GraphicsSceneExtra::mouseScrolled, this,
            [this](QPointF at, int delta, Qt::Orientation orientation) {
                if (orientation == Qt::Vertical)
                    zoomAt(at, delta);
            });
        // Escape ends the editing of a text annotation.
        connect(m_view, &GraphicsViewExtra::keyPressed, this, [this](QKeyEvent* event) {
            if (event->key() == Qt::Key_Escape)
                endTextEditing();
        });
    }
    return m_view;
}

QRectF Viewer2D::visibleBox() const
{
    return m_view->mapToScene(m_view->viewport()->rect()).boundingRect();
}

void Viewer2D::zoomAt(const QPointF& scenePos, int delta)
{
    if (!m_view || delta == 0 || !std::isfinite(scenePos.x()) || !std::isfinite(scenePos.y()))
        return;
    const QRectF image = imageRect();
    const QSizeF viewport = m_view->viewport()->size();
    if (image.isEmpty() || viewport.isEmpty())
        return;
    const double fitted
        = std::min(viewport.width() / image.width(), viewport.height() / image.height());
    const double scale = m_view->transform().m11();
    const double wanted
        = qBound(fitted * MIN_ZOOM, scale * std::pow(ZOOM_STEP, delta / 120.0), fitted * MAX_ZOOM);
    if (qFuzzyCompare(wanted, scale))
        return;
    const QPoint anchor = m_view->mapFromScene(scenePos);
    m_view->scale(wanted / scale, wanted / scale);
    // Scrolled back so that the point under the cursor before the zoom is under it again.
    panBy((m_view->mapToScene(anchor) - scenePos) * wanted);
}

void Viewer2D::panBy(const QPointF& pixels)
{
    if (!m_view)
        return;
    QScrollBar* horizontal = m_view->horizontalScrollBar();
    QScrollBar* vertical = m_view->verticalScrollBar();
    horizontal->setValue(horizontal->value() - int(std::lround(pixels.x())));
    vertical->setValue(vertical->value() - int(std::lround(pixels.y())));
    m_pendingZoomBox = visibleBox();
}

void Viewer2D::endTextEditing(const QPointF* except)
{
    for (Measurement* measurement : std::as_const(m_measurements)) {
        CustomGraphicsTextItem* item = measurement->textItem;
        if (!item || !item->isEditing())
            continue;
        if (except && item->mapToScene(item->shape()).contains(*except))
            continue;
        item->setEditing(false);
    }
}

bool Viewer2D::eventFilter(QObject* watched, QEvent* event)
{
    if (m_view && event->type() == QEvent::Wheel
        && (watched == m_view->horizontalScrollBar() || watched == m_view->verticalScrollBar()))
        return true;
    const QEvent::Type type = event->type();
    if (m_view && watched == m_viewport
        && (type == QEvent::MouseButtonPress || type == QEvent::MouseMove
            || type == QEvent::MouseButtonRelease)) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        switch (type) {
        case QEvent::MouseButtonPress:
            // Panning comes before the scene: a running tool never sees these presses.
            if (!m_panning
                && (mouse->button() == Qt::MiddleButton
                    || (mouse->button() == Qt::LeftButton
                        && mouse->modifiers().testFlag(Qt::ControlModifier)))) {
                m_panning = true;
                m_panButton = mouse->button();
                m_panFrom = mouse->position();
                m_view->viewport()->setCursor(Qt::ClosedHandCursor);
                return true;
            }
            break;
        case QEvent::MouseMove:
            if (m_panning) {
                panBy(mouse->position() - m_panFrom);
                m_panFrom = mouse->position();
                return true;
            }
            break;
        case QEvent::MouseButtonRelease:
            if (m_panning && mouse->button() == m_panButton) {
                m_panning = false;
                m_view->viewport()->unsetCursor();
                return true;
            }
            break;
        default:
            break;
        }
    }
    // A zoom box restored before the view had its size is applied at the first real resize.
    if (event->type() == QEvent::Resize && m_view && watched == m_viewport) {
        if (m_pendingZoomBox.isValid())
            m_view->fitInView(m_pendingZoomBox, Qt::KeepAspectRatio);
        else
            m_view->fitInView(imageRect(), Qt::KeepAspectRatio);
    }
    return QObject::eventFilter(watched, event);
}

void Viewer2D::setImage(const QImage& image)
{
    m_image->setPixmap(QPixmap::fromImage(image));
    m_scene->setSceneRect(imageRect());
    if (m_view)
        m_view->setSceneRect(panningArea(imageRect()));
}

QRectF Viewer2D::imageRect() const
{
    return m_image->boundingRect();
}

QRectF Viewer2D::getZoomBox() const
{
    if (!m_view || !m_view->isVisible())
        return m_pendingZoomBox.isValid() ? m_pendingZoomBox : imageRect();
    return visibleBox();
}

void Viewer2D::setZoomBox(const QRectF& box)
{
    if (!box.isValid())
        return;
    m_pendingZoomBox = box;
    if (m_view)
        m_view->fitInView(box, Qt::KeepAspectRatio);
}

void Viewer2D::resetView()
{
    m_pendingZoomBox = QRectF();
    if (m_view)
        m_view->fitInView(imageRect(), Qt::KeepAspectRatio);
}

QString Viewer2D::measurementText(const Measurement& measurement) const
{
    if (measurement.kind == QLatin1String("length") && measurement.points.size() == 2) {
        const double mm
            = QLineF(measurement.points[0], measurement.points[1]).length() * m_pixelSpacing;
        return tr("%1 mm").arg(mm, 0, 'f', 1);
    }
    if (measurement.kind == QLatin1String("area") && measurement.points.size() > 2) {
        const double mm2 = polygonArea(measurement.points) * m_pixelSpacing * m_pixelSpacing;
        return tr("%1 mm²").arg(mm2, 0, 'f', 1);
    }
    return measurement.text;
}

Measurement* Viewer2D::addMeasurement(
    const QString& kind, const QList<QPointF>& points, const QString& text, const QString& id)
{
    auto* measurement = new Measurement;
    measurement->id = id.isEmpty() ? QUuid::createUuid().toString(QUuid::WithoutBraces) : id;
    measurement->kind = kind;
    measurement->points = points;
    measurement->text = text;
    measurement->labelOffset = QPointF(12, -24);
    const QString name = m_id + QStringLiteral("_") + kind;

    if (kind == QLatin1String("text")) {
        measurement->textItem = new CustomGraphicsTextItem();
        measurement->textItem->setObjectName(name);
        measurement->textItem->setDefaultTextColor(
            styleColor("MEASUREMENT_LABEL_TEXT_COLOR", Qt::yellow));
        measurement->textItem->setPlainText(text);
        m_scene->addItem(measurement->textItem);
        connect(measurement->textItem, &CustomGraphicsTextItem::textChanged, this,
            [this, measurement](const QString& newText) {
                measurement->text = newText;
                Q_EMIT measurementsChanged();
            });
        // A click on a note opens it for editing again; the item leaves that to its owner. On
        // the next turn of the event loop, after the press: the scene hands key presses to its
        // text items itself, so the item must not keep the focus the press may give it.
        CustomGraphicsTextItem* item = measurement->textItem;
        connect(item, &CustomGraphicsTextItem::leftClicked, item, [item] {
            QTimer::singleShot(0, item, [item] {
                item->setEditing(true);
                item->clearFocus();
            });
        });
    } else {
        measurement->lines = new CustomGraphicsLineSetItem(name);
        QPen pen(styleColor("MEASUREMENT_LINE_COLOR", Qt::yellow), measurementLineWidth());
        pen.setCosmetic(true);
        measurement->lines->setPen(pen);
        QColor fill = styleColor("MEASUREMENT_LINE_COLOR", Qt::yellow);
        fill.setAlpha(60);
        measurement->lines->setFillColor(fill);
        m_scene->addItem(measurement->lines);
        measurement->label = new CustomGraphicsLabelItem(name + QStringLiteral("_label"));
        measurement->label->setTextColor(styleColor("MEASUREMENT_LABEL_TEXT_COLOR", Qt::yellow));
        measurement->label->setTextOutlineColor(
            styleColor("MEASUREMENT_LABEL_OUTLINE_COLOR", Qt::black));
        measurement->label->setBackgroundBrush(
            styleColor("MEASUREMENT_LABEL_BACKGROUND_COLOR", QColor(0, 0, 0, 150)));
        measurement->label->fillBackground(true);
        m_scene->addItem(measurement->label);
        // A label reports its drag and never moves itself: the viewer moves it by the mouse's
        // travel and keeps the new offset, which the ui state tree records. The scene hands
        // moves to every overlay item, so only the label that took the press follows them.
        connect(measurement->label, &CustomGraphicsItem::leftClicked, this,
            [this, measurement](QGraphicsSceneMouseEvent* event) {
                m_draggedLabel = measurement;
                m_dragStart = event->scenePos();
                m_offsetAtDragStart = measurement->labelOffset;
            });
        connect(measurement->label, &CustomGraphicsItem::mouseMoved, this,
            [this, measurement](QGraphicsSceneMouseEvent* event) {
                if (m_draggedLabel == measurement && event->buttons().testFlag(Qt::LeftButton))
                    setLabelOffset(
                        measurement, m_offsetAtDragStart + event->scenePos() - m_dragStart);
            });
        connect(measurement->label, &CustomGraphicsItem::mouseReleased, this,
            [this, measurement](QGraphicsSceneMouseEvent*) {
                if (m_draggedLabel == measurement)
                    m_draggedLabel = nullptr;
            });
    }
    m_measurements.append(measurement);
    updateMeasurement(measurement);
    return measurement;
}

void Viewer2D::updateMeasurement(Measurement* measurement)
{
    if (!measurement || measurement->points.isEmpty())
        return;
    if (measurement->textItem) {
        measurement->textItem->setPos(measurement->points.first());
    } else {
        const bool closed = measurement->kind == QLatin1String("area");
        if (closed && measurement->points.size() > 2)
            measurement->lines->setClosedLineSet(polyline(measurement->points, true));
        else
            measurement->lines->setLineSet(polyline(measurement->points, false));
        measurement->label->setText(measurementText(*measurement));
        measurement->label->setPos(measurement->points.last() + measurement->labelOffset);
    }
    Q_EMIT measurementsChanged();
}

void Viewer2D::removeMeasurement(Measurement* measurement)
{
    if (!m_measurements.removeOne(measurement))
        return;
    if (m_draggedLabel == measurement)
        m_draggedLabel = nullptr;
    delete measurement->lines;
    delete measurement->label;
    delete measurement->textItem;
    delete measurement;
    Q_EMIT measurementsChanged();
}

void Viewer2D::clearMeasurements()
{
    while (!m_measurements.isEmpty())
        removeMeasurement(m_measurements.last());
}

void Viewer2D::setLabelOffset(Measurement* measurement, const QPointF& offset)
{
    if (!measurement || !m_measurements.contains(measurement))
        return;
    if (!std::isfinite(offset.x()) || !std::isfinite(offset.y())) {
        qWarning() << "Viewer2D : label offset ignored, not finite:" << offset;
        return;
    }
    if (measurement->labelOffset == offset)
        return;
    measurement->labelOffset = offset;
    updateMeasurement(measurement);
}

Measurement* Viewer2D::findMeasurement(const QString& id) const
{
    for (Measurement* measurement : m_measurements) {
        if (measurement->id == id)
            return measurement;
    }
    return nullptr;
}
