#!/usr/bin/env python3
"""Writes the default templates (order entry, exit, budget, return; material order) as .odt and .docx.

The shop replaces them with its own in the system's configuration; these are what a new
installation prints through the template route. Run it after changing the texts below:
    python3 modelos/gerar.py
"""
import os
import zipfile
from xml.sax.saxutils import escape

AQUI = os.path.dirname(os.path.abspath(__file__))

# A paragraph is (kind, [(text, bold)]); kind is "titulo", "secao" or "texto".
def p(*partes, tipo="texto"):
    return (tipo, [(t, b) for t, b in partes])

def campo(rotulo, valor):
    return p((rotulo + ": ", True), (valor, False))

# The shop's own lines come from its configuration, so a new installation prints its
# name on the first day.
CABECA = [
    p(("@NOMEEMPRESA", True), tipo="empresa"),
    p(("@ENDERECOEMPRESA", False), tipo="empresa"),
    p(("Telefone: @TELEFONEEMPRESA    CPF/CNPJ: @CNPJEMPRESA", False), tipo="empresa"),
    p(("Ordem de Serviço nº @OS", True), tipo="titulo"),
]
CLIENTE = [
    p(("Cliente", True), tipo="secao"),
    campo("Nome", "@NOMECLIENTE"), campo("Código", "@CODIGOCLIENTE"), campo("CPF/CNPJ", "@CPFCNPJ"),
    campo("Endereço", "@ENDERECOCLIENTE"),
    p(("Telefone: ", True), ("@TELEFONECLIENTE", False), ("    Celular: ", True), ("@CELULARCLIENTE", False)),
]
APARELHO = [
    p(("Aparelho", True), tipo="secao"),
    p(("Tipo: ", True), ("@TIPOPRODUTO", False), ("    Marca: ", True), ("@MARCAPRODUTO", False),
      ("    Modelo: ", True), ("@MODELOPRODUTO", False)),
    p(("Número de série: ", True), ("@NUMEROSERIE", False), ("    Cor: ", True), ("@CORPRODUTO", False)),
    campo("Estado do aparelho", "@ESTADOPRODUTO"),
    campo("Acessórios", "@ACESSORIOPRODUTO"),
    campo("Defeito reclamado", "@DEFEITORECLAMADO"),
]
GARANTIA = [
    p(("Garantia", True), tipo="secao"),
    p(("Fábrica: ", True), ("@FABRICACONSERTO", False), ("  O.S de fábrica: ", True), ("@FABRICAOS", False),
      ("  Certificado: ", True), ("@NUMEROCERTIFICADO", False)),
    p(("Oficina: ", True), ("@GARANTIAOFICINA", False)),
    p(("Nota fiscal: ", True), ("@NUMERONOTA", False), ("  de ", True), ("@DATANOTA", False),
      ("  Revendedor: ", True), ("@REVENDEDOR", False)),
]
def assinatura(quem):
    return [
        p(("", False)),
        p(("@DATALONGAAGORA", False)),
        p(("", False)),
        p(("_______________________________________", False)),
        p((quem, False)),
    ]

MODELOS = {
    "entrada": CABECA + [
        p(("Entrada do aparelho", True), tipo="secao"),
        campo("Data de entrada", "@DATAENTRADA"), campo("Dia prometido", "@DATAPROMETIDA"),
        campo("Local", "@LOCALARMAZENADO"),
    ] + CLIENTE + APARELHO + GARANTIA + [
        campo("Observação", "@CAMPOOBSERVACAO"),
        campo("Atendido por", "@FUNCIONARIO"),
    ] + assinatura("Assinatura do cliente"),
    "saida": CABECA + [
        p(("Entrega do aparelho", True), tipo="secao"),
        campo("Data de entrada", "@DATAENTRADA"), campo("Data de saída", "@DATASAIDA"),
    ] + CLIENTE + APARELHO + [
        p(("Serviço", True), tipo="secao"),
        campo("Defeito encontrado", "@DEFEITOREAL"), campo("Serviço executado", "@SERVICOEXECUTADO"),
        campo("Técnico", "@NOMETECNICO"), campo("Garantia da oficina", "@GARANTIAOFICINA"),
        p(("Valores", True), tipo="secao"),
        campo("Mão de obra", "@VALORMAOOBRA"), campo("Peças", "@VALORPECA"),
        campo("Desconto", "@VALORDESCONTO"), campo("Total", "@VALORPAGAR"), campo("Valor pago", "@VALORPAGO"),
        campo("Observação", "@CAMPOOBSERVACAO"),
        campo("Atendido por", "@FUNCIONARIO"),
    ] + assinatura("Recebi o aparelho acima em ordem"),
    "orcamento": CABECA + [
        p(("Orçamento", True), tipo="secao"),
        campo("Data", "@DATASIMPLESAGORA"), campo("Data de entrada", "@DATAENTRADA"),
    ] + CLIENTE + APARELHO + [
        p(("Serviço", True), tipo="secao"),
        campo("Defeito encontrado", "@DEFEITOREAL"), campo("Serviço a executar", "@SERVICOEXECUTADO"),
        p(("Peças", True), tipo="secao"),
        ("tabela", ["Descrição", "Quant", "Unitário", "Total"]),
        campo("Peças", "@VALORPECA"), campo("Mão de obra", "@VALORMAOOBRA"), campo("Total", "@VALORPAGAR"),
        campo("Situação", "@STATUSCONSERTO"),
    ] + assinatura("Autorizo o conserto"),
    "devolucao": CABECA + [
        p(("Devolução do aparelho", True), tipo="secao"),
        campo("Data de entrada", "@DATAENTRADA"), campo("Data de saída", "@DATASAIDA"),
    ] + CLIENTE + APARELHO + [
        p(("Motivo da devolução", True), tipo="secao"),
        campo("Situação", "@STATUSCONSERTO"), campo("Defeito encontrado", "@DEFEITOREAL"),
        campo("Observação", "@CAMPOOBSERVACAO"), campo("Técnico", "@NOMETECNICO"),
        campo("Atendido por", "@FUNCIONARIO"),
    ] + assinatura("Recebi o aparelho acima sem conserto"),
    # The material order sent to a supplier: its list fills the table, a row per item.
    "pedido": CABECA[:3] + [
        p(("Pedido de Material", True), tipo="titulo"),
        ("tabela", ["Código", "Quant", "Descrição"]),
        p(("", False)),
        p(("@DATALONGAAGORA", False)),
    ],
}

