#include "Viewer2D.h"

#include "DentalWorkspace.h"
#include "NoteItem.h"
#include "OverlayStyle.h"

#include <guicore/graphics/items/CustomGraphicsEllipseItem.h>
#include <guicore/graphics/items/CustomGraphicsLabelItem.h>
#include <guicore/graphics/items/CustomGraphicsLineSetItem.h>
#include <guicore/graphics/items/CustomGraphicsOutlineTextItem.h>
#include <guicore/graphics/items/CustomGraphicsPixmapItem.h>
#include <guicore/graphics/items/CustomGraphicsRectItem.h>
#include <guicore/graphics/scene/GraphicsSceneExtra.h>
#include <guicore/graphics/scene/GraphicsViewExtra.h>
#include <guicore/style/StyleManager.h>

#include <settings/SettingsManager.h>

#include <QContextMenuEvent>
#include <QDebug>
#include <QHash>
#include <QKeyEvent>
#include <QLineF>
#include <QMenu>
#include <QMouseEvent>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>
#include <QScrollBar>
#include <QTimer>
#include <QUuid>
#include <cmath>

using overlay::styleColor;

struct Viewer2D::Shown
{
    MeasurementData data;
    CustomGraphicsLineSetItem* lines = nullptr;
    CustomGraphicsLabelItem* label = nullptr;
    CustomGraphicsLineSetItem* leader = nullptr;
    NoteItem* note = nullptr;
    QList<CustomGraphicsEllipseItem*> handles;
};

namespace {

// One wheel step zooms by this factor; the zoom stays within these multiples of the fitted scale.
constexpr double ZOOM_STEP = 1.25;
constexpr double MIN_ZOOM = 0.25;
constexpr double MAX_ZOOM = 20.0;
// Screen distances, in pixels: how near a press must come to a corner or a line to take it, how
// far the mouse must travel before a press becomes a drag, how far a label may sit from its
// measurement before a leader line joins them, and the margin of texts kept on screen.
constexpr double GRAB_CORNER = 8.0;
constexpr double GRAB_LINE = 6.0;
constexpr int DRAG_START = 3;
constexpr double LEADER_GAP = 6.0;
constexpr double SCREEN_MARGIN = 10.0;
constexpr double ARROW_PAN = 48.0;

QList<QLineF> polyline(const QList<QPointF>& points, bool closed)
{
    QList<QLineF> lines;
    for (int i = 1; i < points.size(); ++i)
        lines.append(QLineF(points[i - 1], points[i]));
    if (closed && points.size() > 2)
        lines.append(QLineF(points.last(), points.first()));
    return lines;
}

// The line width of measurements, from the style; the default style has one.
double measurementLineWidth()
{
    const double width = StyleManager::hasManager()
        ? StyleManager::manager().getSize(QStringLiteral("@MEASUREMENT_LINE_WIDTH"))
        : 0.0;
    return width > 0.0 ? width : 2.0;
}

QPen cosmeticPen(const QColor& color, double width, Qt::PenStyle style = Qt::SolidLine)
{
    QPen pen(color, width, style);
    pen.setCosmetic(true);
    return pen;
}

// The view's scroll area reaches an image's size beyond each edge, so that a zoomed-in image can
// be panned until its border reaches the middle and a zoom about a point near the edge keeps
// that point under the cursor.
QRectF panningArea(const QRectF& image)
{
    return image.adjusted(-image.width(), -image.height(), image.width(), image.height());
}

CustomGraphicsEllipseItem* makeMarker(const QString& name, const QColor& color)
{
    auto* marker = new CustomGraphicsEllipseItem(4.0f, 4.0f, name);
    marker->setUseZoomAgnostic(true);
    marker->setPen(cosmeticPen(Qt::black, 1.0));
    marker->setBrush(color);
    marker->setZValue(20);
    return marker;
}

// Keys that a note being edited takes from the window's shortcuts: everything typed without a
// modifier, and the editing keys with Control. Function keys, Alt and the rest stay shortcuts.
bool noteTakes(const QKeyEvent* key)
{
    if (key->key() >= Qt::Key_F1 && key->key() <= Qt::Key_F35)
        return false;
    const Qt::KeyboardModifiers modifiers
        = key->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (modifiers == Qt::NoModifier)
        return true;
    static const QList<int> editingKeys {Qt::Key_Z, Qt::Key_Y, Qt::Key_A, Qt::Key_C, Qt::Key_X,
        Qt::Key_V, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End,
        Qt::Key_Backspace, Qt::Key_Delete};
    return modifiers == Qt::ControlModifier && editingKeys.contains(key->key());
}

} // namespace

