#pragma once

#include <QString>
#include <QTemporaryDir>

#include <functional>

namespace medidas
{

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

private:
    QTemporaryDir folder_;
};

/// The large one and the small one, made at first use.
const Oficina &grande();
const Oficina &pequena();
constexpr int linhasGrandes = 200'000;
constexpr int linhasPequenas = 200;

void medeBanco();
void medeOrdens();
void medeLista();
void medeCadastros();

/// Called as a process of its own with "vazia", "lista" or "vetor": prints what an empty list, a full one or the plain
/// vector adds to the resident memory, and that memory, in bytes.
int memoriaDeLista(const QString &kind);

/// Called as a process of its own: prints "splash" as soon as the splash is painted, and ends.
int partidaDoSplash();

/// Prints start-up time and size of the executable, which have no limit.
void mostraSemLimite();

/// Resident memory of this process in bytes; 0 where the system does not tell.
qint64 memoriaResidente();

} // namespace medidas