def membro(z, nome, dados, compressao=zipfile.ZIP_DEFLATED):
    # A fixed date keeps the files the same from one run to the next.
    info = zipfile.ZipInfo(nome, date_time=(2026, 1, 1, 0, 0, 0))
    info.compress_type = compressao
    z.writestr(info, dados)

# ---- OpenDocument ----

ODT_ESTILOS = """<office:automatic-styles>
<style:style style:name="Titulo" style:family="paragraph"><style:paragraph-properties fo:text-align="center" fo:margin-bottom="0.3cm"/><style:text-properties fo:font-size="16pt" fo:font-weight="bold"/></style:style>
<style:style style:name="Secao" style:family="paragraph"><style:paragraph-properties fo:margin-top="0.3cm" fo:margin-bottom="0.1cm" fo:border-bottom="0.5pt solid #000000"/><style:text-properties fo:font-size="12pt" fo:font-weight="bold"/></style:style>
<style:style style:name="Texto" style:family="paragraph"><style:text-properties fo:font-size="10pt"/></style:style>
<style:style style:name="Negrito" style:family="text"><style:text-properties fo:font-weight="bold"/></style:style>
<style:style style:name="Empresa" style:family="paragraph"><style:paragraph-properties fo:text-align="center"/><style:text-properties fo:font-size="10pt"/></style:style>
<style:style style:name="Valor" style:family="paragraph"><style:paragraph-properties fo:text-align="end"/><style:text-properties fo:font-size="10pt"/></style:style>
<style:style style:name="Tabela" style:family="table"><style:table-properties style:width="17cm" table:align="margins"/></style:style>
<style:style style:name="ColDescricao" style:family="table-column"><style:table-column-properties style:column-width="9.5cm"/></style:style>
<style:style style:name="ColValor" style:family="table-column"><style:table-column-properties style:column-width="2.5cm"/></style:style>
<style:style style:name="Celula" style:family="table-cell"><style:table-cell-properties fo:padding="0.05cm" fo:border="0.5pt solid #000000"/></style:style>
</office:automatic-styles>"""

def odt_paragrafo(tipo, partes):
    estilo = {"titulo": "Titulo", "secao": "Secao", "texto": "Texto", "empresa": "Empresa"}[tipo]
    corpo = ""
    for texto, negrito in partes:
        t = escape(texto).replace("  ", " <text:s/>")
        corpo += f'<text:span text:style-name="Negrito">{t}</text:span>' if negrito and tipo == "texto" else t
    return f'<text:p text:style-name="{estilo}">{corpo}</text:p>'

# The description takes most of the width; amounts stand to the right; the heading row
# repeats on every page a long budget runs onto.
def odt_tabela(titulos):
    cols = "".join(f'<table:table-column table:style-name="{"ColDescricao" if i == 0 else "ColValor"}"/>'
                   for i in range(len(titulos)))
    def linha(textos, negrito):
        cel = ""
        for i, t in enumerate(textos):
            conteudo = f'<text:span text:style-name="Negrito">{escape(t)}</text:span>' if negrito and t else escape(t)
            estilo = "Texto" if i == 0 else "Valor"
            cel += f'<table:table-cell table:style-name="Celula" office:value-type="string"><text:p text:style-name="{estilo}">{conteudo}</text:p></table:table-cell>'
        return f"<table:table-row>{cel}</table:table-row>"
    return (f'<table:table table:name="Pecas" table:style-name="Tabela">{cols}'
            f'<table:table-header-rows>{linha(titulos, True)}</table:table-header-rows>'
            + linha([""] * len(titulos), False) + "</table:table>")

