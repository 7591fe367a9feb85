#include "tests/estimates/alteraorcamento.h"

#include "platform/runtime/runtime.h"
#include "support/otherprogram.h"

#include <QComboBox>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::type;

namespace
{

const QString confirm = u"Confirma Alteração"_s;
const QString gone = u"Código Não Localizado"_s;
const QString unknownCustomer = u"Código do Cliente não localizado"_s;

} // namespace

/// The window that alters an estimate: finding one, and its header.
class TstFrmOSOrcaAltera : public AlteringTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void opensWithItsCaption();
    void offersNeitherCustomersNorJobValuesNorClearing();
    void fitsTheMainWindow();
    void tabGoesAsAClerkTypes();
    void thereIsOneWindowOfIt();

    void showsTheEstimate_data();
    void showsTheEstimate();
    void aLongTextShowsItsBeginning();
    void showsTheStoredTotal();
    void showsNullsAsEmpty();
    void anEmptyCodeAsksNothing();
    void aTextThatIsNoNumberIsToldAndEmptiesTheWindow_data();
    void aTextThatIsNoNumberIsToldAndEmptiesTheWindow();
    void aCodeThatIsNotThereIsToldAndEmptiesTheWindow_data();
    void aCodeThatIsNotThereIsToldAndEmptiesTheWindow();
    void anotherEstimateTakesThePlaceOfTheFirst();

    void aRegisteredCustomerBringsNameAndPhone();
    void passingTheCustomerBringsWhatTheRegisterHolds();
    void anUnknownCustomerIsToldAndTheNameStays();
    void anUnknownCustomerIsStored();
    void whatCanBeNoCustomerIsTakenOut();
    void textsTakeWhatTheirColumnsHold();

    void writesTheHeaderAndDatesItAnew();
    void theHeaderIsOneWriteOfTheFile();
    void nothingIsWrittenOnNo();
    void anEmptyFieldIsStoredAsNull();
    void refusesAHeaderWithoutModel();
    void refusesAHeaderWithoutEstimate_data();
    void refusesAHeaderWithoutEstimate();
    void anEstimateDeletedMeanwhileIsTold();
    void anEstimateDeletedAtTheQuestionIsTold();
    void clearWritesNothing();
};

void TstFrmOSOrcaAltera::opensWithItsCaption()
{
    open();
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Altera Orçamento]"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodOrcamento"_s);
    QCOMPARE(cadastro::titlesOf(form_),
             (QStringList{u"Código"_s, u"Tipo"_s, u"Quantidade"_s, u"Descrição"_s, u"V. Unit."_s, u"V. Total"_s}));
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QVERIFY(itemsLocked());
}

void TstFrmOSOrcaAltera::offersNeitherCustomersNorJobValuesNorClearing()
{
    program_->config(u"Personalizacao"_s, u"1-1"_s);
    open();
    for (const QString &button :
         {u"btnClienteFind"_s, u"btnClienteAdd"_s, u"btnAdicionar"_s, u"btnLimpa"_s, u"lstMaterial"_s}) {
        QVERIFY2(!support::controlOf(form_, button)->isVisible(), qPrintable(button));
    }
    for (const QString &button : {u"btnIncluir"_s, u"btnExcluir"_s, u"btnPrint"_s, u"btnCancelar"_s, u"btnVoltar"_s}) {
        QVERIFY2(support::controlOf(form_, button)->isEnabled(), qPrintable(button));
    }
}

void TstFrmOSOrcaAltera::fitsTheMainWindow()
{
    open();
    const QSize least = form_->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

void TstFrmOSOrcaAltera::tabGoesAsAClerkTypes()
{
    open();
    QCOMPARE(
        cadastro::tabOrder(form_, u"txtCodOrcamento"_s, 11),
        (QStringList{u"txtCodOrcamento"_s, u"txtCodCliente"_s, u"txtNome"_s, u"txtFone1"_s, u"cboMarca"_s, u"cboAno"_s,
                     u"txtObs"_s, u"txtCodPeca"_s, u"txtQuantidade"_s, u"txtDescricao"_s, u"txtValor"_s}));
}

void TstFrmOSOrcaAltera::thereIsOneWindowOfIt()
{
    openLoaded();
    type(form_, u"txtObs"_s, u"OUTRA"_s);
    QCOMPARE(support::show(window), form_);
    QCOMPARE(shown(u"txtObs"_s), u"OUTRA"_s);
}

// --- finding

void TstFrmOSOrcaAltera::showsTheEstimate_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("number") << u"2"_s;
    QTest::newRow("with zeros") << u"0002"_s;
    QTest::newRow("power of ten") << u"20e-1"_s;
}

