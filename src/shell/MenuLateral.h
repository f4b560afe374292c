#pragma once
#include <QList>
#include <QWidget>

#include "shell/Acoes.h"

class QLabel;
class QPushButton;
class QTimer;
class QToolBox;

// The side menu: the user's picture and name on top, the functions in ten groups
// (MenuVertical), and the clock. Items are "Item(g,i)", group g and item i from 1.
class MenuLateral : public QWidget {
    Q_OBJECT
public:
    explicit MenuLateral(QWidget* pai = nullptr);

    struct Grupo {
        QString titulo;
        QList<Acoes::Acao> itens;
    };
    static const QList<Grupo>& grupos();
    // The group opened first: the number in the first two characters of CfgDefineMenu.
    static int grupoInicial(const QString& defineMenu);

    static QString nomeItem(int grupo, int item) { return QStringLiteral("Item(%1,%2)").arg(grupo).arg(item); }

    void abrirGrupo(int grupo);   // 1..10
    int grupoAberto() const;

public slots:
    // Picture and name of the user, after a login or a leave.
    void atualizarUsuario();
    // Items whose screen isn't in this build yet stay disabled until it is.
    void atualizarItens();

signals:
    void relogio();          // each tick of Trelogio
    void usuarioMudou();     // the session's user changed since the last tick

private:
    void tique();
    void executar(const Acoes::Acao& a);

    QLabel* m_imagem;
    QLabel* m_nome;
    QToolBox* m_grupos;
    QPushButton* m_relogio;
    QTimer* m_timer;
    QList<QPair<QPushButton*, Acoes::Acao>> m_itens;
    QString m_usuarioMostrado;
    QString m_imagemMostrada;
};
