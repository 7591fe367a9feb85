#include "tests/workorders/alteraos.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTimer>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::type;

namespace
{

const QString question = u"Confirma Alteração"_s;
const QString notFound = u"Código da O.S. não localizado"_s;
const QString gone = u"Código da Ordem de Serviço Não Localizado"_s;
const QString noCode = u"Código da Ordem de Serviço Inválida"_s;

} // namespace

/// The window that alters an order: what it loads, and its header.
class TstFrmOSAltera : public AlteringWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { startWithOrders(); }
    void cleanup() { stop(); }

    void opensWithItsCaptionAndWithoutAnOrder();
    void fitsTheMainWindow_data();
    void fitsTheMainWindow();
    void textsTakeWhatTheirColumnsHold();
    void loadsEveryField();
    void loadsNullsAsEmpty();
    void loadsTheStateOfTheOrder_data();
    void loadsTheStateOfTheOrder();
    void theStoredTotalIsShownUntilAChange();
    void anEmptyCodeDoesNothing();
    void aCodeWithoutAnOrder_data();
    void aCodeWithoutAnOrder();
    void anotherOrderTakesTheFirstOnesPlace();

    void refusesAHeader_data();
    void refusesAHeader();
    void refusesAHeaderOfNoCode_data();
    void refusesAHeaderOfNoCode();
    void writesNoHeaderOnNo();
    void writesTheHeader();
    void emptyTextsBecomeNull();
    void closesAnOrderByHand();
    void neverWritesTheFieldsOfNoOrder();
    void anOrderThatIsGoneIsNotWritten_data();
    void anOrderThatIsGoneIsNotWritten();

    void clearingKeepsTheMaterial();

private:
    void include(bool yes = true) const;
    bool checked(const QString &name) const { return control<QRadioButton>(form_, name)->isChecked(); }
    Rows header() const
    {
        return program_->rows(u"SELECT CodCliente, CodVeiculo, KM, Observacao, Valor, EmAberto, Pago, DataPagto, "
                              "FormaPagto, Descricao, Mecanico FROM OrdemServico WHERE Codigo = 2"_s);
    }
};

void TstFrmOSAltera::include(bool yes) const
{
    boxes_->title(u"Tarvelo"_s).question(question, yes);
    click(form_, u"btnIncluir"_s);
}

void TstFrmOSAltera::opensWithItsCaptionAndWithoutAnOrder()
{
    open(full, 0, altering);
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [Altera Ordem de Serviço]"_s);
    QVERIFY(at(u"txtCodOS"_s)->hasFocus());
    for (const QString &button : {u"btnItemAdd"_s, u"btnItemRemove"_s}) {
        QVERIFY(!isOffered(button));
        QVERIFY(at(button)->toolTip().endsWith(locked));
    }
    for (const QString &button : {u"btnIncluir"_s, u"btnExcluir"_s, u"btnCancelar"_s, u"btnVoltar"_s}) {
        QVERIFY2(isOffered(button), qPrintable(button));
    }
    QVERIFY(!at(u"btnLimpa"_s)->isVisible());
    QVERIFY(!at(u"btnAdicionar"_s)->isVisible());
}

void TstFrmOSAltera::fitsTheMainWindow_data()
{
    QTest::addColumn<QString>("layout");
    QTest::newRow("compact") << compact;
    QTest::newRow("full") << full;
}

