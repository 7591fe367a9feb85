#include "core/caminhos.h"
#include "core/config.h"
#include "core/modulo.h"
#include "support/ordinaryuser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

using namespace Qt::StringLiterals;

namespace
{

/// The longest path of a program folder.
#ifdef Q_OS_WIN
constexpr int longest = 201;
#else
constexpr int longest = 238;
#endif

/// A path to compare: the same file may have it in any case where the system does not tell them apart.
QString compared(const QString &path)
{
#ifdef Q_OS_WIN
    return path.toLower();
#else
    return path;
#endif
}

} // namespace

class TestCaminhos : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void findsNamesWhateverTheirCase_data();
    void findsNamesWhateverTheirCase();
#ifdef Q_OS_UNIX
    void prefersTheNameAsItIsWritten();
    void aUserKeepsHisFolderWhereHeSays_data();
    void aUserKeepsHisFolderWhereHeSays();
#endif
#ifdef Q_OS_WIN
    void takesPathsAsThisSystemWritesThem_data();
    void takesPathsAsThisSystemWritesThem();
    void aDriveMayBeTheProgramFolder();
#endif
    void keepsWhatDoesNotExist();
    void resolvesRelativePaths();
    void absolutePathsDoNotDependOnTheCurrentFolder();
    void usesAFolderThatCanBeWritten();
    void fillsTheUsersFolderWhereTheProgramsCanNotBeWritten();
    void aPackageIsTheUsersWhoeverStartsIt();
    void keepsThePathWithoutItsLastSlash();
    void aSecondFillingKeepsWhatTheUserChanged();
    void aFolderHalfMadeIsFilledAtTheNextStart();
    void aNewVersionBringsWhatTheFolderLacks();
#ifdef Q_OS_UNIX
    void theFolderOfDataHasBothNames_data();
    void theFolderOfDataHasBothNames();
    void whatIsCopiedIsTheUsersAndHisGroups();
    void aFullDiskLeavesNoHalfFile();
    void staysWithTheDatabaseThatCanNotBeWritten_data();
    void staysWithTheDatabaseThatCanNotBeWritten();
    void aPackageWithoutADatabaseGoesToTheUsersFolder();
    void tellsWhyAFolderCanNotBeWritten();
    void tellsThatTheDatabasesFolderCanNotBeWritten();
#endif
    void tellsWhatAPathMayNotHave_data();
    void tellsWhatAPathMayNotHave();
    void takesThePathsThatItsSettingsTake_data();
    void takesThePathsThatItsSettingsTake();

private:
    void protege(const QString &nome) const;
    void cria(const QString &nome) const;
    QByteArray conteudo(const QString &nome) const;

    std::unique_ptr<QTemporaryDir> pasta_;
};

void TestCaminhos::init()
{
    pasta_ = std::make_unique<QTemporaryDir>();
    QVERIFY(pasta_->isValid());
}

void TestCaminhos::cria(const QString &nome) const
{
    const QString arquivo = pasta_->filePath(nome);
    QVERIFY(QDir().mkpath(QFileInfo(arquivo).path()));
    QFile novo(arquivo);
    QVERIFY(novo.open(QIODevice::WriteOnly));
    QVERIFY(novo.write(nome.toUtf8()) > 0);
}

QByteArray TestCaminhos::conteudo(const QString &nome) const
{
    QFile arquivo(pasta_->filePath(nome));
    return arquivo.open(QIODevice::ReadOnly) ? arquivo.readAll() : QByteArray();
}

void TestCaminhos::findsNamesWhateverTheirCase_data()
{
    QTest::addColumn<QString>("texto");
    QTest::newRow("backslashes") << u"\\DADOS\\Logo.bmp"_s;
    QTest::newRow("folder in small letters") << u"\\dados\\Logo.bmp"_s;
    QTest::newRow("file in capitals") << u"\\Dados\\LOGO.BMP"_s;
    QTest::newRow("slashes of both kinds") << u"/dados\\logo.bmp"_s;
}

