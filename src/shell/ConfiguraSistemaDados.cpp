#include "shell/ConfiguraSistemaDados.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include "data/ArquivoIni.h"
#include "data/Banco.h"
#include "data/Dinheiro.h"
#include "data/Esquema.h"
#include "data/Transacao.h"
#include "shell/AbaRecursos.h"

namespace ConfiguraSistemaDados {

namespace {
CampoEmpresa texto(const char* col, const QString& ctl, const QString& padrao = {})
{
    return {QString::fromLatin1(col), ctl, TipoCampo::Texto, padrao};
}
CampoEmpresa flag(const char* col, const QString& ctl) { return {QString::fromLatin1(col), ctl, TipoCampo::Flag, {}}; }
CampoEmpresa numero(const char* col, const QString& ctl, const QString& padrao)
{
    return {QString::fromLatin1(col), ctl, TipoCampo::Numero, padrao};
}
QString idx(const char* nome, int i) { return QStringLiteral("%1(%2)").arg(QLatin1String(nome)).arg(i); }
} // namespace

const QList<CampoEmpresa>& camposEmpresa()
{
    static const QList<CampoEmpresa> c = [] {
        QList<CampoEmpresa> l;
        const char* textos[] = {"NomeEmpresa", "EnderecoEmpresa", "Site",       "Telefone",    "EmailSac",
                                "TelSAC",      "EmailSuporte",    "TelSuporte", "EmailVendas", "TelVendas",
                                "CpfCnpj",     "IE"};
        for (int i = 0; i < 12; ++i)
            l << texto(textos[i], idx("Text1", i));
        const char* mensagens[] = {"MensagemEntrada", "MensagemSaida", "MensagemVenda"};
        const char* imprimeMens[] = {"ImpriMenEntrada", "ImpriMenSaida", "ImpriMenVendas"};
        for (int i = 0; i < 3; ++i) {
            l << texto(mensagens[i], idx("Text2", i));
            l << flag(imprimeMens[i], idx("Check2", i));
        }
        l << texto("SenhaVenda", QStringLiteral("Text9"));
        l << numero("DiaAviso", QStringLiteral("ComboDia"), QStringLiteral("3"));
        l << texto("DefineMenu", QStringLiteral("CMenu"), QStringLiteral("04-Ordem serviço"));
        l << numero("CodOs", QStringLiteral("TxtOS"), QStringLiteral("0"));
        l << flag("AtivaOs", QStringLiteral("AtvOs"));
        l << numero("CodOsfabrica", QStringLiteral("TxtOsFabrica"), QStringLiteral("0"));
        l << flag("AtivaOsFabrica", QStringLiteral("AtvOsFabrica"));
        l << texto("PastaImagem", QStringLiteral("TxtImagem"), QStringLiteral("Toldex\\Imagem"));
        const char* linhas[] = {"Nome", "Endereco", "Site", "Sac", "Suporte", "Vendas", "CpfCnpj"};
        const char* imprime[] = {"ImpriNome", "ImpriEndereco", "ImpriSite", "ImpriSAC",
                                 "ImpriSuporte", "ImpriVendas", "ImpriCPFCNPJ"};
        for (int i = 0; i < 7; ++i) {
            l << flag(imprime[i], idx("Check1", i));
            l << CampoEmpresa{QLatin1String(linhas[i]) + QStringLiteral("Negrito"), idx("Check1", i + 8), TipoCampo::Flag, {}};
            // The company's name stands out on a sheet's head; the document number is small print.
            const QString tamanho = i == 0 ? QStringLiteral("12") : i == 6 ? QStringLiteral("8") : QStringLiteral("10");
            l << CampoEmpresa{QLatin1String(linhas[i]) + QStringLiteral("Tamanho"), idx("Tamanho", i), TipoCampo::Numero,
                              tamanho};
        }
        const char* opcoes[] = {"OsCaixa", "TipoLetra", "Menuusuario", "OSAbrePesquisa", "OSAbreCompleta"};
        for (int i = 0; i < 5; ++i)
            l << flag(opcoes[i], idx("Check4", i + 1));
        l << flag("PorcentSN", QStringLiteral("Check5"));
        l << flag("DadoNota", QStringLiteral("Check6"));
        l << flag("AtivaSer", QStringLiteral("Check7"));
        l << flag("AtivaDef", QStringLiteral("Check8"));
        l << texto("NomeServidor", QStringLiteral("TxtServidor"));
        l << AbaRecursos::campos();
        return l;
    }();
    return c;
}

QVariantMap leEmpresa(Banco& banco)
{
    QSqlQuery q = banco.executar(QStringLiteral("SELECT * FROM Empresa ORDER BY Chave"));
    QVariantMap r;
    if (!q.next())
        return r;
    const QSqlRecord rec = q.record();
    for (const CampoEmpresa& c : camposEmpresa()) {
        const QVariant v = rec.value(c.coluna);
        if (c.tipo == TipoCampo::Flag)
            r.insert(c.coluna, !v.isNull() && v.toInt() != 0);
        else
            r.insert(c.coluna, v.isNull() ? QString() : v.toString());
    }
    r.insert(QStringLiteral("TesteOk"), rec.value(QStringLiteral("TesteOk")).toString());
    return r;
}

QVariantMap comPadroes(QVariantMap valores)
{
    for (const CampoEmpresa& c : camposEmpresa()) {
        if (c.tipo == TipoCampo::Flag) {
            valores[c.coluna] = valores.value(c.coluna).toBool();
            continue;
        }
        const QString t = valores.value(c.coluna).toString().trimmed();
        // Empty text is "" in the store, never NULL.
        valores[c.coluna] = t.isEmpty() ? (c.padrao.isEmpty() ? QStringLiteral("") : c.padrao)
                                        : valores.value(c.coluna).toString();
    }
    return valores;
}

const QList<Catalogo>& catalogos()
{
    using T = TipoColuna;
    static const QList<Catalogo> c = {
        {QStringLiteral("Tipo"), QStringLiteral("PorcenTecnico"), QStringLiteral("CodTipo"), QStringLiteral("CodTipo"),
         {{QStringLiteral("Tipo"), QStringLiteral("Tipo"), T::Texto},
          {QStringLiteral("ValorTipo"), QStringLiteral("Valor"), T::Dinheiro},
          {QStringLiteral("porcentagem"), QStringLiteral("Porcentagem"), T::Flag}},
         0, QStringLiteral("Coloque o tipo")},
        {QStringLiteral("Marca"), QStringLiteral("MarcaProduto"), QStringLiteral("CodMarca"), QStringLiteral("CodMarca"),
         {{QStringLiteral("MarcaAparelho"), QStringLiteral("Marca"), T::Texto}},
         0, QStringLiteral("Coloque a Marca")},
        {QStringLiteral("Servico"), QStringLiteral("ServicoExecutado"), QStringLiteral("Codigo"),
         QStringLiteral("CodServico"),
         {{QStringLiteral("CodServico"), QStringLiteral("Código"), T::Texto},
          {QStringLiteral("Servico"), QStringLiteral("Serviço"), T::Texto},
          {QStringLiteral("ValorObra"), QStringLiteral("Valor"), T::Dinheiro},
          {QStringLiteral("ValorObraMinimo"), QStringLiteral("Valor mínimo"), T::Dinheiro}},
         -1, {}},
        {QStringLiteral("Defeito"), QStringLiteral("DefeitoReclamado"), QStringLiteral("Codigo"),
         QStringLiteral("CodDefeito"),
         {{QStringLiteral("CodDefeito"), QStringLiteral("Código"), T::Texto},
          {QStringLiteral("Defeito"), QStringLiteral("Defeito"), T::Texto}},
         -1, {}},
    };
    return c;
}

QList<Linha> leCatalogo(Banco& banco, const Catalogo& c)
{
    QStringList cols;
    for (const ColunaCatalogo& k : c.colunas)
        cols << k.coluna;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT %1, %2 FROM %3 ORDER BY %4, %1")
                                     .arg(c.chave, cols.join(QStringLiteral(", ")), c.tabela, c.ordem));
    QList<Linha> r;
    while (q.next()) {
        Linha l;
        l.chave = q.value(0).toLongLong();
        for (int i = 0; i < c.colunas.size(); ++i) {
            const QVariant v = q.value(i + 1);
            switch (c.colunas[i].tipo) {
            case TipoColuna::Dinheiro:
                l.valores << Dinheiro::deCentavos(v.toLongLong()).texto();
                break;
            case TipoColuna::Flag:
                l.valores << (v.toInt() != 0 ? QStringLiteral("-1") : QStringLiteral("0"));
                break;
            case TipoColuna::Texto:
                l.valores << (v.isNull() ? QString() : v.toString());
                break;
            }
        }
        l.lidos = l.valores;
        r << l;
    }
    return r;
}

