#include "documents/BlocoPix.h"

#include "cash/Pix.h"
#include "documents/Impressora.h"

void imprimeBlocoPix(Impressora& p, const QString& payload, int x, int lado)
{
    if (payload.isEmpty())
        return;
    const QImage qr = Pix::qrCode(payload, 4);
    if (qr.isNull())
        return;
    p.setFontBold(true);
    p.setFontSize(8);
    // Caption and code stay together: a QR cut by a page's foot can't be read.
    p.garantirEspaco(2 * p.alturaLinha() + lado);
    p.setCurrentX(x);
    p.print(QStringLiteral("Pagamento por PIX"));
    p.setFontBold(false);
    const int y = p.currentY();
    p.paintPicture(qr, x, y, lado, lado);
    p.setCurrentY(y + lado);
    p.setFontSize(6);
    p.setCurrentX(x);
    p.print(QStringLiteral("PIX copia e cola: ") + payload);
    p.setFontSize(8);
}
