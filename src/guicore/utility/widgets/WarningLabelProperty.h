#pragma once

#include <guicore/guicore_export.h>

#include <QColor>
#include <QObject>
#include <QString>

/// The model behind a QML warning label: text, icon, colour, font size and visibility.
///
/// QML sees the properties "warning_text", "warning_icon", "warning_color",
/// "warning_font_size" and "label_visible". Every setter stores the value and emits the
/// property's notify signal only on a real change, so bindings are not re-evaluated for
/// nothing. A new label is hidden, red, at font size 14, without icon.
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

    /// The text shown ("warning_text").
    const QString& getText() const;
    /// The icon's path or URL as QML's Image takes it, empty for none ("warning_icon").
    const QString& getIconPath() const;
    /// The colour in which the warning is drawn ("warning_color").
    const QColor& getWarningColor() const;
    /// The font size of the text, as the QML label applies it ("warning_font_size").
    unsigned getWarningFontSize() const;
    /// Whether the label is shown ("label_visible").
    bool isVisible() const;

    /// @{
    /// Each setter emits its signal only on a real change.
    void setText(const QString& text);
    void setIconPath(const QString& iconPath);
    void setWarningColor(const QColor& warningColor);
    void setWarningFontSize(unsigned warningFontSize);
    void setVisible(bool visible);
    /// @}

Q_SIGNALS:
    /// The text changed.
    void textChanged();
    /// The icon path changed.
    void iconPathChanged();
    /// The colour changed.
    void colorChanged();
    /// The font size changed.
    void fontChanged();
    /// The visibility changed.
    void labelVisibleChanged();

private:
    QString text;
    QString iconPath;
    QColor warningColor = QColor(QStringLiteral("red"));
    unsigned warningFontSize = 14;
    bool visible = false;
};
