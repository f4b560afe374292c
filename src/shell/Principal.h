#pragma once
#include <QList>
#include <QMainWindow>
#include <QPointer>

#include "shell/Acoes.h"
#include "shell/VerificaVersao.h"

class AvisoPrincipal;
class BarraStatus;
class ImagemPrincipal;
class MenuLateral;
class QDockWidget;
class QMdiArea;

// The frame of the program: the menu bar, the work area where every screen opens, the
// side menu and the status bar. It lives from the first login to the end.
class Principal : public QMainWindow {
    Q_OBJECT
public:
    explicit Principal(QWidget* pai = nullptr);
    ~Principal() override;

    // The open main window, if any.
    static Principal* instancia();

    // One entry of the menu bar: its menu, the submenu it sits in (empty for none) and
    // what it does.
    struct Entrada {
        QString menu;
        QString tituloMenu;
        QString submenu;
        Acoes::Acao acao;
    };
    static const QList<Entrada>& entradas();

    // Whole days since the last backup (DataUltimoBackup).
    static int diasSemBackup();
    // Closing asks for a backup after more days than this, whatever DiaAviso holds.
    static constexpr int LimiteDiasBackup = 2;

    BarraStatus* barraStatus() const { return m_barra; }
    MenuLateral* menuLateral() const { return m_menuLateral; }
    AvisoPrincipal* avisoPrincipal() const { return m_aviso; }
    VerificaVersao* verificacaoVersao() const { return m_versao; }
    QMdiArea* areaTrabalho() const { return m_area; }

public slots:
    // Baixa_Versao: looks for a new version in the background.
    void verificarVersao();
    // After a login or a leave: the side menu, the status bar and the menus follow the
    // session. `sufixo` follows the user's name on the status bar.
    void sessaoMudou(const QString& sufixo = QStringLiteral(" Sair"));
    // After the settings change (the configuration screen calls it by name) and after a
    // reconnection: Empresa, the caption, the colours, the picture and the status bar are
    // read again.
    void atualizarEmpresa();
    void atualizarMenus();
    void mostrarMenuLateral();
    // Ends at once, without the closing questions (the updater is taking over).
    void encerrarParaAtualizar();

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    // The backup asked for at start and at closing: server and right first.
    void abrirBackup();
    void oferecerBackup();
    bool trabalhoEmAndamento();
    void criarMenus();
    void acionar(const Acoes::Acao& a);
    void aoVerificar(VerificaVersao::Resultado resultado);
    void pintarFundo();

    QMdiArea* m_area;
    ImagemPrincipal* m_imagem;
    MenuLateral* m_menuLateral;
    QDockWidget* m_dock;
    BarraStatus* m_barra;
    AvisoPrincipal* m_aviso;
    VerificaVersao* m_versao;
    QList<QPair<QAction*, Acoes::Acao>> m_acoes;
    QString m_testeOk;
    bool m_encerrando = false;
    bool m_versaoPedida = false;  // the user asked from the menu: tell the outcome
};
