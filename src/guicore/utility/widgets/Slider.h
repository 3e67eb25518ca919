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
    /// A slider of the given orientation; parent owns it.
    explicit Slider(Qt::Orientation orientation, QWidget* parent = nullptr);

    /// Ignores key (a Qt::Key value) from now on; adding it twice changes nothing.
    void disableKey(int key);
    /// disableKey() for each of keys.
    void disableKeys(const QList<int>& keys);
    /// Handles every key again, as a QSlider does.
    void enableAllKeys();

protected:
    /// Handles the press as QSlider does (a page step, in most styles), then moves the handle to
    /// the value under the click: one click may emit valueChanged() twice.
    void mousePressEvent(QMouseEvent* event) override;
    /// A disabled key is ignored, so it propagates to the parent widget.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QList<int> disabledKeys;
};