void TestCaminhos::findsNamesWhateverTheirCase()
{
    cria(u"DADOS/Logo.bmp"_s);
    QFETCH(const QString, texto);
    QCOMPARE(compared(QFileInfo(core::caminho(pasta_->path() + texto)).canonicalFilePath()),
             compared(QFileInfo(pasta_->filePath(u"DADOS/Logo.bmp"_s)).canonicalFilePath()));
}

#ifdef Q_OS_UNIX

void TestCaminhos::prefersTheNameAsItIsWritten()
{
    cria(u"a.txt"_s);
    cria(u"A.TXT"_s);
    QCOMPARE(core::caminho(pasta_->path() + u"\\a.txt"_s), pasta_->filePath(u"a.txt"_s));
    QCOMPARE(core::caminho(pasta_->path() + u"\\A.TXT"_s), pasta_->filePath(u"A.TXT"_s));
}

void TestCaminhos::aUserKeepsHisFolderWhereHeSays_data()
{
    QTest::addColumn<QByteArray>("said");
    QTest::addColumn<QString>("folder");
    const QString usual = u"/casa/zé/.local/share/tarvelo"_s;
    QTest::newRow("nothing") << QByteArray() << usual;
    QTest::newRow("a folder") << QByteArray("/dados/d'água") << u"/dados/d'água/tarvelo"_s;
    QTest::newRow("with a slash") << QByteArray("/dados/") << u"/dados/tarvelo"_s;
    QTest::newRow("from wherever it is started") << QByteArray("dados") << usual;
    QTest::newRow("from the folder it is started in") << QByteArray("./dados") << usual;
}

void TestCaminhos::aUserKeepsHisFolderWhereHeSays()
{
    QFETCH(const QByteArray, said);
    const QByteArray home = qgetenv("HOME");
    const QByteArray data = qgetenv("XDG_DATA_HOME");
    qputenv("HOME", "/casa/zé");
    qputenv("XDG_DATA_HOME", said);
    const QString folder = core::pastaDoUsuario();
    qputenv("HOME", home);
    data.isNull() ? qunsetenv("XDG_DATA_HOME") : qputenv("XDG_DATA_HOME", data);
    QTEST(folder, "folder");
}

#endif

#ifdef Q_OS_WIN

void TestCaminhos::takesPathsAsThisSystemWritesThem_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("caminho");
    QTest::newRow("a drive") << u"C:\\Oficina\\DADOS\\DADOS.MDB"_s << u"C:/Oficina/DADOS/DADOS.MDB"_s;
    QTest::newRow("both kinds of slash") << u"c:/Oficina\\DADOS.MDB"_s << u"c:/Oficina/DADOS.MDB"_s;
    QTest::newRow("another machine") << u"\\\\SERVIDOR\\oficina\\DADOS.MDB"_s << u"//SERVIDOR/oficina/DADOS.MDB"_s;
}

void TestCaminhos::takesPathsAsThisSystemWritesThem()
{
    QFETCH(const QString, texto);
    QTEST(core::caminho(texto), "caminho");
    QVERIFY(QFileInfo(core::caminho(texto)).isAbsolute());
}

/// A pen drive, with the program beside its data.
void TestCaminhos::aDriveMayBeTheProgramFolder()
{
    core::App::setPath(u"E:/"_s);
    QCOMPARE(core::App::Path(), u"E:"_s);
    QCOMPARE(core::caminho(core::App::Path() + u"\\config.ini"_s), u"E:/config.ini"_s);
    core::App::setPath(u"C:/Oficina do Zé/"_s);
    QCOMPARE(core::App::Path(), u"C:\\Oficina do Zé"_s);
}

#endif

