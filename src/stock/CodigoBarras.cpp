#include "stock/CodigoBarras.h"

#include <zint.h>

#include <memory>

namespace CodigoBarras {

QImage ean13(const QString& codigo, QString* erro)
{
    const QString t = codigo.trimmed();
    auto falha = [erro](const QString& motivo) {
        if (erro)
            *erro = motivo;
        return QImage();
    };
    if (t.isEmpty())
        return falha(QStringLiteral("Sem código de barras."));
    for (QChar c : t)
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return falha(QStringLiteral("O código EAN13 tem só números."));
    if (t.size() != 12 && t.size() != 13)
        return falha(QStringLiteral("O código EAN13 tem 13 números."));
    std::unique_ptr<zint_symbol, void (*)(zint_symbol*)> s(ZBarcode_Create(), ZBarcode_Delete);
    if (!s)
        return falha(QStringLiteral("Sem memória para o código de barras."));
    s->symbology = BARCODE_EANX;
    s->scale = 2.0f;  // a bar two pixels wide: read by a scanner from the screen
    s->height = 22;
    const QByteArray dados = t.toLatin1();
    if (ZBarcode_Encode_and_Buffer(s.get(), reinterpret_cast<const unsigned char*>(dados.constData()),
                                   int(dados.size()), 0) >= ZINT_ERROR)
        // The last digit is the check of the other twelve: a wrong one is a mistyped code.
        return falha(QStringLiteral("Código EAN13 inválido: confira o dígito verificador."));
    QImage img(s->bitmap_width, s->bitmap_height, QImage::Format_RGB888);
    for (int y = 0; y < s->bitmap_height; ++y)
        memcpy(img.scanLine(y), s->bitmap + size_t(y) * s->bitmap_width * 3, size_t(s->bitmap_width) * 3);
    return img;
}

}
