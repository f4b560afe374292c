#include "shell/Camera.h"

#include <QCamera>
#include <QMediaCaptureSession>
#include <QMediaDevices>
#include <QVideoFrame>
#include <QVideoSink>

namespace {

class CameraSistema : public Camera {
public:
    bool disponivel() const override { return !QMediaDevices::videoInputs().isEmpty(); }
    bool ligar() override
    {
        if (!disponivel())
            return false;
        if (!m_camera) {
            m_camera = std::make_unique<QCamera>(QMediaDevices::defaultVideoInput());
            m_sessao.setCamera(m_camera.get());
            m_sessao.setVideoSink(&m_sink);
            connect(&m_sink, &QVideoSink::videoFrameChanged, this, [this](const QVideoFrame& f) {
                m_quadro = f.toImage();
                emit novoQuadro();
            });
        }
        m_camera->start();
        return m_camera->isActive() || m_camera->error() == QCamera::NoError;
    }
    void desligar() override
    {
        if (m_camera)
            m_camera->stop();
    }
    bool ligada() const override { return m_camera && m_camera->isActive(); }
    QImage quadro() const override { return m_quadro; }

private:
    QMediaCaptureSession m_sessao;
    QVideoSink m_sink;
    std::unique_ptr<QCamera> m_camera;
    QImage m_quadro;
};

std::function<std::unique_ptr<Camera>()>& fabrica()
{
    static std::function<std::unique_ptr<Camera>()> f;
    return f;
}

} // namespace

std::unique_ptr<Camera> Camera::criar()
{
    if (fabrica())
        return fabrica()();
    return std::make_unique<CameraSistema>();
}

void Camera::definirFabrica(std::function<std::unique_ptr<Camera>()> f) { fabrica() = std::move(f); }
