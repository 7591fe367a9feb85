#include "tests/registers/veiculos.h"

using namespace Qt::StringLiterals;
using cadastro::askAlter;
using cadastro::askDelete;
using cadastro::askInclude;
using cadastro::columnOf;
using cadastro::focusOf;
using cadastro::null;
using support::click;
using support::type;

namespace
{

/// A new vehicle as a clerk types it.
const cadastro::Fields fox{{u"txtCodCliente"_s, u"2"_s},    {u"cboMarca"_s, u"fox 1.6"_s},
                           {u"txtAno"_s, u"20182019"_s},    {u"txtCor"_s, u"azul"_s},
                           {u"txtPlaca"_s, u"qqq1a11"_s},   {u"txtCombustivel"_s, u"flex"_s},
                           {u"txtObservacoes"_s, u"som"_s}, {u"txtChassi"_s, u"9bwaa05z"_s}};

const QStringList foxStored{u"4"_s,       u"2"_s,    u"FOX 1.6"_s, u"2018/2019"_s, u"AZUL"_s,
                            u"QQQ1A11"_s, u"FLEX"_s, u"SOM"_s,     u"9BWAA05Z"_s};

} // namespace

/// What the register writes, refuses and warns of.
class TstFrmCadaVeiculosGravar : public VehicleCase
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init()
    {
        start();
        open();
    }
    void cleanup() { end(); }

    void includesAVehicle();
    void whatStaysEmptyIsNull();
    void anIncludeListsAllAndClears();
    void anIncludeCopiesTheVehicleShown();
    void nothingIsWrittenOnNo();
    void refusesAMissingField_data();
    void refusesAMissingField();
    void theIncludeIgnoresAnApostropheInItsTexts();
    void theCustomerDeletedMeanwhileIsStored();

    void altersEveryColumn();
    void whatIsEmptiedBecomesNull();
    void anAlterationListsAllAndClears();
    void nothingIsAlteredOnNo();
    void theAlterationMakesTheSameChecksFirst_data();
    void theAlterationMakesTheSameChecksFirst();
    void alteringWithNothingLoadedAsksAndFindsNothing();
    void alteringAVehicleDeletedMeanwhileFindsNothing();

    void deletesTheVehicleShown();
    void nothingIsDeletedOnNo();
    void deletingWithNothingLoadedIsRefused();
    void deletingTwiceAsksAgainAndSaysNothing();
    void deletingLeavesOrdersBehind();

    void clearingKeepsChassisListAndSearch();
    void aChassisLeftBehindIsStoredWithTheNextVehicle();

private:
    void fillFox() { cadastro::fill(form_, fox); }

    void checkCleared()
    {
        for (const auto &[field, unused] : gol) {
            if (field != u"txtChassi"_s) {
                QVERIFY2(shown(field).isEmpty(), qPrintable(field));
            }
        }
        QCOMPARE(focusOf(form_), u"txtCodCliente"_s);
    }
};

// --- including

void TstFrmCadaVeiculosGravar::includesAVehicle()
{
    const Rows before = vehicles();
    fillFox();
    answer(askInclude, u"btnIncluir"_s);

    Rows after = before;
    after.push_back(foxStored);
    QCOMPARE(vehicles(), after);
}

void TstFrmCadaVeiculosGravar::whatStaysEmptyIsNull()
{
    type(form_, u"txtCodCliente"_s, u"1"_s);
    type(form_, u"cboMarca"_s, u"UNO"_s);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(vehicles().back(), (QStringList{u"4"_s, u"1"_s, u"UNO"_s, null, null, null, null, null, null}));
}

void TstFrmCadaVeiculosGravar::anIncludeListsAllAndClears()
{
    boxes_->exclamation(u"Pesquisa sem Resultado!"_s);
    search(u"ZZZ"_s);
    fillFox();
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(columnOf(form_), (QStringList{u"0002"_s, u"0004"_s, u"0003"_s, u"0001"_s}));
    checkCleared();
    QVERIFY(cadastro::isOpen(window));
    QVERIFY(!cadastro::isOpen(order));
}

void TstFrmCadaVeiculosGravar::anIncludeCopiesTheVehicleShown()
{
    load(u"0001"_s);
    answer(askInclude, u"btnIncluir"_s);
    const Rows all = vehicles();
    QCOMPARE(all.size(), 4U);
    QStringList copy = all.front();
    copy.front() = u"4"_s;
    QCOMPARE(all.back(), copy);
}

void TstFrmCadaVeiculosGravar::nothingIsWrittenOnNo()
{
    fillFox();
    boxes_->question(askInclude, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(vehicles().size(), 3U);
    QCOMPARE(shown(u"cboMarca"_s), u"FOX 1.6"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), u"0002"_s);
}

