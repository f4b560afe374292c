#include "Carga.h"

#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QTextStream>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Numeracao.h"
#include "data/Transacao.h"

namespace {

const QStringList nomes = {"José", "Maria", "João", "Ana", "Antônio", "Francisca", "Carlos", "Paulo",
                           "Adriana", "Lucas", "Juliana", "Márcio", "Patrícia", "Luiz", "Aline", "Sebastião",
                           "Fernanda", "Raimundo", "Sandra", "Rafael", "Camila", "Gabriel", "Letícia", "Bruno"};
const QStringList sobrenomes = {"da Silva", "dos Santos", "Oliveira", "Souza", "Rodrigues", "Ferreira",
                                "Alves", "Pereira", "Lima", "Gomes", "Ribeiro", "Carvalho", "Araújo",
                                "Martins", "Rocha", "Barbosa", "Conceição", "Nascimento", "Moreira", "Cardoso"};
const QStringList tipos = {"TV", "MICROONDAS", "GELADEIRA", "LAVADORA", "SOM", "DVD", "NOTEBOOK", "VENTILADOR"};
const QStringList marcas = {"SAMSUNG", "LG", "PHILIPS", "BRASTEMP", "CONSUL", "ELECTROLUX", "SONY", "PANASONIC"};

QString sorteia(const QStringList& l) { return l.at(QRandomGenerator::global()->bounded(l.size())); }
QString digitos(int n)
{
    QString s;
    for (int i = 0; i < n; ++i)
        s += QChar('0' + QRandomGenerator::global()->bounded(10));
    return s;
}
QString nome() { return sorteia(nomes) + ' ' + sorteia(sobrenomes) + ' ' + sorteia(sobrenomes); }

void progresso(const char* oque, int feito, int total)
{
    if (feito % 100000 == 0 || feito == total)
        QTextStream(stderr) << oque << ": " << feito << "/" << total << "\n";
}

} // namespace

namespace Carga {

void clientes(Banco& b, int n)
{
    const int lote = 20000;
    for (int inicio = 0; inicio < n; inicio += lote) {
        Transacao tr(b);
        QSqlQuery q(b.db());
        q.prepare("INSERT INTO Cliente (CodCliente, NomeCliente, Endereco, Bairro, Cidade, Telefone, Celular, "
                  "CnpjCpf, DataCadastro, Excluidos) VALUES (?,?,?,?,?,?,?,?,?,?)");
        for (int i = inicio; i < qMin(n, inicio + lote); ++i) {
            q.addBindValue(i + 1);
            q.addBindValue(nome());
            q.addBindValue("Rua " + sorteia(sobrenomes) + ", " + QString::number(i % 900 + 1));
            q.addBindValue("Centro");
            q.addBindValue("São Paulo");
            q.addBindValue("11" + digitos(8));
            q.addBindValue("119" + digitos(8));
            q.addBindValue(digitos(11));
            q.addBindValue(Datas::hoje());
            q.addBindValue(i % 100 == 0 ? -1 : 0);
            if (!q.exec())
                throw ErroBanco("carga de clientes", q.lastError().text());
        }
        tr.commit();
        progresso("clientes", qMin(n, inicio + lote), n);
    }
}

void ordens(Banco& b, int n, int abertas, int clientes)
{
    const int lote = 20000;
    for (int inicio = 0; inicio < n; inicio += lote) {
        Transacao tr(b);
        QSqlQuery q(b.db());
        q.prepare("INSERT INTO OrdemServico (CodOs, CodCliente, NomeCliente, CpfCnpj, Telefone, Celular, Tipo, "
                  "Marca, Modelo, DataEntrada, DataSaida, Saida, Consertado, Orcamento, AguardaPeca, Aprovado, "
                  "Recusado, Excluidos, ValorPagar) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
        for (int i = inicio; i < qMin(n, inicio + lote); ++i) {
            // The most recent orders are the ones still in the shop.
            const bool aberta = i >= n - abertas;
            const int situacao = QRandomGenerator::global()->bounded(5);
            q.addBindValue(i + 1);
            q.addBindValue(QString::number(QRandomGenerator::global()->bounded(clientes) + 1));
            q.addBindValue(nome().toUpper());
            q.addBindValue(digitos(11));
            q.addBindValue("11" + digitos(8));
            q.addBindValue("119" + digitos(8));
            q.addBindValue(sorteia(tipos));
            q.addBindValue(sorteia(marcas));
            q.addBindValue("MOD-" + digitos(4));
            q.addBindValue("2024/05/10");
            q.addBindValue(aberta ? QStringLiteral("") : QStringLiteral("2024/06/01"));
            q.addBindValue(aberta ? 0 : -1);
            q.addBindValue(situacao == 1 ? -1 : 0);
            q.addBindValue(situacao == 2 ? -1 : 0);
            q.addBindValue(situacao == 3 ? -1 : 0);
            q.addBindValue(situacao == 1 || situacao == 4 ? -1 : 0);
            q.addBindValue(situacao == 2 && i % 3 == 0 ? -1 : 0);
            q.addBindValue(i % 100 == 7 ? -1 : 0);
            q.addBindValue(qint64(QRandomGenerator::global()->bounded(100000)));
            if (!q.exec())
                throw ErroBanco("carga de ordens", q.lastError().text());
        }
        tr.commit();
        progresso("ordens", qMin(n, inicio + lote), n);
    }
}

void contadores(Banco& b)
{
    Transacao tr(b);
    const qint64 os = b.escalar("SELECT MAX(CodOs) FROM OrdemServico").toLongLong();
    const qint64 cli = b.escalar("SELECT MAX(CodCliente) FROM Cliente").toLongLong();
    b.executar("UPDATE Empresa SET CodOs = ? WHERE CodOs IS NULL OR CodOs < ?", {os, os});
    Numeracao::registrarEmitido(b, "OrdemServico", "CodOs", os);
    Numeracao::registrarEmitido(b, "Cliente", "CodCliente", cli);
    tr.commit();
}

}