void TestCaminhos::keepsWhatDoesNotExist()
{
    cria(u"DADOS/x"_s);
    QCOMPARE(compared(core::caminho(pasta_->path() + u"\\dados\\Novo\\Arquivo.mdb"_s)),
             compared(pasta_->filePath(u"DADOS/Novo/Arquivo.mdb"_s)));
    QCOMPARE(core::caminho(QString()), QString());
}

void TestCaminhos::resolvesRelativePaths()
{
    cria(u"DADOS/Logo.bmp"_s);
    const QString antes = QDir::currentPath();
    QVERIFY(QDir::setCurrent(pasta_->path()));
    const QString achado = core::caminho(u"dados\\logo.BMP"_s);
    QVERIFY(QFileInfo::exists(achado));
    QVERIFY(QDir::isRelativePath(achado));
    QVERIFY(QDir::setCurrent(antes));
}

void TestCaminhos::absolutePathsDoNotDependOnTheCurrentFolder()
{
    const QString ausente = pasta_->filePath(u"DADOS/NOVO.MDB"_s);
    const QString raiz = ausente.section(u'/', 1, 1);
    cria(raiz.toUpper() + u"/x"_s);
    const QString antes = QDir::currentPath();
    QVERIFY(QDir::setCurrent(pasta_->path()));
    QCOMPARE(core::caminho(ausente), ausente);
    QVERIFY(QDir::setCurrent(antes));
}

void TestCaminhos::usesAFolderThatCanBeWritten()
{
    QCOMPARE(core::pastaDoPrograma(pasta_->path(), u"/nowhere"_s), pasta_->path());
    QVERIFY(QDir(pasta_->path()).isEmpty());
}

void TestCaminhos::fillsTheUsersFolderWhereTheProgramsCanNotBeWritten()
{
    cria(u"instalada/dados/logo.bmp"_s);
    cria(u"instalada/BACKUPDA.BAT"_s);
    cria(u"instalada/tarvelo"_s);
    const QString instalada = pasta_->filePath(u"instalada"_s);
    const QString usuario = pasta_->filePath(u"usuario/tarvelo"_s);

    // A folder that does not exist is one that nobody can write to.
    QCOMPARE(core::pastaDoPrograma(pasta_->filePath(u"ausente"_s), usuario), usuario);
    QVERIFY(QFileInfo::exists(usuario + u"/DADOS"_s));

    core::preenchePasta(instalada, usuario);
    QVERIFY(QFileInfo::exists(usuario + u"/DADOS/logo.bmp"_s));
    QVERIFY(QFileInfo::exists(usuario + u"/BACKUPDA.BAT"_s));
    QVERIFY(!QFileInfo::exists(usuario + u"/tarvelo"_s));
}

void TestCaminhos::aPackageIsTheUsersWhoeverStartsIt()
{
    cria(u"usr/bin/tarvelo"_s);
    cria(u"usr/share/tarvelo/DADOS/logo.bmp"_s);
    cria(u"usr/share/tarvelo/BACKUPDA.BAT"_s);
    const QString bin = pasta_->filePath(u"usr/bin"_s);
    QCOMPARE(core::pastaDaInstalacao(bin), pasta_->filePath(u"usr/share/tarvelo"_s));

    const QString usuario = pasta_->filePath(u"casa/tarvelo"_s);
    QCOMPARE(core::pastaDoPrograma(bin, usuario), usuario);
    QVERIFY(QFile::exists(usuario + u"/DADOS/logo.bmp"_s));
    QVERIFY(QFile::exists(usuario + u"/BACKUPDA.BAT"_s));
    QCOMPARE(QDir(bin).entryList(QDir::Files), QStringList{u"tarvelo"_s});
}

void TestCaminhos::keepsThePathWithoutItsLastSlash()
{
    core::App::setPath(u"/algum/lugar/"_s);
    QCOMPARE(core::App::Path(), QDir::toNativeSeparators(u"/algum/lugar"_s));
    QCOMPARE(core::App::version(), u"2.1.34"_s);
}

