// The sample shop's fill. The orders, their parts, the till and the accounts are made
// by the engine from the same expressions as the benchmark's store; the short lists (the
// products, the users, each customer's CPF) are written one row at a time.
#include "maintenance/GeradorDados.h"

#include <QSqlQuery>

#include "data/Banco.h"
#include "data/Datas.h"
#include "data/Esquema.h"
#include "data/Numeracao.h"
#include "data/Transacao.h"
#include "maintenance/GeradorSql.h"
#include "shell/Usuarios.h"

namespace {

const QStringList prenomes = {"JOSÉ", "MARIA", "JOÃO", "ANA", "ANTÔNIO", "FRANCISCA", "CARLOS", "PAULO",
                              "ADRIANA", "LUCAS", "JULIANA", "MÁRCIO", "PATRÍCIA", "LUIZ", "ALINE", "SEBASTIÃO",
                              "FERNANDA", "RAIMUNDO", "SANDRA", "RAFAEL", "CAMILA", "GABRIEL", "LETÍCIA", "BRUNO",
                              "VITÓRIA", "CLÁUDIO", "SÔNIA", "EDSON", "TEREZINHA", "WAGNER"};
const QStringList sobrenomes = {"DA SILVA", "DOS SANTOS", "OLIVEIRA", "SOUZA", "RODRIGUES", "FERREIRA", "ALVES",
                                "PEREIRA", "LIMA", "GOMES", "RIBEIRO", "CARVALHO", "ARAÚJO", "MARTINS", "ROCHA",
                                "BARBOSA", "CONCEIÇÃO", "NASCIMENTO", "MOREIRA", "CARDOSO", "TEIXEIRA", "MENDES"};
const QStringList ruas = {"RUA DAS PALMEIRAS", "AV. BRASIL", "RUA SETE DE SETEMBRO", "RUA TIRADENTES",
                          "AV. JOÃO PESSOA", "RUA DOM PEDRO II", "RUA DAS ACÁCIAS", "RUA SÃO BENEDITO",
                          "AV. GETÚLIO VARGAS", "RUA MARECHAL DEODORO", "RUA DOS IPÊS", "TRAVESSA BOA VISTA"};
const QStringList bairros = {"CENTRO", "JARDIM PRIMAVERA", "VILA NOVA", "CAMBUÍ", "TAQUARAL", "BONFIM",
                             "JARDIM EUROPA", "PARQUE INDUSTRIAL", "SÃO BERNARDO", "CASTELO"};

// One appliance that comes to the bench: what it is, what the customer says, what the
// technician does, the labour in cents and the part it takes (a code of `produtos`).
struct Aparelho {
    const char *tipo, *marca, *modelo, *defeito, *servico;
    int maoObra;
    const char* peca;
};
const Aparelho aparelhos[] = {
    {"TV", "SAMSUNG", "UN43T5300", "NÃO LIGA", "TROCA DA FONTE", 12000, "1001"},
    {"TV", "LG", "50UQ8050", "SEM IMAGEM, COM SOM", "TROCA DAS BARRAS DE LED", 18000, "1002"},
    {"TV", "PHILCO", "PTV32G70", "LIGA E DESLIGA SOZINHA", "REPARO NA PLACA PRINCIPAL", 15000, "1003"},
    {"MICROONDAS", "ELECTROLUX", "MEF41", "NÃO ESQUENTA", "TROCA DO MAGNETRON", 9000, "1004"},
    {"MICROONDAS", "PANASONIC", "NN-ST25", "PRATO NÃO GIRA", "TROCA DO MOTOR DO PRATO", 6000, "1005"},
    {"GELADEIRA", "BRASTEMP", "BRM44", "NÃO GELA", "TROCA DO TERMOSTATO", 16000, "1006"},
    {"GELADEIRA", "CONSUL", "CRM38", "FAZ BARULHO", "TROCA DO VENTILADOR", 14000, "1007"},
    {"LAVADORA", "ELECTROLUX", "LAC11", "NÃO CENTRIFUGA", "TROCA DO ATUADOR DO FREIO", 13000, "1008"},
    {"LAVADORA", "BRASTEMP", "BWK12", "VAZANDO ÁGUA", "TROCA DA VÁLVULA DE ENTRADA", 9000, "1009"},
    {"NOTEBOOK", "DELL", "INSPIRON 3520", "NÃO CARREGA", "TROCA DO CONECTOR DE CARGA", 15000, "1010"},
    {"NOTEBOOK", "LENOVO", "IDEAPAD 3", "TELA QUEBRADA", "TROCA DA TELA", 20000, "1011"},
    {"SOM", "SONY", "MHC-V13", "NÃO LÊ CD", "TROCA DA UNIDADE ÓTICA", 8000, "1012"},
    {"CAIXA DE SOM", "JBL", "PARTYBOX 110", "SEM SOM", "REPARO NO AMPLIFICADOR", 11000, "1013"},
    {"VENTILADOR", "ARNO", "VF40", "NÃO GIRA", "TROCA DO CAPACITOR", 4000, "1014"},
    {"LIQUIDIFICADOR", "MONDIAL", "L-99", "CHEIRO DE QUEIMADO", "REBOBINAGEM DO MOTOR", 7000, "1015"},
    {"AR CONDICIONADO", "LG", "S4-Q12", "NÃO GELA", "LIMPEZA E TROCA DO CAPACITOR", 22000, "1016"},
    {"CELULAR", "MOTOROLA", "MOTO G54", "NÃO CARREGA", "TROCA DO CONECTOR", 12000, "1017"},
    {"VIDEOGAME", "SONY", "PS4", "SUPERAQUECENDO", "LIMPEZA E TROCA DA PASTA TÉRMICA", 15000, "1018"},
    {"CAFETEIRA", "OSTER", "PRIMALATTE", "NÃO BOMBEIA ÁGUA", "TROCA DA BOMBA", 10000, "1019"},
    {"FRITADEIRA ELÉTRICA", "MONDIAL", "AF-30", "NÃO ESQUENTA", "TROCA DA RESISTÊNCIA", 8000, "1020"},
};

// The shelf: the parts above, then what the counter sells. Quantities in units.
struct Peca {
    const char *codigo, *descricao, *fabricante;
    int custo, venda, estoque, minimo;
};
const Peca produtos[] = {
    {"1001", "FONTE TV SAMSUNG BN44-00932", "SAMSUNG", 14500, 26000, 3, 2},
    {"1002", "KIT BARRA DE LED LG 50\"", "LG", 16000, 29000, 1, 2},
    {"1003", "CAPACITOR ELETROLÍTICO 1000UF 25V", "EPCOS", 120, 500, 40, 20},
    {"1004", "MAGNETRON 2M214", "WITOL", 9500, 17000, 2, 2},
    {"1005", "MOTOR DO PRATO MICROONDAS 220V", "GENÉRICO", 2500, 5500, 6, 3},
    {"1006", "TERMOSTATO GELADEIRA RC 0-15", "EMBRACO", 4200, 8900, 0, 2},
    {"1007", "MICROVENTILADOR GELADEIRA 127V", "ELECTROLUX", 3800, 7900, 4, 2},
    {"1008", "ATUADOR DO FREIO LAVADORA", "EMICOL", 3100, 6900, 5, 2},
    {"1009", "VÁLVULA DE ENTRADA DUPLA 127V", "EMICOL", 2700, 5900, 3, 2},
    {"1010", "CONECTOR DC JACK NOTEBOOK", "GENÉRICO", 900, 3500, 12, 5},
    {"1011", "TELA 15.6 LED SLIM 30 PINOS", "BOE", 29000, 49000, 1, 1},
    {"1012", "UNIDADE ÓTICA KSM-213", "SONY", 4500, 9900, 2, 2},
    {"1013", "CI AMPLIFICADOR TPA3116", "TEXAS", 1800, 4900, 8, 4},
    {"1014", "CAPACITOR PARTIDA 2,5UF 250V", "EPCOS", 350, 1500, 25, 10},
    {"1015", "ESCOVAS DE CARVÃO MOTOR (PAR)", "GENÉRICO", 400, 1800, 15, 6},
    {"1016", "CAPACITOR DUPLO 35+5UF", "EPCOS", 2200, 5500, 2, 3},
    {"1017", "CONECTOR USB-C CELULAR", "GENÉRICO", 600, 2500, 30, 10},
    {"1018", "PASTA TÉRMICA PRATA 3G", "IMPLASTEC", 800, 2500, 9, 5},
    {"1019", "BOMBA DE ÁGUA CAFETEIRA 15 BAR", "ULKA", 5200, 11000, 1, 2},
    {"1020", "RESISTÊNCIA FRITADEIRA 1500W", "MONDIAL", 3300, 6900, 4, 2},
    {"2001", "CONTROLE REMOTO UNIVERSAL TV", "GENÉRICO", 1200, 3500, 18, 6},
    {"2002", "CABO HDMI 2M", "GENÉRICO", 900, 2900, 22, 8},
    {"2003", "PILHA AA ALCALINA (PAR)", "DURACELL", 600, 1400, 40, 20},
    {"2004", "FUSÍVEL DE VIDRO 5A", "GENÉRICO", 30, 200, 150, 50},
    {"2005", "ESTANHO 1MM 250G", "BEST", 4800, 8900, 2, 3},
    {"2006", "ANTENA DIGITAL INTERNA", "AQUÁRIO", 2500, 5900, 5, 3},
    {"2007", "CARREGADOR UNIVERSAL NOTEBOOK 90W", "GENÉRICO", 4500, 9900, 3, 2},
    {"2008", "SUPORTE DE TV ARTICULADO 32-55", "BRASFORMA", 5500, 11900, 6, 2},
};

// The situations of the orders still in the shop, each on one of eleven rows in turn.
enum Aberta { Fila, Orcamento, Autorizado, AguardaPeca, Consertado, ConsertadoSemResposta, ADevolver,
              NaoAutorizado, Garantia, Fabrica, Chamado, Situacoes };

// The rights of the two staff users, as pairs of the users screen.
const QStringList direitosTecnico = {"OsEntLe", "OsTecLe", "OsTecAl", "ClienteLe", "ProdutoLe", "PedidoLe",
                                     "PedidoAl", "AltOrca"};
const QStringList direitosBalcao = {"ClienteLe", "ClienteAl", "OsEntLe", "OsEntAl", "OsSaiLe", "OsSaiAl",
                                    "OsTecLe", "ProdutoLe", "VendasLe", "VendasAl", "chequeLe", "chequeAl",
                                    "ContaLe", "ContaAl", "Movimento"};

QString digitosCpf(qint64 base)
{
    QString d = QStringLiteral("%1").arg(base % 1000000000, 9, 10, QLatin1Char('0'));
    for (int n = 9; n <= 10; ++n) {
        int soma = 0;
        for (int k = 0; k < n; ++k)
            soma += d.at(k).digitValue() * (n + 1 - k);
        const int resto = soma % 11;
        d += QString::number(resto < 2 ? 0 : 11 - resto);
    }
    return d;
}

QString lista(const QList<int>& valores)
{
    QStringList r;
    for (int v : valores)
        r << QString::number(v);
    return r.join(QLatin1Char(','));
}

class Loja {
public:
    Loja(Banco& b, const QDate& hoje, const GeradorDados::TamanhoLoja& t, const GeradorDados::Progresso& p)
        : b(b), g{b.motor()}, hoje(Datas::paraBanco(hoje)), t(t), p(p) {}

