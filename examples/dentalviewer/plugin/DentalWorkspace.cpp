#include "DentalWorkspace.h"

#include "Viewer2D.h"

#include <guicore/utility/dental/ToothNameGenerator.h>

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QUndoCommand>
#include <QUndoStack>

// One step of the undo history: one measurement from one state to another. Adding, deleting,
// moving and editing are all this one command; a missing side is a measurement that does not
// exist on that side.
class MeasurementCommand : public QUndoCommand
{
public:
    MeasurementCommand(DentalWorkspace& workspace, const std::optional<MeasurementData>& before,
        const std::optional<MeasurementData>& after, const QString& what)
        : QUndoCommand(what)
        , m_workspace(workspace)
        , m_id(before ? before->id : after->id)
        , m_before(before)
        , m_after(after)
    {
        const QList<MeasurementData>& document = workspace.measurements();
        for (int i = 0; i < document.size(); ++i) {
            if (document[i].id == m_id)
                m_index = i;
        }
    }

    void undo() override { apply(m_before); }
    void redo() override { apply(m_after); }

private:
    void apply(const std::optional<MeasurementData>& data)
    {
        m_workspace.put(m_id, data ? &*data : nullptr, m_index);
        // The person sees what the step did.
        m_workspace.selectMeasurement(data ? m_id : QString());
    }

    DentalWorkspace& m_workspace;
    QString m_id;
    std::optional<MeasurementData> m_before;
    std::optional<MeasurementData> m_after;
    int m_index = -1;
};

