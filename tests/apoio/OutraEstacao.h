#pragma once
#include <QString>

class BancoTeste;

// What another station does to the same store while a screen stands open: on PostgreSQL a
// process of its own (psql) with its own connection; on SQLite a second connection. The SQL
// is the test's own. Returns the failure text, empty when the statement ran.
QString outraEstacao(const BancoTeste& b, const QString& sql);
