#include "MpvGLSurface.h"

#include <QMetaObject>
#include <QOpenGLContext>

#include <mpv/render_gl.h>

namespace {

void *procAddress(void *, const char *name)
{
    QOpenGLContext *context = QOpenGLContext::currentContext();
    if (!context)
        return nullptr;
    return reinterpret_cast<void *>(context->getProcAddress(QByteArray(name)));
}

// Called by mpv on any of its threads: only post to the GUI thread.
void onRenderUpdate(void *surface)
{
    QMetaObject::invokeMethod(static_cast<MpvGLSurface *>(surface), "renderUpdate", Qt::QueuedConnection);
}

} // namespace

MpvGLSurface::MpvGLSurface(mpv_handle *mpv, QWidget *parent)
    : QOpenGLWidget(parent)
    , m_mpv(mpv)
{
    setMinimumSize(16, 16);
}

MpvGLSurface::~MpvGLSurface()
{
    releaseRenderContext();
}

void MpvGLSurface::releaseRenderContext()
{
    if (!m_context)
        return;
    makeCurrent();
    mpv_render_context_set_update_callback(m_context, nullptr, nullptr);
    mpv_render_context_free(m_context);
    m_context = nullptr;
    doneCurrent();
}

void MpvGLSurface::contextAboutToBeDestroyed()
{
    if (!m_context)
        return;
    releaseRenderContext();
    Q_EMIT renderContextLost();
}

void MpvGLSurface::initializeGL()
{
    // Moving the widget to another top-level window (full screen) replaces its GL context:
    // mpv's GL resources go with the old one, and a new render context is made here.
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &MpvGLSurface::contextAboutToBeDestroyed,
            Qt::DirectConnection);
    if (m_context)
        return;
    mpv_opengl_init_params glInit{&procAddress, nullptr};
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char *>(MPV_RENDER_API_TYPE_OPENGL)},
        {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &glInit},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    if (mpv_render_context_create(&m_context, m_mpv, params) < 0) {
        m_context = nullptr;
        Q_EMIT renderContextFailed();
        return;
    }
    mpv_render_context_set_update_callback(m_context, &onRenderUpdate, this);
    Q_EMIT renderContextReady();
}

void MpvGLSurface::paintGL()
{
    if (!m_context)
        return;
    const qreal ratio = devicePixelRatioF();
    mpv_opengl_fbo fbo{static_cast<int>(defaultFramebufferObject()), qRound(width() * ratio),
                       qRound(height() * ratio), 0};
    int flipY = 1;
    mpv_render_param params[] = {
        {MPV_RENDER_PARAM_OPENGL_FBO, &fbo},
        {MPV_RENDER_PARAM_FLIP_Y, &flipY},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    };
    mpv_render_context_render(m_context, params);
}

void MpvGLSurface::renderUpdate()
{
    if (m_context && (mpv_render_context_update(m_context) & MPV_RENDER_UPDATE_FRAME))
        update();
}