    void gerar()
    {
        const QList<std::pair<QString, void (Loja::*)()>> etapas = {
            {QStringLiteral("Empresa e usuários"), &Loja::empresa}, {QStringLiteral("Produtos"), &Loja::estoque},
            {QStringLiteral("Clientes"), &Loja::clientes},          {QStringLiteral("Ordens de serviço"), &Loja::ordens},
            {QStringLiteral("Peças aplicadas"), &Loja::pecas},      {QStringLiteral("Visitas"), &Loja::visitas},
            {QStringLiteral("Movimento de caixa"), &Loja::caixa},   {QStringLiteral("Contas e cheques"), &Loja::contas}};
        for (int i = 0; i < etapas.size(); ++i) {
            if (p && !p(etapas.at(i).first, i, etapas.size()))
                throw GeradorDados::Interrompido{};
            (this->*etapas.at(i).second)();
        }
        GeradorDados::contadores(b);
        Numeracao::registrarEmitido(b, "VisitaTecnico", "CodManu", 16);
        if (p && !p(QStringLiteral("Pronto"), etapas.size(), etapas.size()))
            throw GeradorDados::Interrompido{};
    }

private:
    Banco& b;
    GeradorSql g;
    QString hoje;
    GeradorDados::TamanhoLoja t;
    GeradorDados::Progresso p;