void TstFrmOSOrcaAltera::showsTheEstimate()
{
    QFETCH(QString, text);
    program_->config(u"LayoutOS"_s, u"3"_s);
    program_->sql(u"UPDATE Orcamento SET NomeCliente = 'DONA MARIA', Fone = '5555-0001' WHERE Codigo = 2"_s);
    open();
    load(text);
    QCOMPARE(shown(u"txtCodOrcamento"_s), u"0002"_s);
    QCOMPARE(header(), (QStringList{u"15/05/2024"_s, u"0002"_s, u"DONA MARIA"_s, u"5555-0001"_s, u"GOL 1.0"_s,
                                    u"2001/2002"_s, u"RETORNA SEXTA"_s}));
    QCOMPARE(shown(u"lblTotal"_s), u"70,50"_s);
    QCOMPARE(cadastro::rowsOf(form_), (Rows{{u"0002"_s, u"P"_s, u"2,000"_s, u"OLEO"_s, u"27,50"_s, u"55,00"_s},
                                            {u"0000"_s, u"A"_s, u"01"_s, u"SOLDA"_s, u"15,50"_s, u"15,50"_s}}));
    QVERIFY(!itemsLocked());
    QCOMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
}

void TstFrmOSOrcaAltera::aLongTextShowsItsBeginning()
{
    program_->sql(
        u"UPDATE Orcamento SET Observacoes = '%1', NomeCliente = '%1', MarcaModelo = '%1' WHERE Codigo = 2"_s.arg(
            QString(150, u'W')));
    openLoaded();
    for (const QString &field : {u"txtObs"_s, u"txtNome"_s}) {
        QCOMPARE(control<QLineEdit>(form_, field)->cursorPosition(), 0);
    }
    QCOMPARE(control<QComboBox>(form_, u"cboMarca"_s)->lineEdit()->cursorPosition(), 0);
}

/// What the items add up to is another thing until one of them changes.
void TstFrmOSOrcaAltera::showsTheStoredTotal()
{
    program_->sql(u"UPDATE Orcamento SET Valor = 1234567 WHERE Codigo = 2"_s);
    openLoaded();
    QCOMPARE(shown(u"lblTotal"_s), u"1.234.567,00"_s);
}

void TstFrmOSOrcaAltera::showsNullsAsEmpty()
{
    program_->sql(u"INSERT INTO Orcamento (MarcaModelo) VALUES ('FUSCA')"_s);
    program_->sql(u"INSERT INTO OrcaPecas (CodOrca) VALUES (3)"_s);
    open();
    load(u"3"_s);
    QCOMPARE(header(), (QStringList{QString(), QString(), QString(), QString(), u"FUSCA"_s, QString(), QString()}));
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QCOMPARE(cadastro::rowsOf(form_), (Rows{{u"0000"_s, QString(), u"00"_s, QString(), u"0,00"_s, u"0,00"_s}}));
    boxes_->question(confirm, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimatesStored().back(),
             (QStringList{u"3"_s, u"15/05/2024 00:00:00"_s, u"FUSCA"_s, null, null, null, null, null, u"0"_s}));
}

void TstFrmOSOrcaAltera::anEmptyCodeAsksNothing()
{
    openLoaded();
    load(QString());
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
    QVERIFY(itemsLocked());
    load(u"2"_s);
    QVERIFY(!itemsLocked());
}

void TstFrmOSOrcaAltera::aTextThatIsNoNumberIsToldAndEmptiesTheWindow_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("letters") << u"ABC"_s;
    QTest::newRow("apostrophe") << u"2' OR '1"_s;
    QTest::newRow("number and letters") << u"2X"_s;
    QTest::newRow("blank") << u" "_s;
}

void TstFrmOSOrcaAltera::aTextThatIsNoNumberIsToldAndEmptiesTheWindow()
{
    QFETCH(QString, text);
    openLoaded();
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código do Orçamento Inválido"_s);
    load(text);
    QCOMPARE(shown(u"txtCodOrcamento"_s), text);
    QCOMPARE(header(), QStringList(7, QString()));
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QVERIFY(cadastro::rowsOf(form_).empty());
    QVERIFY(itemsLocked());
    QCOMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
}

void TstFrmOSOrcaAltera::aCodeThatIsNotThereIsToldAndEmptiesTheWindow_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("next one") << u"3"_s;
    QTest::newRow("none") << u"0"_s;
    QTest::newRow("fraction") << u"1,5"_s;
    QTest::newRow("power of ten") << u"1E3"_s;
    QTest::newRow("more than a code holds") << u"9999999999"_s;
    QTest::newRow("negative") << u"-2"_s;
}

void TstFrmOSOrcaAltera::aCodeThatIsNotThereIsToldAndEmptiesTheWindow()
{
    QFETCH(QString, text);
    openLoaded();
    boxes_->title(u"Tarvelo"_s).exclamation(notFound);
    load(text);
    QCOMPARE(header(), QStringList(7, QString()));
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QVERIFY(cadastro::rowsOf(form_).empty());
    QVERIFY(itemsLocked());
    QCOMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
}

