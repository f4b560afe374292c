#include "documents/DocumentoModelo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <cstring>
#include <vector>

#include <pugixml.hpp>
#include <zip.h>

namespace {

bool nomeIgual(const pugi::xml_node& n, const char* nome)
{
    return n.type() == pugi::node_element && std::strcmp(n.name(), nome) == 0;
}

template <typename F>
void percorrer(pugi::xml_node n, F&& f)
{
    for (pugi::xml_node c = n.first_child(); c; c = c.next_sibling()) {
        f(c);
        percorrer(c, f);
    }
}

// The nearest ancestor named one of the paragraph names.
pugi::xml_node ancestral(pugi::xml_node n, const std::vector<const char*>& nomes)
{
    for (pugi::xml_node p = n.parent(); p; p = p.parent())
        for (const char* nome : nomes)
            if (nomeIgual(p, nome))
                return p;
    return {};
}

} // namespace

struct DocumentoModelo::Parte {
    QString nome;
    pugi::xml_document xml;
};

DocumentoModelo::DocumentoModelo() = default;
DocumentoModelo::~DocumentoModelo() = default;

bool DocumentoModelo::abrir(const QString& arquivo, QString* erro)
{
    m_partes.clear();
    m_entradas.clear();
    const QString invalido = QStringLiteral("O modelo \"%1\" não é um documento .docx ou .odt válido.")
                                 .arg(QDir::toNativeSeparators(arquivo));
    QFile f(arquivo);
    if (!f.open(QIODevice::ReadOnly)) {
        if (erro)
            *erro = QStringLiteral("Não foi possível abrir o modelo \"%1\".").arg(QDir::toNativeSeparators(arquivo));
        return false;
    }
    const QByteArray bruto = f.readAll();
    zip_error_t ze;
    zip_error_init(&ze);
    zip_source_t* fonte = zip_source_buffer_create(bruto.constData(), bruto.size(), 0, &ze);
    zip_t* z = fonte ? zip_open_from_source(fonte, ZIP_RDONLY, &ze) : nullptr;
    zip_error_fini(&ze);
    if (!z) {
        if (fonte)
            zip_source_free(fonte);
        if (erro)
            *erro = invalido;
        return false;
    }
    const zip_int64_t n = zip_get_num_entries(z, 0);
    bool ok = true;
    for (zip_int64_t i = 0; i < n && ok; ++i) {
        zip_stat_t st;
        if (zip_stat_index(z, i, 0, &st) != 0) {
            ok = false;
            break;
        }
        Entrada e;
        e.nome = QString::fromUtf8(st.name);
        if (!e.nome.endsWith(QLatin1Char('/'))) {
            zip_file_t* zf = zip_fopen_index(z, i, 0);
            if (!zf) {
                ok = false;
                break;
            }
            e.dados.resize(qsizetype(st.size));
            const zip_int64_t lidos = zip_fread(zf, e.dados.data(), st.size);
            zip_fclose(zf);
            ok = lidos == zip_int64_t(st.size);
        }
        m_entradas.append(e);
    }
    zip_close(z);  // also frees the source
    if (!ok) {
        if (erro)
            *erro = invalido;
        return false;
    }

    auto existe = [&](const QString& nome) {
        for (const Entrada& e : m_entradas)
            if (e.nome == nome)
                return true;
        return false;
    };
    QStringList partesXml;
    if (existe(QStringLiteral("word/document.xml"))) {
        m_formato = Formato::Docx;
        for (const Entrada& e : m_entradas) {
            static const QRegularExpression re(QStringLiteral("^word/(document|header\\d*|footer\\d*)\\.xml$"));
            if (re.match(e.nome).hasMatch())
                partesXml << e.nome;
        }
    } else if (existe(QStringLiteral("content.xml"))) {
        m_formato = Formato::Odt;
        partesXml << QStringLiteral("content.xml");
        if (existe(QStringLiteral("styles.xml")))
            partesXml << QStringLiteral("styles.xml");  // headers and footers live there
    } else {
        if (erro)
            *erro = invalido;
        return false;
    }
    for (const Entrada& e : m_entradas) {
        if (!partesXml.contains(e.nome))
            continue;
        auto p = std::make_unique<Parte>();
        p->nome = e.nome;
        const auto r = p->xml.load_buffer(e.dados.constData(), size_t(e.dados.size()),
                                          pugi::parse_default | pugi::parse_declaration | pugi::parse_ws_pcdata_single,
                                          pugi::encoding_utf8);
        if (!r) {
            if (erro)
                *erro = invalido;
            m_partes.clear();
            return false;
        }
        m_partes.push_back(std::move(p));
    }
    return true;
}

