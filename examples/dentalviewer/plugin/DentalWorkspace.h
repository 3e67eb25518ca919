#pragma once

#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

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

    QString notation() const;
    // "FDI" or "UNIV"; anything else is refused with a warning.
    void setNotation(const QString& notation);

    // The measurements' geometry and text: the document's data. What the views show of it (label
    // positions, reslices, the numbering) lives in the ui state tree.
    QJsonObject saveDocument() const;
    bool loadDocument(const QJsonObject& document);

Q_SIGNALS:
    void notationChanged(const QString& notation);
    void currentViewerChanged(Viewer2D* viewer);

private:
    QList<QPointer<Viewer2D>> m_viewers;
    QPointer<Viewer2D> m_current;
};