void TestCaminhos::aSecondFillingKeepsWhatTheUserChanged()
{
    cria(u"instalada/DADOS/logo.bmp"_s);
    cria(u"instalada/BACKUPDA.BAT"_s);
    cria(u"instalada/RESTORDA.BAT"_s);
    cria(u"usuario/DADOS/LOGO.BMP"_s);
    cria(u"usuario/BackupDa.bat"_s);
    const QString usuario = pasta_->filePath(u"usuario"_s);
    core::preenchePasta(pasta_->filePath(u"instalada"_s), usuario);

    QCOMPARE(QDir(usuario).entryList(QDir::Files), (QStringList{u"BackupDa.bat"_s, u"RESTORDA.BAT"_s}));
    QCOMPARE(QDir(usuario + u"/DADOS"_s).entryList(QDir::Files), QStringList{u"LOGO.BMP"_s});
    QFile script(usuario + u"/BackupDa.bat"_s);
    QVERIFY(script.open(QIODevice::ReadOnly));
    QCOMPARE(script.readAll(), QByteArray("usuario/BackupDa.bat"));
}

/// What a program killed in its first start leaves: the folder, some of the files, and one that it was just writing.
void TestCaminhos::aFolderHalfMadeIsFilledAtTheNextStart()
{
    cria(u"usr/bin/tarvelo"_s);
    cria(u"usr/share/tarvelo/DADOS/bg800.bmp"_s);
    cria(u"usr/share/tarvelo/DADOS/logo.bmp"_s);
    cria(u"usr/share/tarvelo/CEP.MDB"_s);
    cria(u"usuario/DADOS/bg800.bmp"_s);
    cria(u"usuario/DADOS/logo.bmp.gravando-0123abcd"_s);
    const QString usuario = pasta_->filePath(u"usuario"_s);
    QCOMPARE(core::pastaDoPrograma(pasta_->filePath(u"usr/bin"_s), usuario), usuario);

    QCOMPARE(QDir(usuario).entryList(QDir::Files), QStringList{u"CEP.MDB"_s});
    QCOMPARE(QDir(usuario + u"/DADOS"_s).entryList(QDir::Files), (QStringList{u"bg800.bmp"_s, u"logo.bmp"_s}));
    QCOMPARE(conteudo(u"usuario/DADOS/logo.bmp"_s), QByteArray("usr/share/tarvelo/DADOS/logo.bmp"));
    QCOMPARE(conteudo(u"usuario/DADOS/bg800.bmp"_s), QByteArray("usuario/DADOS/bg800.bmp"));
}

void TestCaminhos::aNewVersionBringsWhatTheFolderLacks()
{
    cria(u"usr/bin/tarvelo"_s);
    cria(u"usr/share/tarvelo/DADOS/logo.bmp"_s);
    cria(u"usr/share/tarvelo/BACKUPDA.BAT"_s);
    const QString bin = pasta_->filePath(u"usr/bin"_s);
    const QString usuario = pasta_->filePath(u"usuario"_s);
    core::pastaDoPrograma(bin, usuario);
    cria(u"usuario/DADOS/logo.bmp"_s);

    cria(u"usr/share/tarvelo/DADOS/bg1920.bmp"_s);
    QFile script(pasta_->filePath(u"usr/share/tarvelo/BACKUPDA.BAT"_s));
    QVERIFY(script.open(QIODevice::WriteOnly));
    QVERIFY(script.write("a newer one") > 0);
    script.close();
    core::pastaDoPrograma(bin, usuario);

    QCOMPARE(conteudo(u"usuario/DADOS/bg1920.bmp"_s), QByteArray("usr/share/tarvelo/DADOS/bg1920.bmp"));
    QCOMPARE(conteudo(u"usuario/DADOS/logo.bmp"_s), QByteArray("usuario/DADOS/logo.bmp"));
    QCOMPARE(conteudo(u"usuario/BACKUPDA.BAT"_s), QByteArray("usr/share/tarvelo/BACKUPDA.BAT"));
}