namespace {

// The measurement objects that a damaged document file still holds whole: the objects of its
// "measurements" array up to where the file breaks off.
QList<QJsonObject> salvageMeasurements(const QByteArray& bytes)
{
    QList<QJsonObject> objects;
    const qsizetype key = bytes.indexOf("\"measurements\"");
    const qsizetype array = key < 0 ? -1 : bytes.indexOf('[', key);
    if (array < 0)
        return objects;
    int depth = 0;
    bool inString = false;
    bool escaped = false;
    qsizetype start = -1;
    for (qsizetype i = array + 1; i < bytes.size(); ++i) {
        const char c = bytes.at(i);
        if (inString) {
            if (escaped)
                escaped = false;
            else if (c == '\\')
                escaped = true;
            else if (c == '"')
                inString = false;
            continue;
        }
        if (c == '"') {
            inString = true;
        } else if (c == '{') {
            if (depth++ == 0)
                start = i;
        } else if (c == '}' && depth > 0) {
            if (--depth == 0) {
                const QJsonDocument one = QJsonDocument::fromJson(bytes.mid(start, i - start + 1));
                if (one.isObject())
                    objects.append(one.object());
            }
        } else if (c == ']' && depth == 0) {
            break;
        }
    }
    return objects;
}

// The count a document file gives at its start; -1 when it gives none.
int declaredCount(const QByteArray& bytes)
{
    static const QRegularExpression count(QStringLiteral("\"count\"\\s*:\\s*(\\d+)"));
    const QRegularExpressionMatch match = count.match(QString::fromUtf8(bytes.left(200)));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

} // namespace

DentalWorkspace::DentalWorkspace()
    : m_undo(std::make_unique<QUndoStack>())
{
    if (ToothNameGenerator::TOOTH_NUMBERING_SYSTEM.isEmpty())
        ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = QStringLiteral("FDI");
}

DentalWorkspace::~DentalWorkspace()
{
    // The commands refer to the workspace; they go first.
    m_undo.reset();
}

void DentalWorkspace::addViewer(Viewer2D* viewer)
{
    m_viewers.append(viewer);
    connect(viewer, &Viewer2D::viewChanged, this, &DentalWorkspace::viewStateChanged);
}

Viewer2D* DentalWorkspace::viewer(const QString& id) const
{
    for (const auto& viewer : m_viewers) {
        if (viewer && viewer->getId() == id)
            return viewer;
    }
    return nullptr;
}

QList<Viewer2D*> DentalWorkspace::viewers() const
{
    QList<Viewer2D*> result;
    for (const auto& viewer : m_viewers) {
        if (viewer)
            result.append(viewer);
    }
    return result;
}

Viewer2D* DentalWorkspace::currentViewer() const
{
    return m_current;
}

void DentalWorkspace::setCurrentViewer(Viewer2D* viewer)
{
    if (m_current == viewer)
        return;
    m_current = viewer;
    Q_EMIT currentViewerChanged(viewer);
}

QString DentalWorkspace::notation() const
{
    return ToothNameGenerator::TOOTH_NUMBERING_SYSTEM;
}

void DentalWorkspace::setNotation(const QString& notation)
{
    if (notation != QLatin1String("FDI") && notation != QLatin1String("UNIV")) {
        qWarning().noquote() << "DentalWorkspace : unknown tooth numbering" << notation;
        return;
    }
    if (ToothNameGenerator::TOOTH_NUMBERING_SYSTEM == notation)
        return;
    // The generator's numbering is application-wide: every tooth name follows it.
    ToothNameGenerator::TOOTH_NUMBERING_SYSTEM = notation;
    Q_EMIT notationChanged(notation);
    Q_EMIT viewStateChanged();
}

const MeasurementData* DentalWorkspace::measurement(const QString& id) const
{
    for (const MeasurementData& data : m_document) {
        if (data.id == id)
            return &data;
    }
    return nullptr;
}

void DentalWorkspace::addMeasurement(const MeasurementData& data, const QString& what)
{
    recordEdit(std::nullopt, data, what);
}

void DentalWorkspace::removeMeasurement(const QString& id)
{
    const MeasurementData* data = measurement(id);
    if (!data)
        return;
    const QString what = data->isNote()       ? tr("Delete note")
        : data->kind == QLatin1String("area") ? tr("Delete area")
                                              : tr("Delete length");
    recordEdit(*data, std::nullopt, what);
}

void DentalWorkspace::recordEdit(const std::optional<MeasurementData>& before,
    const std::optional<MeasurementData>& after, const QString& what)
{
    if (!before && !after)
        return;
    m_undo->push(new MeasurementCommand(*this, before, after, what));
}

void DentalWorkspace::setLive(const MeasurementData& data)
{
    put(data.id, &data);
}

void DentalWorkspace::dropLive(const QString& id)
{
    put(id, nullptr);
}

void DentalWorkspace::restoreLabelOffset(const QString& id, const QPointF& offset)
{
    const MeasurementData* data = measurement(id);
    if (!data || data->labelOffset == offset)
        return;
    MeasurementData moved = *data;
    moved.labelOffset = offset;
    put(id, &moved);
}

void DentalWorkspace::put(const QString& id, const MeasurementData* data, int index)
{
    qsizetype at = -1;
    for (qsizetype i = 0; i < m_document.size(); ++i) {
        if (m_document[i].id == id)
            at = i;
    }
    Viewer2D* target = viewer(data ? data->viewer : at >= 0 ? m_document[at].viewer : QString());
    if (data) {
        if (at >= 0)
            m_document[at] = *data;
        else
            m_document.insert(
                index >= 0 && index <= m_document.size() ? index : m_document.size(), *data);
        if (target)
            target->showMeasurement(*data);
    } else if (at >= 0) {
        m_document.removeAt(at);
        if (target)
            target->hideMeasurement(id);
        if (m_selected == id)
            selectMeasurement(QString());
    }
    Q_EMIT documentChanged();
}

void DentalWorkspace::selectMeasurement(const QString& id)
{
    const QString selected = measurement(id) ? id : QString();
    if (selected == m_selected)
        return;
    m_selected = selected;
    for (Viewer2D* viewer : viewers())
        viewer->setSelected(selected);
    Q_EMIT selectionChanged(selected);
}

QJsonObject DentalWorkspace::saveDocument() const
{
    QJsonArray measurements;
    for (const MeasurementData& data : m_document) {
        QJsonObject object = data.toJson();
        // The value as shown, for readers of the file; it is computed again when read.
        if (!data.isNote())
            object.insert(QStringLiteral("text"), data.valueText(PIXEL_SPACING_MM));
        measurements.append(object);
    }
    return QJsonObject {{QStringLiteral("count"), measurements.size()},
        {QStringLiteral("measurements"), measurements}};
}

bool DentalWorkspace::isReadable(const MeasurementData& data) const
{
    Viewer2D* target = viewer(data.viewer);
    if (data.id.isEmpty() || !target || measurement(data.id))
        return false;
    const QRectF image = target->imageRect().adjusted(-0.5, -0.5, 0.5, 0.5);
    for (const QPointF& point : data.points) {
        if (!image.contains(point))
            return false;
    }
    return true;
}

DocumentLoad DentalWorkspace::loadDocument(const QByteArray& bytes)
{
    selectMeasurement(QString());
    m_undo->clear();
    while (!m_document.isEmpty())
        put(m_document.last().id, nullptr);

    DocumentLoad load;
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(bytes, &error);
    QList<QJsonObject> objects;
    int expected = -1;
    if (json.isObject()) {
        for (const QJsonValue& value :
            json.object().value(QStringLiteral("measurements")).toArray())
            objects.append(value.toObject());
        expected = int(objects.size());
    } else {
        objects = salvageMeasurements(bytes);
        expected = declaredCount(bytes);
        load.damaged = true;
    }
    for (const QJsonObject& object : std::as_const(objects)) {
        const MeasurementData data = MeasurementData::fromJson(object);
        if (!isReadable(data)) {
            load.damaged = true;
            continue;
        }
        put(data.id, &data);
        ++load.read;
    }
    load.lost = expected < 0 ? -1 : std::max(0, expected - load.read);
    return load;
}

void DentalWorkspace::showStatus(const QString& text, int timeoutMs)
{
    Q_EMIT statusMessage(text, timeoutMs);
}

void DentalWorkspace::reportProblem(const QString& text)
{
    Q_EMIT problemReported(text);
}

void DentalWorkspace::chooseTooth(int tooth)
{
    Q_EMIT toothChosen(tooth);
    Q_EMIT viewStateChanged();
}

void DentalWorkspace::moveCrossSection(const QString& viewId, double archPosition)
{
    Q_EMIT crossSectionMoved(viewId, archPosition);
    Q_EMIT viewStateChanged();
}
