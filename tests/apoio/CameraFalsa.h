#pragma once
#include <QImage>

#include "shell/Camera.h"

// A camera for tests: present or not, and once on, a 64×48 frame of one colour.
class CameraFalsa : public Camera {
public:
    explicit CameraFalsa(bool existe) : m_existe(existe) {}
    bool disponivel() const override { return m_existe; }
    bool ligar() override { return m_ligada = m_existe; }
    void desligar() override { m_ligada = false; }
    bool ligada() const override { return m_ligada; }
    QImage quadro() const override
    {
        QImage i(64, 48, QImage::Format_RGB32);
        i.fill(Qt::green);
        return m_ligada ? i : QImage();
    }

private:
    bool m_existe;
    bool m_ligada = false;
};
