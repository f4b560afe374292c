#pragma once
#include "maintenance/TelaManutencao.h"

// "Backup do banco de dados": a verified copy of the store in \BackupToldex on the chosen
// drive, after compacting the store when nobody else is working on it.
class BackupDados : public TelaManutencao {
    Q_OBJECT
public:
    explicit BackupDados(QWidget* pai = nullptr);

    static QString textoSemCompactacao();
    static QString textoPastaProtegida();

protected slots:
    void iniciar() override;

private:
    // Compaction with exclusive access; false only when the user cancelled it.
    bool compactar();
    void gravarData();
};
