#pragma once
#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTableView;
class QAbstractItemModel;

// "Teste cópia de segurança": a table of a backup file shown read-only, and a full check
// of the file, so the shop knows its backups can be read before it needs one.
class TesteBackup : public QWidget {
    Q_OBJECT
public:
    explicit TesteBackup(QWidget* pai = nullptr);
    ~TesteBackup() override;

    void procurar();
    void listar();
    void verificar();

private:
    void listarSqlite(const QString& tabela, const QString& ordem);
    void listarPostgres(const QString& tabela);
    void fecharArquivo();

    QLineEdit* m_texto;
    QComboBox* m_combo;
    QPushButton* m_botao[3];
    QTableView* m_grade;
    QAbstractItemModel* m_modelo = nullptr;
    QString m_conexao;
};
