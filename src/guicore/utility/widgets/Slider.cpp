#include "Slider.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <cmath>

Slider::Slider(QWidget* parent)
    : QSlider(parent)
{
}

Slider::Slider(Qt::Orientation orientation, QWidget* parent)
    : QSlider(orientation, parent)
{
}

void Slider::disableKey(int key)
{
    if (!disabledKeys.contains(key))
        disabledKeys.append(key);
}

void Slider::disableKeys(const QList<int>& keys)
{
    for (const int key : keys)
        disableKey(key);
}

void Slider::enableAllKeys()
{
    disabledKeys.clear();
}

void Slider::mousePressEvent(QMouseEvent* event)
{
    QSlider::mousePressEvent(event);
    const bool horizontal = orientation() == Qt::Horizontal;
    const double length = horizontal ? width() : height();
    if (length <= 0)
        return;
    const double position = horizontal ? event->position().x() : event->position().y();
    const double span = double(maximum()) - double(minimum());
    const int offset = int(std::lround(span * position / length));
    // A vertical slider grows upwards, the widget's y downwards.
    setValue(horizontal ? minimum() + offset : maximum() - offset);
}

void Slider::keyPressEvent(QKeyEvent* event)
{
    if (disabledKeys.contains(event->key())) {
        event->ignore();
        return;
    }
    QAbstractSlider::keyPressEvent(event);
}
