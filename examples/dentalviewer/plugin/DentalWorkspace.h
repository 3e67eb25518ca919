#pragma once

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <utility>

class Viewer2D;

// What the dental solution's views and tools share: the viewers, the one that is current, the
// pixel spacing and the tooth notation. Owned by the plug-in; viewers are borrowed.
class DentalWorkspace : public QObject
{
    Q_OBJECT

public:
    static constexpr double PIXEL_SPACING_MM = 0.1;

    DentalWorkspace();
    ~DentalWorkspace() override;

    void addViewer(Viewer2D* viewer);
    Viewer2D* viewer(const QString& id) const;
    QList<Viewer2D*> viewers() const;

    // The viewer of the view that runs; null when the current view has no 2-D viewer.
    Viewer2D* currentViewer() const { return m_current; }
    void setCurrentViewer(Viewer2D* viewer);

    // Positions along the arch (0..1) of the cross-section viewers, by viewer id; a viewer's
    // reslice is part of the document so that it comes back at the next start.
    using ResliceAccess = std::pair<std::function<double()>, std::function<void(double)>>;
    void addReslice(const QString& viewerId, ResliceAccess access);

    QString notation() const;
    void setNotation(const QString& notation);

    QJsonObject saveDocument() const;
    bool loadDocument(const QJsonObject& document);

Q_SIGNALS:
    void notationChanged(const QString& notation);
    void currentViewerChanged(Viewer2D* viewer);

private:
    QList<QPointer<Viewer2D>> m_viewers;
    QPointer<Viewer2D> m_current;
    QMap<QString, ResliceAccess> m_reslices;
};
