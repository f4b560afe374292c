#include "registers/Agenda.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include "data/FuncoesMascaras.h"
#include "data/Recordset.h"
#include "registers/BuscaCodigo.h"
#include "registers/CamposDocumento.h"
#include "ui/Dialogos.h"
#include "ui/RegistroTelas.h"

Agenda::Agenda(QWidget* pai) : TelaCadastro(pai)
{
    auto* busca = new QLineEdit(corpo());
    busca->setObjectName(QStringLiteral("Text2"));
    busca->setMaxLength(12);
    busca->setPlaceholderText(QStringLiteral("Código do contato"));
    m_codigo = new QLabel(corpo());
    m_codigo->setObjectName(QStringLiteral("Label2(0)"));
    m_codigo->setMinimumWidth(90);
    m_codigo->setFrameShape(QFrame::StyledPanel);

    const QStringList rotulos = {QStringLiteral("Nome"),     QStringLiteral("Endereço"), QStringLiteral("Telefone"),
                                 QStringLiteral("E-mail"),   QStringLiteral("Empresa"),  QStringLiteral("CPF/CNPJ"),
                                 QStringLiteral("IE/RG")};
    const QStringList colunas = {QStringLiteral("Nome"),  QStringLiteral("Endereco"),    QStringLiteral("Telefone"),
                                 QStringLiteral("Email"), QStringLiteral("NomeEmpresa"), QStringLiteral("CpfCnpj"),
                                 QStringLiteral("IeRg")};
    const QList<int> maximos = {80, 120, 30, 80, 80, 18, 20};
    auto* grade = new QGridLayout(corpo());
    grade->setContentsMargins(0, 0, 0, 0);
    grade->addWidget(new QLabel(QStringLiteral("Pesquisar código"), corpo()), 0, 0);
    grade->addWidget(busca, 0, 1);
    grade->addWidget(new QLabel(QStringLiteral("Código"), corpo()), 1, 0);
    grade->addWidget(m_codigo, 1, 1, Qt::AlignLeft);
    using T = CampoCadastro::Tipo;
    campos() << CampoCadastro{m_codigo, QStringLiteral("Cod"), T::Exibicao};
    for (int i = 0; i < colunas.size(); ++i) {
        auto* t = new QLineEdit(corpo());
        t->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        t->setMaxLength(maximos[i]);
        grade->addWidget(new QLabel(rotulos[i], corpo()), i + 2, 0);
        grade->addWidget(t, i + 2, 1);
        // The document is copied by the screen itself: digits kept, shown masked.
        campos() << CampoCadastro{t, colunas[i] == QLatin1String("CpfCnpj") ? QString() : colunas[i], T::Texto};
    }
    grade->setColumnStretch(1, 1);
    grade->setRowStretch(colunas.size() + 2, 1);
    m_cpfCnpj = corpo()->findChild<QLineEdit*>(QStringLiteral("Text1(5)"));
    CamposDocumento::preparaCnpjCpf(m_cpfCnpj);

    def().tabela = QStringLiteral("Contato");
    def().titulo = QStringLiteral("Agenda");
    def().unidade = QStringLiteral("contatos");
    def().colunaOrdem = QStringLiteral("Nome");  // the engine numbers Cod
    def().soVivos = false;
    def().exclusaoSempreFisica = true;
    def().dicaSalvar = QStringLiteral("Salva registro");
    def().dicaCancelar = QStringLiteral("Cancela alteração");
    def().buscaViva = busca;
    def().condicaoBuscaViva = [](Banco& banco, const QString& texto) {
        return BuscaCodigo::codigoEColuna(banco, QStringLiteral("Contato"), QStringLiteral("Cod"), {}, texto);
    };
    adicionaBotao(QStringLiteral("&Anterior"), QStringLiteral("Contato anterior"));
    adicionaBotao(QStringLiteral("&Próximo"), QStringLiteral("Próximo contato"));
    adicionaBotao(QStringLiteral("&Fechar"), QStringLiteral("Fecha a agenda"));
    connect(botao(2), &QPushButton::clicked, this, [this] { irAnterior(); });
    connect(botao(3), &QPushButton::clicked, this, [this] { irProximo(); });
    resize(620, 420);
    iniciar();
}

bool Agenda::validaAntesDeGravar()
{
    return CamposDocumento::checaSeDigitado(m_cpfCnpj);
}

void Agenda::limpaCampos()
{
    TelaCadastro::limpaCampos();
    CamposDocumento::mostraCnpjCpf(m_cpfCnpj, QString());
}

void Agenda::mostraRegistro(const Recordset& rs)
{
    TelaCadastro::mostraRegistro(rs);
    CamposDocumento::mostraCnpjCpf(m_cpfCnpj, rs.texto(QStringLiteral("CpfCnpj")));
}

void Agenda::gravaCampos(Recordset& rs)
{
    TelaCadastro::gravaCampos(rs);
    rs.definir(QStringLiteral("CpfCnpj"), CamposDocumento::paraGravar(m_cpfCnpj->text(), MascaraCnpjCpf));
}

TOLDEX_REGISTRA_TELA(Agenda)
