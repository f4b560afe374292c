#pragma once
#include <QListWidget>

class Banco;

// The notices an order's customer was given, newest first, one line each
// ("WhatsApp 23/11/2026 14:05 CARLOS - Consertado"). Small, for the screens that work on
// one order.
class ListaAvisos : public QListWidget {
    Q_OBJECT
public:
    explicit ListaAvisos(QWidget* pai = nullptr);
    // Reads the order's notices; 0 empties the list. A store failure leaves a line saying so.
    void mostrar(Banco& banco, qint64 codOsAut);
};
