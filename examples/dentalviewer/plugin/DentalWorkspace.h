#pragma once

#include "DentalSolutionApi.h"
#include "MeasurementData.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <memory>
#include <optional>

class QUndoStack;
class Viewer2D;

// What the dental solution's views and tools share: the document (the measurements and notes),
// its undo history and the selection, the viewers and the one that is current, the tooth
// numbering, and the way to tell the person something. Owned by the plug-in; viewers are
// borrowed.
//
// Every change of the document goes through the undo stack, so that the person can take it back
// and the host saves it soon after: add, move, edit and delete are each one command. A note being
// typed is the one exception while it lasts: its text enters the document at once (setLive), so
// that it is saved, and the whole editing becomes one command when it ends (recordEdit).
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
    Viewer2D* currentViewer() const;
    void setCurrentViewer(Viewer2D* viewer);

    QString notation() const;
    // "FDI" or "UNIV"; anything else is refused with a warning.
    void setNotation(const QString& notation);

    // The document, in the order the measurements were made.
    const QList<MeasurementData>& measurements() const { return m_document; }
    const MeasurementData* measurement(const QString& id) const;

    // Undoable edits; each is one step of the undo history.
    void addMeasurement(const MeasurementData& data, const QString& what);
    void removeMeasurement(const QString& id);
    // One step from `before` to `after` of one measurement; a missing side means it is added or
    // removed. The document may already be at `after` (a drag shown as it went): nothing moves
    // again then.
    void recordEdit(const std::optional<MeasurementData>& before,
        const std::optional<MeasurementData>& after, const QString& what);
    // The text of a note being typed, into the document without an undo step.
    void setLive(const MeasurementData& data);
    void dropLive(const QString& id);
    // A label place restored from the saved view state; not an edit of the person's.
    void restoreLabelOffset(const QString& id, const QPointF& offset);
    // Borrowed; the workspace owns the stack.
    QUndoStack* undoStack() const { return m_undo.get(); }

    // The measurement the person selected; empty for none.
    QString selectedMeasurement() const { return m_selected; }
    void selectMeasurement(const QString& id);

    // The document's JSON; "count" comes first in the written file, so that even a file cut
    // short says how many measurements it held.
    QJsonObject saveDocument() const;
    // Replaces the document with what can be read of the file's bytes and clears the undo
    // history. A damaged file gives up what it still holds whole.
    DocumentLoad loadDocument(const QByteArray& bytes);

    // Tells the person something: a hint or result in the status bar (an empty text clears it),
    // or a problem that needs their attention.
    void showStatus(const QString& text, int timeoutMs = 0);
    void reportProblem(const QString& text);

    // The tooth chosen in the chart by the person; the cross-section follows it.
    void chooseTooth(int tooth);
    // A cross-section moved along the arch; the panoramic marks where it cuts.
    void moveCrossSection(const QString& viewId, double archPosition);

Q_SIGNALS:
    void notationChanged(const QString& notation);
    void currentViewerChanged(Viewer2D* viewer);
    void documentChanged();
    void selectionChanged(const QString& id);
    // What the views show changed (zoom, slice, numbering, tooth): the ui state is saved.
    void viewStateChanged();
    void statusMessage(const QString& text, int timeoutMs);
    void problemReported(const QString& text);
    void toothChosen(int tooth);
    // A cross-section moved along the arch (0 to 1); the panoramic marks where it cuts.
    void crossSectionMoved(const QString& viewId, double archPosition);

private:
    friend class MeasurementCommand;
    // Puts the measurement into the document as `data` says, or takes it out when `data` is
    // null; `index` is where a measurement put back goes.
    void put(const QString& id, const MeasurementData* data, int index = -1);
    bool isReadable(const MeasurementData& data) const;

    QList<QPointer<Viewer2D>> m_viewers;
    QPointer<Viewer2D> m_current;
    QList<MeasurementData> m_document;
    std::unique_ptr<QUndoStack> m_undo;
    QString m_selected;
};