Viewer2D::Viewer2D(const QString& id, DentalWorkspace& workspace, QObject* parent)
    : QObject(parent)
    , m_id(id)
    , m_workspace(workspace)
    , m_scene(new GraphicsSceneExtra(this))
{
    m_scene->setViewerTag(id);
    m_image = new CustomGraphicsPixmapItem(id + QStringLiteral("_image"));
    m_image->setZValue(-100);
    // The image is a backdrop. The scene offers a press to pixmap items before line draggers, and
    // a pixmap item takes every left press, so an enabled image would leave the draggers drawn
    // over it (a cross-section's cross) nothing to grab. Disabled, it still paints.
    m_image->setEnabled(false);
    m_scene->addItem(m_image);

    m_caption = new CustomGraphicsLabelItem(id + QStringLiteral("_caption"));
    m_caption->setZValue(30);
    m_caption->setVisible(false);
    m_scene->addItem(m_caption);
    m_scaleBarShadow = new CustomGraphicsLineSetItem(id + QStringLiteral("_scaleBarShadow"));
    m_scaleBar = new CustomGraphicsLineSetItem(id + QStringLiteral("_scaleBar"));
    m_scaleLabel = new CustomGraphicsLabelItem(id + QStringLiteral("_scale"));
    m_scaleBarShadow->setZValue(29);
    m_scaleBar->setZValue(30);
    m_scaleLabel->setZValue(30);
    for (QGraphicsItem* item : {static_cast<QGraphicsItem*>(m_scaleBarShadow),
             static_cast<QGraphicsItem*>(m_scaleBar), static_cast<QGraphicsItem*>(m_scaleLabel)}) {
        item->setEnabled(false);
        m_scene->addItem(item);
    }
    // Labels change their font size when the setting changes, and lay out their text again only
    // when asked. This connection is made before theirs, so the layout waits for the loop.
    connect(settings::SettingsManager::manager(),
        &settings::SettingsManager::userDefaultSettingChanged, this, [this](const QString& key) {
            if (key == QLatin1String("labelFontSize"))
                QTimer::singleShot(0, this, &Viewer2D::relayoutLabels);
        });
    restyle();
}

Viewer2D::~Viewer2D() = default;

GraphicsViewExtra* Viewer2D::view()
{
    if (!m_view) {
        m_view = new GraphicsViewExtra(GraphicsViewExtra::OnScreen, m_scene);
        m_view->setObjectName(m_id);
        m_view->setRenderHint(QPainter::Antialiasing);
        m_view->setMinimumSize(240, 180);
        m_view->setSceneRect(panningArea(imageRect()));
        m_view->setFocusPolicy(Qt::StrongFocus);
        // The viewport is resized after the view's layout, so its size is final in the filter.
        m_viewport = m_view->viewport();
        m_view->viewport()->installEventFilter(this);
        // Keys reach the view: a note being edited takes them before the scene offers them to
        // every item and the scroll area scrolls with the arrow keys.
        m_view->installEventFilter(this);
        // The wheel zooms. A wheel turn the scene's items leave alone would otherwise go on to
        // the hidden scroll bars and scroll the image after the zoom.
        m_view->horizontalScrollBar()->installEventFilter(this);
        m_view->verticalScrollBar()->installEventFilter(this);
        connect(m_view->horizontalScrollBar(), &QScrollBar::valueChanged, this,
            &Viewer2D::viewTransformed);
        connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &Viewer2D::viewTransformed);
        connect(m_scene, &GraphicsSceneExtra::mouseScrolled, this,
            [this](QPointF at, int delta, Qt::Orientation orientation) {
                if (orientation == Qt::Vertical)
                    zoomAt(at, delta);
            });
    }
    return m_view;
}

