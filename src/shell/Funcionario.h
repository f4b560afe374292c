#pragma once
#include <QList>
#include <memory>

#include "ui/TelaCadastro.h"

class FotoCadastro;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

// The users of the system with their passwords, rights and pictures.
class Funcionario : public TelaCadastro {
    Q_OBJECT
public:
    explicit Funcionario(QWidget* pai = nullptr);
    ~Funcionario() override;

    // Botao(5): switches the camera on and off; Botao(7) takes the picture.
    void alternaCamera();
    void tiraFoto();
    // A click on the picture: one from disk.
    void escolheImagem();

protected:
    void limpaCampos() override;
    void mostraRegistro(const Recordset& rs) override;
    bool validaAntesDeGravar() override;
    bool validaAntesDeExcluir() override;
    QString impedimentoAoGravar() override;
    QString impedimentoAoExcluir() override;
    void gravaCampos(Recordset& rs) override;
    bool eventFilter(QObject* alvo, QEvent* e) override;

private:
    void conferenciaSenha();
    void mostraImagem(const QString& caminho);

    QList<QLineEdit*> m_texto;   // Text1(0..7); Text1(8) is the multi-line m_obs
    QPlainTextEdit* m_obs = nullptr;
    QLineEdit* m_caminhoImagem = nullptr;
    QLabel* m_imagem = nullptr;
    QLabel* m_codigo = nullptr;
    QList<QCheckBox*> m_ler, m_alterar, m_sistema;
    FotoCadastro* m_foto = nullptr;
};
