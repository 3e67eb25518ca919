#pragma once

#include "MeasurementData.h"

#include <QColor>
#include <QEvent>
#include <QImage>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

class CustomGraphicsEllipseItem;
class CustomGraphicsLabelItem;
class CustomGraphicsLineSetItem;
class CustomGraphicsPixmapItem;
class DentalWorkspace;
class GraphicsSceneExtra;
class GraphicsViewExtra;
class NoteItem;
class QKeyEvent;
class QMouseEvent;

// A 2-D viewer: an extended graphics view over an extended scene showing one image with the
// document's measurements over it. The workspace owns the document and tells the viewer what to
// draw; what the person does to a measurement here (select, drag, edit, delete) goes back to the
// workspace, which records it for undo. The view widget is owned by whoever takes it (the View);
// the scene by this object.
class Viewer2D : public QObject
{
    Q_OBJECT

public:
    Viewer2D(const QString& id, DentalWorkspace& workspace, QObject* parent = nullptr);
    ~Viewer2D() override;

    QString getId() const { return m_id; }
    // The scene; owned by the viewer.
    GraphicsSceneExtra* scene() const { return m_scene; }
    // The view widget, made on first call; owned by its Qt parent once the caller reparents it.
    GraphicsViewExtra* view();
    bool hasView() const { return m_view != nullptr; }
    double pixelSpacing() const;

    void setImage(const QImage& image);
    QRectF imageRect() const;
    bool isOnImage(const QPointF& scenePos) const;
    QPointF clampToImage(const QPointF& scenePos) const;

    QRectF getZoomBox() const;
    void setZoomBox(const QRectF& box);
    void resetView();
    // Zooms by whole wheel steps (120 a step, positive zooms in) keeping `scenePos` where it is
    // on screen. Within a range of the fitted scale; nothing without a view.
    void zoomAt(const QPointF& scenePos, int delta);
    // Moves what is shown by a distance in viewport pixels, as a hand drag does.
    void panBy(const QPointF& pixels);

    // The slice shown by a viewer that steps through slices; -1 for one that does not. Only the
    // measurements made on the slice shown are drawn.
    int slice() const { return m_slice; }
    void setSlice(int slice);
    // A line of text kept in the viewer's top left corner, whatever the zoom; empty hides it.
    void setCaption(const QString& text);

    // Draws the measurement as the document now has it, or removes it. Called by the workspace.
    void showMeasurement(const MeasurementData& data);
    void hideMeasurement(const QString& id);
    // Drawn highlighted, with its corners marked; empty for none.
    void setSelected(const QString& id);

    // A new, empty note at the point, edited at once. It enters the document with its first
    // character and leaves it again when it ends empty.
    void createNote(const QPointF& scenePos);
    // Edits a note of the document; with `selectAll` typing replaces its text.
    void editNote(const QString& id, bool selectAll);
    // Ends the editing of the note being edited, if any, and records it for undo.
    void endNoteEditing();
    bool isEditingNote() const { return m_editing != nullptr; }
    // What the status bar says while a note is typed.
    static QString noteHint();

    // What a running tool draws before it adds a measurement: the line or open outline through
    // `data`'s points with markers on the first `fixedPoints` of them, and its value.
    void setPreview(const MeasurementData& data, int fixedPoints);
    void clearPreview();

    // Takes the colours of the style again, after a change of palette.
    void restyle();

    // The measurement labels and viewport texts as drawn now, for checks: name, text, text colour
    // and box in viewport pixels.
    struct DrawnLabel
    {
        QString name;
        QString text;
        QColor color;
        QRectF box;
    };
    QList<DrawnLabel> drawnLabels() const;

Q_SIGNALS:
    // What the view shows changed: zoom, pan or size.
    void viewChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Shown;
    enum class Part { None, Body, Vertex, Label };
    struct Hit
    {
        Shown* shown = nullptr;
        Part part = Part::None;
        int vertex = -1;
    };
    // A press on a measurement with no tool running: a click selects (and opens a note), a drag
    // moves the label, a corner or the whole measurement.
    struct Gesture
    {
        QString id;
        Part part = Part::None;
        int vertex = -1;
        QPoint pressedAt;
        QPointF scenePressedAt;
        MeasurementData before;
        bool moved = false;
    };

    Shown* find(const QString& id) const;
    bool isVisible(const MeasurementData& data) const;
    void draw(Shown& shown);
    void drawLeader(Shown& shown);
    void removeShown(const QString& id);
    Hit hitTest(const QPointF& viewportPos) const;
    QRectF labelBox(const CustomGraphicsLabelItem* label) const;
    QRectF noteBox(const NoteItem* note) const;
    bool handleMouse(QEvent::Type type, QMouseEvent* mouse);
    void moveWithGesture(const QPointF& scenePos);
    void finishGesture();
    void showContextMenu(const QPoint& viewportPos, const QPoint& globalPos);
    bool handleKey(QEvent::Type type, QKeyEvent* key);
    void noteEdited(const QString& id, const QString& text);
    // Keeps the items that stay put on screen in place after a zoom, pan or resize, and the
    // leader lines joined to their labels, whose boxes have a constant size on screen.
    void viewTransformed();
    void placeOnScreen(CustomGraphicsLabelItem* label, const QPointF& boxTopLeft);
    void updateScaleBar();
    // Labels lay their text out again only when asked: after a change of the label font size.
    void relayoutLabels();
    QRectF visibleBox() const;

    QString m_id;
    DentalWorkspace& m_workspace;
    GraphicsSceneExtra* m_scene = nullptr;
    GraphicsViewExtra* m_view = nullptr;
    // Compared by identity only: the filter also sees the viewport's last events while it dies.
    const QObject* m_viewport = nullptr;
    CustomGraphicsPixmapItem* m_image = nullptr;
    std::vector<std::unique_ptr<Shown>> m_shown;
    QString m_selected;
    int m_slice = -1;
    QRectF m_pendingZoomBox;
    std::optional<Gesture> m_gesture;
    // The note being edited, and the document's version of it from before the editing (none for
    // a new note).
    Shown* m_editing = nullptr;
    std::optional<MeasurementData> m_noteBefore;
    // A pan with the middle button, or the left one with Control held, and where it last was.
    bool m_panning = false;
    Qt::MouseButton m_panButton = Qt::NoButton;
    QPointF m_panFrom;
    // Items drawn while a tool runs.
    CustomGraphicsLineSetItem* m_previewLines = nullptr;
    CustomGraphicsLabelItem* m_previewLabel = nullptr;
    QList<CustomGraphicsEllipseItem*> m_previewMarkers;
    // Items kept in place on screen.
    CustomGraphicsLabelItem* m_caption = nullptr;
    CustomGraphicsLineSetItem* m_scaleBarShadow = nullptr;
    CustomGraphicsLineSetItem* m_scaleBar = nullptr;
    CustomGraphicsLabelItem* m_scaleLabel = nullptr;
};
