#include "core/caminhos.h"
#include "core/modulo.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCaminhos : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void findsNamesWhateverTheirCase_data();
    void findsNamesWhateverTheirCase();
    void prefersTheNameAsItIsWritten();
    void keepsWhatDoesNotExist();
    void resolvesRelativePaths();
    void absolutePathsDoNotDependOnTheCurrentFolder();
    void usesAFolderThatCanBeWritten();
    void fillsTheUsersFolderOnceWhereTheProgramsCanNotBeWritten();
    void keepsThePathWithoutItsLastSlash();

private:
    void cria(const QString &nome) const;

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
    QCOMPARE(QFileInfo(core::caminho(pasta_->path() + texto)).canonicalFilePath(),
             QFileInfo(pasta_->filePath(u"DADOS/Logo.bmp"_s)).canonicalFilePath());
}

void TestCaminhos::prefersTheNameAsItIsWritten()
{
    cria(u"a.txt"_s);
    cria(u"A.TXT"_s);
    QCOMPARE(core::caminho(pasta_->path() + u"\\a.txt"_s), pasta_->filePath(u"a.txt"_s));
    QCOMPARE(core::caminho(pasta_->path() + u"\\A.TXT"_s), pasta_->filePath(u"A.TXT"_s));
}

void TestCaminhos::keepsWhatDoesNotExist()
{
    cria(u"DADOS/x"_s);
    QCOMPARE(core::caminho(pasta_->path() + u"\\dados\\Novo\\Arquivo.mdb"_s),
             pasta_->filePath(u"DADOS/Novo/Arquivo.mdb"_s));
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

void TestCaminhos::fillsTheUsersFolderOnceWhereTheProgramsCanNotBeWritten()
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

void TestCaminhos::keepsThePathWithoutItsLastSlash()
{
    core::App::setPath(u"/algum/lugar/"_s);
    QCOMPARE(core::App::Path(), u"/algum/lugar"_s);
    QCOMPARE(core::App::version(), u"2.1.34"_s);
}

QTEST_GUILESS_MAIN(TestCaminhos)
#include "tst_caminhos.moc"
