#pragma once

#include <QColor>
#include <QObject>
#include <QString>

// What the tooth chart's QML page reads and sets: the selected tooth (a name in the current
// numbering) and the colours of the style, which follow a change of palette.
class ToothChartBridge : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString selectedTooth READ selectedTooth NOTIFY selectedToothChanged)
    Q_PROPERTY(QColor panelColor MEMBER panelColor NOTIFY styleChanged)
    Q_PROPERTY(QColor buttonColor MEMBER buttonColor NOTIFY styleChanged)
    Q_PROPERTY(QColor hoverColor MEMBER hoverColor NOTIFY styleChanged)
    Q_PROPERTY(QColor textColor MEMBER textColor NOTIFY styleChanged)
    Q_PROPERTY(QString fontFamily MEMBER fontFamily NOTIFY styleChanged)

public:
    explicit ToothChartBridge(QObject* parent = nullptr);

    QString selectedTooth() const { return m_selected; }
    // Ignores a name that is no tooth in the current numbering. Not a choice of the person's:
    // nothing follows it (a restored selection).
    void setSelectedTooth(const QString& name);
    // Keeps the selected tooth when the numbering changes from `previousNumbering`.
    void renameSelection(const QString& previousNumbering);
    // Reads the colours of the style again.
    void restyle();

    // The person's choices: a tooth, or a step from the selected one (from the first tooth
    // when none is selected). Each emits toothChosen.
    Q_INVOKABLE void choose(const QString& name);
    Q_INVOKABLE void chooseNext();
    Q_INVOKABLE void choosePrevious();

    QColor panelColor;
    QColor buttonColor;
    QColor hoverColor;
    QColor textColor;
    QString fontFamily;

Q_SIGNALS:
    void selectedToothChanged();
    void styleChanged();
    // The person chose the tooth (as a Universal number, 1 to 32).
    void toothChosen(int tooth);

private:
    QString m_selected;
};
