#include "support/program.h"

#include "core/cep.h"
#include "core/modulo.h"
#include "platform/dao/database.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

class TestCep : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void findsTheAddressOfACode();
    void anUnknownCodeHasNoAddress();
    void onlyAFullCodeIsTried_data();
    void onlyAFullCodeIsTried();
    void nothingIsTriedWithTheSettingOff();
    void aDatabaseThatIsNotOpenHasNoAddress();
    void anApostropheHasNoAddress();

private:
    std::unique_ptr<support::Program> program_;
};

void TestCep::init()
{
    program_ = std::make_unique<support::Program>();
    core::DBCEP = dao::DBEngine::CreateDatabase(program_->path(u"CEP.MDB"_s), QString());
    core::DBCEP->Execute(u"CREATE TABLE CEPS (CEP varchar(8), Tipo varchar(30), Rua varchar(100), Bairro varchar(60), "
                         u"Cidade varchar(60), Estado varchar(2))"_s);
    core::DBCEP->Execute(u"INSERT INTO CEPS (CEP, Tipo, Rua, Bairro, Cidade, Estado) VALUES ('13010002', 'AVENIDA', "
                         u"'FRANCISCO GLICÉRIO', 'CENTRO', 'CAMPINAS', 'SP')"_s);
}

void TestCep::cleanup()
{
    core::DBCEP.reset();
    program_.reset();
}

void TestCep::findsTheAddressOfACode()
{
    const auto found = core::ProcuraCEP(u"13.010-002"_s);
    QVERIFY(found.endereco);
    QCOMPARE(found.endereco->endereco, u"AVENIDA FRANCISCO GLICÉRIO"_s);
    QCOMPARE(found.endereco->bairro, u"CENTRO"_s);
    QCOMPARE(found.endereco->cidade, u"CAMPINAS"_s);
    QCOMPARE(found.endereco->estado, u"SP"_s);
}

void TestCep::anUnknownCodeHasNoAddress()
{
    const auto found = core::ProcuraCEP(u"99.999-999"_s);
    QVERIFY(found.procurou);
    QVERIFY(!found.endereco);
}

void TestCep::onlyAFullCodeIsTried_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("nine characters") << u"13.010-00"_s;
    QTest::newRow("digits alone") << u"13010002"_s;
    QTest::newRow("eleven characters") << u"13.010-0020"_s;
}

void TestCep::onlyAFullCodeIsTried()
{
    QFETCH(QString, text);
    QVERIFY(!core::ProcuraCEP(text).procurou);
}

void TestCep::nothingIsTriedWithTheSettingOff()
{
    program_->config(u"CEP"_s, u"Off"_s);
    QVERIFY(!core::ProcuraCEP(u"13.010-002"_s).procurou);
}

void TestCep::aDatabaseThatIsNotOpenHasNoAddress()
{
    core::DBCEP.reset();
    const auto found = core::ProcuraCEP(u"13.010-002"_s);
    QVERIFY(found.procurou);
    QVERIFY(!found.endereco);
}

void TestCep::anApostropheHasNoAddress()
{
    const auto found = core::ProcuraCEP(u"'3.010-002"_s);
    QVERIFY(found.procurou);
    QVERIFY(!found.endereco);
}

} // namespace

TARVELO_TEST_MAIN(TestCep)
#include "tst_cep.moc"