void TstFrmCadaVeiculosGravar::refusesAMissingField_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("model");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const QString customer = u"Código do Cliente Inválido"_s;
    QTest::newRow("no customer") << QString() << u"UNO"_s << customer << u"txtCodCliente"_s;
    QTest::newRow("a customer without a name") << u"99"_s << u"UNO"_s << customer << u"txtCodCliente"_s;
    QTest::newRow("no model") << u"1"_s << QString() << u"Marca/Modelo Inválido"_s << u"cboMarca"_s;
    QTest::newRow("both, the customer first") << QString() << QString() << customer << u"txtCodCliente"_s;
}

void TstFrmCadaVeiculosGravar::refusesAMissingField()
{
    QFETCH(QString, code);
    QFETCH(QString, model);
    QFETCH(QString, message);
    if (code == u"99"_s) {
        boxes_->exclamation(u"Código do Cliente não Localizado ou não Cadastrado"_s);
    }
    type(form_, u"txtCodCliente"_s, code);
    type(form_, u"cboMarca"_s, model);
    boxes_->exclamation(message);
    click(form_, u"btnIncluir"_s);
    QTEST(focusOf(form_), "focus");
    QCOMPARE(vehicles().size(), 3U);
}

void TstFrmCadaVeiculosGravar::theIncludeIgnoresAnApostropheInItsTexts()
{
    type(form_, u"txtCodCliente"_s, u"1"_s);
    type(form_, u"cboMarca"_s, u"OLHO D'ÁGUA"_s);
    type(form_, u"txtCor"_s, u"COR D'OURO"_s);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT MarcaModelo, Cor FROM Veiculos WHERE Codigo = 4"_s),
             (Rows{{u"OLHO D'ÁGUA"_s, u"COR D'OURO"_s}}));
}

void TstFrmCadaVeiculosGravar::theCustomerDeletedMeanwhileIsStored()
{
    fillFox();
    program_->sql(u"DELETE * FROM Clientes WHERE Codigo = 2"_s);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(vehicles().back(), foxStored);
    QCOMPARE(columnOf(form_), QStringList{u"0001"_s});
}

// --- altering

void TstFrmCadaVeiculosGravar::altersEveryColumn()
{
    const Rows before = vehicles();
    load(u"0001"_s);
    fillFox();
    answer(askAlter, u"btnAlterar"_s);

    QStringList altered = foxStored;
    altered.front() = u"1"_s;
    QCOMPARE(vehicles(), (Rows{altered, before[1], before[2]}));
}

void TstFrmCadaVeiculosGravar::whatIsEmptiedBecomesNull()
{
    load(u"0001"_s);
    for (const auto *field : {u"txtAno", u"txtCor", u"txtPlaca", u"txtCombustivel", u"txtObservacoes", u"txtChassi"}) {
        type(form_, QString::fromUtf16(field), QString());
    }
    answer(askAlter, u"btnAlterar"_s);
    QCOMPARE(vehicles().front(), (QStringList{u"1"_s, u"1"_s, u"GOL 1.0"_s, null, null, null, null, null, null}));
}