namespace {

// One piece of a paragraph's text: a docx w:t element or an odt text node. A null node is
// a tab, a line break or a run of spaces, which no tag can span.
struct Pedaco {
    pugi::xml_node no;
    QString texto;
};

QString textoDe(const pugi::xml_node& no, bool docx)
{
    return QString::fromUtf8(docx ? no.text().get() : no.value());
}

void definirTexto(pugi::xml_node no, const QString& texto, bool docx)
{
    const QByteArray u = texto.toUtf8();
    if (docx) {
        no.text().set(u.constData());
        if (!no.attribute("xml:space"))
            no.append_attribute("xml:space") = "preserve";
    } else {
        no.set_value(u.constData());
    }
}

QList<pugi::xml_node> paragrafos(pugi::xml_node raiz, bool docx)
{
    QList<pugi::xml_node> r;
    percorrer(raiz, [&](pugi::xml_node n) {
        if (docx ? nomeIgual(n, "w:p") : (nomeIgual(n, "text:p") || nomeIgual(n, "text:h")))
            r.append(n);
    });
    return r;
}

QList<Pedaco> pedacos(pugi::xml_node paragrafo, bool docx)
{
    QList<Pedaco> r;
    const std::vector<const char*> nomes = docx ? std::vector<const char*>{"w:p"}
                                                : std::vector<const char*>{"text:p", "text:h"};
    percorrer(paragrafo, [&](pugi::xml_node n) {
        if (ancestral(n, nomes) != paragrafo)
            return;
        if (docx) {
            if (nomeIgual(n, "w:t"))
                r.append({n, textoDe(n, true)});
            else if (nomeIgual(n, "w:tab") || nomeIgual(n, "w:br") || nomeIgual(n, "w:cr"))
                r.append({{}, QStringLiteral("\t")});
        } else {
            if (n.type() == pugi::node_pcdata || n.type() == pugi::node_cdata)
                r.append({n, textoDe(n, false)});
            else if (nomeIgual(n, "text:s") || nomeIgual(n, "text:tab") || nomeIgual(n, "text:line-break"))
                r.append({{}, QStringLiteral("\t")});
        }
    });
    return r;
}

// Replaces every occurrence in one paragraph, from the last to the first, so the
// positions still to do don't move.
int trocarNoParagrafo(pugi::xml_node paragrafo, const QString& marca, const QString& valor, bool docx)
{
    QList<Pedaco> p = pedacos(paragrafo, docx);
    QString junto;
    QList<int> inicio;
    for (const Pedaco& x : p) {
        inicio.append(int(junto.size()));
        junto += x.texto;
    }
    QList<int> achados;
    for (int i = junto.indexOf(marca, 0, Qt::CaseInsensitive); i >= 0;
         i = junto.indexOf(marca, i + int(marca.size()), Qt::CaseInsensitive))
        achados.append(i);
    auto pedacoEm = [&](int pos) {
        int k = 0;
        while (k + 1 < p.size() && inicio[k + 1] <= pos)
            ++k;
        return k;
    };
    int feitos = 0;
    for (int a = int(achados.size()) - 1; a >= 0; --a) {
        const int ini = achados[a];
        const int fim = ini + int(marca.size());  // exclusive
        const int pa = pedacoEm(ini);
        const int pb = pedacoEm(fim - 1);
        bool valido = true;
        for (int k = pa; k <= pb; ++k)
            valido = valido && p[k].no;
        if (!valido)
            continue;
        const int oa = ini - inicio[pa];
        const int ob = fim - inicio[pb];
        if (pa == pb) {
            p[pa].texto = p[pa].texto.left(oa) + valor + p[pa].texto.mid(ob);
        } else {
            p[pa].texto = p[pa].texto.left(oa) + valor;
            for (int k = pa + 1; k < pb; ++k)
                p[k].texto.clear();
            p[pb].texto = p[pb].texto.mid(ob);
        }
        for (int k = pa; k <= pb; ++k)
            definirTexto(p[k].no, p[k].texto, docx);
        ++feitos;
    }
    return feitos;
}

} // namespace

