// Imports that the tool refuses: its words, its state, and that everything stays as it is.
#include "core/modulo.h"
#include "platform/files/filelock.h"
#include "support/ordinaryuser.h"
#include "support/otherprogram.h"
#include "support/program.h"
#include "support/testmain.h"
#include "tests/tools/importador.h"

using namespace Qt::StringLiterals;
using namespace importador;
using support::contentsOf;

class TestImportaQueixas : public QObject
{
    Q_OBJECT

private slots:
    void init() { program_ = std::make_unique<support::Program>(); }
    void cleanup() { program_.reset(); }

    void sourcesThatAreNone_data();
    void sourcesThatAreNone();
    void aMissingSource();
    void aFolderForASource();
    void aSourceThatMayNotBeRead();
    void aDatabaseOfTheProgramForASource();

    void theSourceForATarget();
    void aFolderForATarget();
    void aTargetInNoFolder();
    void aTargetThatHoldsData();
    void aTargetThatTheProgramHasOpen();
    void aTargetThatAnotherProgramHolds();
    void aTargetThatMayNotBeWritten();

private:
    QString path(const QString &name) const { return program_->path(name); }

    /// Runs the tool, which must refuse with these words and leave the folder as it is.
    void refused(const QStringList &arguments, const QString &words) const
    {
        const auto before = everythingIn(program_->path());
        const Ended ended = run(arguments, program_->path());
        QVERIFY2(ended.errors.startsWith(u"tarvelo-importa: "_s + words), qPrintable(ended.errors));
        QVERIFY2(ended.errors.endsWith(u"\n\nNada foi importado, e o destino continua como estava.\n"_s),
                 qPrintable(ended.errors));
        QCOMPARE(ended.output, QString());
        QCOMPARE(ended.code, 2);
        QCOMPARE(everythingIn(program_->path()), before);
    }

    std::unique_ptr<support::Program> program_;
};

void TestImportaQueixas::sourcesThatAreNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("words");
    const QString none = u"O arquivo de origem não é um banco de dados Jet (.MDB):"_s;
    const QString later = u"O arquivo de origem está em um formato mais novo que o Jet 4, que este programa não lê:"_s;
    const QString half = u"O arquivo de origem está incompleto:"_s;
    QTest::newRow("empty") << QByteArray() << none;
    QTest::newRow("text") << QByteArray("texto qualquer").repeated(1000) << none;
    QTest::newRow("Jet 3") << jet4::bytes({.tables = {}, .version = 0})
                           << u"O arquivo de origem está no formato Jet 3, que este programa não lê:"_s;
    QTest::newRow("version 2") << jet4::bytes({.tables = {}, .version = 2}) << later;
    QTest::newRow("accdb") << jet4::bytes({.tables = {}, .version = 2}).replace(4, 15, "Standard ACE DB") << later;
    QTest::newRow("password") << jet4::bytes({.tables = {}, .password = u"senha"_s})
                              << u"O arquivo de origem tem uma senha:"_s;
    QTest::newRow("encrypted") << jet4::bytes({.tables = {}, .pageKey = 7})
                               << u"O arquivo de origem está criptografado:"_s;
    const QByteArray whole = jet4::bytes(oldData());
    QTest::newRow("half a page") << whole.first(2000) << half;
    QTest::newRow("two pages") << whole.first(2 * pageSize) << half;
    QTest::newRow("no whole pages") << whole.chopped(100) << half;
    QTest::newRow("no catalogue")
        << emptyPages() << u"O arquivo de origem está danificado, e a lista das suas tabelas não pode ser lida:"_s;
    jet4::File other;
    other.tables.push_back(oldData().tables.back());
    QTest::newRow("none of the tables") << jet4::bytes(other)
                                        << u"O arquivo de origem não tem nenhuma das tabelas da oficina, nem CEPs:"_s;
    jet4::File liar = oldData();
    liar.tables[1].promised = 1200;
    QTest::newRow("rows that are not there")
        << jet4::bytes(liar)
        << u"O arquivo de origem está danificado: a tabela 'Caixa' diz que tem 1.200 linhas, e 2 puderam ser lidas:"_s;
    QTest::newRow("pages that are not there")
        << jet4::bytes(manyCustomers(2000)).first(20 * pageSize) << u"O arquivo de origem está danificado"_s;
}

void TestImportaQueixas::sourcesThatAreNone()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, words);
    put(path(u"ANTIGO.MDB"_s), bytes);
    refused({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, words);
    QVERIFY(run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path()).errors.contains(path(u"ANTIGO.MDB"_s)));
}

void TestImportaQueixas::aMissingSource()
{
    refused({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s},
            u"Não foi possível encontrar o arquivo de origem:\n%1\n"_s.arg(path(u"ANTIGO.MDB"_s)));
}

void TestImportaQueixas::aFolderForASource()
{
    refused({u"DADOS"_s, u"NOVO.MDB"_s}, u"A origem não é um arquivo:\n%1\n"_s.arg(path(u"DADOS"_s)));
}