    QString antes(const QString& dias) const { return g.diasAntes(hoje, dias); }
    QString aparelho(const QString& campo, const QString& indice) const
    {
        QStringList l;
        for (const Aparelho& a : aparelhos) {
            if (campo == QLatin1String("tipo")) l << QString::fromUtf8(a.tipo);
            else if (campo == QLatin1String("marca")) l << QString::fromUtf8(a.marca);
            else if (campo == QLatin1String("modelo")) l << QString::fromUtf8(a.modelo);
            else if (campo == QLatin1String("defeito")) l << QString::fromUtf8(a.defeito);
            else if (campo == QLatin1String("servico")) l << QString::fromUtf8(a.servico);
            else if (campo == QLatin1String("peca")) l << QString::fromUtf8(a.peca);
            else l << QString::number(a.maoObra);
        }
        return g.item(l, indice);
    }

    void empresa()
    {
        b.executar(QStringLiteral("UPDATE Empresa SET NomeEmpresa = ?, EnderecoEmpresa = ?, Telefone = ?, CpfCnpj = ?, "
                                  "EmailSac = ?, MensagemEntrada = ?, ImpriMenEntrada = -1"),
                   {GeradorDados::NomeLojaExemplo, QStringLiteral("Rua das Palmeiras, 120 - Centro - Campinas/SP"),
                    QStringLiteral("1932345678"), QStringLiteral("11444777000161"),
                    QStringLiteral("contato@lojaexemplo.com.br"),
                    QStringLiteral("Aparelhos não retirados em 90 dias serão vendidos para cobrir as despesas.")});
        // One hash for the three: Argon2 is slow on purpose, and the sample's password is shown anyway.
        const QString senha = Senhas::gerar(GeradorDados::SenhaExemplo);
        const DefTabela& def = *Esquema::tabela(QStringLiteral("Usuario"));
        struct Pessoa { QString nome, funcao; const QStringList* direitos; };
        const QList<Pessoa> pessoas = {{GeradorDados::UsuarioExemplo, QStringLiteral("Administrador"), nullptr},
                                       {QStringLiteral("CARLOS"), QStringLiteral("Técnico"), &direitosTecnico},
                                       {QStringLiteral("BEATRIZ"), QStringLiteral("Balconista"), &direitosBalcao}};
        qint64 codigo = 0;
        for (const Pessoa& pe : pessoas) {
            QStringList colunas = {"CodUsuario", "NomeUsuario", "Senha", "Funcao", "Celular"};
            QVariantList valores = {++codigo, pe.nome, senha, pe.funcao, QStringLiteral("199%1").arg(81234560 + codigo)};
            for (const auto& [le, al] : DireitosUsuario::pares())
                for (const QString& c : {le, al}) {
                    colunas << c;
                    // Nobody in the sample deletes for good nor asks for the password at use.
                    const bool pode = pe.direitos ? pe.direitos->contains(c)
                                                  : c != QLatin1String("Permanente") && c != QLatin1String("UsuarioSe");
                    valores << (pode ? -1 : 0);
                }
            for (const QString& c : DireitosUsuario::sistema()) {
                colunas << c;
                valores << (pe.direitos && !pe.direitos->contains(c) ? 0 : -1);
            }
            b.inserir(def, colunas, valores);
        }
        Numeracao::registrarEmitido(b, "Usuario", "CodUsuario", codigo);
        b.executar("INSERT INTO PorcenTecnico (Tipo, ValorTipo, porcentagem) SELECT DISTINCT Tipo, 0, 0 FROM ("
                   + QStringLiteral("SELECT %1 AS Tipo FROM %2").arg(aparelho("tipo", "i - 1"), g.serie(1, 20)) + ") x");
        b.executar("INSERT INTO MarcaProduto (MarcaAparelho) SELECT DISTINCT Marca FROM ("
                   + QStringLiteral("SELECT %1 AS Marca FROM %2").arg(aparelho("marca", "i - 1"), g.serie(1, 20)) + ") x");
        b.executar("INSERT INTO DefeitoReclamado (CodDefeito, Defeito) SELECT DISTINCT CAST(i AS text), Defeito FROM ("
                   + QStringLiteral("SELECT MIN(i) AS i, Defeito FROM (SELECT i, %1 AS Defeito FROM %2) y GROUP BY Defeito")
                         .arg(aparelho("defeito", "i - 1"), g.serie(1, 20)) + ") x");
        b.executar("INSERT INTO ServicoExecutado (CodServico, Servico, ValorObra, ValorObraMinimo) SELECT CAST(i AS text), "
                   + QStringLiteral("%1, CAST(%2 AS bigint), CAST(%2 AS bigint) * 8 / 10 FROM %3")
                         .arg(aparelho("servico", "i - 1"), aparelho("mao", "i - 1"), g.serie(1, 20)));
    }