#ifdef Q_OS_UNIX

void TestCaminhos::theFolderOfDataHasBothNames_data()
{
    QTest::addColumn<QString>("existente");
    QTest::addColumn<QString>("verdadeira");
    QTest::newRow("a new folder") << u"usuario/x"_s << u"DADOS"_s;
    QTest::newRow("brought from a system that makes no difference") << u"usuario/dados/DADOS.MDB"_s << u"dados"_s;
}

/// A second folder beside the one with the database would hide it.
void TestCaminhos::theFolderOfDataHasBothNames()
{
    QFETCH(const QString, existente);
    QFETCH(const QString, verdadeira);
    cria(u"instalada/DADOS/logo.bmp"_s);
    cria(existente);
    const QString usuario = pasta_->filePath(u"usuario"_s);
    core::preenchePasta(pasta_->filePath(u"instalada"_s), usuario);

    const auto pastas = QDir::Dirs | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(usuario).entryList(pastas, QDir::Name), (QStringList{u"DADOS"_s, u"dados"_s}));
    QCOMPARE(QDir(usuario).entryList(pastas | QDir::NoSymLinks), QStringList{verdadeira});
    for (const QString &nome : {u"DADOS"_s, u"dados"_s}) {
        QCOMPARE(conteudo(u"usuario/"_s + nome + u"/logo.bmp"_s), QByteArray("instalada/DADOS/logo.bmp"));
    }
}

void TestCaminhos::whatIsCopiedIsTheUsersAndHisGroups()
{
    cria(u"instalada/CEP.MDB"_s);
    cria(u"instalada/BACKUPDA.BAT"_s);
    const QString script = pasta_->filePath(u"instalada/BACKUPDA.BAT"_s);
    QVERIFY(QFile::setPermissions(script, QFile::permissions(script) | QFile::ExeOwner | QFile::ExeOther));
    core::preenchePasta(pasta_->filePath(u"instalada"_s), pasta_->filePath(u"usuario"_s));

    const auto deDono = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    const auto deTodos = deDono | QFile::ReadGroup | QFile::WriteGroup;
    const auto deInicio = QFile::ExeOwner | QFile::ExeUser | QFile::ExeGroup;
    QCOMPARE(QFile::permissions(pasta_->filePath(u"usuario/CEP.MDB"_s)), deTodos);
    QCOMPARE(QFile::permissions(pasta_->filePath(u"usuario/BACKUPDA.BAT"_s)), deTodos | deInicio);
}

/// A limit on the size of files stands for the disk.
void TestCaminhos::aFullDiskLeavesNoHalfFile()
{
    cria(u"instalada/CEP.MDB"_s);
    cria(u"instalada/DADOS/logo.bmp"_s);
    const QString usuario = pasta_->filePath(u"usuario"_s);
    rlimit antes{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &antes), 0);
    const auto sinal = std::signal(SIGXFSZ, SIG_IGN);
    rlimit cheio = antes;
    cheio.rlim_cur = QByteArrayView("instalada/CEP.MDB").size();
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &cheio), 0);
    core::preenchePasta(pasta_->filePath(u"instalada"_s), usuario);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &antes), 0);
    std::signal(SIGXFSZ, sinal);

    QCOMPARE(conteudo(u"usuario/CEP.MDB"_s), QByteArray("instalada/CEP.MDB"));
    QVERIFY(QDir(usuario + u"/DADOS"_s).isEmpty());
    core::preenchePasta(pasta_->filePath(u"instalada"_s), usuario);
    QCOMPARE(conteudo(u"usuario/DADOS/logo.bmp"_s), QByteArray("instalada/DADOS/logo.bmp"));
}

