#pragma once

#include <guicore/graphics/items/CustomGraphicsItem.h>

#include <QPainterPathStroker>

/// A thick line drawn as the filled outline of its stroke. Zoom-agnostic, the stroke width is in
/// screen pixels.
class GUICORE_EXPORT CustomGraphicsStrokerOpaquePathItem : public CustomGraphicsItem
{
    Q_OBJECT

public:
    /// A non-null parent item owns the item.
    explicit CustomGraphicsStrokerOpaquePathItem(
        const QString& name = QString(), QGraphicsItem* parent = nullptr);

    /// The centre line whose stroke is drawn. Stored only; used at the next paint.
    void setStrokerPath(const QPainterPath& path) { strokerPath = path; }
    void setStrokerWidth(int width) { strokerWidth = width; }
    void setCapStyle(Qt::PenCapStyle style) { capStyle = style; }
    void setJointStyle(Qt::PenJoinStyle style) { joinStyle = style; }
    const QPainterPath& getStrokerPath() const { return strokerPath; }
    int getStrokerWidth() const { return strokerWidth; }

protected:
    void paintScaled(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;
    void paintScaleAgnostic(
        QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    void paintStroke(QPainter* painter, double scale);

    QPainterPath strokerPath;
    QPainterPathStroker stroker;
    int strokerWidth = 1;
    Qt::PenCapStyle capStyle = Qt::RoundCap;
    Qt::PenJoinStyle joinStyle = Qt::RoundJoin;
};
