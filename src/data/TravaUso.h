#pragma once
#include <QString>
#include <memory>

// Every running copy of the program holds a shared lock on a small file beside the
// SQLite store (TOLDEX.db.uso). Maintenance that rewrites or replaces the store takes it
// exclusively, without waiting: if anyone else holds it, another station is working and
// the maintenance is refused before anything is touched. A program that dies loses its
// lock with it, so nothing stays stuck.
namespace TravaUso {

QString arquivo(const QString& pastaBanco);

// Takes (or moves to) the shared lock of this folder's store. False when the file can't
// be made (a read-only folder): the program still runs, but maintenance can't know who
// else works.
bool entrar(const QString& pastaBanco);
void sair();
bool dentro();

}

// The store to ourselves while the object lives. This program's own shared lock is let
// go for that time and taken again at the end.
class TravaExclusiva {
public:
    // nullptr when another program holds the store.
    static std::unique_ptr<TravaExclusiva> tomar(const QString& pastaBanco);
    ~TravaExclusiva();
    TravaExclusiva(const TravaExclusiva&) = delete;
    TravaExclusiva& operator=(const TravaExclusiva&) = delete;

private:
    TravaExclusiva(int fd, QString pasta, bool voltar) : m_fd(fd), m_pasta(std::move(pasta)), m_voltar(voltar) {}
    int m_fd;
    QString m_pasta;
    bool m_voltar;
};
