#include "orders/Ordem.h"

#include "data/Recordset.h"

namespace {

struct ColunaTexto { const char* nome; QString Ordem::*membro; };
struct ColunaFlag { const char* nome; bool Ordem::*membro; };
struct ColunaDinheiro { const char* nome; Dinheiro Ordem::*membro; };
struct ColunaInteiro { const char* nome; qint64 Ordem::*membro; };

const ColunaInteiro inteiros[] = {
    {"CodOs", &Ordem::CodOs}, {"Pendurado", &Ordem::Pendurado},
};

const ColunaTexto textos[] = {
    {"CodFabrica", &Ordem::CodFabrica}, {"CodCliente", &Ordem::CodCliente},
    {"NomeCliente", &Ordem::NomeCliente}, {"CpfCnpj", &Ordem::CpfCnpj}, {"Endereco", &Ordem::Endereco},
    {"Ncasa", &Ordem::Ncasa}, {"Bairro", &Ordem::Bairro}, {"Cidade", &Ordem::Cidade},
    {"Telefone", &Ordem::Telefone}, {"Celular", &Ordem::Celular}, {"Tipo", &Ordem::Tipo},
    {"Marca", &Ordem::Marca}, {"Modelo", &Ordem::Modelo}, {"NumeroSerie", &Ordem::NumeroSerie},
    {"CorProduto", &Ordem::CorProduto}, {"Certificado", &Ordem::Certificado},
    {"NotaFiscal", &Ordem::NotaFiscal}, {"DataNota", &Ordem::DataNota}, {"Revendedor", &Ordem::Revendedor},
    {"EstadoAparelho", &Ordem::EstadoAparelho}, {"Acessorio", &Ordem::Acessorio},
    {"Sintoma", &Ordem::Sintoma}, {"Observacao", &Ordem::Observacao}, {"Armazenado", &Ordem::Armazenado},
    {"Img1Aparelho", &Ordem::Img1Aparelho}, {"Img2Aparelho", &Ordem::Img2Aparelho},
    {"Img3Aparelho", &Ordem::Img3Aparelho}, {"DataEntrada", &Ordem::DataEntrada},
    {"DataSaida", &Ordem::DataSaida}, {"DataContato", &Ordem::DataContato},
    {"DadosContato", &Ordem::DadosContato}, {"DataEntrega", &Ordem::DataEntrega},
    {"HoraSolicitada", &Ordem::HoraSolicitada}, {"Tecnico", &Ordem::Tecnico},
    {"CodTecnico", &Ordem::CodTecnico}, {"DefeitoReal", &Ordem::DefeitoReal},
    {"Servicoreal", &Ordem::Servicoreal}, {"ServicoExecutado", &Ordem::ServicoExecutado},
    {"StatusConserto", &Ordem::StatusConserto}, {"OsAlterado", &Ordem::OsAlterado},
};

const ColunaDinheiro valores[] = {
    {"ValorPorcentagem", &Ordem::ValorPorcentagem}, {"MaoObra", &Ordem::MaoObra},
    {"ValorVenda", &Ordem::ValorVenda}, {"ValorPecas", &Ordem::ValorPecas},
    {"ValorDescontoPeca", &Ordem::ValorDescontoPeca}, {"ValorPagar", &Ordem::ValorPagar},
    {"ValorDesconto", &Ordem::ValorDesconto}, {"ValorPago", &Ordem::ValorPago},
};

const ColunaFlag flags[] = {
    {"TipoPorcentagem", &Ordem::TipoPorcentagem}, {"Consertado", &Ordem::Consertado},
    {"Orcamento", &Ordem::Orcamento}, {"AguardaPeca", &Ordem::AguardaPeca}, {"Devolver", &Ordem::Devolver},
    {"Aprovado", &Ordem::Aprovado}, {"Recusado", &Ordem::Recusado}, {"Contato", &Ordem::Contato},
    {"Garantia", &Ordem::Garantia}, {"Fabrica", &Ordem::Fabrica}, {"ChamadoTecnico", &Ordem::ChamadoTecnico},
    {"OrdemBloqueada", &Ordem::OrdemBloqueada}, {"Saida", &Ordem::Saida}, {"DtEntrega", &Ordem::DtEntrega},
    {"Excluidos", &Ordem::Excluidos},
};

template <typename F>
void cadaColuna(F&& f)
{
    for (const auto& c : inteiros)
        f(QLatin1String(c.nome), [&](const Ordem& o) { return QVariant(o.*c.membro); },
          [&](Ordem& o, const Recordset& rs) { o.*c.membro = rs.inteiro(QLatin1String(c.nome)); });
    for (const auto& c : textos)
        f(QLatin1String(c.nome), [&](const Ordem& o) { return QVariant(o.*c.membro); },
          [&](Ordem& o, const Recordset& rs) { o.*c.membro = rs.texto(QLatin1String(c.nome)); });
    for (const auto& c : valores)
        f(QLatin1String(c.nome), [&](const Ordem& o) { return QVariant((o.*c.membro).centavos()); },
          [&](Ordem& o, const Recordset& rs) { o.*c.membro = rs.dinheiro(QLatin1String(c.nome)); });
    for (const auto& c : flags)
        f(QLatin1String(c.nome), [&](const Ordem& o) { return QVariant(o.*c.membro ? -1 : 0); },
          [&](Ordem& o, const Recordset& rs) { o.*c.membro = rs.flag(QLatin1String(c.nome)); });
}

} // namespace

bool Ordem::adicionarSintoma(const SintomaOrdem& s)
{
    for (const SintomaOrdem& existente : sintomas)
        if (existente.CodDef == s.CodDef)
            return false;
    sintomas << s;
    return true;
}

