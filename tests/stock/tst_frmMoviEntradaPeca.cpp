#include "tests/stock/janelaentrada.h"

#include "platform/ui/application.h"

using namespace Qt::StringLiterals;
using entrada::Rows;
using support::click;
using support::control;
using support::text;
using support::type;

/// The window that receives parts, up to its list: opening, supplier, entry row and pickers.
class TstFrmMoviEntradaPeca : public entrada::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    // Opening
    void opensWithItsCaptionAndColumns();
    void fitsTheMainWindow();
    void tabGoesFieldByField();
    void backClosesTheWindow();

    // The supplier
    void leavingTheSupplierShowsItsName_data();
    void leavingTheSupplierShowsItsName();
    void anUnknownSupplierIsRefused_data();
    void anUnknownSupplierIsRefused();
    void aTextThatIsNoNumberIsLeftAlone_data();
    void aTextThatIsNoNumberIsLeftAlone();
    void theObservationsTakeWhatTheirColumnHolds();

    // The part
    void aPartFillsTheEntryRow_data();
    void aPartFillsTheEntryRow();
    void aPartWithoutCostBringsNone();
    void anUnknownPartIsRefused_data();
    void anUnknownPartIsRefused();
    void aServiceIsRefused();
    void anApostropheInTheCodeIsARunTimeError();
    void anEmptyQuantityBecomesOne();
    void theQuantityIsWrittenByTheUnit_data();
    void theQuantityIsWrittenByTheUnit();
    void aCodeTakenBackTakesItsUnitBack();
    void theValueIsSelectedAndStaysAsTyped();
    void theDescriptionCompletesFromItsList();
    void theListOfDescriptionsIsKeptByItsButtons();

    // Pickers
    void pickersOpenInTheirModes_data();
    void pickersOpenInTheirModes();
    void aSupplierPickedIsShown();
    void aSupplierAddedIsShown();
    void aPartPickedIsShown();
    void aPartAddedIsShown();

private:
    void compareHandedBack(const QString &picker, const QString &field, const QString &code);
    ui::Form *pickerOf(const QString &field, Qt::Key key);
};

// --- opening

void TstFrmMoviEntradaPeca::opensWithItsCaptionAndColumns()
{
    open();
    QCOMPARE(window_->windowTitle(), u"Tarvelo - [Entrada de Peças]"_s);
    QCOMPARE(cadastro::titlesOf(window_),
             (QStringList{u"Código"_s, u"Tipo"_s, u"Quantidade"_s, u"Descrição"_s, u"V.C. Unit."_s, u"V. Total"_s}));
    QCOMPARE(list()->count(), 0);
    QCOMPARE(total(), u"0,00"_s);
    QVERIFY(hasFocus(u"txtCodFornecedor"_s));
}

void TstFrmMoviEntradaPeca::fitsTheMainWindow()
{
    const QSize least = open()->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 500,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

void TstFrmMoviEntradaPeca::tabGoesFieldByField()
{
    open();
    QCOMPARE(cadastro::tabOrder(window_, u"txtCodFornecedor"_s, 12),
             (QStringList{u"txtCodFornecedor"_s, u"txtObs"_s, u"txtCodPeca"_s, u"txtQuantidade"_s, u"txtDescricao"_s,
                          u"txtValor"_s, u"btnItemAdd"_s, u"Lista"_s, u"btnIncluir"_s, u"btnCancelar"_s, u"btnLimpa"_s,
                          u"btnVoltar"_s}));
}

void TstFrmMoviEntradaPeca::backClosesTheWindow()
{
    open();
    click(window_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(u"frmMoviEntradaPeca"_s));
}

// --- the supplier

void TstFrmMoviEntradaPeca::leavingTheSupplierShowsItsName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("code") << u"3"_s;
    QTest::newRow("code with noughts") << u"0003"_s;
    QTest::newRow("a whole number in another form") << u"3,0"_s;
    QTest::newRow("with an exponent") << u"3E0"_s;
}

void TstFrmMoviEntradaPeca::leavingTheSupplierShowsItsName()
{
    QFETCH(QString, typed);
    open();
    supplier(typed);
    QCOMPARE(text(window_, u"txtCodFornecedor"_s), u"0003"_s);
    QCOMPARE(text(window_, u"lblNome"_s), u"ALFA PECAS"_s);
    QVERIFY(hasFocus(u"txtObs"_s));
}

void TstFrmMoviEntradaPeca::anUnknownSupplierIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("number") << u"99"_s;
    QTest::newRow("deleted") << u"1"_s;
    QTest::newRow("fraction") << u"1,5"_s;
    QTest::newRow("exponent") << u"1E3"_s;
    QTest::newRow("negative") << u"-3"_s;
    QTest::newRow("longer than any code") << u"99999999999"_s;
}