void TstFrmOSAltera::fitsTheMainWindow()
{
    QFETCH(QString, layout);
    open(layout, 0, altering);
    const QSize least = form_->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

void TstFrmOSAltera::textsTakeWhatTheirColumnsHold()
{
    openOrder();
    QCOMPARE(control<QLineEdit>(form_, u"txtKm"_s)->maxLength(), 10);
    QCOMPARE(control<QLineEdit>(form_, u"txtObs"_s)->maxLength(), 250);
    QCOMPARE(control<QLineEdit>(form_, u"txtFormaPg"_s)->maxLength(), 40);
    auto *services = control<QPlainTextEdit>(form_, u"txtServicos"_s);
    services->setPlainText(QString(300, u'X'));
    QCOMPARE(services->toPlainText().size(), 255);
}

void TstFrmOSAltera::loadsEveryField()
{
    program_->sql(u"UPDATE OrdemServico SET DataPagto = #05/20/2024#, FormaPagto = 'DINHEIRO' WHERE Codigo = 2"_s);
    openOrder();
    const std::vector<QStringList> fields{{u"txtCodOS"_s, u"0002"_s},      {u"lblCodVeiculo"_s, u"0002"_s},
                                          {u"lblMarca"_s, u"GOL 1.6"_s},   {u"lblAno"_s, u"2019/2020"_s},
                                          {u"lblPlacas"_s, u"ABC1D23"_s},  {u"lblCombustivel"_s, u"FLEX"_s},
                                          {u"lblCor"_s, u"PRATA"_s},       {u"lblCodCliente"_s, u"2"_s},
                                          {u"lblNome"_s, u"MARIA"_s},      {u"lblFone1"_s, u"(11) 1234-5678"_s},
                                          {u"txtKm"_s, u"98.500"_s},       {u"lblCelular"_s, u"(11) 9999-8888"_s},
                                          {u"txtObs"_s, u"BARULHO"_s},     {u"txtServicos"_s, u"REVISAO"_s},
                                          {u"txtMecanico"_s, u"JOAO"_s},   {u"txtDataPg"_s, u"20/05/2024"_s},
                                          {u"txtFormaPg"_s, u"DINHEIRO"_s}};
    for (const QStringList &field : fields) {
        QCOMPARE(field.front() + u'=' + shown(field.front()), field.join(u'='));
    }
    QCOMPARE(totals(), (QStringList{u"421,75"_s, u"71,75"_s, u"150,00"_s, u"200,00"_s}));
}

void TstFrmOSAltera::loadsNullsAsEmpty()
{
    program_->sql(u"UPDATE OrdemServico SET Valor = Null WHERE Codigo = 1"_s);
    openOrder(full, u"1"_s);
    QCOMPARE(shown(u"lblNome"_s), u"OUTRO"_s);
    for (const QString &name : {u"txtKm"_s, u"txtObs"_s, u"txtServicos"_s, u"txtMecanico"_s, u"txtDataPg"_s,
                                u"txtFormaPg"_s, u"lblAno"_s, u"lblFone1"_s}) {
        QCOMPARE(shown(name), QString());
    }
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
}

void TstFrmOSAltera::loadsTheStateOfTheOrder_data()
{
    QTest::addColumn<bool>("isOpen");
    QTest::addColumn<bool>("isPaid");
    QTest::newRow("open") << true << false;
    QTest::newRow("open and paid") << true << true;
    QTest::newRow("closed") << false << false;
    QTest::newRow("closed and paid") << false << true;
}

void TstFrmOSAltera::loadsTheStateOfTheOrder()
{
    QFETCH(bool, isOpen);
    QFETCH(bool, isPaid);
    const auto yes = [](bool value) { return value ? u"True"_s : u"False"_s; };
    program_->sql(u"UPDATE OrdemServico SET EmAberto = %1, Pago = %2 WHERE Codigo = 2"_s.arg(yes(isOpen), yes(isPaid)));
    openOrder();
    QCOMPARE(checked(u"OptSim1"_s), isPaid);
    QCOMPARE(checked(u"optNao1"_s), !isPaid);
    QCOMPARE(checked(u"optSim2"_s), isOpen);
    QCOMPARE(checked(u"optNao2"_s), !isOpen);
    list(u"Lista"_s)->selectRow(0);
    for (const QString &button : {u"btnIncluir"_s, u"btnItemAdd"_s, u"btnItemRemove"_s}) {
        QCOMPARE(isOffered(button), isOpen);
        QCOMPARE(at(button)->toolTip().endsWith(closed), !isOpen);
    }
    QVERIFY(isOffered(u"btnExcluir"_s));
    QCOMPARE(shown(u"txtKm"_s), u"98.500"_s);
    QCOMPARE(rows(u"Lista"_s).size(), 2U);
}

void TstFrmOSAltera::theStoredTotalIsShownUntilAChange()
{
    program_->sql(u"UPDATE OrdemServico SET Valor = 300 WHERE Codigo = 2"_s);
    openOrder();
    QCOMPARE(totals(), (QStringList{u"300,00"_s, u"71,75"_s, u"150,00"_s, u"200,00"_s}));
    add(u"1"_s, u"CERA"_s, u"5"_s);
    QCOMPARE(shown(u"lblTotal"_s), u"426,75"_s);
}

void TstFrmOSAltera::anEmptyCodeDoesNothing()
{
    openOrder();
    type(form_, u"txtCodOS"_s, QString());
    QCOMPARE(shown(u"lblNome"_s), u"MARIA"_s);
    QCOMPARE(rows(u"Lista"_s).size(), 2U);
    QVERIFY(isOffered(u"btnItemAdd"_s));
}

void TstFrmOSAltera::aCodeWithoutAnOrder_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("message");
    QTest::newRow("no such order") << u"99"_s << notFound;
    QTest::newRow("more than a code holds") << u"9999999999"_s << notFound;
    QTest::newRow("a fraction") << u"1,5"_s << notFound;
    QTest::newRow("a power") << u"1e3"_s << notFound;
    QTest::newRow("a word") << u"ABC"_s << u"Código da O.S. Inválido"_s;
    QTest::newRow("an apostrophe") << u"2' OR '1"_s << u"Código da O.S. Inválido"_s;
}