namespace ColunasOrdem {

QStringList nomes()
{
    QStringList r;
    cadaColuna([&](const QString& nome, auto, auto) { r << nome; });
    return r;
}

QVariant valor(const Ordem& o, const QString& coluna)
{
    QVariant r;
    cadaColuna([&](const QString& nome, auto obter, auto) {
        if (nome.compare(coluna, Qt::CaseInsensitive) == 0)
            r = obter(o);
    });
    return r;
}

void ler(const Recordset& rs, Ordem& o)
{
    o.CodOsAut = rs.inteiro(QStringLiteral("CodOsAut"));
    o.lidas.clear();
    cadaColuna([&](const QString& nome, auto obter, auto pegar) {
        pegar(o, rs);
        o.lidas.insert(nome, obter(o));
    });
}

QStringList emConflito(const Ordem& o, const Recordset& rs)
{
    Ordem guardada;
    ler(rs, guardada);
    QStringList r;
    cadaColuna([&](const QString& nome, auto obter, auto) {
        const auto lida = o.lidas.constFind(nome);
        if (lida == o.lidas.constEnd())
            return;
        const QVariant minha = obter(o), deles = obter(guardada);
        if (minha != lida.value() && deles != lida.value() && deles != minha)
            r << nome;
    });
    return r;
}

void escrever(const Ordem& o, Recordset& rs)
{
    cadaColuna([&](const QString& nome, auto obter, auto) {
        const QVariant v = obter(o);
        const auto it = o.lidas.constFind(nome);
        if (it == o.lidas.constEnd() || it.value() != v)
            rs.definir(nome, v);
    });
}

}

namespace ColunasFilhas {

SintomaOrdem lerSintoma(const Recordset& rs)
{
    return {rs.texto(QStringLiteral("CodDef")), rs.texto(QStringLiteral("DefeitoOS"))};
}

ServicoOrdem lerServico(const Recordset& rs)
{
    return {rs.texto(QStringLiteral("CodServico")), rs.texto(QStringLiteral("Servico")),
            rs.dinheiro(QStringLiteral("ValorDesconto")), rs.dinheiro(QStringLiteral("ValorObra")),
            rs.dinheiro(QStringLiteral("ValorObraMinimo"))};
}

void escreverSintoma(const SintomaOrdem& s, Recordset& rs)
{
    rs.definir(QStringLiteral("CodDef"), s.CodDef);
    rs.definir(QStringLiteral("DefeitoOS"), s.DefeitoOS);
}

void escreverServico(const ServicoOrdem& s, Recordset& rs)
{
    rs.definir(QStringLiteral("CodServico"), s.CodServico);
    rs.definir(QStringLiteral("Servico"), s.Servico);
    rs.definir(QStringLiteral("ValorDesconto"), s.ValorDesconto);
    rs.definir(QStringLiteral("ValorObra"), s.ValorObra);
    rs.definir(QStringLiteral("ValorObraMinimo"), s.ValorObraMinimo);
}

namespace {

struct TextoPeca { const char* nome; QString PecaAplicada::*membro; };
struct ValorPeca { const char* nome; Dinheiro PecaAplicada::*membro; };

const TextoPeca textosPeca[] = {
    {"codpeca", &PecaAplicada::codpeca}, {"Descricao", &PecaAplicada::Descricao},
    {"Aliquota", &PecaAplicada::Aliquota}, {"TipoAliquota", &PecaAplicada::TipoAliquota},
    {"Fornecedor", &PecaAplicada::Fornecedor}, {"Departamento", &PecaAplicada::Departamento},
    {"Armazenado", &PecaAplicada::Armazenado}, {"Grupo", &PecaAplicada::Grupo},
    {"SubGrupo", &PecaAplicada::SubGrupo}, {"Unidade", &PecaAplicada::Unidade}, {"Modulo", &PecaAplicada::Modulo},
};
const ValorPeca valoresPeca[] = {
    {"ValorCusto", &PecaAplicada::ValorCusto}, {"ValorVenda", &PecaAplicada::ValorVenda},
    {"ValorDesconto", &PecaAplicada::ValorDesconto}, {"ValorTotal", &PecaAplicada::ValorTotal},
    {"ValorMinimo", &PecaAplicada::ValorMinimo},
};

} // namespace

PecaAplicada lerPeca(const Recordset& rs)
{
    PecaAplicada p;
    p.CodPecAut = rs.inteiro(QStringLiteral("CodPecAut"));
    for (const auto& c : textosPeca)
        p.*c.membro = rs.texto(QLatin1String(c.nome));
    for (const auto& c : valoresPeca)
        p.*c.membro = rs.dinheiro(QLatin1String(c.nome));
    p.Quantidade = rs.quantidade(QStringLiteral("Quantidade"));
    p.ControleEstoque = rs.flag(QStringLiteral("ControleEstoque"));
    p.BaixaEstoque = rs.flag(QStringLiteral("BaixaEstoque"));
    p.QuantidadeBaixada = rs.quantidade(QStringLiteral("QuantidadeBaixada"));
    return p;
}

void escreverPeca(const PecaAplicada& p, Recordset& rs)
{
    for (const auto& c : textosPeca)
        rs.definir(QLatin1String(c.nome), p.*c.membro);
    for (const auto& c : valoresPeca)
        rs.definir(QLatin1String(c.nome), p.*c.membro);
    rs.definir(QStringLiteral("Quantidade"), p.Quantidade);
    rs.definirFlag(QStringLiteral("ControleEstoque"), p.ControleEstoque);
    rs.definirFlag(QStringLiteral("BaixaEstoque"), p.BaixaEstoque);
    rs.definir(QStringLiteral("QuantidadeBaixada"), p.QuantidadeBaixada);
}

}
