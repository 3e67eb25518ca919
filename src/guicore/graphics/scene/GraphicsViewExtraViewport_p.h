#pragma once

#include <QOpenGLWidget>

/// The OpenGL viewport of every GraphicsViewExtra. Multisampled, so that overlay lines drawn by
/// the view stay smooth; everything else is the stock widget's.
class GraphicsViewExtraViewport : public QOpenGLWidget
{
    Q_OBJECT

public:
    explicit GraphicsViewExtraViewport(QWidget* parent = nullptr);
    ~GraphicsViewExtraViewport() override;
};
