#pragma once

#include <QWidget>
#include <functional>

class DentalWorkspace;
class QPushButton;
class QTableWidget;
struct MeasurementData;

// The document's measurements and notes as a list: kind, value, the tooth nearest to it, the view
// and the slice it was made on. A click selects the measurement and brings it on screen; Delete
// removes the selected one.
class MeasurementsPanel : public QWidget
{
    Q_OBJECT

public:
    // `reveal` brings a measurement on screen (its view, its slice).
    MeasurementsPanel(DentalWorkspace& workspace, std::function<void(const QString&)> reveal,
        QWidget* parent = nullptr);

    // The tooth nearest to a measurement, by its name in the current numbering.
    static QString nearestTooth(const MeasurementData& data);

private:
    void rebuild();
    void showSelection();

    DentalWorkspace& m_workspace;
    std::function<void(const QString&)> m_reveal;
    QTableWidget* m_table = nullptr;
    QPushButton* m_delete = nullptr;
};