void TstFrmCadaVeiculosGravar::anAlterationListsAllAndClears()
{
    load(u"0001"_s);
    type(form_, u"cboMarca"_s, u"ARGO"_s);
    answer(askAlter, u"btnAlterar"_s);
    QCOMPARE(columnOf(form_), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
    QCOMPARE(columnOf(form_, 2).front(), u"ARGO"_s);
    checkCleared();
    QCOMPARE(shown(u"txtChassi"_s), u"9BWZZZ377VT004251"_s);
}

void TstFrmCadaVeiculosGravar::nothingIsAlteredOnNo()
{
    const Rows before = vehicles();
    load(u"0001"_s);
    type(form_, u"txtObservacoes"_s, u"SOM"_s);
    boxes_->question(askAlter, false);
    click(form_, u"btnAlterar"_s);
    QCOMPARE(vehicles(), before);
    QCOMPARE(shown(u"txtObservacoes"_s), u"SOM"_s);
    QCOMPARE(shown(u"lblCodigo"_s), u"0001"_s);
}

void TstFrmCadaVeiculosGravar::theAlterationMakesTheSameChecksFirst_data()
{
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<QString>("emptied");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    const QString customer = u"Código do Cliente Inválido"_s;
    QTest::newRow("no customer") << true << u"txtCodCliente"_s << customer << u"txtCodCliente"_s;
    QTest::newRow("no model") << true << u"cboMarca"_s << u"Marca/Modelo Inválido"_s << u"cboMarca"_s;
    QTest::newRow("nothing at all") << false << u"txtCor"_s << customer << u"txtCodCliente"_s;
}

void TstFrmCadaVeiculosGravar::theAlterationMakesTheSameChecksFirst()
{
    QFETCH(bool, loaded);
    QFETCH(QString, emptied);
    QFETCH(QString, message);
    const Rows before = vehicles();
    if (loaded) {
        load(u"0001"_s);
    }
    type(form_, emptied, QString());
    boxes_->exclamation(message);
    click(form_, u"btnAlterar"_s);
    QTEST(focusOf(form_), "focus");
    QCOMPARE(vehicles(), before);
}

void TstFrmCadaVeiculosGravar::alteringWithNothingLoadedAsksAndFindsNothing()
{
    const Rows before = vehicles();
    fillFox();
    boxes_->question(askAlter, true).exclamation(u"Código Não Localizado"_s);
    click(form_, u"btnAlterar"_s);
    boxes_->finish();
    QVERIFY(!ui::Application::ended());
    QCOMPARE(vehicles(), before);
    QCOMPARE(shown(u"cboMarca"_s), u"FOX 1.6"_s);
}

void TstFrmCadaVeiculosGravar::alteringAVehicleDeletedMeanwhileFindsNothing()
{
    load(u"0001"_s);
    program_->sql(u"DELETE * FROM Veiculos WHERE Codigo = 1"_s);
    const Rows before = vehicles();
    boxes_->question(askAlter, true).exclamation(u"Código Não Localizado"_s);
    click(form_, u"btnAlterar"_s);
    boxes_->finish();
    QCOMPARE(vehicles(), before);
    QCOMPARE(cadastro::shown(form_, gol), gol);
}

// --- deleting

void TstFrmCadaVeiculosGravar::deletesTheVehicleShown()
{
    const Rows before = vehicles();
    load(u"0001"_s);
    answer(askDelete, u"btnExcluir"_s);
    QCOMPARE(vehicles(), (Rows{before[1], before[2]}));
    QCOMPARE(columnOf(form_), (QStringList{u"0002"_s, u"0003"_s}));
    QCOMPARE(cadastro::shown(form_, gol), gol);
}

void TstFrmCadaVeiculosGravar::nothingIsDeletedOnNo()
{
    load(u"0001"_s);
    compareKeptOnNo(u"Veiculos"_s);
}

void TstFrmCadaVeiculosGravar::deletingWithNothingLoadedIsRefused()
{
    fillFox();
    compareDeletionRefused(u"Veiculos"_s);
}

void TstFrmCadaVeiculosGravar::deletingTwiceAsksAgainAndSaysNothing()
{
    load(u"0001"_s);
    boxes_->question(askDelete, true).question(askDelete, true);
    click(form_, u"btnExcluir"_s);
    click(form_, u"btnExcluir"_s);
    boxes_->finish();
    QCOMPARE(vehicles().size(), 2U);
    QCOMPARE(shown(u"lblCodigo"_s), u"0001"_s);
}

void TstFrmCadaVeiculosGravar::deletingLeavesOrdersBehind()
{
    program_->sql(u"INSERT INTO OrdemServico (CodCliente, CodVeiculo) VALUES (1, 1)"_s);
    load(u"0001"_s);
    answer(askDelete, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT CodCliente, CodVeiculo FROM OrdemServico"_s), (Rows{{u"1"_s, u"1"_s}}));
    QCOMPARE(program_->rows(u"SELECT Nome FROM Clientes WHERE Codigo = 1"_s), (Rows{{u"MARIA"_s}}));
}

// --- clearing

void TstFrmCadaVeiculosGravar::clearingKeepsChassisListAndSearch()
{
    search(3, u"2010"_s);
    load(u"0002"_s);
    fillFox();
    click(form_, u"btnCancelar"_s);
    checkCleared();
    QCOMPARE(shown(u"txtChassi"_s), u"9BWAA05Z"_s);
    QCOMPARE(shown(u"txtTexto"_s), u"2010"_s);
    QCOMPARE(shown(u"cboPesquisa"_s), u"Ano"_s);
    QCOMPARE(columnOf(form_), QStringList{u"0002"_s});
}

void TstFrmCadaVeiculosGravar::aChassisLeftBehindIsStoredWithTheNextVehicle()
{
    load(u"0001"_s);
    click(form_, u"btnCancelar"_s);
    QCOMPARE(shown(u"txtChassi"_s), u"9BWZZZ377VT004251"_s);
    type(form_, u"txtCodCliente"_s, u"2"_s);
    type(form_, u"cboMarca"_s, u"UNO"_s);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(vehicles().back(),
             (QStringList{u"4"_s, u"2"_s, u"UNO"_s, null, null, null, null, null, u"9BWZZZ377VT004251"_s}));
}

TARVELO_TEST_MAIN(TstFrmCadaVeiculosGravar)
#include "tst_frmCadaVeiculos_gravar.moc"
