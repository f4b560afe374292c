#include "registers/Defeito.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "registers/BuscaCodigo.h"
#include "ui/RegistroTelas.h"

Defeito::Defeito(QWidget* pai) : TelaCadastro(pai)
{
    auto* busca = new QGroupBox(QStringLiteral("Pesquisar (código ou marca)"), corpo());
    auto* linhaBusca = new QHBoxLayout(busca);
    auto* buscaCodigo = new QLineEdit(busca);
    buscaCodigo->setObjectName(QStringLiteral("Text2"));
    buscaCodigo->setPlaceholderText(QStringLiteral("Código"));
    auto* buscaMarca = new QLineEdit(busca);
    buscaMarca->setObjectName(QStringLiteral("Text3"));
    buscaMarca->setPlaceholderText(QStringLiteral("Marca"));
    for (QLineEdit* b : {buscaCodigo, buscaMarca}) {
        b->setMaxLength(60);
        linhaBusca->addWidget(b);
    }

    m_codigo = new QLabel(corpo());
    m_codigo->setObjectName(QStringLiteral("Label2(0)"));
    m_codigo->setMinimumWidth(90);
    m_codigo->setFrameShape(QFrame::StyledPanel);
    auto linha = [this](int i, int maximo) {
        auto* t = new QLineEdit(corpo());
        t->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        t->setMaxLength(maximo);
        return t;
    };
    auto texto = [this](int i) {
        auto* t = new QPlainTextEdit(corpo());
        t->setObjectName(QStringLiteral("Text1(%1)").arg(i));
        t->setTabChangesFocus(true);
        return t;
    };
    m_marca = linha(0, 60);
    m_modelo = linha(1, 60);
    m_tipo = linha(2, 60);
    m_defeito = texto(3);
    m_solucao = texto(4);
    m_observacao = texto(5);

    auto* grade = new QGridLayout;
    grade->addWidget(new QLabel(QStringLiteral("Código"), corpo()), 0, 0);
    grade->addWidget(m_codigo, 0, 1);
    grade->addWidget(new QLabel(QStringLiteral("Marca"), corpo()), 1, 0);
    grade->addWidget(m_marca, 1, 1);
    grade->addWidget(new QLabel(QStringLiteral("Modelo"), corpo()), 1, 2);
    grade->addWidget(m_modelo, 1, 3);
    grade->addWidget(new QLabel(QStringLiteral("Tipo"), corpo()), 2, 0);
    grade->addWidget(m_tipo, 2, 1);
    grade->addWidget(new QLabel(QStringLiteral("Defeito"), corpo()), 3, 0, Qt::AlignTop);
    grade->addWidget(m_defeito, 3, 1, 1, 3);
    grade->addWidget(new QLabel(QStringLiteral("Solução"), corpo()), 4, 0, Qt::AlignTop);
    grade->addWidget(m_solucao, 4, 1, 1, 3);
    grade->addWidget(new QLabel(QStringLiteral("Observação"), corpo()), 5, 0, Qt::AlignTop);
    grade->addWidget(m_observacao, 5, 1, 1, 3);
    grade->setColumnStretch(1, 1);
    grade->setColumnStretch(3, 1);
    auto* raiz = new QVBoxLayout(corpo());
    raiz->setContentsMargins(0, 0, 0, 0);
    raiz->addWidget(busca);
    raiz->addLayout(grade, 1);

    def().tabela = QStringLiteral("DefeitoSolucionado");
    def().titulo = QStringLiteral("Cadastro de defeito");
    def().colunaOrdem = QStringLiteral("Marca");  // the engine numbers CodDefeito
    def().soVivos = false;
    def().exclusaoSempreFisica = true;
    def().dicaSalvar = QStringLiteral("salva registro");
    def().dicaCancelar = QStringLiteral("Cancela alteração");
    def().buscaViva = buscaCodigo;
    def().condicaoBuscaViva = [](Banco& banco, const QString& texto) {
        return BuscaCodigo::codigoEColuna(banco, QStringLiteral("DefeitoSolucionado"), QStringLiteral("CodDefeito"),
                                          QStringLiteral("Marca"), texto);
    };
    using T = CampoCadastro::Tipo;
    campos() = {{m_codigo, QStringLiteral("CodDefeito"), T::Exibicao},
                {m_marca, QStringLiteral("Marca"), T::Texto},
                {m_modelo, QStringLiteral("Modelo"), T::Texto},
                {m_tipo, QStringLiteral("Tipo"), T::Texto},
                {m_defeito, QStringLiteral("Defeito"), T::Texto},
                {m_solucao, QStringLiteral("Solucao"), T::Texto},
                {m_observacao, QStringLiteral("Observacao"), T::Texto}};
    adicionaBotao(QStringLiteral("&Anterior"), QStringLiteral("Registro anterior"));
    adicionaBotao(QStringLiteral("&Próximo"), QStringLiteral("Próximo registro"));
    adicionaBotao(QStringLiteral("&Fechar"), QStringLiteral("Fecha o cadastro"));
    connect(botao(2), &QPushButton::clicked, this, [this] { irAnterior(); });
    connect(botao(3), &QPushButton::clicked, this, [this] { irProximo(); });
    // Either search box reopens the rows: one is typed with a code, the other with a brand.
    connect(buscaMarca, &QLineEdit::textChanged, this, [this](const QString& t) { buscaViva(t); });
    resize(760, 560);
    iniciar();
}

TOLDEX_REGISTRA_TELA(Defeito)
