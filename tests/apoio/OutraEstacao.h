#pragma once
#include <QString>
#include <memory>

class BancoTeste;

// What another station does to the same store while a screen stands open: on PostgreSQL a
// process of its own (psql) with its own connection; on SQLite a second connection. The SQL
// is the test's own. Returns the failure text, empty when the statement ran.
QString outraEstacao(const BancoTeste& b, const QString& sql);

// Another station caught in the middle of its own save: `sql` runs inside a transaction
// that then stays open for `segurarMs` and commits by itself (psql on PostgreSQL, a
// connection in a thread of its own on SQLite). The constructor returns once the statement
// has run, so what this station does next meets that transaction still open.
class OutraEstacaoGravando {
public:
    OutraEstacaoGravando(const BancoTeste& b, const QString& sql, int segurarMs);
    ~OutraEstacaoGravando();
    // Waits for the commit; the failure text, empty when everything ran.
    QString terminar();

private:
    struct Estado;
    std::unique_ptr<Estado> m;
};