    void estoque()
    {
        const DefTabela& def = *Esquema::tabela(QStringLiteral("Produto"));
        for (const Peca& pc : produtos)
            b.inserir(def, {"codpeca", "Descricao", "Fabricante", "PrecoCusto", "PrecoVenda", "PrecoMinimo",
                            "Quantidadeestoque", "QuantidadeMinima", "Unidade", "GrupoProduto", "Armazenado", "DataCompra"},
                      {QString::fromUtf8(pc.codigo), QString::fromUtf8(pc.descricao), QString::fromUtf8(pc.fabricante),
                       pc.custo, pc.venda, pc.custo + (pc.venda - pc.custo) / 2, qint64(pc.estoque) * 1000,
                       qint64(pc.minimo) * 1000, QStringLiteral("UN"),
                       QString::fromUtf8(pc.codigo).startsWith(QLatin1Char('1')) ? QStringLiteral("PEÇAS")
                                                                                 : QStringLiteral("ACESSÓRIOS"),
                       QStringLiteral("PRATELEIRA ") + QString::fromUtf8(pc.codigo).right(1), Datas::bancoParaTela(hoje)});
        for (const char* grupo : {"PEÇAS", "ACESSÓRIOS"})
            b.executar(QStringLiteral("INSERT INTO GrupoProdutos (Grupo) VALUES (?)"), {QString::fromUtf8(grupo)});
    }

    void clientes()
    {
        insereGerado(b, "Cliente",
                     {{"CodCliente", "i"},
                      {"NomeCliente", g.item(prenomes, GeradorSql::mistura("i", 2654435761, prenomes.size())) + " || ' ' || "
                                          + g.item(sobrenomes, GeradorSql::mistura("i", 40503, sobrenomes.size())) + " || ' ' || "
                                          + g.item(sobrenomes, GeradorSql::mistura("i", 2246822519, sobrenomes.size()))},
                      {"Endereco", g.item(ruas, GeradorSql::mistura("i", 97, ruas.size()))},
                      {"Numero", "CAST(" + GeradorSql::mistura("i", 7919, 1500) + " + 10 AS text)"},
                      {"Bairro", g.item(bairros, GeradorSql::mistura("i", 13, bairros.size()))},
                      {"Cidade", "'CAMPINAS'"},
                      {"Estado", "'SP'"},
                      {"Cep", "'13' || CAST(" + GeradorSql::mistura("i", 104729, 90000) + " + 10000 AS text) || '000'"},
                      // A landline on every third customer; a cellular on all but every seventh.
                      {"Telefone", "CASE WHEN i % 3 = 0 THEN '193' || CAST(" + GeradorSql::mistura("i", 6151, 9000000)
                                       + " + 1000000 AS text) ELSE '' END"},
                      {"Celular", "CASE WHEN i % 7 = 3 THEN '' ELSE '199' || CAST(" + GeradorSql::mistura("i", 3079, 90000000)
                                      + " + 10000000 AS text) END"},
                      {"Email", "CASE WHEN i % 4 = 1 THEN 'cliente' || CAST(i AS text) || '@email.com.br' ELSE '' END"},
                      {"DataCadastro", antes(GeradorSql::mistura("i", 37, 700) + " + 30")},
                      {"Excluidos", "CASE WHEN i % 61 = 0 THEN -1 ELSE 0 END"}},
                     g.serie(1, t.clientes));
        // The check digits are worked here: the engine has no loop to sum them.
        QSqlQuery q = b.executar(QStringLiteral("SELECT Chave, CodCliente FROM Cliente"));
        QList<std::pair<qint64, qint64>> chaves;
        while (q.next())
            chaves.append({q.value(0).toLongLong(), q.value(1).toLongLong()});
        for (const auto& [chave, cod] : chaves)
            b.executar(QStringLiteral("UPDATE Cliente SET CnpjCpf = ? WHERE Chave = ?"),
                       {digitosCpf(cod * 7919 * 1237 + 123456789), chave});
    }