/// What was shown goes, and nothing can be done to it under another code; the clerk is not held in the box.
void TstFrmOSAltera::aCodeWithoutAnOrder()
{
    QFETCH(QString, code);
    QFETCH(QString, message);
    openOrder();
    type(form_, u"txtFormaPg"_s, u"X"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(message);
    type(form_, u"txtCodOS"_s, code);
    QCOMPARE(shown(u"txtCodOS"_s), code.toUpper());
    QVERIFY(!at(u"txtCodOS"_s)->hasFocus());
    for (const QString &name :
         {u"lblCodVeiculo"_s, u"lblMarca"_s, u"lblPlacas"_s, u"lblCodCliente"_s, u"lblNome"_s, u"lblFone1"_s,
          u"txtKm"_s, u"txtObs"_s, u"txtServicos"_s, u"txtMecanico"_s, u"txtDataPg"_s, u"txtFormaPg"_s}) {
        QCOMPARE(shown(name), QString());
    }
    QCOMPARE(totals(), QStringList(4, u"0,00"_s));
    for (const QString &name : {u"Lista"_s, u"lstServicos"_s, u"lstTercerizados"_s, u"lstMaterial"_s}) {
        QCOMPARE(rows(name), Rows());
    }
    QVERIFY(!isOffered(u"btnItemAdd"_s));
    QVERIFY(isOffered(u"btnIncluir"_s));
}

void TstFrmOSAltera::anotherOrderTakesTheFirstOnesPlace()
{
    openOrder();
    type(form_, u"txtCodOS"_s, u"1"_s);
    QCOMPARE(rows(u"Lista"_s).size(), 1U);
    QCOMPARE(rows(u"lstServicos"_s), Rows());
    QCOMPARE(shown(u"lblNome"_s), u"OUTRO"_s);
    QCOMPARE(totals(), (QStringList{u"10,00"_s, u"10,00"_s, u"0,00"_s, u"0,00"_s}));
}

// --- the header

void TstFrmOSAltera::refusesAHeader_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("focus");
    QTest::newRow("no code") << QString() << QString() << noCode << u"txtCodOS"_s;
    QTest::newRow("no code, no date") << QString() << u"31/02/2024"_s << noCode << u"txtCodOS"_s;
    QTest::newRow("no date") << u"2"_s << u"31/02/2024"_s << u"Data de Pagamento Inválida"_s << u"txtDataPg"_s;
}