double Viewer2D::pixelSpacing() const
{
    return DentalWorkspace::PIXEL_SPACING_MM;
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
    viewTransformed();
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

bool Viewer2D::isOnImage(const QPointF& scenePos) const
{
    return imageRect().contains(scenePos);
}

QPointF Viewer2D::clampToImage(const QPointF& scenePos) const
{
    return geometry::nearestPointIn(imageRect(), scenePos);
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
    if (m_view) {
        m_view->fitInView(box, Qt::KeepAspectRatio);
        viewTransformed();
    }
}

void Viewer2D::resetView()
{
    m_pendingZoomBox = QRectF();
    if (m_view) {
        m_view->fitInView(imageRect(), Qt::KeepAspectRatio);
        viewTransformed();
    }
}

void Viewer2D::setSlice(int slice)
{
    if (slice == m_slice)
        return;
    m_slice = slice;
    // A measurement of another slice lies over other anatomy here: it is put away, and so is the
    // editing of a note on the slice left.
    if (m_editing && !isVisible(m_editing->data))
        endNoteEditing();
    for (const auto& shown : m_shown)
        draw(*shown);
}

void Viewer2D::setCaption(const QString& text)
{
    m_caption->setText(text);
    m_caption->setVisible(!text.isEmpty());
    viewTransformed();
}

Viewer2D::Shown* Viewer2D::find(const QString& id) const
{
    for (const auto& shown : m_shown) {
        if (shown->data.id == id)
            return shown.get();
    }
    return nullptr;
}

bool Viewer2D::isVisible(const MeasurementData& data) const
{
    return data.slice < 0 || data.slice == m_slice;
}

void Viewer2D::showMeasurement(const MeasurementData& data)
{
    Shown* shown = find(data.id);
    if (!shown) {
        m_shown.push_back(std::make_unique<Shown>());
        shown = m_shown.back().get();
        const QString name = m_id + QStringLiteral("_") + data.kind;
        if (data.isNote()) {
            shown->note = new NoteItem();
            shown->note->setObjectName(name);
            // Over the tooth numbers and the other measurements' labels: it is being read.
            shown->note->setZValue(8);
            m_scene->addItem(shown->note);
            const QString id = data.id;
            connect(shown->note, &NoteItem::edited, this,
                [this, id](const QString& text) { noteEdited(id, text); });
            connect(shown->note, &NoteItem::finished, this, &Viewer2D::endNoteEditing);
        } else {
            shown->lines = new CustomGraphicsLineSetItem(name);
            shown->leader = new CustomGraphicsLineSetItem(name + QStringLiteral("_leader"));
            shown->label = new CustomGraphicsLabelItem(name + QStringLiteral("_label"));
            shown->label->setZValue(6);
            shown->leader->setZValue(5);
            // The viewer does the hit testing of measurements itself, by screen distance.
            shown->lines->setEnabled(false);
            shown->leader->setEnabled(false);
            shown->label->setEnabled(false);
            m_scene->addItem(shown->lines);
            m_scene->addItem(shown->leader);
            m_scene->addItem(shown->label);
        }
    }
    // The text of a note being edited is the person's, not the document's: the document follows
    // the note then.
    const QString typed = shown->data.text;
    shown->data = data;
    if (shown == m_editing)
        shown->data.text = typed;
    draw(*shown);
}

void Viewer2D::hideMeasurement(const QString& id)
{
    if (m_editing && m_editing->data.id == id) {
        m_editing->note->endEditing();
        m_editing = nullptr;
        m_noteBefore.reset();
    }
    if (m_gesture && m_gesture->id == id)
        m_gesture.reset();
    removeShown(id);
}

void Viewer2D::removeShown(const QString& id)
{
    for (auto it = m_shown.begin(); it != m_shown.end(); ++it) {
        Shown& shown = **it;
        if (shown.data.id != id)
            continue;
        QList<QGraphicsItem*> items {shown.lines, shown.label, shown.leader};
        for (CustomGraphicsEllipseItem* handle : std::as_const(shown.handles))
            items.append(handle);
        for (QGraphicsItem* item : items)
            delete item;
        // A note may be removed from inside its own key handling: it goes once that returns.
        if (shown.note) {
            m_scene->removeItem(shown.note);
            shown.note->deleteLater();
        }
        m_shown.erase(it);
        return;
    }
}

void Viewer2D::setSelected(const QString& id)
{
    const QString previous = std::exchange(m_selected, id);
    for (const QString& changed : {previous, id}) {
        if (Shown* shown = find(changed))
            draw(*shown);
    }
}

void Viewer2D::draw(Shown& shown)
{
    const MeasurementData& data = shown.data;
    const bool visible = isVisible(data);
    const bool selected = data.id == m_selected;
    if (shown.note) {
        if (shown.note->toPlainText() != data.text && &shown != m_editing)
            shown.note->setPlainText(data.text);
        shown.note->setDefaultTextColor(overlay::readableText(
            styleColor("MEASUREMENT_LABEL_TEXT_COLOR", Qt::yellow), overlay::textBox()));
        shown.note->setBackdrop(overlay::textBox());
        shown.note->setPos(data.points.value(0));
        shown.note->setVisible(visible);
        // The stock frame of a selected text item marks the note.
        shown.note->setSelected(selected || &shown == m_editing);
        return;
    }
    const QColor lineColor = styleColor("MEASUREMENT_LINE_COLOR", Qt::yellow);
    shown.lines->setPen(cosmeticPen(lineColor, measurementLineWidth() * (selected ? 2.0 : 1.0)));
    QColor fill = lineColor;
    fill.setAlpha(selected ? 90 : 60);
    shown.lines->setFillColor(fill);
    if (data.kind == QLatin1String("area") && data.points.size() > 2)
        shown.lines->setClosedLineSet(polyline(data.points, true));
    else
        shown.lines->setLineSet(polyline(data.points, false));
    overlay::styleLabel(*shown.label, styleColor("MEASUREMENT_LABEL_TEXT_COLOR", Qt::yellow));
    shown.label->setBackgroundOutlinePen(
        selected ? cosmeticPen(styleColor("DRAGGER_COLOR", Qt::cyan), 2.0) : QPen(Qt::NoPen));
    shown.label->setText(data.valueText(pixelSpacing()));
    shown.label->setPos(data.points.value(data.points.size() - 1) + data.labelOffset);
    shown.lines->setVisible(visible);
    shown.label->setVisible(visible);
    // A selected measurement shows its corners, which can be dragged.
    while (shown.handles.size() > (selected ? data.points.size() : 0))
        delete shown.handles.takeLast();
    while (selected && shown.handles.size() < data.points.size()) {
        shown.handles.append(
            makeMarker(data.id + QStringLiteral("_handle"), styleColor("DRAGGER_COLOR", Qt::cyan)));
        shown.handles.last()->setEnabled(false);
        m_scene->addItem(shown.handles.last());
    }
    for (int i = 0; i < shown.handles.size(); ++i) {
        shown.handles[i]->setPos(data.points[i]);
        shown.handles[i]->setVisible(visible);
    }
    drawLeader(shown);
}

void Viewer2D::drawLeader(Shown& shown)
{
    if (!shown.leader)
        return;
    const QPointF anchor = shown.data.points.value(shown.data.points.size() - 1);
    const QRectF box = m_view ? labelBox(shown.label) : QRectF();
    const QTransform toScreen = m_view ? m_view->viewportTransform() : QTransform();
    const QPointF anchorOnScreen = toScreen.map(anchor);
    const QPointF nearest = geometry::nearestPointIn(box, anchorOnScreen);
    // A label moved away from its measurement is joined to it, so that it can be told apart from
    // its neighbours' labels.
    if (box.isEmpty() || QLineF(nearest, anchorOnScreen).length() < LEADER_GAP
        || !shown.label->isVisible()) {
        shown.leader->setVisible(false);
        return;
    }
    QColor color = styleColor("MEASUREMENT_LINE_COLOR", Qt::yellow);
    color.setAlpha(200);
    shown.leader->setPen(cosmeticPen(color, 1.0, Qt::DashLine));
    shown.leader->setLineSet({QLineF(anchor, toScreen.inverted().map(nearest))});
    shown.leader->setVisible(true);
}

QRectF Viewer2D::labelBox(const CustomGraphicsLabelItem* label) const
{
    if (!m_view || !label)
        return QRectF();
    return label->deviceTransform(m_view->viewportTransform())
        .mapRect(label->getBackground()->getRect().normalized());
}

QRectF Viewer2D::noteBox(const NoteItem* note) const
{
    if (!m_view || !note)
        return QRectF();
    return note->deviceTransform(m_view->viewportTransform()).mapRect(note->boundingRect());
}

void Viewer2D::createNote(const QPointF& scenePos)
{
    endNoteEditing();
    MeasurementData data;
    data.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    data.viewer = m_id;
    data.kind = QStringLiteral("text");
    data.points = {scenePos};
    data.slice = m_slice;
    showMeasurement(data);
    m_editing = find(data.id);
    m_noteBefore.reset();
    m_editing->note->beginEditing(true);
    draw(*m_editing);
    m_workspace.showStatus(noteHint());
}

void Viewer2D::editNote(const QString& id, bool selectAll)
{
    Shown* shown = find(id);
    if (!shown || !shown->note || shown == m_editing)
        return;
    endNoteEditing();
    const MeasurementData* inDocument = m_workspace.measurement(id);
    if (!inDocument)
        return;
    m_editing = shown;
    m_noteBefore = *inDocument;
    shown->note->beginEditing(selectAll);
    draw(*shown);
    m_workspace.showStatus(noteHint());
}

QString Viewer2D::noteHint()
{
    return tr("Typing a note: Return or Escape ends it, Shift+Return starts a new line.");
}

void Viewer2D::noteEdited(const QString& id, const QString& text)
{
    Shown* shown = find(id);
    if (!shown || shown != m_editing)
        return;
    shown->data.text = text;
    // In the document at once, so that it is saved while it is typed; undo takes the whole
    // editing as one step when it ends. A new note enters the document with its first character.
    if (!text.isEmpty() || m_noteBefore)
        m_workspace.setLive(shown->data);
    else if (m_workspace.measurement(id))
        m_workspace.dropLive(id);
}

void Viewer2D::endNoteEditing()
{
    if (!m_editing)
        return;
    Shown* shown = std::exchange(m_editing, nullptr);
    const std::optional<MeasurementData> before = std::exchange(m_noteBefore, std::nullopt);
    shown->note->endEditing();
    m_workspace.showStatus(QString());
    const MeasurementData after = shown->data;
    if (after.text.trimmed().isEmpty()) {
        // An emptied note is no note: a new one just goes, an old one is deleted (undoably).
        if (before) {
            m_workspace.recordEdit(before, std::nullopt, tr("Delete note"));
        } else {
            if (m_workspace.measurement(after.id))
                m_workspace.dropLive(after.id);
            removeShown(after.id);
        }
        return;
    }
    if (!before)
        m_workspace.recordEdit(std::nullopt, after, tr("Add note"));
    else if (before->text != after.text)
        m_workspace.recordEdit(before, after, tr("Edit note"));
    draw(*shown);
}

void Viewer2D::setPreview(const MeasurementData& data, int fixedPoints)
{
    if (!m_previewLines) {
        m_previewLines = new CustomGraphicsLineSetItem(m_id + QStringLiteral("_preview"));
        m_previewLines->setEnabled(false);
        m_previewLines->setZValue(15);
        m_scene->addItem(m_previewLines);
        m_previewLabel = new CustomGraphicsLabelItem(m_id + QStringLiteral("_previewValue"));
        m_previewLabel->setEnabled(false);
        m_previewLabel->setZValue(16);
        m_scene->addItem(m_previewLabel);
    }
    const QColor color = styleColor("MEASUREMENT_LINE_COLOR", Qt::yellow);
    m_previewLines->setPen(cosmeticPen(color, measurementLineWidth()));
    m_previewLines->setLineSet(polyline(data.points, false));
    m_previewLines->setVisible(true);
    while (m_previewMarkers.size() > fixedPoints)
        delete m_previewMarkers.takeLast();
    while (m_previewMarkers.size() < fixedPoints) {
        m_previewMarkers.append(makeMarker(m_id + QStringLiteral("_corner"), color));
        m_previewMarkers.last()->setEnabled(false);
        m_scene->addItem(m_previewMarkers.last());
    }
    for (int i = 0; i < fixedPoints; ++i)
        m_previewMarkers[i]->setPos(data.points.value(i));
    const QString value = data.valueText(pixelSpacing());
    overlay::styleLabel(*m_previewLabel, styleColor("MEASUREMENT_LABEL_TEXT_COLOR", Qt::yellow));
    m_previewLabel->setText(value);
    m_previewLabel->setPos(data.points.value(data.points.size() - 1) + data.labelOffset);
    m_previewLabel->setVisible(!value.isEmpty());
}

void Viewer2D::clearPreview()
{
    qDeleteAll(m_previewMarkers);
    m_previewMarkers.clear();
    if (m_previewLines) {
        m_previewLines->setVisible(false);
        m_previewLabel->setVisible(false);
    }
}

void Viewer2D::restyle()
{
    m_scene->setBackgroundBrush(styleColor("VIEWER_BACKGROUND_COLOR", Qt::black));
    overlay::styleLabel(*m_caption, Qt::white, 0.85);
    overlay::styleLabel(*m_scaleLabel, Qt::white, 0.85);
    m_scaleBarShadow->setPen(cosmeticPen(Qt::black, 5.0));
    m_scaleBar->setPen(cosmeticPen(Qt::white, 2.0));
    for (const auto& shown : m_shown)
        draw(*shown);
    viewTransformed();
}

void Viewer2D::relayoutLabels()
{
    for (QGraphicsItem* item : m_scene->items()) {
        if (auto* label = dynamic_cast<CustomGraphicsLabelItem*>(item))
            overlay::relayout(*label);
    }
    viewTransformed();
}

void Viewer2D::viewTransformed()
{
    if (!m_view)
        return;
    if (m_caption->isVisible())
        placeOnScreen(m_caption, QPointF(SCREEN_MARGIN, SCREEN_MARGIN));
    updateScaleBar();
    for (const auto& shown : m_shown)
        drawLeader(*shown);
    Q_EMIT viewChanged();
}

void Viewer2D::placeOnScreen(CustomGraphicsLabelItem* label, const QPointF& boxTopLeft)
{
    // The label's box is in screen pixels around its origin, whatever the zoom: its origin goes
    // where the box's corner lands on the given viewport point.
    const QRectF box = label->getBackground()->getRect().normalized();
    label->setPos(m_view->viewportTransform().inverted().map(boxTopLeft - box.topLeft()));
}

void Viewer2D::updateScaleBar()
{
    const double pixelsPerMm = m_view->transform().m11() / pixelSpacing();
    const QSizeF viewport = m_view->viewport()->size();
    // The longest round length that fits in about a fifth of the viewer, at most 120 pixels.
    static const double lengths[] = {100, 50, 20, 10, 5, 2, 1, 0.5};
    const double room = std::min(120.0, viewport.width() / 5.0);
    double mm = 0.0;
    for (double candidate : lengths) {
        if (candidate * pixelsPerMm <= room) {
            mm = candidate;
            break;
        }
    }
    const bool shown = mm > 0.0 && viewport.height() > 80;
    m_scaleBar->setVisible(shown);
    m_scaleBarShadow->setVisible(shown);
    m_scaleLabel->setVisible(shown);
    if (!shown)
        return;
    const QTransform toScene = m_view->viewportTransform().inverted();
    const QPointF left(SCREEN_MARGIN + 4, viewport.height() - SCREEN_MARGIN - 4);
    const QPointF right = left + QPointF(mm * pixelsPerMm, 0);
    const QPointF tick(0, -6);
    const QList<QLineF> bar {QLineF(toScene.map(left), toScene.map(right)),
        QLineF(toScene.map(left), toScene.map(left + tick)),
        QLineF(toScene.map(right), toScene.map(right + tick))};
    m_scaleBarShadow->setLineSet(bar);
    m_scaleBar->setLineSet(bar);
    m_scaleLabel->setText(tr("%1 mm").arg(mm));
    const QRectF box = m_scaleLabel->getBackground()->getRect().normalized();
    placeOnScreen(m_scaleLabel, QPointF(SCREEN_MARGIN, left.y() - 10 - box.height()));
}

Viewer2D::Hit Viewer2D::hitTest(const QPointF& at) const
{
    const QTransform toScreen = m_view->viewportTransform();
    // The measurement drawn last lies on top: it is found first.
    for (auto it = m_shown.rbegin(); it != m_shown.rend(); ++it) {
        Shown& shown = **it;
        if (!isVisible(shown.data))
            continue;
        if (shown.note) {
            if (noteBox(shown.note).contains(at))
                return {&shown, Part::Body, -1};
            continue;
        }
        if (labelBox(shown.label).contains(at))
            return {&shown, Part::Label, -1};
        QPolygonF outline;
        for (int i = 0; i < shown.data.points.size(); ++i) {
            outline.append(toScreen.map(shown.data.points[i]));
            if (QLineF(outline.last(), at).length() <= GRAB_CORNER)
                return {&shown, Part::Vertex, i};
        }
        const bool closed = shown.data.kind == QLatin1String("area");
        for (int i = 0; i < outline.size(); ++i) {
            if ((i + 1 < outline.size() || (closed && outline.size() > 2))
                && geometry::distanceToSegment(at, outline[i], outline[(i + 1) % outline.size()])
                    <= GRAB_LINE)
                return {&shown, Part::Body, -1};
        }
        if (closed && outline.containsPoint(at, Qt::OddEvenFill))
            return {&shown, Part::Body, -1};
    }
    return {};
}

bool Viewer2D::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (m_view && type == QEvent::Wheel
        && (watched == m_view->horizontalScrollBar() || watched == m_view->verticalScrollBar()))
        return true;
    if (m_view && (watched == m_view || watched == m_viewport)
        && (type == QEvent::ShortcutOverride || type == QEvent::KeyPress
            || type == QEvent::KeyRelease))
        return handleKey(type, static_cast<QKeyEvent*>(event));
    if (m_view && watched == m_viewport
        && (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick
            || type == QEvent::MouseMove || type == QEvent::MouseButtonRelease))
        return handleMouse(type, static_cast<QMouseEvent*>(event));
    if (m_view && watched == m_viewport && type == QEvent::ContextMenu
        && m_scene->getInteractiveMode()) {
        const auto* menu = static_cast<QContextMenuEvent*>(event);
        showContextMenu(menu->pos(), menu->globalPos());
        return true;
    }
    // A zoom box restored before the view had its size is applied at the first real resize.
    if (type == QEvent::Resize && m_view && watched == m_viewport) {
        if (m_pendingZoomBox.isValid())
            m_view->fitInView(m_pendingZoomBox, Qt::KeepAspectRatio);
        else
            m_view->fitInView(imageRect(), Qt::KeepAspectRatio);
        viewTransformed();
    }
    return QObject::eventFilter(watched, event);
}