def gravar_odt(nome, itens):
    corpo = "".join(odt_tabela(i[1]) if i[0] == "tabela" else odt_paragrafo(*i) for i in itens)
    ns = ('xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" '
          'xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0" '
          'xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" '
          'xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0" '
          'xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"')
    content = (f'<?xml version="1.0" encoding="UTF-8"?>\n<office:document-content {ns} office:version="1.2">'
               f'{ODT_ESTILOS}<office:body><office:text>{corpo}</office:text></office:body></office:document-content>')
    manifest = ('<?xml version="1.0" encoding="UTF-8"?>\n'
                '<manifest:manifest xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0" manifest:version="1.2">'
                '<manifest:file-entry manifest:full-path="/" manifest:media-type="application/vnd.oasis.opendocument.text"/>'
                '<manifest:file-entry manifest:full-path="content.xml" manifest:media-type="text/xml"/>'
                '</manifest:manifest>')
    with zipfile.ZipFile(os.path.join(AQUI, nome + ".odt"), "w") as z:
        membro(z, "mimetype", "application/vnd.oasis.opendocument.text", zipfile.ZIP_STORED)
        membro(z, "META-INF/manifest.xml", manifest)
        membro(z, "content.xml", content)

# ---- Office Open XML ----

def docx_run(texto, negrito, tamanho):
    rpr = f'<w:rPr>{"<w:b/>" if negrito else ""}<w:sz w:val="{tamanho}"/></w:rPr>'
    return f'<w:r>{rpr}<w:t xml:space="preserve">{escape(texto)}</w:t></w:r>'

def docx_paragrafo(tipo, partes):
    ppr = {"titulo": '<w:pPr><w:jc w:val="center"/><w:spacing w:after="200"/></w:pPr>',
           "empresa": '<w:pPr><w:jc w:val="center"/><w:spacing w:after="0"/></w:pPr>',
           "secao": '<w:pPr><w:pBdr><w:bottom w:val="single" w:sz="4" w:space="1" w:color="000000"/></w:pBdr>'
                    '<w:spacing w:before="200" w:after="60"/></w:pPr>',
           "texto": '<w:pPr><w:spacing w:after="0"/></w:pPr>'}[tipo]
    tamanho = {"titulo": 32, "secao": 24, "texto": 20, "empresa": 20}[tipo]
    negrito = lambda b: b or tipo not in ("texto", "empresa")
    return f"<w:p>{ppr}" + "".join(docx_run(t, negrito(b), tamanho) for t, b in partes) + "</w:p>"

def docx_tabela(titulos):
    borda = "".join(f'<w:{l} w:val="single" w:sz="4" w:space="0" w:color="000000"/>'
                    for l in ("top", "left", "bottom", "right", "insideH", "insideV"))
    larguras = [5400] + [1400] * (len(titulos) - 1)
    grade = "".join(f'<w:gridCol w:w="{w}"/>' for w in larguras)
    def linha(textos, negrito, cabecalho=False):
        trpr = "<w:trPr><w:tblHeader/></w:trPr>" if cabecalho else ""
        celulas = ""
        for i, t in enumerate(textos):
            ppr = '<w:pPr><w:jc w:val="right"/></w:pPr>' if i > 0 else ""
            celulas += (f'<w:tc><w:tcPr><w:tcW w:w="{larguras[i]}" w:type="dxa"/></w:tcPr>'
                        f'<w:p>{ppr}{docx_run(t, negrito, 20) if t else ""}</w:p></w:tc>')
        return f"<w:tr>{trpr}{celulas}</w:tr>"
    return (f'<w:tbl><w:tblPr><w:tblW w:w="9600" w:type="dxa"/><w:tblLayout w:type="fixed"/>'
            f'<w:tblBorders>{borda}</w:tblBorders></w:tblPr>'
            f'<w:tblGrid>{grade}</w:tblGrid>' + linha(titulos, True, True) + linha([""] * len(titulos), False) + "</w:tbl>")

def gravar_docx(nome, itens):
    corpo = "".join(docx_tabela(i[1]) if i[0] == "tabela" else docx_paragrafo(*i) for i in itens)
    documento = ('<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
                 '<w:document xmlns:w="http://schemas.openxmlformats.org/wordprocessingml/2006/main">'
                 f'<w:body>{corpo}<w:sectPr><w:pgSz w:w="11906" w:h="16838"/>'
                 '<w:pgMar w:top="1134" w:right="1134" w:bottom="1134" w:left="1134" w:header="0" w:footer="0" w:gutter="0"/>'
                 '</w:sectPr></w:body></w:document>')
    tipos = ('<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
             '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
             '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
             '<Default Extension="xml" ContentType="application/xml"/>'
             '<Override PartName="/word/document.xml" '
             'ContentType="application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"/>'
             '</Types>')
    rels = ('<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
            '<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships">'
            '<Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" '
            'Target="word/document.xml"/></Relationships>')
    with zipfile.ZipFile(os.path.join(AQUI, nome + ".docx"), "w") as z:
        membro(z, "[Content_Types].xml", tipos)
        membro(z, "_rels/.rels", rels)
        membro(z, "word/document.xml", documento)

if __name__ == "__main__":
    for nome, itens in MODELOS.items():
        gravar_odt(nome, itens)
        gravar_docx(nome, itens)
