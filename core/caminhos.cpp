#include "core/caminhos.h"

#include "platform/files/files.h"
#include "platform/files/replacefile.h"
#include "platform/ini/profile.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStorageInfo>
#include <QStringList>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace core
{

namespace
{

constexpr auto pastaDados = u"DADOS";

#ifndef Q_OS_WIN

/// The name in the folder `pasta`, "" or with a slash at its end, as it stands on disk; `nome` itself where there is
/// none.
QString nomeNoDisco(const QString &pasta, const QString &nome)
{
    const QDir dir(pasta.isEmpty() ? u"."_s : pasta);
    if (nome.isEmpty() || dir.exists(nome)) {
        return nome;
    }
    const auto todos = QDir::AllEntries | QDir::Hidden | QDir::System;
    for (const QString &existente : dir.entryList(todos, QDir::Name)) {
        if (existente.compare(nome, Qt::CaseInsensitive) == 0) {
            return existente;
        }
    }
    return nome;
}

#endif

/// Access rights alone don't tell (network drives, read-only mounts, administrators): trying does.
bool gravavel(const QString &pasta)
{
    QTemporaryFile prova(pasta + u"/gravavel-XXXXXX"_s);
    return prova.open();
}

/// Whole or not at all: what a kill or a full disk kept from being copied is missing, and the next start brings it.
void copiaArquivo(const QFileInfo &origem, const QString &copia)
{
    files::clearLeftovers(copia);
    QFile arquivo(origem.filePath());
    if (!arquivo.open(QIODevice::ReadOnly) || !files::replaceFile(copia, arquivo.readAll())) {
        return;
    }
    if (origem.isExecutable()) {
        QFile::setPermissions(copia, origem.permissions());
        files::restrictToGroup(copia);
    }
}

void copiaFaltantes(const QString &origem, const QStringList &filtros, const QString &destino)
{
    for (const QFileInfo &arquivo : QDir(origem).entryInfoList(filtros, QDir::Files)) {
        const QString copia = destino + u'/' + arquivo.fileName();
        // An existing file is the user's own, whatever the case of its name.
        if (!QFileInfo::exists(caminho(copia))) {
            copiaArquivo(arquivo, copia);
        }
    }
}

/// The program's texts say both \DADOS and \dados. Where the file system tells them apart, both names lead to one
/// folder.
void ligaNomes([[maybe_unused]] const QString &pasta)
{
#ifndef Q_OS_WIN
    const QString verdadeira = QFileInfo(caminho(pasta + u'/' + pastaDados)).fileName();
    for (const QString &nome : {u"DADOS"_s, u"dados"_s}) {
        QFile::link(verdadeira, pasta + u'/' + nome); // does nothing where the name is taken
    }
#endif
}

/// The settings give back a path as it is when it has up to 254 characters of the Western code page on one line. The
/// longest path below the program folder is the database's.
constexpr auto bancoNaPasta = u"\\DADOS\\DADOS.MDB";
constexpr int maiorCaminho = 254;

#ifdef Q_OS_WIN
/// The database engine opens paths of up to 259 characters here, and a restoring keeps what was there under a name of
/// its own.
constexpr auto maisLongoNaPasta = u"\\DADOS\\DADOS-antes-2024-05-15-103000.MDB.gravando-01234567";
const qsizetype maiorPasta = 259 - QStringView(maisLongoNaPasta).size();
#else
const qsizetype maiorPasta = maiorCaminho - QStringView(bancoNaPasta).size();
#endif

bool voltaDasConfiguracoes(const QString &texto)
{
    const QString secao = u"Config"_s;
    const QString chave = u"FileDB"_s;
    const QByteArray gravado = ini::writeProfileText(secao, chave, texto, {});
    return ini::readProfileText(secao, chave, {}, maiorCaminho + 1, gravado) == texto;
}

/// Both kinds of slash part folders in the program's texts.
bool temBarraNoNome([[maybe_unused]] const QString &pasta)
{
#ifdef Q_OS_WIN
    return false;
#else
    return pasta.contains(u'\\');
#endif
}

/// The database that the folder's settings name, else the one in its usual place.
QString bancoDe(const QString &pasta)
{
    const QString dito =
        ini::readProfile(u"Config"_s, u"FileDB"_s, {}, maiorCaminho + 1, caminho(pasta + u"/config.ini"_s));
    return caminho(dito.isEmpty() ? QString(pasta + bancoNaPasta) : dito);
}

/// A folder of data that can't be looked into may hold one.
bool temBanco(const QString &pasta)
{
    const QFileInfo dados(caminho(pasta + u'/' + pastaDados));
    return QFileInfo::exists(bancoDe(pasta)) || QFileInfo::exists(caminho(pasta + bancoNaPasta)) ||
           (dados.isDir() && !dados.isExecutable());
}

QString porQueNaoGrava(const QString &pasta)
{
    if (!QFileInfo(pasta).isDir()) {
        return u"A pasta não existe."_s;
    }
    if (QStorageInfo(pasta).isReadOnly()) {
        return u"O disco está protegido contra gravação."_s;
    }
    if (!QFileInfo(pasta).isWritable()) {
        return u"Seu usuário não tem permissão para gravar nesta pasta."_s;
    }
    return u"O sistema não deixa criar arquivos nesta pasta."_s;
}

/// What is wrong with a folder's path, and what to do about it; "" where nothing is.
QString problemaDoCaminho(const QString &pasta)
{
    if (pasta.size() > maiorPasta) {
        return u"O caminho da pasta tem %1 caracteres e pode ter no máximo %2.\n\nMude o programa para uma pasta de "
               "caminho mais curto."_s.arg(pasta.size())
                   .arg(maiorPasta);
    }
    if (temBarraNoNome(pasta) || !voltaDasConfiguracoes(pasta + bancoNaPasta)) {
        return u"O caminho da pasta tem letras ou sinais que as configurações não guardam.\n\nMude o programa para uma "
               "pasta cujo nome tenha somente letras, números e espaços."_s;
    }
    return {};
}

QString recusa(const QString &qual, const QString &pasta, const QString &problema)
{
    return qual + u" não pode ser usada:\n"_s + QDir::toNativeSeparators(pasta) + u"\n\n"_s + problema;
}

} // namespace

QString caminho(const QString &texto)
{
    QString limpo = texto;
    limpo.replace(u'\\', u'/');
#ifdef Q_OS_WIN
    return limpo; // the file system does not tell case apart
#else
    if (QFileInfo::exists(limpo)) {
        return limpo;
    }
    QString pasta;
    const QStringList partes = limpo.split(u'/');
    for (qsizetype i = 0; i < partes.size(); ++i) {
        pasta += i == 0 ? QString() : u"/"_s;
        pasta += nomeNoDisco(pasta, partes[i]);
    }
    return pasta;
#endif
}

void preenchePasta(const QString &instalacao, const QString &destino)
{
    const QString dados = caminho(destino + u'/' + pastaDados);
    QDir().mkpath(dados);
    ligaNomes(destino);
    copiaFaltantes(instalacao, {u"*.BAT"_s, u"CEP.MDB"_s}, destino);
    copiaFaltantes(caminho(instalacao + u'/' + pastaDados), {u"*.BMP"_s}, dados);
}

QString pastaDaInstalacao(const QString &executaveis)
{
    const QString doPacote = QDir::cleanPath(executaveis + u"/../share/tarvelo"_s);
    return QFileInfo(doPacote).isDir() ? doPacote : executaveis;
}

/// A relative path would be another folder, without the data, wherever the program is started from.
QString pastaDoUsuario()
{
    const QString ditos = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const QString dados = QDir::isAbsolutePath(ditos) ? ditos : QDir::homePath() + u"/.local/share"_s;
    return QDir::cleanPath(dados + u"/tarvelo"_s);
}

QString pastaDoPrograma(const QString &executaveis, const QString &dadosDoUsuario)
{
    const QString instalacao = pastaDaInstalacao(executaveis);
    // The administrator could write beside a package's program, where a workshop's data would be in everybody's way.
    const bool pacote = instalacao != executaveis;
    // Where a database stands, that one is meant, and never an empty one elsewhere.
    if (!pacote && (temBanco(executaveis) || gravavel(executaveis))) {
        return executaveis;
    }
    preenchePasta(instalacao, dadosDoUsuario);
    return dadosDoUsuario;
}

QString defeitoDaPasta(const QString &pasta)
{
    const QString doPrograma = u"A pasta do programa"_s;
    if (const QString problema = problemaDoCaminho(pasta); !problema.isEmpty()) {
        return recusa(doPrograma, pasta, problema);
    }
    const QString intacto = u"\n\nO banco de dados desta pasta não foi aberto e nenhum outro foi criado."_s;
    if (!gravavel(pasta)) {
        return recusa(doPrograma, pasta, porQueNaoGrava(pasta) + (temBanco(pasta) ? intacto : QString()));
    }
    // A database that opens in such a folder fails at the first write, which makes a journal beside it.
    const QString doBanco = QFileInfo(bancoDe(pasta)).path();
    if (QFileInfo(doBanco).isDir() && !gravavel(doBanco)) {
        return recusa(u"A pasta do banco de dados"_s, doBanco, porQueNaoGrava(doBanco) + intacto);
    }
    return {};
}

} // namespace core
