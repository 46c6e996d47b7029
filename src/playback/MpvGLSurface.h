#pragma once

#include <QOpenGLWidget>

struct mpv_handle;
struct mpv_render_context;

// Draws libmpv's video with its OpenGL render API into the widget's framebuffer. The render
// context is made when the widget gets its GL context (first show, and again after a move
// to another top-level window) and freed, with the GL context current, when that context
// goes or in the destructor, while the mpv handle still lives: the controller that owns the
// handle destroys its view first.
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
    // The GL context went away with the render context (the widget moved to another
    // top-level window without shared contexts); a new one follows on the next show.
    void renderContextLost();

protected:
    void initializeGL() override;
    void paintGL() override;

private:
    Q_INVOKABLE void renderUpdate();
    void releaseRenderContext();
    void contextAboutToBeDestroyed();
    mpv_handle *m_mpv;
    mpv_render_context *m_context = nullptr;
};