    void ordens()
    {
        const int n = t.ordens, abertas = t.abertas, fechadas = n - abertas;
        const QString aberta = "i > " + QString::number(fechadas);
        const QString q = QStringLiteral("(i % %1)").arg(int(Situacoes));
        auto em = [&](const QList<int>& situacoes) {
            return QStringLiteral("(%1 AND %2 IN (%3))").arg(aberta, q, lista(situacoes));
        };
        // Closed: every tenth given back unrepaired, the next one a warranty repair, the rest delivered and paid.
        const QString devolvida = "(NOT " + aberta + " AND i % 10 = 0)";
        const QString garantiaFechada = "(NOT " + aberta + " AND i % 10 = 1)";
        const QString entregue = "(NOT " + aberta + " AND i % 10 > 1)";
        auto flag = [](const QString& condicao) { return "CASE WHEN " + condicao + " THEN -1 ELSE 0 END"; };
        const QString j = "(i * 31 % " + QString::number(std::size(aparelhos)) + ")";
        const QString cobra = "(" + entregue + " OR " + em({Orcamento, Autorizado, AguardaPeca, Consertado,
                                                             ConsertadoSemResposta, ADevolver, NaoAutorizado}) + ")";
        const QString diagnosticada = "(" + cobra + " OR " + garantiaFechada + " OR " + devolvida + ")";
        // Days since the order came in: the open ones over the last six weeks, the closed
        // ones over a year, most of them recent, so the last month's till is busy.
        const QString x = QStringLiteral("(%1 - i)").arg(fechadas);
        const QString dias = QStringLiteral("CASE WHEN %1 THEN (%2 - i) * 40 / %3 ELSE 20 + %4 * %4 * 345 / %5 END")
                                 .arg(aberta).arg(n).arg(abertas).arg(x).arg(qint64(fechadas) * fechadas);
        const QString prazo = "(3 + i % 12)";
        const QString origem = g.serie(1, n) + " JOIN Cliente c ON c.CodCliente = "
                               + GeradorSql::mistura("r.i", 2654435761, t.clientes) + " + 1";
        insereGerado(b, "OrdemServico",
                     {{"CodOs", "i"},
                      {"CodFabrica", "CASE WHEN " + em({Fabrica}) + " THEN CAST(i + 500 AS text) ELSE '' END"},
                      {"CodCliente", "CAST(c.CodCliente AS text)"},
                      {"NomeCliente", "c.NomeCliente"},
                      {"CpfCnpj", "c.CnpjCpf"},
                      {"Endereco", "c.Endereco"},
                      {"Ncasa", "c.Numero"},
                      {"Bairro", "c.Bairro"},
                      {"Cidade", "c.Cidade"},
                      {"Telefone", "c.Telefone"},
                      {"Celular", "c.Celular"},
                      {"Tipo", aparelho("tipo", j)},
                      {"Marca", aparelho("marca", j)},
                      {"Modelo", aparelho("modelo", j)},
                      {"NumeroSerie", "'SN' || CAST(" + GeradorSql::mistura("i", 2246822519, 90000000) + " + 10000000 AS text)"},
                      {"Sintoma", aparelho("defeito", j)},
                      {"Acessorio", "CASE WHEN i % 3 = 0 THEN 'CONTROLE REMOTO' WHEN i % 3 = 1 THEN 'SEM ACESSÓRIOS' ELSE 'CABO DE FORÇA' END"},
                      {"EstadoAparelho", "CASE WHEN i % 4 = 0 THEN 'RISCOS NA CARCAÇA' ELSE 'BOM ESTADO' END"},
                      {"Garantia", flag(em({Garantia}) + " OR " + garantiaFechada)},
                      {"Fabrica", flag(em({Fabrica}))},
                      {"ChamadoTecnico", flag(em({Chamado}))},
                      {"DataEntrada", antes(dias)},
                      {"DataSaida", "CASE WHEN " + aberta + " THEN '' ELSE " + antes(dias + " - " + prazo) + " END"},
                      {"Saida", flag("NOT " + aberta)},
                      {"DtEntrega", flag("NOT " + aberta)},
                      {"DataContato", "CASE WHEN " + diagnosticada + " THEN " + antes(dias + " - 2") + " ELSE '' END"},
                      {"Contato", flag(diagnosticada)},
                      {"DataEntrega", "CASE WHEN " + aberta + " THEN " + antes("0 - i % 9") + " ELSE '' END"},
                      {"HoraSolicitada", "CASE WHEN " + em({Chamado}) + " THEN '14:00' ELSE '' END"},
                      {"Tecnico", "CASE WHEN " + diagnosticada + " THEN 'CARLOS' ELSE '' END"},
                      {"CodTecnico", "CASE WHEN " + diagnosticada + " THEN '2' ELSE '' END"},
                      {"DefeitoReal", "CASE WHEN " + diagnosticada + " THEN " + aparelho("defeito", j) + " ELSE '' END"},
                      {"ServicoExecutado", "CASE WHEN " + diagnosticada + " THEN " + aparelho("servico", j) + " ELSE '' END"},
                      {"MaoObra", "CASE WHEN " + cobra + " THEN CAST(" + aparelho("mao", j) + " AS bigint) ELSE 0 END"},
                      {"Consertado", flag(em({Consertado, ConsertadoSemResposta, NaoAutorizado}) + " OR " + entregue + " OR "
                                          + garantiaFechada)},
                      {"Orcamento", flag(em({Orcamento}))},
                      {"AguardaPeca", flag(em({AguardaPeca}))},
                      {"Devolver", flag(em({ADevolver}) + " OR " + devolvida)},
                      {"Aprovado", flag(em({Autorizado, AguardaPeca, Consertado, Garantia}) + " OR " + entregue + " OR "
                                        + garantiaFechada)},
                      {"Recusado", flag(em({ADevolver, NaoAutorizado}) + " OR " + devolvida)},
                      {"Excluidos", flag("i % 47 = 5")},
                      {"OsAlterado", "'1'"}},
                     origem);
    }

