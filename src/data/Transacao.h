#pragma once
class Banco;

// A write transaction as an object: it begins in the constructor, commits on commit(),
// and rolls back in its destructor otherwise, so an early return or an exception can't
// leave half a save behind. A transaction opened inside another joins it: only the
// outermost one commits. On SQLite the write lock is taken at the start, so two stations
// that save at once are served one after the other.
class Transacao {
public:
    explicit Transacao(Banco& banco);
    ~Transacao();
    Transacao(const Transacao&) = delete;
    Transacao& operator=(const Transacao&) = delete;

    void commit();
    bool externa() const { return m_externa; }

private:
    Banco& m_banco;
    bool m_externa;
    bool m_concluida = false;
};
