#pragma once

#include <guicore/guicore_export.h>

#include <QList>
#include <QSlider>

/// A slider whose handle jumps to where the user clicks, and which can ignore chosen keys
/// (for example the arrow keys, when the surrounding view uses them itself).
class GUICORE_EXPORT Slider : public QSlider
{
    Q_OBJECT

public:
    /// parent owns the slider, as for any QWidget.
    explicit Slider(QWidget* parent = nullptr);
    explicit Slider(Qt::Orientation orientation, QWidget* parent = nullptr);

    void disableKey(int key);
    void disableKeys(const QList<int>& keys);
    void enableAllKeys();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    /// A disabled key is ignored, so it propagates to the parent widget.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QList<int> disabledKeys;
};