int DocumentoModelo::trocar(const QString& marca, const QString& valor)
{
    if (marca.isEmpty())
        return 0;
    const bool docx = m_formato == Formato::Docx;
    int n = 0;
    for (auto& parte : m_partes)
        for (pugi::xml_node par : paragrafos(parte->xml, docx))
            n += trocarNoParagrafo(par, marca, valor, docx);
    return n;
}

QString DocumentoModelo::texto() const
{
    const bool docx = m_formato == Formato::Docx;
    QStringList linhas;
    for (const auto& parte : m_partes) {
        for (pugi::xml_node par : paragrafos(parte->xml, docx)) {
            QString l;
            for (const Pedaco& x : pedacos(par, docx))
                l += x.texto;
            linhas << l;
        }
    }
    return linhas.join(QLatin1Char('\n'));
}

namespace {

pugi::xml_node primeiraTabela(pugi::xml_node raiz, bool docx)
{
    pugi::xml_node achada;
    percorrer(raiz, [&](pugi::xml_node n) {
        if (!achada && nomeIgual(n, docx ? "w:tbl" : "table:table"))
            achada = n;
    });
    return achada;
}

void escreverCelula(pugi::xml_node celula, const QString& valor, bool docx)
{
    const QByteArray u = valor.toUtf8();
    if (docx) {
        pugi::xml_node p = celula.child("w:p");
        if (!p)
            p = celula.append_child("w:p");
        pugi::xml_node rPr = p.child("w:r").child("w:rPr");
        pugi::xml_document copia;
        if (rPr)
            copia.append_copy(rPr);
        for (pugi::xml_node c = p.first_child(); c;) {
            pugi::xml_node prox = c.next_sibling();
            if (!nomeIgual(c, "w:pPr"))
                p.remove_child(c);
            c = prox;
        }
        pugi::xml_node r = p.append_child("w:r");
        if (copia.first_child())
            r.append_copy(copia.first_child());
        pugi::xml_node t = r.append_child("w:t");
        t.append_attribute("xml:space") = "preserve";
        t.text().set(u.constData());
    } else {
        pugi::xml_node p = celula.child("text:p");
        if (!p)
            p = celula.append_child("text:p");
        while (p.first_child())
            p.remove_child(p.first_child());
        p.append_child(pugi::node_pcdata).set_value(u.constData());
    }
}

void limparLinha(pugi::xml_node linha, bool docx)
{
    percorrer(linha, [&](pugi::xml_node n) {
        if (docx && nomeIgual(n, "w:t"))
            n.text().set("");
        if (!docx && n.type() == pugi::node_pcdata)
            n.set_value("");
    });
}

} // namespace

bool DocumentoModelo::temTabela() const
{
    const bool docx = m_formato == Formato::Docx;
    for (const auto& parte : m_partes)
        if (primeiraTabela(parte->xml, docx))
            return true;
    return false;
}

