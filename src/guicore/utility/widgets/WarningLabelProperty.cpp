#include "WarningLabelProperty.h"

WarningLabelProperty::WarningLabelProperty(const QString& text, QObject* parent)
    : QObject(parent)
    , text(text)
{
}

const QString& WarningLabelProperty::getText() const
{
    return text;
}

const QString& WarningLabelProperty::getIconPath() const
{
    return iconPath;
}

const QColor& WarningLabelProperty::getWarningColor() const
{
    return warningColor;
}

unsigned WarningLabelProperty::getWarningFontSize() const
{
    return warningFontSize;
}

bool WarningLabelProperty::isVisible() const
{
    return visible;
}

void WarningLabelProperty::setText(const QString& text)
{
    if (this->text == text)
        return;
    this->text = text;
    Q_EMIT textChanged();
}

void WarningLabelProperty::setIconPath(const QString& iconPath)
{
    if (this->iconPath == iconPath)
        return;
    this->iconPath = iconPath;
    Q_EMIT iconPathChanged();
}

void WarningLabelProperty::setWarningColor(const QColor& warningColor)
{
    if (this->warningColor == warningColor)
        return;
    this->warningColor = warningColor;
    Q_EMIT colorChanged();
}

void WarningLabelProperty::setWarningFontSize(unsigned warningFontSize)
{
    if (this->warningFontSize == warningFontSize)
        return;
    this->warningFontSize = warningFontSize;
    Q_EMIT fontChanged();
}

void WarningLabelProperty::setVisible(bool visible)
{
    if (this->visible == visible)
        return;
    this->visible = visible;
    Q_EMIT labelVisibleChanged();
}