void TstFrmMoviEntradaPeca::anUnknownSupplierIsRefused()
{
    QFETCH(QString, typed);
    open();
    supplier();
    boxes_->exclamation(u"Código do Fornecedor Não Localizado"_s);
    supplier(typed);
    QCOMPARE(text(window_, u"lblNome"_s), QString());
    QTRY_VERIFY(hasFocus(u"txtCodFornecedor"_s));
    QCOMPARE(text(window_, u"txtCodFornecedor"_s), typed);
}

void TstFrmMoviEntradaPeca::aTextThatIsNoNumberIsLeftAlone_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << QString();
    QTest::newRow("letters") << u"ALFA"_s;
    QTest::newRow("an apostrophe") << u"D'AGUA"_s;
}

void TstFrmMoviEntradaPeca::aTextThatIsNoNumberIsLeftAlone()
{
    QFETCH(QString, typed);
    open();
    supplier();
    supplier(typed);
    QCOMPARE(text(window_, u"txtCodFornecedor"_s), typed);
    QCOMPARE(text(window_, u"lblNome"_s), u"ALFA PECAS"_s);
    QVERIFY(hasFocus(u"txtObs"_s));
}

void TstFrmMoviEntradaPeca::theObservationsTakeWhatTheirColumnHolds()
{
    open();
    cadastro::paste(window_, u"txtObs"_s, QString(250, u'x'));
    QCOMPARE(text(window_, u"txtObs"_s), QString(200, u'x'));
    type(window_, u"txtObs"_s, u"frete pago"_s);
    QCOMPARE(text(window_, u"txtObs"_s), u"FRETE PAGO"_s);
}

// --- the part

void TstFrmMoviEntradaPeca::aPartFillsTheEntryRow_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("code") << u"1"_s;
    QTest::newRow("code with noughts") << u"0001"_s;
    QTest::newRow("external code") << u"w712/75"_s;
    QTest::newRow("a text that begins with the code") << u"1,5"_s;
}

void TstFrmMoviEntradaPeca::aPartFillsTheEntryRow()
{
    QFETCH(QString, typed);
    open();
    part(typed);
    QCOMPARE(text(window_, u"txtCodPeca"_s), u"0001"_s);
    QCOMPARE(text(window_, u"txtDescricao"_s), u"FILTRO"_s);
    QCOMPARE(text(window_, u"txtValor"_s), u"1.030,50"_s);
    QVERIFY(hasFocus(u"txtQuantidade"_s));
}

void TstFrmMoviEntradaPeca::aPartWithoutCostBringsNone()
{
    program_->sql(u"UPDATE Pecas SET ValorCusto = Null WHERE Codigo = 1"_s);
    open();
    part(u"1"_s);
    QCOMPARE(text(window_, u"txtValor"_s), QString());
}

void TstFrmMoviEntradaPeca::anUnknownPartIsRefused_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("number") << u"99"_s;
    QTest::newRow("letters") << u"NADA"_s;
    QTest::newRow("nought") << u"0000"_s;
    QTest::newRow("exponent") << u"1E3"_s;
}

void TstFrmMoviEntradaPeca::anUnknownPartIsRefused()
{
    QFETCH(QString, typed);
    open();
    boxes_->exclamation(u"Código não Localizado"_s);
    part(typed);
    QTRY_VERIFY(hasFocus(u"txtCodPeca"_s));
    QCOMPARE(text(window_, u"txtCodPeca"_s), typed);
    QCOMPARE(text(window_, u"txtDescricao"_s), QString());
    QCOMPARE(text(window_, u"txtValor"_s), QString());
}

void TstFrmMoviEntradaPeca::aServiceIsRefused()
{
    open();
    boxes_->exclamation(u"Somente peças podem ser adicionadas na lista"_s);
    part(u"3"_s);
    QTRY_VERIFY(hasFocus(u"txtCodPeca"_s));
    QCOMPARE(text(window_, u"txtDescricao"_s), QString());
    QCOMPARE(text(window_, u"txtValor"_s), QString());
}

