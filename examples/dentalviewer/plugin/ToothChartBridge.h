#pragma once

#include <QColor>
#include <QObject>
#include <QString>

// What the tooth chart's QML page reads and sets: the selected tooth (a name in the current
// numbering) and the colours of the style.
class ToothChartBridge : public QObject
{
    Q_OBJECT
    Q_PROPERTY(
        QString selectedTooth READ selectedTooth WRITE setSelectedTooth NOTIFY selectedToothChanged)
    Q_PROPERTY(QString firstTooth READ firstTooth NOTIFY selectedToothChanged)
    Q_PROPERTY(QColor panelColor MEMBER panelColor CONSTANT)
    Q_PROPERTY(QColor buttonColor MEMBER buttonColor CONSTANT)
    Q_PROPERTY(QColor hoverColor MEMBER hoverColor CONSTANT)
    Q_PROPERTY(QColor textColor MEMBER textColor CONSTANT)
    Q_PROPERTY(QString fontFamily MEMBER fontFamily CONSTANT)

public:
    explicit ToothChartBridge(QObject* parent = nullptr);

    QString selectedTooth() const { return m_selected; }
    // Ignores a name that is no tooth in the current numbering.
    void setSelectedTooth(const QString& name);
    QString firstTooth() const;
    // Keeps the selected tooth when the numbering changes from `previousNumbering`.
    void renameSelection(const QString& previousNumbering);

    QColor panelColor;
    QColor buttonColor;
    QColor hoverColor;
    QColor textColor;
    QString fontFamily;

Q_SIGNALS:
    void selectedToothChanged();

private:
    QString m_selected;
};
