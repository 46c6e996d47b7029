#pragma once

#include <QOpenGLWidget>

struct mpv_handle;
struct mpv_render_context;

// Draws libmpv's video with its OpenGL render API into the widget's framebuffer. The render
// context is made when the widget gets its GL context (first show) and freed in the
// destructor, with the GL context current, while the mpv handle still lives: the
// controller that owns the handle destroys its view first.
class MpvGLSurface : public QOpenGLWidget
{
    Q_OBJECT

public:
    explicit MpvGLSurface(mpv_handle *mpv, QWidget *parent = nullptr);
    ~MpvGLSurface() override;

    bool hasRenderContext() const { return m_context != nullptr; }

Q_SIGNALS:
    // The render context exists: mpv may now open video.
    void renderContextReady();
    // The render context could not be made (video cannot be shown this way).
    void renderContextFailed();

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    Q_INVOKABLE void renderUpdate();
    mpv_handle *m_mpv;
    mpv_render_context *m_context = nullptr;
};
