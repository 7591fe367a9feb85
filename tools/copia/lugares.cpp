#include "tools/copia/lugares.h"

#include "platform/files/files.h"
#include "platform/files/replacefile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace copias
{

namespace
{

const QString mascaraDoNome = u"yyyy-MM-dd-HHmmss"_s;
constexpr auto momentoDoNome = u"(\\d{4}-\\d{2}-\\d{2}-\\d{6})";

QRegularExpression nomesDe(const Especie &especie, const QString &resto = {})
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QRegularExpression::escape(especie.antes) +
                                                                  momentoDoNome +
                                                                  QRegularExpression::escape(especie.depois) + resto));
}

QString nomeDe(const Especie &especie, const QDateTime &momento)
{
    return especie.antes + momento.toString(mascaraDoNome) + especie.depois;
}

void apaga(const QString &copia, const Especie &especie)
{
    especie.pasta ? QDir(copia).removeRecursively() : QFile::remove(copia);
}

bool ehCopia(const QFileInfo &lugar, const Especie &especie)
{
    if (!especie.pasta) {
        return lugar.isFile();
    }
    return lugar.isDir() && nomesDe(especie).match(lugar.fileName()).hasMatch();
}

} // namespace

const Especie &copiaDoBanco()
{
    static const Especie especie{.antes = u"DADOS-"_s, .depois = u".MDB"_s, .deQue = u"do banco de dados"_s};
    return especie;
}

const Especie &copiaDasFiguras()
{
    static const Especie especie{.antes = u"FIGURAS-"_s, .depois = {}, .pasta = true, .deQue = u"das figuras"_s};
    return especie;
}

Especie guardadosDe(const QString &caminho, bool pasta)
{
    const QFileInfo arquivo(caminho);
    const QString tipo = arquivo.suffix().isEmpty() ? QString() : u'.' + arquivo.suffix();
    return {.antes = arquivo.completeBaseName() + u"-antes-"_s, .depois = tipo, .pasta = pasta};
}

QString mostrado(const QString &caminho)
{
    return QDir::toNativeSeparators(QDir::cleanPath(caminho));
}

QStringList copiasEm(const QString &pasta, const Especie &especie)
{
    const QRegularExpression nomes = nomesDe(especie);
    const QDir dir(pasta);
    const auto quais = especie.pasta ? QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks : QDir::Files;
    QStringList copias;
    for (const QString &nome : dir.entryList(quais, QDir::Name | QDir::Reversed)) {
        if (nomes.match(nome).hasMatch()) {
            copias.append(dir.filePath(nome));
        }
    }
    return copias;
}

QString copiaNova(const QString &pasta, const Especie &especie)
{
    const QDir dir(pasta);
    QDateTime momento = QDateTime::currentDateTime();
    while (dir.exists(nomeDe(especie, momento))) {
        momento = momento.addSecs(1);
    }
    return dir.filePath(nomeDe(especie, momento));
}

QString momentoDaCopia(const QString &copia, const Especie &especie)
{
    const auto nome = nomesDe(especie).match(QFileInfo(copia).fileName());
    return QDateTime::fromString(nome.captured(1), mascaraDoNome).toString(u"dd/MM/yyyy HH:mm:ss"_s);
}

/// By their names, as the date of a file is that of its last moving; a clock that stood still or went back takes no
/// copy that was just made.
void apagaAsAntigas(const QString &nova, const Especie &especie)
{
    QStringList outras = copiasEm(QFileInfo(nova).path(), especie);
    outras.removeAll(nova);
    for (const QString &antiga : outras.mid(copiasGuardadas - 1)) {
        apaga(antiga, especie);
    }
}

/// A folder in the making belongs to a file in the making that its maker holds.
void limpaRestos(const QString &pasta, const Especie &especie)
{
    const QRegularExpression restos = nomesDe(especie, u"\\.gravando-[0-9a-f]{8}(\\.pasta)?"_s);
    const QDir dir(pasta);
    const auto achados = [&] { return dir.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot); };
    for (const QString &nome : achados()) {
        if (restos.match(nome).hasMatch()) {
            files::clearLeftovers(dir.filePath(nome.left(nome.lastIndexOf(u".gravando-"_s))));
        }
    }
    for (const QString &nome : achados()) {
        const QString doMeio = nome.left(nome.lastIndexOf(u'.'));
        if (nome.endsWith(u".pasta"_s) && restos.match(nome).hasMatch() && !dir.exists(doMeio)) {
            QDir(dir.filePath(nome)).removeRecursively();
        }
    }
}

QString pastaDeDestino(const QStringList &pastas)
{
    const auto existente = std::ranges::find_if(pastas, [](const QString &pasta) { return QFileInfo(pasta).isDir(); });
    if (existente != pastas.end()) {
        return *existente;
    }
    if (!QDir().mkpath(pastas.back())) {
        throw Erro(u"Não foi possível criar a pasta das cópias:\n"_s + mostrado(pastas.back()));
    }
    return pastas.back();
}

void confereQueEsta(const QString &pasta, const QString &nada)
{
    if (!QFileInfo(pasta).isDir()) {
        throw Erro(u"O disco ou a pasta não está no lugar:\n%1\n\n%2"_s.arg(mostrado(pasta), nada));
    }
}

QString copiaEscolhida(const QStringList &lugares, const Especie &especie)
{
    QStringList mostrados;
    for (const QString &lugar : lugares) {
        if (ehCopia(QFileInfo(lugar), especie)) {
            return lugar;
        }
        if (const QStringList copias = copiasEm(lugar, especie); !copias.isEmpty()) {
            return copias.front();
        }
        mostrados.append(mostrado(lugar));
    }
    throw Erro(u"Não há nenhuma cópia %1 em:\n%2\n\nNada foi mudado."_s.arg(especie.deQue, mostrados.join(u'\n')));
}

} // namespace copias
