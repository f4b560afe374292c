#pragma once
#include <QMap>
#include <QList>
#include <QString>
#include <QVariantMap>
#include <QWidget>
#include <memory>

class Banco;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QTableWidget;

// "Configuração do sistema": the one Empresa row, this machine's Toldex.ini (server or
// workstation, colours, pictures, how each sheet prints) and the small catalogues of
// appliance types, brands, services and defects, saved together by Botao(0). With no
// connection it opens on the server tab alone, since the connection is what needs repair.
class ConfiguraSistema : public QWidget {
    Q_OBJECT
public:
    explicit ConfiguraSistema(QWidget* pai = nullptr);
    ~ConfiguraSistema() override;

    bool salvar();
    void testaConexao();
    void escolheServidor(bool servidor);

protected:
    void closeEvent(QCloseEvent* e) override;
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    QWidget* abaEmpresa();
    QWidget* abaMensagens();
    QWidget* abaSistema();
    QWidget* abaServidor();
    QWidget* abaCores();
    QWidget* abaImpressao();
    QWidget* abaDocumentos();
    QWidget* abaCatalogo(int indice);
    void carrega();
    void carregaCatalogos();
    void marcaAlterado();
    void escolheCor(int chave);
    void coresPadrao();
    void repinta();
    void escolheImagem(const QString& chave);
    void localizaDocumento(int i);
    void adicionaLinha(int catalogo, bool alterar);
    void removeLinha(int catalogo);
    void filtraCatalogo(int catalogo, const QString& texto);
    bool confereCpfCnpj();
    template <class W> W* controle(const QString& nome) const { return findChild<W*>(nome); }

    std::unique_ptr<Banco> m_banco;
    QTabWidget* m_abas = nullptr;
    QPushButton* m_botao[7] = {};
    bool m_conectado = false;
    bool m_alterado = false;
    bool m_carregando = false;
    bool m_senhaEditada = false;
    QString m_senhaGuardada;
    QMap<QString, QString> m_ini;
    QVariantMap m_lida;                          // Empresa as read: a save writes what changed
    QMap<QString, QList<qint64>> m_removidas;    // stored catalogue lines the user removed
};
