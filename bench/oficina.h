#pragma once

#include <QString>
#include <QTemporaryDir>

#include <functional>

namespace medidas
{

class BancoCru;

/// A program folder with its database for a measurement, large where `rows` is. Becomes the program's open database.
class Oficina
{
public:
    explicit Oficina(int rows);
    /// The same with an empty database that `preenche` fills.
    explicit Oficina(const std::function<void()> &preenche);
    ~Oficina();

    /// Makes this folder's database the program's one; several can exist side by side.
    void abre() const;
    QString arquivo() const;
    QString pasta() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
};

/// Makes the database of a program folder that exists already the program's one.
void abrePasta(const QString &pasta);

/// The large one and the small one, made at first use.
const Oficina &grande();
const Oficina &pequena();
constexpr int linhasGrandes = 200'000;
constexpr int linhasPequenas = 200;

void medeBanco();
void medeOrdens();
void medeOrcamentos();
void medeAlteracao();
void medeImportacao();
void medeLista();
void medeCadastros();
void medeFinancas();
void medePrevia();
void medeRelatorios();
void medeRelatoriosDeClientes();

/// The balances of the whole cash book worked out anew through the bare library, inside a write of the caller's.
void recalculaCru(const BancoCru &banco);

/// The workshop with 200,000 customers, made at first use.
const Oficina &comClientes();

/// Called as a process of its own with "vazia", "lista" or "vetor": prints what an empty list, a full one or the plain
/// vector adds to the resident memory, and that memory, in bytes.
int memoriaDeLista(const QString &kind);

/// The same with "cadastro" or "clientes": what the filled register of the customers in a program folder adds, or the
/// plain vector of the texts that it shows.
int memoriaDeCadastro(const QString &kind, const QString &pasta);

/// The folder of a workshop whose cash book is a long report; and, called as a process of its own with it, what the
/// preview of that report adds when the user has been through all of its pages, beside the resident memory.
QString pastaDaPrevia();
int memoriaDePrevia(const QString &pasta);

/// Resident memory with what is free given back: it would count for the side that is measured first.
qint64 memoriaAssentada();

/// Called as a process of its own: prints "splash" as soon as the splash is painted, and ends.
int partidaDoSplash();

/// Prints start-up time and size of the executable, which have no limit.
void mostraSemLimite();

/// Resident memory of this process in bytes; 0 where the system does not tell.
qint64 memoriaResidente();

} // namespace medidas