std::optional<QString> textoDinheiro(const QString& digitado)
{
    if (digitado.trimmed().isEmpty())
        return QStringLiteral("0,00");
    const auto d = Dinheiro::lerTexto(digitado.trimmed());
    if (!d)
        return std::nullopt;
    return d->texto();
}

namespace {
QVariantList valoresDaLinha(const Catalogo& c, const Linha& l)
{
    QVariantList r;
    for (int i = 0; i < c.colunas.size(); ++i) {
        const QString t = l.valores.value(i);
        switch (c.colunas[i].tipo) {
        case TipoColuna::Dinheiro: {
            const auto d = Dinheiro::lerTexto(t.trimmed());
            if (!d)
                throw ErroBanco(QStringLiteral("Valor inválido na grade: %1").arg(t));
            r << d->centavos();
            break;
        }
        case TipoColuna::Flag:
            r << (t.toInt() != 0 ? -1 : 0);
            break;
        case TipoColuna::Texto:
            r << (t.isNull() ? QStringLiteral("") : t);
            break;
        }
    }
    return r;
}
} // namespace

namespace {

QVariant valorEmpresa(const CampoEmpresa& c, const QVariantMap& v)
{
    if (c.tipo == TipoCampo::Flag)
        return v.value(c.coluna).toBool() ? -1 : 0;
    if (c.tipo == TipoCampo::Numero)
        return v.value(c.coluna).toString().toLongLong();
    return v.value(c.coluna).toString();
}

// The one Empresa row: only the columns the user changed, each still as it was read.
void gravaEmpresa(Banco& banco, const QVariantMap& lida, const QVariantMap& empresa)
{
    const QVariantMap v = comPadroes(empresa);
    const QVariant chave = banco.escalar(QStringLiteral("SELECT MIN(Chave) FROM Empresa"));
    if (chave.isNull()) {
        QStringList cols;
        QVariantList vals;
        for (const CampoEmpresa& c : camposEmpresa()) {
            cols << c.coluna;
            vals << valorEmpresa(c, v);
        }
        banco.inserir(*Esquema::tabela(QStringLiteral("Empresa")), cols, vals);
        return;
    }
    QStringList sets, conds{QStringLiteral("Chave = ?")};
    QVariantList vals, condVals{chave};
    for (const CampoEmpresa& c : camposEmpresa()) {
        const bool mudou = c.tipo == TipoCampo::Flag
            ? empresa.value(c.coluna).toBool() != lida.value(c.coluna).toBool()
            : empresa.value(c.coluna).toString() != lida.value(c.coluna).toString();
        if (!mudou && lida.contains(c.coluna))
            continue;
        sets << c.coluna + QStringLiteral(" = ?");
        vals << valorEmpresa(c, v);
        if (!lida.contains(c.coluna))
            continue;
        if (c.tipo == TipoCampo::Flag) {
            conds << QStringLiteral("(CASE WHEN COALESCE(%1, 0) <> 0 THEN 1 ELSE 0 END) = ?").arg(c.coluna);
            condVals << (lida.value(c.coluna).toBool() ? 1 : 0);
        } else {
            conds << QStringLiteral("COALESCE(CAST(%1 AS TEXT), '') = ?").arg(c.coluna);
            condVals << lida.value(c.coluna).toString();
        }
    }
    if (sets.isEmpty())
        return;
    QSqlQuery q = banco.executar(QStringLiteral("UPDATE Empresa SET %1 WHERE %2")
                                     .arg(sets.join(QStringLiteral(", ")), conds.join(QStringLiteral(" AND "))),
                                 vals + condVals);
    if (q.numRowsAffected() != 1)
        throw RegistroAlterado(false);
}

void gravaCatalogo(Banco& banco, const Catalogo& c, const Grade& g)
{
    for (qint64 k : g.removidas)
        banco.executar(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(c.tabela, c.chave), {k});
    QStringList ccols;
    for (const ColunaCatalogo& k : c.colunas)
        ccols << k.coluna;
    for (const Linha& l : g.linhas) {
        const QVariantList lv = valoresDaLinha(c, l);
        if (l.chave < 0) {
            banco.inserir(*Esquema::tabela(c.tabela), ccols, lv);
            continue;
        }
        if (l.valores == l.lidos)
            continue;
        QStringList sets, conds{c.chave + QStringLiteral(" = ?")};
        QVariantList condVals{l.chave};
        const QVariantList lidos = valoresDaLinha(c, Linha{l.chave, l.lidos, {}});
        for (int i = 0; i < ccols.size(); ++i) {
            sets << ccols[i] + QStringLiteral(" = ?");
            conds << ccols[i] + QStringLiteral(" IS NOT DISTINCT FROM ?");
            condVals << lidos.value(i);
        }
        QSqlQuery q = banco.executar(QStringLiteral("UPDATE %1 SET %2 WHERE %3")
                                         .arg(c.tabela, sets.join(QStringLiteral(", ")),
                                              conds.join(QStringLiteral(" AND "))),
                                     lv + condVals);
        if (q.numRowsAffected() != 1)
            throw RegistroAlterado(false);
    }
}

} // namespace