void TstFrmOSAltera::refusesAHeader()
{
    QFETCH(QString, code);
    QFETCH(QString, date);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    openOrder();
    type(form_, u"txtKm"_s, u"1"_s);
    type(form_, u"txtCodOS"_s, code);
    if (!code.isEmpty()) {
        type(form_, u"txtKm"_s, u"1"_s);
    }
    control<QLineEdit>(form_, u"txtDataPg"_s)->setText(date);
    boxes_->title(u"Tarvelo"_s).exclamation(message);
    click(form_, u"btnIncluir"_s);
    QTRY_VERIFY(at(focus)->hasFocus());
    QCOMPARE(shown(u"txtKm"_s), u"1"_s);
    QCOMPARE(stored(u"KM"_s), u"98.500"_s);
}

void TstFrmOSAltera::refusesAHeaderOfNoCode_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("told");
    QTest::addColumn<QString>("message");
    QTest::newRow("a word") << u"ABC"_s << u"Código da O.S. Inválido"_s << noCode;
    QTest::newRow("a fraction") << u"1,5"_s << notFound << gone;
    QTest::newRow("no such order") << u"99"_s << notFound << gone;
    QTest::newRow("more than a code holds") << u"9999999999"_s << notFound << gone;
}

void TstFrmOSAltera::refusesAHeaderOfNoCode()
{
    QFETCH(QString, code);
    QFETCH(QString, told);
    QFETCH(QString, message);
    openOrder();
    boxes_->title(u"Tarvelo"_s).exclamation(told).exclamation(message);
    type(form_, u"txtCodOS"_s, code);
    click(form_, u"btnIncluir"_s);
    QTRY_VERIFY(at(u"txtCodOS"_s)->hasFocus());
    QCOMPARE(stored(u"KM"_s), u"98.500"_s);
}

void TstFrmOSAltera::writesNoHeaderOnNo()
{
    openOrder();
    const Rows before = header();
    type(form_, u"txtKm"_s, u"1"_s);
    include(false);
    QCOMPARE(header(), before);
    QCOMPARE(shown(u"txtKm"_s), u"1"_s);
    QCOMPARE(shown(u"lblNome"_s), u"MARIA"_s);
}

void TstFrmOSAltera::writesTheHeader()
{
    openOrder();
    type(form_, u"txtKm"_s, u"99.000"_s);
    type(form_, u"txtObs"_s, u"d'agua"_s);
    type(form_, u"txtServicos"_s, u"freios"_s);
    type(form_, u"txtMecanico"_s, u"pedro"_s);
    type(form_, u"txtDataPg"_s, u"20052024"_s);
    type(form_, u"txtFormaPg"_s, u"dinheiro"_s);
    control<QRadioButton>(form_, u"OptSim1"_s)->setChecked(true);
    include();

    QCOMPARE(header(), (Rows{{u"2"_s, u"2"_s, u"99.000"_s, u"D'AGUA"_s, u"421.75"_s, u"True"_s, u"True"_s,
                              u"20/05/2024 00:00:00"_s, u"DINHEIRO"_s, u"FREIOS"_s, u"PEDRO"_s}}));
    QVERIFY(at(u"txtCodOS"_s)->hasFocus());
    QCOMPARE(shown(u"txtCodOS"_s), QString());
    QCOMPARE(shown(u"lblNome"_s), QString());
    QVERIFY(!isOffered(u"btnItemAdd"_s));
    QCOMPARE(program_->rows(u"SELECT KM, Pago FROM OrdemServico WHERE Codigo = 1"_s),
             (Rows{{u"<Null>"_s, u"False"_s}}));
}

void TstFrmOSAltera::emptyTextsBecomeNull()
{
    program_->sql(u"UPDATE OrdemServico SET DataPagto = #05/20/2024#, FormaPagto = 'DINHEIRO' WHERE Codigo = 2"_s);
    openOrder();
    for (const QString &name :
         {u"txtKm"_s, u"txtObs"_s, u"txtServicos"_s, u"txtMecanico"_s, u"txtDataPg"_s, u"txtFormaPg"_s}) {
        type(form_, name, QString());
    }
    include();
    const QString null = u"<Null>"_s;
    QCOMPARE(header(),
             (Rows{{u"2"_s, u"2"_s, null, null, u"421.75"_s, u"True"_s, u"False"_s, null, null, null, null}}));
}

