#pragma once
#include <QObject>
#include <QString>
#include <memory>

class Camera;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;
class QWidget;

// The picture of a register: chosen from a file or taken with the camera, its path kept
// in a box that the register saves, shown in a label. The camera is switched on only
// while the user wants the preview.
class FotoCadastro : public QObject {
    Q_OBJECT
public:
    FotoCadastro(QWidget* tela, QLabel* imagem, QLineEdit* caminho, int qualidadeJpeg);
    ~FotoCadastro() override;

    // The folder of pictures of this machine's settings.
    static QString pasta();
    inline static const QString Filtro = QStringLiteral("Imagem (*.jpg *.jpeg *.bmp *.png)");

    // Shows the picture of the path; none (or a file that is no picture) shows `vazia`.
    void mostra(const QString& caminho);
    void defineVazia(const QString& recurso) { m_vazia = recurso; }
    // A file chosen by the user: true when the path changed.
    bool escolheArquivo(const QString& proposto);
    // Switches the camera on (the button then reads `encerrar`) or off (`ligar`).
    void alternaCamera(QPushButton* botao, const QString& ligar = QStringLiteral("WebCam"),
                       const QString& encerrar = QStringLiteral("Encerra"));
    void paraPrevia();
    // Shows the camera's frames again, when it is on.
    void retomaPrevia();
    // Grabs a frame and saves it where the user says: true when the path changed.
    bool tiraFoto(const QString& proposto);
    QTimer* video() const { return m_video; }

private:
    QWidget* m_tela;
    QLabel* m_imagem;
    QLineEdit* m_caminho;
    int m_qualidade;
    QString m_vazia;
    QTimer* m_video;
    std::unique_ptr<Camera> m_camera;
};
