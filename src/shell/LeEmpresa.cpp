#include "shell/LeEmpresa.h"

#include "data/Funcoes.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QSysInfo>
#include <QVariant>

#include "data/Banco.h"
#include "data/Conexoes.h"
#include "data/Datas.h"
#include "data/Sessao.h"

namespace {

QVariant coluna(const QSqlRecord& r, const char* nome)
{
    const int i = r.indexOf(QLatin1String(nome));
    return i < 0 ? QVariant() : r.value(i);
}

// Flags travel as "True"/"False" text through the session; an unset column opens the
// feature, which is how shops that predate the column always worked.
QString flag(const QSqlRecord& q, const char* nome)
{
    const QVariant v = coluna(q, nome);
    if (v.isNull())
        return QStringLiteral("True");
    return v.toInt() != 0 ? QStringLiteral("True") : QStringLiteral("False");
}

QString textoOu(const QSqlRecord& q, const char* nome, const QString& padrao)
{
    const QVariant v = coluna(q, nome);
    const QString t = v.isNull() ? QString() : v.toString();
    return t.trimmed().isEmpty() ? padrao : t;
}

} // namespace

DadosEmpresa LeEmpresa(Banco& banco)
{
    Sessao& s = sessao();
    if (s.MaquinaNome.isEmpty())
        s.MaquinaNome = NomeComputador();

    DadosEmpresa d;
    QSqlQuery q = banco.executar(QStringLiteral("SELECT * FROM Empresa ORDER BY Chave"));
    // No row reads as a row of NULLs: every default below applies.
    const QSqlRecord linha = q.next() ? q.record() : QSqlRecord();
    d.lida = true;

    s.CfgOsCaixa = coluna(linha, "OsCaixa");
    s.CfgPorcentSN = coluna(linha, "PorcentSN");
    s.CfgDadoNota = flag(linha, "DadoNota");
    s.CfgAtivaSer = flag(linha, "AtivaSer");
    s.CfgAtivaDef = flag(linha, "AtivaDef");
    s.CfgTipoLetra = flag(linha, "TipoLetra");
    s.CfgMenuusuario = flag(linha, "Menuusuario");
    s.CfgDefineMenu = textoOu(linha, "DefineMenu", QStringLiteral("4"));
    s.CfgOSAbrePesquisa = flag(linha, "OSAbrePesquisa");
    s.CfgOSAbreCompleta = flag(linha, "OSAbreCompleta");
    s.CfgAtivaOs = flag(linha, "AtivaOs");
    s.CfgAtivaOsFabrica = flag(linha, "AtivaOsFabrica");
    s.CfgNomeServidor = textoOu(linha, "NomeServidor", s.MaquinaNome);
    s.CfgPastaImagem = textoOu(linha, "PastaImagem", QStringLiteral("Toldex\\Imagem"));

    // The features of the "Recursos" tab stay off on a store that never had them.
    auto ligado = [&](const char* nome) {
        return coluna(linha, nome).toInt() != 0 ? QStringLiteral("True") : QStringLiteral("False");
    };
    s.CfgPixAtivo = ligado("PixAtivo");
    s.CfgPixChave = textoOu(linha, "PixChave", QString());
    s.CfgPixNome = textoOu(linha, "PixNome", QString());
    s.CfgPixCidade = textoOu(linha, "PixCidade", QString());
    s.CfgReciboBobina = ligado("ReciboBobina");

    d.nomeEmpresa = textoOu(linha, "NomeEmpresa", QString());
    d.testeOk = textoOu(linha, "TesteOk", QString());

    const QString backup = textoOu(linha, "DataBackup", QString());
    d.semBackup = backup.isEmpty();
    s.DataUltimoBackup = d.semBackup ? Datas::hoje() : backup;

    const QVariant dia = coluna(linha, "DiaAviso");
    s.DiasAviso = dia.isNull() ? 0 : dia.toDouble();
    return d;
}

DadosEmpresa LeEmpresa()
{
    Banco* b = Conexoes::abreConexao(1);
    if (!b)
        return {};
    DadosEmpresa d;
    try {
        d = LeEmpresa(*b);
    } catch (const ErroBanco&) {
        d = {};
    }
    Conexoes::fechaConexao(1);
    return d;
}

bool GravaMenuInicial(const QString& defineMenu)
{
    auto banco = Conexoes::nova();
    if (!banco)
        return false;
    try {
        banco->executar(QStringLiteral("UPDATE Empresa SET DefineMenu = ?"), {defineMenu});
    } catch (const ErroBanco&) {
        return false;
    }
    sessao().CfgDefineMenu = defineMenu;
    return true;
}
