#include "cash/MovimentoSimples.h"

#include <QTableView>
#include <QVBoxLayout>

#include "cash/ModeloMovimento.h"
#include "ui/Pintura.h"
#include "ui/RegistroTelas.h"

using namespace MovimentoCaixa;

MovimentoSimples::MovimentoSimples(QWidget* pai) : QWidget(pai)
{
    setObjectName(QStringLiteral("MovimentoSimples"));
    setWindowTitle(QStringLiteral("Lista de produdos e serviço efetuados pelo caixa"));
    auto* raiz = new QVBoxLayout(this);
    m_modelo = new ModeloMovimento(this);
    m_modelo->defineColunas({Cod, CodAutVen, CodAutOS, CodVenda, Quantidade_, ValTotal, ValDescontoVenda, ValPago,
                             ValTroco, FormaPagamento, TipoVenda, TipoAparelho, Tecnico, Vendedor, Caixa, Data, Hora,
                             Cliente});
    m_grade = m_modelo->novaGrade(this);
    raiz->addWidget(m_grade);
    resize(1000, 420);
    Pintura::pinta(this);
}

void MovimentoSimples::mostra(std::shared_ptr<const Lista> lista) { m_modelo->define(std::move(lista)); }

TOLDEX_REGISTRA_TELA(MovimentoSimples)