bool Viewer2D::handleKey(QEvent::Type type, QKeyEvent* key)
{
    if (m_editing) {
        if (!noteTakes(key))
            return false;
        // Every key typed into a note is the note's: no shortcut, no scrolling, no other item.
        if (type == QEvent::KeyPress)
            m_editing->note->typeKey(key);
        key->accept();
        return true;
    }
    if (type != QEvent::KeyPress || key->modifiers() != Qt::NoModifier)
        return false;
    // The arrow keys pan, as the hand does; the stock scroll area would scroll behind the
    // viewer's back.
    static const QHash<int, QPointF> arrows {{Qt::Key_Left, {ARROW_PAN, 0}},
        {Qt::Key_Right, {-ARROW_PAN, 0}}, {Qt::Key_Up, {0, ARROW_PAN}},
        {Qt::Key_Down, {0, -ARROW_PAN}}};
    if (!arrows.contains(key->key()))
        return false;
    panBy(arrows.value(key->key()));
    return true;
}

bool Viewer2D::handleMouse(QEvent::Type type, QMouseEvent* mouse)
{
    const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    // Panning comes before the scene: a running tool never sees these presses.
    if (press && !m_panning
        && (mouse->button() == Qt::MiddleButton
            || (mouse->button() == Qt::LeftButton
                && mouse->modifiers().testFlag(Qt::ControlModifier)))) {
        m_panning = true;
        m_panButton = mouse->button();
        m_panFrom = mouse->position();
        m_view->viewport()->setCursor(Qt::ClosedHandCursor);
        return true;
    }
    if (m_panning) {
        if (type == QEvent::MouseMove) {
            panBy(mouse->position() - m_panFrom);
            m_panFrom = mouse->position();
        } else if (type == QEvent::MouseButtonRelease && mouse->button() == m_panButton) {
            m_panning = false;
            m_view->viewport()->unsetCursor();
        }
        return true;
    }
    if (m_gesture) {
        if (type == QEvent::MouseMove) {
            if (!m_gesture->moved
                && (mouse->position().toPoint() - m_gesture->pressedAt).manhattanLength()
                    < DRAG_START)
                return true;
            m_gesture->moved = true;
            moveWithGesture(m_view->mapToScene(mouse->position().toPoint()));
        } else if (type == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton) {
            finishGesture();
        }
        return true;
    }
    // With a tool running, the scene hands presses to the tool.
    if (!press || mouse->button() != Qt::LeftButton || !m_scene->getInteractiveMode())
        return false;
    const QPointF at = mouse->position();
    // A press in the note being edited places its caret, through the scene.
    if (m_editing && noteBox(m_editing->note).contains(at))
        return false;
    endNoteEditing();
    const Hit hit = hitTest(at);
    if (!hit.shown) {
        m_workspace.selectMeasurement(QString());
        return false;
    }
    m_workspace.selectMeasurement(hit.shown->data.id);
    m_gesture = Gesture {hit.shown->data.id, hit.part, hit.vertex, at.toPoint(),
        m_view->mapToScene(at.toPoint()), hit.shown->data, false};
    return true;
}

