// The PIX box of the "Recursos" tab: on/off, the shop's key, and the name and city the
// payer's bank app shows.
#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include "cash/Pix.h"
#include "shell/AbaRecursos.h"
#include "ui/Dialogos.h"

namespace {
using ConfiguraSistemaDados::CampoEmpresa;
using ConfiguraSistemaDados::TipoCampo;
const QString Titulo = QStringLiteral("PIX");
}

GrupoRecurso grupoPix()
{
    GrupoRecurso g;
    g.campos = {{QStringLiteral("PixAtivo"), QStringLiteral("PixAtivo"), TipoCampo::Flag, {}},
                {QStringLiteral("PixChave"), QStringLiteral("PixChave"), TipoCampo::Texto, {}},
                {QStringLiteral("PixNome"), QStringLiteral("PixNome"), TipoCampo::Texto, {}},
                {QStringLiteral("PixCidade"), QStringLiteral("PixCidade"), TipoCampo::Texto, {}}};
    g.monta = [](QWidget* pai) {
        auto* caixa = new QGroupBox(QStringLiteral("PIX no caixa"), pai);
        caixa->setObjectName(QStringLiteral("GrupoPix"));
        auto* f = new QFormLayout(caixa);
        auto* ativo = new QCheckBox(QStringLiteral("Receber por PIX (QR code no caixa e nos recibos)"), caixa);
        ativo->setObjectName(QStringLiteral("PixAtivo"));
        f->addRow(ativo);
        auto linha = [&](const char* nome, const QString& rotulo, int maximo, const QString& dica) {
            auto* t = new QLineEdit(caixa);
            t->setObjectName(QLatin1String(nome));
            t->setMaxLength(maximo);
            t->setToolTip(dica);
            f->addRow(rotulo, t);
        };
        linha("PixChave", QStringLiteral("Chave PIX:"), 100,
              QStringLiteral("E-mail, celular (+55...), CPF/CNPJ ou chave aleatória, como o banco mostra."));
        // The box holds a little more than the payload keeps: the cut is shown on saving.
        linha("PixNome", QStringLiteral("Nome do recebedor:"), 60,
              QStringLiteral("Até %1 letras, sem acentos, como aparece no aplicativo do cliente.").arg(Pix::TamanhoNome));
        linha("PixCidade", QStringLiteral("Cidade:"), 60, QStringLiteral("Até %1 letras, sem acentos.").arg(Pix::TamanhoCidade));
        auto* nota = new QLabel(QStringLiteral("O caixa confere o recebimento no aplicativo do banco: o programa não "
                                               "se liga ao banco."),
                                caixa);
        nota->setWordWrap(true);
        f->addRow(nota);
        return caixa;
    };
    g.confere = [](QWidget* aba) {
        auto* ativo = aba->findChild<QCheckBox*>(QStringLiteral("PixAtivo"));
        auto* chave = aba->findChild<QLineEdit*>(QStringLiteral("PixChave"));
        auto* nome = aba->findChild<QLineEdit*>(QStringLiteral("PixNome"));
        auto* cidade = aba->findChild<QLineEdit*>(QStringLiteral("PixCidade"));
        if (!ativo || !chave || !nome || !cidade)
            return true;
        // A key typed while PIX is off is still checked, unless the box was left empty.
        if (!ativo->isChecked() && chave->text().trimmed().isEmpty())
            return true;
        QString erro;
        const auto lida = Pix::leChave(chave->text(), &erro);
        if (!lida) {
            Dialogos::mensagem(aba->window(), erro, Titulo, Dialogos::Icone::Aviso);
            chave->setFocus();
            return false;
        }
        chave->setText(lida->texto);
        if (!ativo->isChecked())
            return true;
        for (QLineEdit* t : {nome, cidade}) {
            const int tamanho = t == nome ? Pix::TamanhoNome : Pix::TamanhoCidade;
            const QString limpo = Pix::semAcentos(t->text(), tamanho);
            if (limpo.isEmpty()) {
                Dialogos::mensagem(aba->window(), QStringLiteral("Preencha o nome e a cidade do PIX."), Titulo,
                                   Dialogos::Icone::Aviso);
                t->setFocus();
                return false;
            }
            if (limpo != t->text()) {
                Dialogos::mensagem(aba->window(),
                                   QStringLiteral("\"%1\" vai no PIX como \"%2\" (sem acentos, até %3 letras).")
                                       .arg(t->text(), limpo)
                                       .arg(tamanho),
                                   Titulo, Dialogos::Icone::Informacao);
                t->setText(limpo);
            }
        }
        return true;
    };
    return g;
}