bool DocumentoModelo::preencherLinhaTabela(const QStringList& celulas)
{
    const bool docx = m_formato == Formato::Docx;
    if (m_partes.empty())
        return false;
    // The body comes first: document.xml or content.xml.
    pugi::xml_node tabela = primeiraTabela(m_partes.front()->xml, docx);
    if (!tabela)
        return false;
    pugi::xml_node ultima;
    percorrer(tabela, [&](pugi::xml_node n) {
        if (nomeIgual(n, docx ? "w:tr" : "table:table-row")
            && ancestral(n, {docx ? "w:tbl" : "table:table"}) == tabela)
            ultima = n;
    });
    if (!ultima)
        return false;
    int i = 0;
    for (pugi::xml_node c = ultima.first_child(); c && i < celulas.size(); c = c.next_sibling()) {
        if (nomeIgual(c, docx ? "w:tc" : "table:table-cell"))
            escreverCelula(c, celulas.at(i++), docx);
    }
    pugi::xml_node nova = ultima.parent().insert_copy_after(ultima, ultima);
    limparLinha(nova, docx);
    return true;
}

namespace {

struct Escritor : pugi::xml_writer {
    QByteArray dados;
    void write(const void* d, size_t n) override { dados.append(static_cast<const char*>(d), qsizetype(n)); }
};

} // namespace

bool DocumentoModelo::salvar(const QString& arquivo, QString* erro) const
{
    const QString falha = QStringLiteral("Não foi possível gravar o documento \"%1\".").arg(QDir::toNativeSeparators(arquivo));
    QList<Entrada> entradas = m_entradas;
    for (const auto& parte : m_partes) {
        Escritor w;
        parte->xml.save(w, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
        QByteArray dados = w.dados;
        if (!dados.startsWith("<?xml"))
            dados.prepend("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n");
        for (Entrada& e : entradas)
            if (e.nome == parte->nome)
                e.dados = dados;
    }
    // The office formats want "mimetype" first and stored as it is.
    std::stable_sort(entradas.begin(), entradas.end(), [](const Entrada& a, const Entrada& b) {
        return a.nome == QLatin1String("mimetype") && b.nome != QLatin1String("mimetype");
    });

    QDir().mkpath(QFileInfo(arquivo).absolutePath());
    const QString temporario = arquivo + QStringLiteral(".tmp");
    QFile::remove(temporario);
    int codigo = 0;
    zip_t* z = zip_open(QFile::encodeName(temporario).constData(), ZIP_CREATE | ZIP_TRUNCATE, &codigo);
    if (!z) {
        if (erro)
            *erro = falha;
        return false;
    }
    bool ok = true;
    for (const Entrada& e : entradas) {
        const QByteArray nome = e.nome.toUtf8();
        if (e.nome.endsWith(QLatin1Char('/'))) {
            ok = zip_dir_add(z, nome.constData(), ZIP_FL_ENC_UTF_8) >= 0;
        } else {
            zip_source_t* s = zip_source_buffer(z, e.dados.constData(), zip_uint64_t(e.dados.size()), 0);
            const zip_int64_t idx = s ? zip_file_add(z, nome.constData(), s, ZIP_FL_ENC_UTF_8 | ZIP_FL_OVERWRITE) : -1;
            if (idx < 0) {
                if (s)
                    zip_source_free(s);
                ok = false;
            } else if (e.nome == QLatin1String("mimetype")) {
                zip_set_file_compression(z, zip_uint64_t(idx), ZIP_CM_STORE, 0);
            }
        }
        if (!ok)
            break;
    }
    if (!ok) {
        zip_discard(z);
        QFile::remove(temporario);
        if (erro)
            *erro = falha;
        return false;
    }
    if (zip_close(z) != 0) {
        zip_discard(z);
        QFile::remove(temporario);
        if (erro)
            *erro = falha;
        return false;
    }
    QFile::remove(arquivo);
    if (!QFile::rename(temporario, arquivo)) {
        QFile::remove(temporario);
        if (erro)
            *erro = falha;
        return false;
    }
    return true;
}
