#pragma once

#include <QString>
#include <QStringList>

#include <exception>

namespace copias
{

/// Why a copy or a restoring was not done, in words for the user.
class Erro : public std::exception
{
public:
    explicit Erro(QString texto) : texto_(std::move(texto)), utf8_(texto_.toUtf8()) {}
    const QString &texto() const { return texto_; }
    const char *what() const noexcept override { return utf8_.constData(); }

private:
    QString texto_;
    QByteArray utf8_;
};

/// A kind of copy: its name is `antes`, the moment, `depois`, as in "DADOS-2024-05-15-103000.MDB".
struct Especie {
    QString antes;
    QString depois;
    bool pasta = false; ///< a folder a copy
    QString deQue = {}; ///< in sentences, with its article
};

const Especie &copiaDoBanco();
const Especie &copiaDasFiguras();

/// What stood at a path before it gave way to a copy, beside it: "DADOS-antes-2024-05-15-103000.MDB".
Especie guardadosDe(const QString &caminho, bool pasta = false);

/// So many copies of a kind stay in a folder.
constexpr int copiasGuardadas = 10;

/// How a path is told to the user.
QString mostrado(const QString &caminho);

/// The copies of a kind in a folder, the newest first, as paths. Nothing else is ever taken for a copy.
QStringList copiasEm(const QString &pasta, const Especie &especie);

/// A path for a copy that is made now, which no other has.
QString copiaNova(const QString &pasta, const Especie &especie);

/// The moment of a copy, "15/05/2024 10:30:00"; "" for what is not named as one.
QString momentoDaCopia(const QString &copia, const Especie &especie);

/// Takes away the oldest copies beyond those that stay, never the one that was just made.
void apagaAsAntigas(const QString &nova, const Especie &especie);

/// Takes away what copies that were killed left behind in a folder.
void limpaRestos(const QString &pasta, const Especie &especie);

/// The first of the folders that is there; where none is, the last one is made.
QString pastaDeDestino(const QStringList &pastas);

/// Raises `Erro` where a folder is not there, or no more, which explains every failure in it; `nada` says what was not
/// done.
void confereQueEsta(const QString &pasta, const QString &nada);

/// The newest copy of the first place that has one; a place is a folder or a copy itself. Any copy that is named is
/// taken, whatever its name.
QString copiaEscolhida(const QStringList &lugares, const Especie &especie);

} // namespace copias