void TestImportaQueixas::aSourceThatMayNotBeRead()
{
    put(path(u"ANTIGO.MDB"_s), emptyPages());
    QVERIFY(QFile::setPermissions(path(u"ANTIGO.MDB"_s), {}));
    QVERIFY(QFile::setPermissions(program_->path(), QFile::Permissions(0x7777)));
    Ended ended;
    {
        const support::OrdinaryUser user;
        ended = run({u"ANTIGO.MDB"_s, u"NOVO.MDB"_s}, program_->path());
    }
    QCOMPARE(ended.code, 2);
    QVERIFY2(ended.errors.startsWith(u"tarvelo-importa: O seu usuário não pode ler o arquivo de origem:\n"_s),
             qPrintable(ended.errors));
    QVERIFY(!QFile::exists(path(u"NOVO.MDB"_s)));
}

void TestImportaQueixas::aDatabaseOfTheProgramForASource()
{
    const QString ours = core::DBDados->path();
    core::DBDados->Close();
    refused({ours, u"NOVO.MDB"_s}, u"O arquivo de origem não é um banco de dados Jet (.MDB):\n%1\n"_s.arg(ours));
}

void TestImportaQueixas::theSourceForATarget()
{
    put(path(u"ANTIGO.MDB"_s), emptyPages());
    const QString words = u"A origem e o destino são o mesmo arquivo:\n"_s;
    refused({u"ANTIGO.MDB"_s, u"ANTIGO.MDB"_s}, words);
    refused({u"--substitui"_s, u"ANTIGO.MDB"_s, path(u"DADOS/../ANTIGO.MDB"_s)}, words);
    QVERIFY(QFile::link(path(u"ANTIGO.MDB"_s), path(u"ATALHO.MDB"_s)));
    refused({u"--substitui"_s, u"ANTIGO.MDB"_s, u"ATALHO.MDB"_s}, words);
}

void TestImportaQueixas::aFolderForATarget()
{
    put(path(u"ANTIGO.MDB"_s), emptyPages());
    refused({u"ANTIGO.MDB"_s, u"DADOS"_s}, u"O destino não é um arquivo:\n%1\n"_s.arg(path(u"DADOS"_s)));
}

void TestImportaQueixas::aTargetInNoFolder()
{
    put(path(u"ANTIGO.MDB"_s), emptyPages());
    refused({u"ANTIGO.MDB"_s, u"nenhuma/NOVO.MDB"_s},
            u"A pasta do destino não existe:\n%1\n"_s.arg(path(u"nenhuma"_s)));
}

/// An operator is data, too.
void TestImportaQueixas::aTargetThatHoldsData()
{
    const QString target = core::DBDados->path();
    core::DBDados->Close();
    put(path(u"ANTIGO.MDB"_s), emptyPages());
    refused({u"ANTIGO.MDB"_s, target},
            u"O destino já tem dados:\n%1\nDiga outro nome para o destino, ou --substitui: "_s.arg(target));
    put(path(u"CARTA.TXT"_s), "Prezado cliente");
    refused({u"ANTIGO.MDB"_s, u"CARTA.TXT"_s}, u"O destino já tem dados:\n"_s);
}

void TestImportaQueixas::aTargetThatTheProgramHasOpen()
{
    const QString target = core::DBDados->path();
    core::DBDados->Close();
    put(path(u"ANTIGO.MDB"_s), emptyPages());
    files::FileLock program(path(u"tarvelo.lock"_s));
    QVERIFY(program.take() == files::FileLock::Result::Taken);
    refused({u"--substitui"_s, u"ANTIGO.MDB"_s, target}, u"O destino está em uso:\n%1\nFeche o Tarvelo"_s.arg(target));
}

/// Nobody here may read the file meanwhile: its lock would go with that.
void TestImportaQueixas::aTargetThatAnotherProgramHolds()
{
    const QString target = core::DBDados->path();
    const QByteArray before = contentsOf(target);
    put(path(u"ANTIGO.MDB"_s), emptyPages());
    support::OtherProgram other(target);
    QVERIFY(other.take());
    const Ended ended = run({u"ANTIGO.MDB"_s, target}, program_->path());
    QCOMPARE(ended.code, 2);
    QVERIFY2(ended.errors.startsWith(u"tarvelo-importa: O destino está em uso:\n%1\n"_s.arg(target)),
             qPrintable(ended.errors));
    other.giveBack();
    QCOMPARE(contentsOf(target), before);
}

void TestImportaQueixas::aTargetThatMayNotBeWritten()
{
    QVERIFY(jet4::write(path(u"ANTIGO.MDB"_s), cleanData()));
    QVERIFY(QFile::setPermissions(path(u"ANTIGO.MDB"_s), QFile::Permissions(0x6666)));
    QVERIFY(QDir().mkpath(path(u"alheia"_s)));
    QVERIFY(QFile::setPermissions(path(u"alheia"_s), QFile::Permissions(0x5555)));
    QVERIFY(QFile::setPermissions(program_->path(), QFile::Permissions(0x7777)));
    Ended ended;
    {
        const support::OrdinaryUser user;
        ended = run({u"ANTIGO.MDB"_s, u"alheia/NOVO.MDB"_s}, program_->path());
    }
    QVERIFY(QFile::setPermissions(path(u"alheia"_s), QFile::Permissions(0x7777)));
    QCOMPARE(ended.code, 2);
    QVERIFY2(ended.errors.startsWith(u"tarvelo-importa: Não foi possível gravar o destino:\n"_s),
             qPrintable(ended.errors));
    QCOMPARE(QDir(path(u"alheia"_s)).entryList(QDir::Files | QDir::Hidden), QStringList());
}

TARVELO_TEST_MAIN(TestImportaQueixas)
#include "tst_importa_queixas.moc"