void TstFrmMoviEntradaPeca::anApostropheInTheCodeIsARunTimeError()
{
    const QString message = cadastro::errorBox(u"SELECT * FROM Pecas WHERE Codigo = 0 OR CodExterno = 'D'AGUA'"_s);
    QVERIFY(message.contains(u"'3075'"));
    open();
    boxes_->title({}).critical(message);
    part(u"D'AGUA"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
}

void TstFrmMoviEntradaPeca::anEmptyQuantityBecomesOne()
{
    open();
    part(u"2"_s);
    QCOMPARE(text(window_, u"txtQuantidade"_s), u"1"_s);
    support::key(window_, u"txtQuantidade"_s, Qt::Key_Return);
    QCOMPARE(text(window_, u"txtQuantidade"_s), u"1,000"_s);
}

void TstFrmMoviEntradaPeca::theQuantityIsWrittenByTheUnit_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("pieces") << u"1"_s << u"5"_s << u"05"_s;
    QTest::newRow("a part of a piece") << u"1"_s << u"2,5"_s << u"2,500"_s;
    QTest::newRow("litres") << u"2"_s << u"1234,5"_s << u"1.234,500"_s;
    QTest::newRow("a thousand litres") << u"2"_s << u"1000"_s << u"1.000,000"_s;
    QTest::newRow("free") << QString() << u"5"_s << u"05"_s;
    QTest::newRow("free, a fraction") << QString() << u"1234,5"_s << u"1.234,500"_s;
    QTest::newRow("free, a punctuated thousand") << QString() << u"1.000"_s << u"1000"_s;
    QTest::newRow("no number") << u"1"_s << u"DEZ"_s << u"DEZ"_s;
    QTest::newRow("free, no number") << QString() << u"DEZ"_s << u"DEZ"_s;
}

void TstFrmMoviEntradaPeca::theQuantityIsWrittenByTheUnit()
{
    QFETCH(QString, code);
    QFETCH(QString, typed);
    open();
    part(code);
    type(window_, u"txtQuantidade"_s, typed);
    QTEST(text(window_, u"txtQuantidade"_s), "shown");
}

/// By the piece, once no part says that it is litres.
void TstFrmMoviEntradaPeca::aCodeTakenBackTakesItsUnitBack()
{
    open();
    part(u"2"_s);
    part(QString());
    type(window_, u"txtQuantidade"_s, u"5"_s);
    QCOMPARE(text(window_, u"txtQuantidade"_s), u"05"_s);

    part(u"2"_s);
    click(window_, u"btnCancelar"_s);
    type(window_, u"txtQuantidade"_s, u"7"_s);
    QCOMPARE(text(window_, u"txtQuantidade"_s), u"07"_s);
}

void TstFrmMoviEntradaPeca::theValueIsSelectedAndStaysAsTyped()
{
    open();
    part(u"1"_s);
    type(window_, u"txtDescricao"_s, u"FILTRO"_s);
    QVERIFY(hasFocus(u"txtValor"_s));
    QCOMPARE(control<QLineEdit>(window_, u"txtValor"_s)->selectedText(), u"1.030,50"_s);
    type(window_, u"txtValor"_s, u"12,125"_s);
    QCOMPARE(text(window_, u"txtValor"_s), u"12,125"_s);
}

void TstFrmMoviEntradaPeca::theDescriptionCompletesFromItsList()
{
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (3, 'VELA DE IGNICAO')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'VECTRA')"_s);
    open();
    QCOMPARE(control<QComboBox>(window_, u"txtDescricao"_s)->count(), 1);
    type(window_, u"txtDescricao"_s, u"VE"_s);
    QCOMPARE(text(window_, u"txtDescricao"_s), u"VELA DE IGNICAO"_s);
}

void TstFrmMoviEntradaPeca::theListOfDescriptionsIsKeptByItsButtons()
{
    const QString stored = u"SELECT Codigo, Texto FROM Combos"_s;
    open();
    type(window_, u"txtDescricao"_s, u"FRETE"_s);
    click(window_, u"btnMarcaAdd"_s);
    QCOMPARE(program_->rows(stored), (Rows{{u"3"_s, u"FRETE"_s}}));
    QCOMPARE(list()->count(), 0);

    click(window_, u"btnMarcaRemove"_s);
    QCOMPARE(program_->rows(stored), Rows());
    QCOMPARE(text(window_, u"txtDescricao"_s), QString());
}

// --- pickers

void TstFrmMoviEntradaPeca::pickersOpenInTheirModes_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("picker");
    QTest::addColumn<int>("mode");
    const QString supplierField = u"txtCodFornecedor"_s;
    const QString suppliers = u"frmCadaFornecedor"_s;
    QTest::newRow("suppliers") << supplierField << int(Qt::Key_F1) << u"btnClienteFind"_s << suppliers << 16;
    QTest::newRow("a new supplier") << supplierField << int(Qt::Key_F2) << u"btnClienteAdd"_s << suppliers << 17;
    QTest::newRow("parts") << u"txtCodPeca"_s << int(Qt::Key_F1) << u"btnPecaFind"_s << u"frmCadaPecas"_s << 18;
    QTest::newRow("a new part") << u"txtCodPeca"_s << int(Qt::Key_F2) << u"btnPecaAdd"_s << u"frmCadaPecas"_s << 19;
}

