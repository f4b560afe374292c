#pragma once
#include <QWidget>

#include "maintenance/Lixeira.h"

class Banco;
class QComboBox;
class QDateEdit;
class QLineEdit;
class QPushButton;
class QTableView;
class ModeloLixeira;

// "Manutenção de registros": the bin of soft-deleted records, where a row is marked or
// brought back by a double click and the deleted rows of a list are purged for good.
class RegistrosLogs : public QWidget {
    Q_OBJECT
public:
    explicit RegistrosLogs(QWidget* pai = nullptr);
    ~RegistrosLogs() override;

    void listar();
    void purgar();
    void marcarLinha(int linha);

private:
    Lixeira::Registro registro() const;
    Lixeira::Modo modo() const;
    bool lerFiltro(Lixeira::Filtro* f);
    void mudarModo();
    Banco* banco();

    QComboBox* m_combo1;
    QComboBox* m_combo2;
    QDateEdit* m_inicio;
    QDateEdit* m_fim;
    QLineEdit* m_codigo[2];
    QTableView* m_grade;
    ModeloLixeira* m_modelo;
    QPushButton* m_botao[4];
    bool m_listaValida = false;
};