void grava(Banco& banco, const QVariantMap& lida, const QVariantMap& empresa, const QMap<QString, Grade>& grades)
{
    Transacao t(banco);
    gravaEmpresa(banco, lida, empresa);
    for (const Catalogo& c : catalogos())
        if (grades.contains(c.nome))
            gravaCatalogo(banco, c, grades[c.nome]);
    t.commit();
}

const QList<ChaveIni>& chavesIni()
{
    static const QList<ChaveIni> c = [] {
        QList<ChaveIni> l;
        const QString imp = QStringLiteral("Impressao");
        l << ChaveIni{QStringLiteral("Imagem"), QStringLiteral("Foto")}
          << ChaveIni{QStringLiteral("Imagem"), QStringLiteral("FotoImprimir")}
          << ChaveIni{QStringLiteral("PDV"), QStringLiteral("PontoVenda")};
        for (const char* k : {"NOsEntrada", "NOsSaida", "Venda", "Visita"})
            l << ChaveIni{imp, QLatin1String(k), true};
        for (const char* k : {"AutoEntrada", "AutoSaida", "AutoVenda", "AutoVisita", "Autoimpressora", "AutoLinha",
                              "FotoImp", "ImprimePadrao", "ImprimeWord", "OrdemEntrada", "OrdemSaida",
                              "OrdemOrcamento", "OrdemDevolucao", "DiretoEntrada", "AbreEntrada", "EditaEntrada",
                              "DiretoSaida", "AbreSaida", "EditaSaida", "DiretoOrca", "AbreOrca", "EditaOrca",
                              "DiretoDevo", "AbreDevo", "EditaDevo"})
            l << ChaveIni{imp, QLatin1String(k)};
        return l;
    }();
    return c;
}

QMap<QString, QString> leIni(const QString& arquivo)
{
    const ArquivoIni ini(arquivo);
    QMap<QString, QString> r;
    for (const ChaveIni& c : chavesIni())
        r.insert(c.secao + QLatin1Char('/') + c.chave, ini.ler(c.secao, c.chave));
    return r;
}

bool gravaIni(const QString& arquivo, const QMap<QString, QString>& valores, QString* erro)
{
    ArquivoIni ini(arquivo);
    for (const ChaveIni& c : chavesIni()) {
        const QString nome = c.secao + QLatin1Char('/') + c.chave;
        if (!valores.contains(nome))
            continue;
        QString v = valores.value(nome);
        if (c.copias && v.trimmed().isEmpty())
            v = QStringLiteral("1");
        if (!ini.gravar(c.secao, c.chave, v, erro))
            return false;
    }
    return true;
}

}
