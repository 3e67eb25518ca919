#pragma once

#include <guicore/guicore_export.h>

#include <QColor>
#include <QObject>
#include <QString>

/// The model behind a QML warning label: text, icon, colour, font size and visibility.
class GUICORE_EXPORT WarningLabelProperty : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString warning_text READ getText WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QString warning_icon READ getIconPath WRITE setIconPath NOTIFY iconPathChanged)
    Q_PROPERTY(QColor warning_color READ getWarningColor WRITE setWarningColor NOTIFY colorChanged)
    Q_PROPERTY(unsigned warning_font_size READ getWarningFontSize WRITE setWarningFontSize NOTIFY
            fontChanged)
    Q_PROPERTY(bool label_visible READ isVisible WRITE setVisible NOTIFY labelVisibleChanged)

public:
    /// parent owns the object, as for any QObject.
    explicit WarningLabelProperty(const QString& text, QObject* parent = nullptr);

    const QString& getText() const;
    const QString& getIconPath() const;
    const QColor& getWarningColor() const;
    unsigned getWarningFontSize() const;
    bool isVisible() const;

    /// Each setter emits its signal only on a real change.
    void setText(const QString& text);
    void setIconPath(const QString& iconPath);
    void setWarningColor(const QColor& warningColor);
    void setWarningFontSize(unsigned warningFontSize);
    void setVisible(bool visible);

Q_SIGNALS:
    void textChanged();
    void iconPathChanged();
    void colorChanged();
    void fontChanged();
    void labelVisibleChanged();

private:
    QString text;
    QString iconPath;
    QColor warningColor = QColor(QStringLiteral("red"));
    unsigned warningFontSize = 14;
    bool visible = false;
};