    // One part on two orders of three among those with a price; then each order's money
    // from its parts, as the bench works it: the parts at sale price less their discount,
    // plus the labour.
    void pecas()
    {
        const QString j = "(o.CodOs * 31 % " + QString::number(std::size(aparelhos)) + ")";
        const QString qtd = "(CASE WHEN o.CodOs % 5 = 0 THEN 2 ELSE 1 END)";
        const QString desconto = "(CASE WHEN o.CodOs % 5 = 1 THEN p.PrecoVenda / 20 ELSE 0 END)";
        insereGerado(b, "PecasAplicadas",
                     {{"CodOs", "o.CodOs"}, {"CodOsAut", "o.CodOsAut"}, {"NomeCliente", "o.NomeCliente"},
                      {"TipoVisita", "''"}, {"codpeca", "p.codpeca"}, {"Descricao", "p.Descricao"},
                      {"Quantidade", qtd + " * 1000"}, {"ValorCusto", "p.PrecoCusto"}, {"ValorVenda", "p.PrecoVenda"},
                      {"ValorDesconto", desconto}, {"ValorTotal", qtd + " * (p.PrecoVenda - " + desconto + ")"},
                      {"ValorMinimo", "p.PrecoMinimo"}, {"Unidade", "p.Unidade"}, {"Grupo", "p.GrupoProduto"},
                      {"Armazenado", "p.Armazenado"}, {"ControleEstoque", "-1"},
                      {"BaixaEstoque", "o.Saida"}, {"QuantidadeBaixada", "CASE WHEN o.Saida = -1 THEN " + qtd + " * 1000 ELSE 0 END"},
                      {"Lancada", "o.Saida"}},
                     "OrdemServico o JOIN Produto p ON p.codpeca = " + aparelho("peca", j)
                         + " WHERE o.MaoObra > 0 AND o.CodOs % 3 <> 0");
        auto soma = [](const QString& expressao) {
            return QStringLiteral("COALESCE((SELECT SUM(%1) FROM PecasAplicadas p WHERE p.CodOsAut = OrdemServico.CodOsAut), 0)")
                .arg(expressao);
        };
        const QString venda = soma("p.ValorTotal");
        const QString pago = "CASE WHEN Saida = -1 AND Consertado = -1 AND Garantia = 0 THEN MaoObra + " + venda + " ELSE 0 END";
        b.executar("UPDATE OrdemServico SET ValorVenda = " + venda + ", ValorPecas = " + soma("p.ValorCusto * p.Quantidade / 1000")
                   + ", ValorDescontoPeca = " + soma("p.ValorDesconto * p.Quantidade / 1000") + ", ValorPagar = MaoObra + "
                   + venda + ", ValorPago = " + pago + ", ValorLancado = " + pago
                   + ", MaoObraLancada = CASE WHEN Saida = -1 AND Garantia = 0 THEN MaoObra ELSE 0 END"
                   + ", Lancada = CASE WHEN Saida = -1 AND Consertado = -1 AND Garantia = 0 THEN -1 ELSE 0 END");
    }

    void visitas()
    {
        const QStringList pedidos = {"INSTALAÇÃO DE AR CONDICIONADO", "GELADEIRA NÃO GELA", "LAVADORA NÃO LIGA",
                                     "MANUTENÇÃO PREVENTIVA DO AR CONDICIONADO", "FORNO NÃO ACENDE", "INSTALAÇÃO DE TV NA PAREDE"};
        const QString atendida = "(i % 10 < 4)";
        insereGerado(b, "VisitaTecnico",
                     {{"CodManu", "i"}, {"CodCliente", "CAST(c.CodCliente AS text)"}, {"NomeCliente", "c.NomeCliente"},
                      {"EndTel", "c.Endereco || ', ' || c.Numero || ' - ' || c.Bairro"},
                      {"Solicitacao", g.item(pedidos, "i % " + QString::number(pedidos.size()))},
                      {"DataSolicitada", antes("4 - i % 10")},
                      {"HoraSolicitada", g.item({"08:30", "10:00", "14:00", "16:30"}, "i % 4")},
                      {"DataAtendida", "CASE WHEN " + atendida + " THEN " + antes("4 - i % 10") + " ELSE '' END"},
                      {"Atendida", "CASE WHEN " + atendida + " THEN -1 ELSE 0 END"},
                      {"Tecnico", "'CARLOS'"},
                      {"MaoObra", "CASE WHEN " + atendida + " THEN 9000 ELSE 0 END"},
                      {"ValorPagar", "CASE WHEN " + atendida + " THEN 9000 ELSE 0 END"},
                      {"Aguarda", "CASE WHEN " + atendida + " THEN 0 ELSE -1 END"}},
                     g.serie(1, 16) + " JOIN Cliente c ON c.CodCliente = " + GeradorSql::mistura("r.i", 40503, t.clientes) + " + 1");
    }