/// No payment, no posting, no way back: the order is just marked.
void TstFrmOSAltera::closesAnOrderByHand()
{
    openOrder();
    control<QRadioButton>(form_, u"optNao2"_s)->setChecked(true);
    include();
    QCOMPARE(stored(u"EmAberto"_s), u"False"_s);
    QCOMPARE(stored(u"DataOut"_s), u"<Null>"_s);
    for (const QString &table : {u"Caixa"_s, u"ContasReceber"_s, u"Cheques"_s, u"Fiados"_s, u"ContaFiado"_s}) {
        QCOMPARE(program_->rows(u"SELECT * FROM "_s + table), Rows());
    }
    QCOMPARE(program_->rows(u"SELECT Entrada, Saida FROM Estoque"_s).size(), 1U);

    type(form_, u"txtCodOS"_s, u"2"_s);
    control<QRadioButton>(form_, u"optSim2"_s)->setChecked(true);
    QVERIFY(!isOffered(u"btnIncluir"_s));
}

void TstFrmOSAltera::neverWritesTheFieldsOfNoOrder()
{
    program_->sql(u"DELETE * FROM Clientes WHERE Codigo = 2"_s);
    const Rows before = header();
    open(full, 0, altering);
    boxes_->title(u"Tarvelo"_s).exclamation(notFound);
    type(form_, u"txtCodOS"_s, u"2"_s);
    boxes_->exclamation(gone);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(header(), before);
}

void TstFrmOSAltera::anOrderThatIsGoneIsNotWritten_data()
{
    QTest::addColumn<bool>("whileAsked");
    QTest::newRow("before the question") << false;
    QTest::newRow("while the question is up") << true;
}

void TstFrmOSAltera::anOrderThatIsGoneIsNotWritten()
{
    QFETCH(bool, whileAsked);
    openOrder();
    boxes_->title(u"Tarvelo"_s);
    const auto deleteOrder = [this] { program_->sql(u"DELETE * FROM OrdemServico WHERE Codigo = 2"_s); };
    if (whileAsked) {
        QTimer::singleShot(0, form_, deleteOrder);
        boxes_->question(question, true);
    } else {
        deleteOrder();
    }
    boxes_->exclamation(gone);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(header(), Rows());
    QTRY_VERIFY(at(u"txtCodOS"_s)->hasFocus());
}

void TstFrmOSAltera::clearingKeepsTheMaterial()
{
    openOrder();
    type(form_, u"txtDescricao"_s, u"X"_s);
    click(form_, u"btnCancelar"_s);
    for (const QString &name : {u"txtCodOS"_s, u"lblNome"_s, u"lblMarca"_s, u"txtKm"_s, u"txtMecanico"_s,
                                u"txtDescricao"_s, u"txtHorasTrabalhadas"_s}) {
        QCOMPARE(shown(name), QString());
    }
    QCOMPARE(totals(), QStringList(4, u"0,00"_s));
    QCOMPARE(rows(u"Lista"_s), Rows());
    QCOMPARE(rows(u"lstServicos"_s), Rows());
    QCOMPARE(rows(u"lstTercerizados"_s), Rows());
    QCOMPARE(rows(u"lstMaterial"_s), (Rows{{u"0001"_s, u"3,000"_s, u"OLEO"_s}}));
    QVERIFY(at(u"txtCodOS"_s)->hasFocus());
    QVERIFY(!isOffered(u"btnItemAdd"_s));
    QCOMPARE(items().size(), 6U);

    type(form_, u"txtCodOS"_s, u"1"_s);
    QCOMPARE(rows(u"lstMaterial"_s), Rows());
}

TARVELO_TEST_MAIN(TstFrmOSAltera)
#include "tst_frmOSAltera.moc"
