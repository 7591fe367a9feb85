#include "tests/shell/configura.h"

#include "core/cep.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace
{

const QString prompt = u"Ativar a busca de endereços do banco de dados de CEP? Digite:\nS - Sim\nN - Não"_s;
const QString notFound = u"Banco de CEP´s não encontrado!"_s;

/// A postal-code database with one street, which is named after the file's place.
void makeCodes(const QString &path, const QString &street)
{
    const auto database = dao::DBEngine::CreateDatabase(path, u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
    database->Execute(u"CREATE TABLE CEPS (CEP TEXT(8), Tipo TEXT(20), Rua TEXT(200), Bairro TEXT(200), "
                      "Cidade TEXT(200), Estado TEXT(2))"_s);
    database->Execute(u"INSERT INTO CEPS (CEP, Tipo, Rua, Bairro, Cidade, Estado) "
                      "VALUES ('13010000', 'RUA', '%1', 'CENTRO', 'CAMPINAS', 'SP')"_s.arg(street));
    database->Close();
}

QString streetFound()
{
    const auto found = core::ProcuraCEP(u"13.010-000"_s);
    return found.endereco ? found.endereco->endereco : QString();
}

} // namespace

/// The setting that looks addresses up by postal code: it opens and closes the database itself.
class TstConfiguracoesCep : public SettingsTest
{
    Q_OBJECT

private slots:
    void initTestCase() { shell::registerForms(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void yesOpensTheFileInTheFolderOfTheData();
    void thePathOfTheStartIsNotAsked();
    void yesWithoutAFileSwitchesOff();
    void yesWithAFileThatIsNoDatabaseSwitchesOff();
    void yesThatFailsLeavesTheOpenDatabase();
    void yesTwiceOpensAfresh();
    void noClosesTheDatabase();
    void noWithoutADatabaseIsPassedOver();
    void whatIsOfferedFollowsTheKey_data();
    void whatIsOfferedFollowsTheKey();
};

void TstConfiguracoesCep::yesOpensTheFileInTheFolderOfTheData()
{
    makeCodes(program_->path(u"DADOS/CEP.MDB"_s), u"DOS DADOS"_s);
    program_->config(u"CEP"_s, u"Off"_s);
    QVERIFY(!core::DBCEP);
    boxes_->input(prompt, u"s"_s).information(done);
    ask(u"itmConfigCEP"_s);
    isStored(u"CEP"_s, u"On"_s);
    QVERIFY(core::DBCEP);
    QCOMPARE(streetFound(), u"RUA DOS DADOS"_s);
}

/// `FileCEP` leads elsewhere by its default, and the difference stays.
void TstConfiguracoesCep::thePathOfTheStartIsNotAsked()
{
    makeCodes(program_->path(u"CEP.MDB"_s), u"DA PASTA"_s);
    QVERIFY(core::LeINI(u"Config"_s, u"FileCEP"_s, false).endsWith(u"\\CEP.MDB"_s));
    boxes_->input(prompt, u"S"_s).exclamation(notFound);
    ask(u"itmConfigCEP"_s);
    isStored(u"CEP"_s, u"Off"_s);
    QVERIFY(!core::DBCEP);
}

void TstConfiguracoesCep::yesWithoutAFileSwitchesOff()
{
    QCOMPARE(core::Config(u"CEP"_s), u"On"_s);
    boxes_->input(prompt, u"S"_s).exclamation(notFound); // and no confirmation
    ask(u"itmConfigCEP"_s);
    isStored(u"CEP"_s, u"Off"_s);
}

void TstConfiguracoesCep::yesWithAFileThatIsNoDatabaseSwitchesOff()
{
    QFile file(program_->path(u"DADOS/CEP.MDB"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    QString why;
    try {
        dao::DBEngine::OpenDatabase(file.fileName(), true);
    } catch (const runtime::RuntimeError &error) {
        why = error.description();
    }
    QVERIFY(!why.isEmpty());
    boxes_->input(prompt, u"S"_s).exclamation(u"Erro:\n"_s + why);
    ask(u"itmConfigCEP"_s);
    isStored(u"CEP"_s, u"Off"_s);
    QVERIFY(!core::DBCEP);
}

void TstConfiguracoesCep::yesThatFailsLeavesTheOpenDatabase()
{
    makeCodes(program_->path(u"CEP.MDB"_s), u"DA PASTA"_s);
    core::DBCEP = dao::DBEngine::OpenDatabase(program_->path(u"CEP.MDB"_s), true);
    boxes_->input(prompt, u"S"_s).exclamation(notFound);
    ask(u"itmConfigCEP"_s);
    isStored(u"CEP"_s, u"Off"_s);
    QVERIFY(core::DBCEP);
    QCOMPARE(streetFound(), QString()); // nobody looks while the key says so
    program_->config(u"CEP"_s, u"On"_s);
    QCOMPARE(streetFound(), u"RUA DA PASTA"_s);
}

void TstConfiguracoesCep::yesTwiceOpensAfresh()
{
    makeCodes(program_->path(u"CEP.MDB"_s), u"DA PASTA"_s);
    core::DBCEP = dao::DBEngine::OpenDatabase(program_->path(u"CEP.MDB"_s), true);
    makeCodes(program_->path(u"DADOS/CEP.MDB"_s), u"DOS DADOS"_s);
    for (int time = 0; time < 2; ++time) {
        boxes_->inputKeep(prompt, u"S"_s).information(done);
        ask(u"itmConfigCEP"_s);
        QCOMPARE(streetFound(), u"RUA DOS DADOS"_s);
    }
}

void TstConfiguracoesCep::noClosesTheDatabase()
{
    const QString path = program_->path(u"DADOS/CEP.MDB"_s);
    makeCodes(path, u"DOS DADOS"_s);
    core::DBCEP = dao::DBEngine::OpenDatabase(path, true);
    const auto held = core::DBCEP; // closed, and not only let go
    boxes_->input(prompt, u"n"_s).information(done);
    ask(u"itmConfigCEP"_s);
    isStored(u"CEP"_s, u"Off"_s);
    QVERIFY(!core::DBCEP);
    QVERIFY_EXCEPTION_THROWN(held->OpenRecordset(u"SELECT * FROM CEPS"_s), runtime::RuntimeError);
}

void TstConfiguracoesCep::noWithoutADatabaseIsPassedOver()
{
    QVERIFY(!core::DBCEP);
    boxes_->input(prompt, u"N"_s).information(done);
    ask(u"itmConfigCEP"_s);
    isStored(u"CEP"_s, u"Off"_s);
}

void TstConfiguracoesCep::whatIsOfferedFollowsTheKey_data()
{
    QTest::addColumn<QString>("offered");
    QTest::newRow("On") << u"S"_s;
    QTest::newRow("Off") << u"N"_s;
    QTest::newRow("S") << u"N"_s;
}

void TstConfiguracoesCep::whatIsOfferedFollowsTheKey()
{
    QFETCH(const QString, offered);
    program_->config(u"CEP"_s, QString::fromLatin1(QTest::currentDataTag()));
    boxes_->inputKeep(prompt, offered);
    offered == u"N" ? boxes_->information(done) : boxes_->exclamation(notFound);
    ask(u"itmConfigCEP"_s);
    isStored(u"CEP"_s, u"Off"_s);
}

TARVELO_TEST_MAIN(TstConfiguracoesCep)
#include "tst_configuracoes_cep.moc"