/// Nobody writes there any more, and everybody may look.
void TestCaminhos::protege(const QString &nome) const
{
    const auto olhar =
        QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    QVERIFY(QFile::setPermissions(pasta_->path(), olhar | QFile::WriteOwner));
    QVERIFY(QFile::setPermissions(pasta_->filePath(nome), olhar));
}

void TestCaminhos::staysWithTheDatabaseThatCanNotBeWritten_data()
{
    QTest::addColumn<QString>("banco");
    QTest::newRow("in its place") << u"instalada/DADOS/DADOS.MDB"_s;
    QTest::newRow("in small letters") << u"instalada/dados/dados.mdb"_s;
    QTest::newRow("where the settings say") << u"outra/OFICINA.MDB"_s;
}

void TestCaminhos::staysWithTheDatabaseThatCanNotBeWritten()
{
    QFETCH(const QString, banco);
    cria(banco);
    cria(u"instalada/config.ini"_s);
    QFile ini(pasta_->filePath(u"instalada/config.ini"_s));
    QVERIFY(ini.open(QIODevice::WriteOnly));
    QVERIFY(ini.write("[Config]\r\nFileDB=" + pasta_->path().toLatin1() + "\\outra\\oficina.mdb\r\n") > 0);
    ini.close();
    protege(u"instalada"_s);
    const QString instalada = pasta_->filePath(u"instalada"_s);
    const QString usuario = pasta_->filePath(u"usuario/tarvelo"_s);

    const support::OrdinaryUser user;
    QCOMPARE(core::pastaDoPrograma(instalada, usuario), instalada);
    QVERIFY(!QFileInfo::exists(usuario));
    QCOMPARE(core::defeitoDaPasta(instalada),
             u"A pasta do programa não pode ser usada:\n"_s + instalada +
                 u"\n\nSeu usuário não tem permissão para gravar nesta pasta.\n\n"
                 "O banco de dados desta pasta não foi aberto e nenhum outro foi criado."_s);
}

void TestCaminhos::aPackageWithoutADatabaseGoesToTheUsersFolder()
{
    cria(u"instalada/DADOS/logo.bmp"_s);
    cria(u"usuario/x"_s);
    QVERIFY(QFile::setPermissions(pasta_->filePath(u"usuario"_s), QFile::Permissions(0x7777)));
    protege(u"instalada"_s);
    const QString usuario = pasta_->filePath(u"usuario/tarvelo"_s);

    const support::OrdinaryUser user;
    QCOMPARE(core::pastaDoPrograma(pasta_->filePath(u"instalada"_s), usuario), usuario);
    QVERIFY(QFileInfo::exists(usuario + u"/DADOS/logo.bmp"_s));
    QCOMPARE(core::defeitoDaPasta(usuario), QString());
}

void TestCaminhos::tellsWhyAFolderCanNotBeWritten()
{
    const QString ausente = pasta_->filePath(u"ausente"_s);
    QCOMPARE(core::defeitoDaPasta(ausente),
             u"A pasta do programa não pode ser usada:\n"_s + ausente + u"\n\nA pasta não existe."_s);
    cria(u"vazia/x"_s);
    protege(u"vazia"_s);
    const support::OrdinaryUser user;
    QCOMPARE(core::defeitoDaPasta(pasta_->filePath(u"vazia"_s)),
             u"A pasta do programa não pode ser usada:\n"_s + pasta_->filePath(u"vazia"_s) +
                 u"\n\nSeu usuário não tem permissão para gravar nesta pasta."_s);
}