    QString formaPagamento(const QString& codOs) const
    {
        return "CASE WHEN " + codOs + " % 9 = 0 THEN '30 DIAS' WHEN " + codOs + " % 7 = 0 THEN 'CHEQUE-PRÉ 30' ELSE "
               + g.item({"DINHEIRO-VISTA", "CARTÃO DÉBITO", "CARTÃO CRÉDITO", "DINHEIRO-VISTA"}, codOs + " % 4") + " END";
    }

    // The last month's deliveries as the till leaves them: a line per part and one for the
    // labour, and the sale's summary.
    void caixa()
    {
        const QString mes = "o.Saida = -1 AND o.Consertado = -1 AND o.Garantia = 0 AND o.Excluidos = 0 AND o.DataSaida >= "
                            + antes("30");
        const QString hora = "(CASE WHEN o.CodOs % 2 = 0 THEN '1' ELSE '0' END) || CAST(8 + o.CodOs % 2 AS text) || ':' || "
                             + g.item({"05", "17", "32", "48"}, "o.CodOs % 4");
        insereGerado(b, "VendaDetalhada",
                     {{"CodOsAut", "o.CodOsAut"}, {"CodVenda", "o.CodOs"}, {"NomeCliente", "o.NomeCliente"},
                      {"codpeca", "p.codpeca"}, {"Quantidade", "p.Quantidade"}, {"Descricao", "p.Descricao"},
                      {"Unidade", "p.Unidade"}, {"ValorCusto", "p.ValorCusto"}, {"ValorMinimo", "p.ValorMinimo"},
                      {"PecaDesconto", "p.ValorDesconto"}, {"ValorVenda", "p.ValorVenda"}, {"ValorTotal", "p.ValorTotal"},
                      {"Armazenado", "p.Armazenado"}, {"Data", "o.DataSaida"}, {"TipoVenda", "'Conserto'"},
                      {"Tecnico", "o.Tecnico"}, {"Hora", hora}},
                     "OrdemServico o JOIN PecasAplicadas p ON p.CodOsAut = o.CodOsAut WHERE " + mes);
        insereGerado(b, "VendaDetalhada",
                     {{"CodOsAut", "o.CodOsAut"}, {"CodVenda", "o.CodOs"}, {"NomeCliente", "o.NomeCliente"},
                      {"Quantidade", "1000"}, {"Descricao", "'MÃO DE OBRA O.S: ' || CAST(o.CodOs AS text)"},
                      {"Departamento", "'Oficina'"}, {"Fornecedor", "'Oficina'"}, {"Data", "o.DataSaida"},
                      {"TipoVenda", "'Conserto'"}, {"Tecnico", "o.Tecnico"}, {"Hora", hora}, {"MaoObra", "o.MaoObra"},
                      {"Tipo", "o.Tipo"}, {"CodFun", "'3'"}, {"Vendedor", "'BEATRIZ'"}, {"CodTec", "o.CodTecnico"},
                      {"CodCli", "o.CodCliente"}, {"TipoPagamento", formaPagamento("o.CodOs")}},
                     "OrdemServico o WHERE " + mes);
        insereGerado(b, "Movimento",
                     {{"CodOsAut", "o.CodOsAut"}, {"CodVenda", "o.CodOs"}, {"ValorTotal", "o.ValorPagar"},
                      {"ValorPagar", "o.ValorPagar"}, {"ValorDescontoPeca", "o.ValorDescontoPeca"},
                      {"ValorPeca", "o.ValorVenda"}, {"ValorCusto", "o.ValorPecas"}, {"ValorPago", "o.ValorPago"},
                      {"ValorMaoobra", "o.MaoObra"}, {"TipoAparelho", "o.Tipo"}, {"Data", "o.DataSaida"},
                      {"TipoVenda", "'Conserto'"}, {"CodFuncionario", "'3'"}, {"Funcionario", "'BEATRIZ'"},
                      {"CodTecnico", "o.CodTecnico"}, {"NomeTecnico", "o.Tecnico"}, {"CodCliente", "o.CodCliente"},
                      {"NomeCliente", "o.NomeCliente"}, {"Pagamento", formaPagamento("o.CodOs")}, {"Hora", hora}},
                     "OrdemServico o WHERE " + mes);
    }

