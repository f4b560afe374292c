#pragma once
#include <QImage>
#include <QObject>
#include <functional>
#include <memory>

// A camera as the screens that take pictures need it: switch on, the latest frame, switch
// off. The program uses the system's first camera; tests put a fake one in its place.
class Camera : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~Camera() override = default;
    virtual bool disponivel() const = 0;
    virtual bool ligar() = 0;
    virtual void desligar() = 0;
    virtual bool ligada() const = 0;
    // The latest frame; null before the first one arrives.
    virtual QImage quadro() const = 0;

    static std::unique_ptr<Camera> criar();
    // Replaces the camera the screens get (an empty function restores the system's).
    static void definirFabrica(std::function<std::unique_ptr<Camera>()> fabrica);
signals:
    void novoQuadro();
};