/// The database itself opens there; its first write would end the program.
void TestCaminhos::tellsThatTheDatabasesFolderCanNotBeWritten()
{
    cria(u"instalada/DADOS/DADOS.MDB"_s);
    QVERIFY(QFile::setPermissions(pasta_->filePath(u"instalada"_s), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(pasta_->filePath(u"instalada/DADOS/DADOS.MDB"_s), QFile::Permissions(0x6666)));
    protege(u"instalada/DADOS"_s);
    const QString instalada = pasta_->filePath(u"instalada"_s);
    const support::OrdinaryUser user;
    QCOMPARE(core::pastaDoPrograma(instalada, u"/nowhere"_s), instalada);
    QCOMPARE(
        core::defeitoDaPasta(instalada),
        u"A pasta do banco de dados não pode ser usada:\n"_s + instalada +
            u"/DADOS\n\nSeu usuário não tem permissão "
            "para gravar nesta pasta.\n\nO banco de dados desta pasta não foi aberto e nenhum outro foi criado."_s);
}

#endif

void TestCaminhos::tellsWhatAPathMayNotHave_data()
{
    QTest::addColumn<QString>("nome");
    QTest::addColumn<QString>("problema");
    const QString letras =
        u"O caminho da pasta tem letras ou sinais que as configurações não guardam.\n\nMude o programa "
        "para uma pasta cujo nome tenha somente letras, números e espaços."_s;
    QTest::newRow("Greek") << u"Οφιτσίνα"_s << letras;
    QTest::newRow("Japanese") << u"工場"_s << letras;
    QTest::newRow("a letter and its mark apart") << u"orc\u0327amento"_s << letras;
    QTest::newRow("a picture") << u"oficina\U0001F527"_s << letras;
#ifdef Q_OS_UNIX // the other system has no such names
    QTest::newRow("two lines") << u"oficina\nnova"_s << letras;
    QTest::newRow("a backslash") << u"oficina\\nova"_s << letras;
#endif
    QTest::newRow("a character too many")
        << QString(longest + 1, u'x')
        << u"O caminho da pasta tem %1 caracteres e pode ter no máximo %2.\n\nMude o programa para uma pasta de "
           "caminho mais curto."_s.arg(longest + 1)
               .arg(longest);
}

void TestCaminhos::tellsWhatAPathMayNotHave()
{
    QFETCH(const QString, nome);
    QFETCH(const QString, problema);
    const bool longo = nome.size() >= longest;
    const QString pasta =
        longo ? pasta_->path() + u'/' + nome.chopped(pasta_->path().size() + 1) : pasta_->filePath(nome);
    QVERIFY(QDir().mkpath(pasta));
    QCOMPARE(core::defeitoDaPasta(pasta),
             u"A pasta do programa não pode ser usada:\n"_s + QDir::toNativeSeparators(pasta) + u"\n\n"_s + problema);
    QVERIFY(QDir(pasta).isEmpty());
}

void TestCaminhos::takesThePathsThatItsSettingsTake_data()
{
    QTest::addColumn<QString>("nome");
    QTest::newRow("accents") << u"Oficina São João ção"_s;
    QTest::newRow("signs of the code page") << u"R$ 5,00 € “Zé” – nº 1;[x]=y"_s;
    QTest::newRow("as long as it may be") << QString(longest, u'x');
}

/// To the file and back: the database of such a folder is found again.
void TestCaminhos::takesThePathsThatItsSettingsTake()
{
    QFETCH(const QString, nome);
    const bool longo = nome.size() >= longest;
    const QString pasta =
        longo ? pasta_->path() + u'/' + nome.chopped(pasta_->path().size() + 1) : pasta_->filePath(nome);
    QVERIFY(QDir().mkpath(pasta));
    QCOMPARE(core::defeitoDaPasta(pasta), QString());
    core::App::setPath(pasta);
    core::ArquivoINI = pasta + u"\\config.ini"_s;
    core::CarregaConfig();
    QCOMPARE(core::LeINI(u"Config"_s, u"FileDB"_s, false), QDir::toNativeSeparators(pasta) + u"\\DADOS\\DADOS.MDB"_s);
}

QTEST_GUILESS_MAIN(TestCaminhos)
#include "tst_caminhos.moc"