    // What is owed to the shop (the orders of the last four months delivered for 30 days),
    // by cheque, and what the shop owes its suppliers: some paid, some due, some late.
    void contas()
    {
        const QString paga = "o.CodOs % 2 = 0 AND " + g.somaDias("o.DataSaida", 30) + " < '" + hoje + "'";
        const QString entregues = "o.Saida = -1 AND o.Consertado = -1 AND o.Garantia = 0 AND o.Excluidos = 0";
        insereGerado(b, "ContasReceber",
                     {{"CodCliente", "o.CodCliente"}, {"CodVenda", "CAST(o.CodOs AS text)"}, {"NomeCliente", "o.NomeCliente"},
                      {"ValorParcela", "o.ValorPagar"}, {"ValorTotal", "o.ValorPagar"}, {"NumeroParcela", "'1/1'"},
                      {"DataCompra", "o.DataSaida"}, {"DataVencimento", g.somaDias("o.DataSaida", 30)},
                      {"TipoVenda", "'Conserto'"}, {"TipoPagamento", "'30 DIAS'"}, {"Funcionario", "'BEATRIZ'"},
                      {"Quitado", "CASE WHEN " + paga + " THEN -1 ELSE 0 END"},
                      {"DataPagamento", "CASE WHEN " + paga + " THEN " + g.somaDias("o.DataSaida", 30) + " ELSE '' END"},
                      {"TipoRecebimento", "CASE WHEN " + paga + " THEN 'DINHEIRO-VISTA' ELSE '' END"},
                      {"ValorRecebido", "CASE WHEN " + paga + " THEN o.ValorPagar ELSE 0 END"}},
                     "OrdemServico o WHERE " + entregues + " AND o.CodOs % 9 = 0 AND o.ValorPagar > 0 AND o.DataSaida >= "
                         + antes("120"));
        const QStringList bancos = {"BANCO DO BRASIL", "CAIXA ECONÔMICA", "ITAÚ", "BRADESCO", "SANTANDER"};
        const QString compensado = g.somaDias("o.DataSaida", 30) + " < '" + hoje + "'";
        insereGerado(b, "CadastroCheque",
                     {{"Codcadastro", "o.CodOs"}, {"CodVenda", "CAST(o.CodOs AS text)"}, {"CodCliente", "o.CodCliente"},
                      {"NomeCliente", "o.NomeCliente"}, {"CPFCNPJCliente", "o.CpfCnpj"}, {"TelCel", "o.Celular"},
                      {"NomeBanco", g.item(bancos, "o.CodOs % 5")},
                      {"NumeroAgencia", "CAST(1000 + o.CodOs % 8000 AS text)"},
                      {"NumeroConta", "CAST(" + GeradorSql::mistura("o.CodOs", 7919, 900000) + " + 100000 AS text) || '-' || CAST(o.CodOs % 10 AS text)"},
                      {"NumeroCheque", "CAST(850000 + o.CodOs AS text)"}, {"TitularConta", "o.NomeCliente"},
                      {"Endereco", "o.Endereco"}, {"CpfCnpjTitular", "o.CpfCnpj"}, {"ValorTotal", "o.ValorPagar"},
                      {"ValorParcela", "o.ValorPagar"}, {"DataVencimento", g.somaDias("o.DataSaida", 30)},
                      {"NumeroParcela", "'1/1'"}, {"DataCompra", "o.DataSaida"}, {"TipoVenda", "'Conserto'"},
                      {"TipoPagamento", "'CHEQUE-PRÉ 30'"}, {"Funcionario", "'BEATRIZ'"},
                      {"Quitado", "CASE WHEN " + compensado + " THEN -1 ELSE 0 END"},
                      {"DataPagamento", "CASE WHEN " + compensado + " THEN " + g.somaDias("o.DataSaida", 30) + " ELSE '' END"},
                      {"ValorRecebido", "CASE WHEN " + compensado + " THEN o.ValorPagar ELSE 0 END"}},
                     "OrdemServico o WHERE " + entregues + " AND o.CodOs % 7 = 0 AND o.CodOs % 9 <> 0 AND o.ValorPagar > 0");
        const QStringList fornecedores = {"DISTRIBUIDORA ELETRÔNICA PAULISTA", "REFRIGERAÇÃO CAMPINAS LTDA",
                                          "CPFL ENERGIA", "ALUGUEL - IMOBILIÁRIA CENTRO", "PEÇAS & CIA COMPONENTES"};
        const QString vencimento = antes("25 - i * 3");
        const QString quitada = "(i % 4 <> 1 AND 25 - i * 3 > 0)";
        insereGerado(b, "ContasPagar",
                     {{"CodFor", "CAST(1 + i % 5 AS text)"}, {"Fornecedor", g.item(fornecedores, "i % 5")},
                      {"CodDoc", "'NF ' || CAST(4100 + i * 17 AS text)"},
                      {"TipoConta", g.item({"PEÇAS", "PEÇAS", "ENERGIA", "ALUGUEL", "PEÇAS"}, "i % 5")},
                      {"Referente", g.item({"COMPRA DE PEÇAS", "GÁS E COMPONENTES", "CONTA DE LUZ", "ALUGUEL DA LOJA",
                                            "COMPRA DE PEÇAS"}, "i % 5")},
                      {"QtDias", "30"}, {"ValorTotal", "20000 + " + GeradorSql::mistura("i", 7919, 150) + " * 1000"},
                      {"ValorParcela", "20000 + " + GeradorSql::mistura("i", 7919, 150) + " * 1000"},
                      {"NumeroParcela", "'1/1'"}, {"DataCompra", antes("55 - i * 3")}, {"DataVencimento", vencimento},
                      {"DataPagamento", "CASE WHEN " + quitada + " THEN " + vencimento + " ELSE '' END"},
                      {"ValorPago", "CASE WHEN " + quitada + " THEN 20000 + " + GeradorSql::mistura("i", 7919, 150)
                                        + " * 1000 ELSE 0 END"},
                      {"TipoPagamento", "'BOLETO'"}, {"Quitado", "CASE WHEN " + quitada + " THEN -1 ELSE 0 END"},
                      {"Funcionario", "'ADMIN'"}},
                     g.serie(1, 14));
    }
};

} // namespace

namespace GeradorDados {

void lojaExemplo(Banco& b, const QDate& hoje, const TamanhoLoja& tamanho, const Progresso& progresso)
{
    Transacao tr(b);
    Loja(b, hoje, tamanho, progresso).gerar();
    tr.commit();
}

}