void TstFrmOSOrcaAltera::anotherEstimateTakesThePlaceOfTheFirst()
{
    openLoaded();
    load(u"1"_s);
    QCOMPARE(header(),
             (QStringList{u"15/05/2024"_s, QString(), u"OUTRO"_s, QString(), u"UNO"_s, QString(), QString()}));
    QCOMPARE(cadastro::rowsOf(form_).size(), 1U);
    QCOMPARE(shown(u"lblTotal"_s), u"5,00"_s);
}

// --- the customer and the texts

void TstFrmOSOrcaAltera::aRegisteredCustomerBringsNameAndPhone()
{
    open();
    load(u"1"_s);
    type(form_, u"txtCodCliente"_s, u"2"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), u"0002"_s);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
    QCOMPARE(shown(u"txtFone1"_s), u"(11) 5555-0002"_s);
}

/// Whatever name the estimate was written with.
void TstFrmOSOrcaAltera::passingTheCustomerBringsWhatTheRegisterHolds()
{
    program_->sql(u"UPDATE Orcamento SET NomeCliente = 'DONA MARIA', Fone = Null WHERE Codigo = 2"_s);
    openLoaded();
    QCOMPARE(shown(u"txtNome"_s), u"DONA MARIA"_s);
    key(form_, u"txtCodCliente"_s, Qt::Key_Return);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
    QCOMPARE(shown(u"txtFone1"_s), u"(11) 5555-0002"_s);
}

