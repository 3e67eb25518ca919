#pragma once

#include <guicore/guicore_export.h>

#include <QGraphicsLineItem>
#include <QObject>

/// The wide, see-through pick line that lies under a visible line and gives it a larger hit
/// area. Its owner keeps its geometry in step with the visible line.
class GUICORE_EXPORT InvisibleLineDragger : public QObject, public QGraphicsLineItem
{
    Q_OBJECT

public:
    /// Does not take ownership of \a parent; the new item becomes its child item when given.
    explicit InvisibleLineDragger(QGraphicsItem* parent = nullptr);
    ~InvisibleLineDragger() override;

private:
    Q_DISABLE_COPY(InvisibleLineDragger)
};
