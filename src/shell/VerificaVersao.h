#pragma once
#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

class QNetworkAccessManager;
#include <QNetworkReply>

// The update check: the version installed (first line of Versao.txt in the program's
// folder) against the one on the update site (the file /UpdateToldex/Versao.txt at the
// address of [Atualizacao] Endereco in Toldex.ini), kept in Ver.txt. It never holds up
// the start: the download runs in the background with a short time limit, and any
// failure only means there is nothing to announce.
class VerificaVersao : public QObject {
    Q_OBJECT
public:
    enum class Resultado { SemVersaoLocal, SemEndereco, Falhou, EmDia, NovaVersao };
    Q_ENUM(Resultado)

    explicit VerificaVersao(QObject* pai = nullptr);

    // Installed version; empty with *existe false when Versao.txt is missing.
    static QString versaoInstalada(bool* existe = nullptr);
    // Address of the remote file; invalid when none is configured.
    static QUrl enderecoRemoto();
    // The versions compare as text, as they always have: "3.10" is older than "3.9".
    static bool maisNova(const QString& instalada, const QString& remota);

    static constexpr int LimiteMs = 5000;

    void iniciar();
    bool emAndamento() const { return m_resposta != nullptr; }
    QString remota() const { return m_remota; }

signals:
    void terminou(VerificaVersao::Resultado resultado);

private:
    void concluir(QNetworkReply* resposta);

    QNetworkAccessManager* m_rede;
    QPointer<QNetworkReply> m_resposta;
    QString m_instalada;
    QString m_remota;
};