void TstFrmOSOrcaAltera::anUnknownCustomerIsToldAndTheNameStays()
{
    openLoaded();
    boxes_->title(u"Tarvelo"_s).exclamation(unknownCustomer);
    type(form_, u"txtCodCliente"_s, u"99"_s);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
    QCOMPARE(shown(u"txtCodCliente"_s), u"99"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtNome"_s);
}

void TstFrmOSOrcaAltera::anUnknownCustomerIsStored()
{
    openLoaded();
    boxes_->exclamation(unknownCustomer);
    type(form_, u"txtCodCliente"_s, u"99"_s);
    boxes_->question(confirm, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT CodCliente, NomeCliente FROM Orcamento WHERE Codigo = 2"_s),
             (Rows{{u"99"_s, u"MARIA"_s}}));
}

void TstFrmOSOrcaAltera::whatCanBeNoCustomerIsTakenOut()
{
    openLoaded();
    boxes_->exclamation(unknownCustomer);
    type(form_, u"txtCodCliente"_s, u"9999999999"_s);
    boxes_->question(confirm, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT CodCliente, NomeCliente FROM Orcamento WHERE Codigo = 2"_s),
             (Rows{{null, u"MARIA"_s}}));
}

void TstFrmOSOrcaAltera::textsTakeWhatTheirColumnsHold()
{
    openLoaded();
    const QList<std::pair<QString, int>> limits{
        {u"txtNome"_s, 250}, {u"txtFone1"_s, 25}, {u"cboMarca"_s, 200}, {u"cboAno"_s, 9}, {u"txtObs"_s, 250}};
    QStringList stored{u"2"_s};
    for (const auto &[name, limit] : limits) {
        cadastro::paste(form_, name, QString(300, u'X'));
        QCOMPARE(shown(name), QString(limit, u'X'));
        stored << QString(limit, u'X');
    }
    boxes_->question(confirm, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(
                 u"SELECT Codigo, NomeCliente, Fone, MarcaModelo, Ano, Observacoes FROM Orcamento WHERE Codigo = 2"_s),
             (Rows{stored}));
}

// --- the header

void TstFrmOSOrcaAltera::writesTheHeaderAndDatesItAnew()
{
    openLoaded();
    runtime::setClock(runtime::CDate(u"29/02/2028 23:59:59"_s));
    cadastro::fill(form_, {{u"txtCodCliente"_s, u"1"_s},
                           {u"txtNome"_s, u"joão d'água"_s},
                           {u"txtFone1"_s, u"9999-1234"_s},
                           {u"cboMarca"_s, u"uno mille"_s},
                           {u"cboAno"_s, u"2010"_s},
                           {u"txtObs"_s, u"com pressa"_s}});
    const Rows items = itemsStored();
    boxes_->title(u"Tarvelo"_s).question(confirm, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimatesStored(),
             (Rows{{u"1"_s, u"15/05/2024 00:00:00"_s, u"UNO"_s, null, null, u"OUTRO"_s, null, null, u"5"_s},
                   {u"2"_s, u"29/02/2028 00:00:00"_s, u"UNO MILLE"_s, u"2010"_s, u"1"_s, u"JOÃO D'ÁGUA"_s,
                    u"9999-1234"_s, u"COM PRESSA"_s, u"70.5"_s}}));
    QCOMPARE(itemsStored(), items);

    QVERIFY(form_->isVisible());
    QCOMPARE(shown(u"txtCodOrcamento"_s), QString());
    QCOMPARE(header(), QStringList(7, QString()));
    QVERIFY(cadastro::rowsOf(form_).empty());
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodOrcamento"_s);
    QVERIFY(itemsLocked());
}

void TstFrmOSOrcaAltera::theHeaderIsOneWriteOfTheFile()
{
    openLoaded();
    const quint32 before = support::writesOf(core::DBDados->path());
    boxes_->question(confirm, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(support::writesOf(core::DBDados->path()) - before, 1U);
}

void TstFrmOSOrcaAltera::nothingIsWrittenOnNo()
{
    openLoaded();
    const Rows before = estimatesStored();
    runtime::setClock(runtime::CDate(u"16/05/2024"_s));
    type(form_, u"txtObs"_s, u"OUTRA"_s);
    boxes_->title(u"Tarvelo"_s).question(confirm, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimatesStored(), before);
    QCOMPARE(shown(u"txtObs"_s), u"OUTRA"_s);
    QCOMPARE(cadastro::rowsOf(form_).size(), 2U);
}

void TstFrmOSOrcaAltera::anEmptyFieldIsStoredAsNull()
{
    openLoaded();
    for (const QString &field : {u"txtCodCliente"_s, u"txtNome"_s, u"txtFone1"_s, u"cboAno"_s, u"txtObs"_s}) {
        type(form_, field, QString());
    }
    boxes_->question(confirm, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimatesStored().back(),
             (QStringList{u"2"_s, u"15/05/2024 00:00:00"_s, u"GOL 1.0"_s, null, null, null, null, null, u"70.5"_s}));
}

void TstFrmOSOrcaAltera::refusesAHeaderWithoutModel()
{
    openLoaded();
    const Rows before = estimatesStored();
    type(form_, u"cboMarca"_s, QString());
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código de Veículo Inválido"_s);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(cadastro::focusOf(form_), u"cboMarca"_s);
    QCOMPARE(estimatesStored(), before);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
}

void TstFrmOSOrcaAltera::refusesAHeaderWithoutEstimate_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("told");
    QTest::newRow("no code") << QString() << QString();
    QTest::newRow("not there") << u"3"_s << notFound;
    QTest::newRow("no number") << u"ABC"_s << u"Código do Orçamento Inválido"_s;
}

void TstFrmOSOrcaAltera::refusesAHeaderWithoutEstimate()
{
    QFETCH(QString, code);
    QFETCH(QString, told);
    open();
    const Rows before = estimatesStored();
    if (!told.isEmpty()) {
        boxes_->exclamation(told);
    }
    load(code);
    type(form_, u"cboMarca"_s, u"GOL"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(gone);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodOrcamento"_s);
    QCOMPARE(control<QLineEdit>(form_, u"txtCodOrcamento"_s)->selectedText(), code);
    QCOMPARE(estimatesStored(), before);
}

void TstFrmOSOrcaAltera::anEstimateDeletedMeanwhileIsTold()
{
    openLoaded();
    program_->sql(u"DELETE * FROM Orcamento WHERE Codigo = 2"_s);
    const Rows before = estimatesStored();
    boxes_->title(u"Tarvelo"_s).exclamation(gone);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodOrcamento"_s);
    QCOMPARE(estimatesStored(), before);
}

/// Another workstation is as quick as a clerk who thinks about the question.
void TstFrmOSOrcaAltera::anEstimateDeletedAtTheQuestionIsTold()
{
    openLoaded();
    support::Boxes::whileUp([] {
        core::DBDados->Execute(u"DELETE * FROM Orcamento WHERE Codigo = 2"_s);
        return QString();
    });
    boxes_->title(u"Tarvelo"_s).question(confirm, true).exclamation(gone);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(estimatesStored().size(), 1U);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
}

void TstFrmOSOrcaAltera::clearWritesNothing()
{
    openLoaded();
    const Rows estimates = estimatesStored();
    const Rows items = itemsStored();
    type(form_, u"txtObs"_s, u"OUTRA"_s);
    click(form_, u"btnCancelar"_s);
    QCOMPARE(shown(u"txtCodOrcamento"_s), QString());
    QCOMPARE(header(), QStringList(7, QString()));
    QVERIFY(cadastro::rowsOf(form_).empty());
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodOrcamento"_s);
    QVERIFY(itemsLocked());
    QCOMPARE(estimatesStored(), estimates);
    QCOMPARE(itemsStored(), items);
}

TARVELO_TEST_MAIN(TstFrmOSOrcaAltera)
#include "tst_frmOSOrcaAltera.moc"