void Viewer2D::moveWithGesture(const QPointF& scenePos)
{
    Shown* shown = find(m_gesture->id);
    if (!shown)
        return;
    const MeasurementData& before = m_gesture->before;
    MeasurementData& data = shown->data;
    const QPointF travel = scenePos - m_gesture->scenePressedAt;
    switch (m_gesture->part) {
    case Part::Label:
        data.labelOffset = before.labelOffset + travel;
        break;
    case Part::Vertex: {
        QList<QPointF> points = before.points;
        points[m_gesture->vertex] = clampToImage(before.points[m_gesture->vertex] + travel);
        // A corner is never dragged to where the outline would cross itself.
        if (MeasurementData::geometryProblem(data.kind, points).isEmpty())
            data.points = points;
        break;
    }
    case Part::Body: {
        // The whole measurement moves, and stays on the image.
        QRectF bounds = QPolygonF(before.points).boundingRect();
        const QRectF image = imageRect();
        const QPointF shift(
            qBound(image.left() - bounds.left(), travel.x(), image.right() - bounds.right()),
            qBound(image.top() - bounds.top(), travel.y(), image.bottom() - bounds.bottom()));
        for (int i = 0; i < data.points.size(); ++i)
            data.points[i] = before.points[i] + shift;
        break;
    }
    case Part::None:
        break;
    }
    draw(*shown);
}