void TstFrmMoviEntradaPeca::pickersOpenInTheirModes()
{
    QFETCH(QString, field);
    QFETCH(int, key);
    QFETCH(QString, button);
    QFETCH(QString, picker);
    QFETCH(int, mode);
    open();
    support::key(window_, field, Qt::Key(key));
    QCOMPARE(core::ModoChamada, qint16(mode));
    QVERIFY(cadastro::isOpen(picker));
    ui::Forms::instance().find(picker)->Unload();

    core::ModoChamada = 0;
    window_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window_));
    click(window_, button);
    QCOMPARE(core::ModoChamada, qint16(mode));
    QVERIFY(cadastro::isOpen(picker));
}

/// The register that the key of a code box opens.
ui::Form *TstFrmMoviEntradaPeca::pickerOf(const QString &field, Qt::Key key)
{
    support::key(window_, field, key);
    auto *picker = ui::Forms::instance().find(field == u"txtCodPeca" ? u"frmCadaPecas"_s : u"frmCadaFornecedor"_s);
    [&] { QVERIFY(QTest::qWaitForWindowActive(picker)); }();
    return picker;
}

/// The register is gone and the field holds its code, selected; leaving it looks the code up.
void TstFrmMoviEntradaPeca::compareHandedBack(const QString &picker, const QString &field, const QString &code)
{
    QTRY_VERIFY(!cadastro::isOpen(picker));
    QCOMPARE(text(window_, field), code);
    QCOMPARE(control<QLineEdit>(window_, field)->selectedText(), code);
    window_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window_));
    support::key(window_, field, Qt::Key_Return);
}

void TstFrmMoviEntradaPeca::aSupplierPickedIsShown()
{
    open();
    auto *picker = pickerOf(u"txtCodFornecedor"_s, Qt::Key_F1);
    click(picker, u"btnTodos"_s);
    cadastro::doubleClickRow(picker, 0);
    compareHandedBack(u"frmCadaFornecedor"_s, u"txtCodFornecedor"_s, u"0003"_s);
    QCOMPARE(text(window_, u"lblNome"_s), u"ALFA PECAS"_s);
    QCOMPARE(core::ModoChamada, qint16{0});
}

void TstFrmMoviEntradaPeca::aSupplierAddedIsShown()
{
    open();
    auto *picker = pickerOf(u"txtCodFornecedor"_s, Qt::Key_F2);
    type(picker, u"txtNome"_s, u"BETA"_s);
    boxes_->question(u"Confirma a Inclusão"_s, true);
    click(picker, u"btnIncluir"_s);
    compareHandedBack(u"frmCadaFornecedor"_s, u"txtCodFornecedor"_s, u"4"_s);
    QCOMPARE(text(window_, u"txtCodFornecedor"_s), u"0004"_s);
    QCOMPARE(text(window_, u"lblNome"_s), u"BETA"_s);
}

void TstFrmMoviEntradaPeca::aPartPickedIsShown()
{
    open();
    auto *picker = pickerOf(u"txtCodPeca"_s, Qt::Key_F1);
    click(picker, u"btnTodos"_s);
    cadastro::doubleClickRow(picker, 1);
    compareHandedBack(u"frmCadaPecas"_s, u"txtCodPeca"_s, u"0002"_s);
    QCOMPARE(text(window_, u"txtDescricao"_s), u"OLEO"_s);
    QVERIFY(hasFocus(u"txtQuantidade"_s));
    QCOMPARE(core::ModoChamada, qint16{0});
}

void TstFrmMoviEntradaPeca::aPartAddedIsShown()
{
    open();
    auto *picker = pickerOf(u"txtCodPeca"_s, Qt::Key_F2);
    cadastro::fill(picker, {{u"txtNome"_s, u"VELA"_s},
                            {u"cboMarca"_s, u"GOL"_s},
                            {u"txtCusto"_s, u"12,50"_s},
                            {u"txtVenda"_s, u"20,00"_s},
                            {u"txtEstoque"_s, u"1"_s},
                            {u"txtEstoqueAtual"_s, u"2"_s}});
    boxes_->question(u"Confirma a Inclusão"_s, true);
    click(picker, u"btnIncluir"_s);
    compareHandedBack(u"frmCadaPecas"_s, u"txtCodPeca"_s, u"4"_s);
    QCOMPARE(text(window_, u"txtDescricao"_s), u"VELA"_s);
    QCOMPARE(text(window_, u"txtValor"_s), u"12,50"_s);
}

TARVELO_TEST_MAIN(TstFrmMoviEntradaPeca)
#include "tst_frmMoviEntradaPeca.moc"
