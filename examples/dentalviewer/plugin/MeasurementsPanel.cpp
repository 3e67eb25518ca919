#include "MeasurementsPanel.h"

#include "DentalWorkspace.h"
#include "SyntheticImages.h"

#include <guicore/utility/dental/ToothNameGenerator.h>

#include <toothchart/ToothChart.h>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineF>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QString kindName(const MeasurementData& data)
{
    if (data.isNote())
        return MeasurementsPanel::tr("Note");
    return data.kind == QLatin1String("area") ? MeasurementsPanel::tr("Area")
                                              : MeasurementsPanel::tr("Length");
}

} // namespace

MeasurementsPanel::MeasurementsPanel(
    DentalWorkspace& workspace, std::function<void(const QString&)> reveal, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_reveal(std::move(reveal))
{
    setObjectName(QStringLiteral("measurementsPanel"));
    m_table = new QTableWidget(0, 5, this);
    m_table->setObjectName(QStringLiteral("measurementsTable"));
    m_table->setHorizontalHeaderLabels(
        {tr("Kind"), tr("Value"), tr("Tooth"), tr("View"), tr("Slice")});
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_delete = new QPushButton(tr("Delete"), this);
    m_delete->setObjectName(QStringLiteral("deleteMeasurement"));
    m_table->setMinimumHeight(48);
    // The button beside the list: the panel stays low, under a wide image.
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(m_delete);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_table, 1);
    layout->addLayout(buttons);

    connect(m_table, &QTableWidget::itemSelectionChanged, this, [this] {
        const QList<QTableWidgetItem*> selected = m_table->selectedItems();
        const QString id
            = selected.isEmpty() ? QString() : selected.first()->data(Qt::UserRole).toString();
        m_workspace.selectMeasurement(id);
        if (!id.isEmpty() && m_reveal)
            m_reveal(id);
    });
    connect(m_delete, &QPushButton::clicked, this,
        [this] { m_workspace.removeMeasurement(m_workspace.selectedMeasurement()); });
    connect(&m_workspace, &DentalWorkspace::documentChanged, this, &MeasurementsPanel::rebuild);
    connect(&m_workspace, &DentalWorkspace::notationChanged, this, &MeasurementsPanel::rebuild);
    connect(
        &m_workspace, &DentalWorkspace::selectionChanged, this, &MeasurementsPanel::showSelection);
    rebuild();
}

QString MeasurementsPanel::nearestTooth(const MeasurementData& data)
{
    if (data.points.isEmpty())
        return QString();
    QPointF at;
    for (const QPointF& point : data.points)
        at += point / double(data.points.size());
    const QList<QPointF> centres = synthetic::panoramicToothCentres();
    // A cross-section's slice is a column of the panoramic; its upper half shows the upper arch.
    if (data.slice >= 0)
        at = QPointF(data.slice, at.y() < 200 ? centres.first().y() : centres.last().y());
    int nearest = 0;
    for (int i = 1; i < centres.size(); ++i) {
        if (QLineF(centres[i], at).length() < QLineF(centres[nearest], at).length())
            nearest = i;
    }
    return ToothNameGenerator::getName(ToothChart::Tooth(nearest + 1));
}

void MeasurementsPanel::rebuild()
{
    const QSignalBlocker blocker(m_table);
    const QList<MeasurementData>& measurements = m_workspace.measurements();
    m_table->setRowCount(int(measurements.size()));
    for (int row = 0; row < measurements.size(); ++row) {
        const MeasurementData& data = measurements[row];
        const QStringList cells {kindName(data),
            data.valueText(DentalWorkspace::PIXEL_SPACING_MM).simplified(), nearestTooth(data),
            data.viewer, data.slice >= 0 ? QString::number(data.slice) : QStringLiteral("–")};
        for (int column = 0; column < cells.size(); ++column) {
            auto* item = new QTableWidgetItem(cells[column]);
            item->setData(Qt::UserRole, data.id);
            m_table->setItem(row, column, item);
        }
    }
    m_table->resizeColumnsToContents();
    showSelection();
}

void MeasurementsPanel::showSelection()
{
    const QSignalBlocker blocker(m_table);
    const QString id = m_workspace.selectedMeasurement();
    m_table->clearSelection();
    for (int row = 0; row < m_table->rowCount(); ++row) {
        if (m_table->item(row, 0)->data(Qt::UserRole).toString() == id) {
            m_table->selectRow(row);
            m_table->scrollToItem(m_table->item(row, 0));
        }
    }
    m_delete->setEnabled(!id.isEmpty());
}