void Viewer2D::finishGesture()
{
    const Gesture gesture = *std::exchange(m_gesture, std::nullopt);
    Shown* shown = find(gesture.id);
    if (!shown)
        return;
    if (!gesture.moved) {
        // A click on a note opens it, its text selected.
        if (shown->note)
            editNote(gesture.id, true);
        return;
    }
    if (shown->data == gesture.before)
        return;
    const QString what = gesture.part == Part::Label ? tr("Move label")
        : gesture.part == Part::Vertex               ? tr("Move corner")
        : shown->note                                ? tr("Move note")
                                                     : tr("Move measurement");
    m_workspace.recordEdit(gesture.before, shown->data, what);
}

void Viewer2D::showContextMenu(const QPoint& viewportPos, const QPoint& globalPos)
{
    endNoteEditing();
    const Hit hit = hitTest(viewportPos);
    if (!hit.shown)
        return;
    const QString id = hit.shown->data.id;
    const bool note = hit.shown->note != nullptr;
    m_workspace.selectMeasurement(id);
    auto* menu = new QMenu(m_view);
    menu->setObjectName(QStringLiteral("measurementMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (note)
        menu->addAction(tr("Edit note"), this, [this, id] { editNote(id, false); });
    menu->addAction(note ? tr("Delete note") : tr("Delete measurement"), this,
        [this, id] { m_workspace.removeMeasurement(id); });
    menu->popup(globalPos);
}

QList<Viewer2D::DrawnLabel> Viewer2D::drawnLabels() const
{
    QList<DrawnLabel> labels;
    if (!m_view)
        return labels;
    for (QGraphicsItem* item : m_scene->items()) {
        auto* label = dynamic_cast<CustomGraphicsLabelItem*>(item);
        if (!label || !label->isVisible())
            continue;
        labels.append({label->objectName(), label->getTextItem()->getText(),
            label->getTextItem()->getTextColor(), labelBox(label)});
    }
    return labels;
}
