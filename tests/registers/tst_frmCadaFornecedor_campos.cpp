#include "core/modulo.h"
#include "platform/dao/database.h"
#include "tests/registers/fornecedores.h"

using namespace Qt::StringLiterals;
using cadastro::askAlter;
using cadastro::askInclude;
using cadastro::focusOf;
using cadastro::null;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

/// What the fields do while they are filled, and what they take.
class TstFrmCadaFornecedorCampos : public SupplierCase
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

    void masksFieldsAsTheyAreTyped_data();
    void masksFieldsAsTheyAreTyped();
    void storedTextsShowWithoutAMask();
    void enterWalksThroughTheFields();
    void checksTheDocument_data();
    void checksTheDocument();
    void anInvalidDocumentCanBeStored();
    void onlyTheDigitsOfADocumentAreStored();
    void aPastedDocumentKeepsItsDigits_data();
    void aPastedDocumentKeepsItsDigits();
    void theEmailIsLoweredOnWriting();

    void aPostalCodeBringsItsAddress();
    void anUnknownPostalCodeChangesNothing();
    void aPostalCodeLeftAgainIsLookedUpAgain();
    void nothingIsLookedUpWithTheSettingOff();
    void anIncompletePostalCodeIsNotLookedUp();

    void pastedTextIsCutToTheColumn_data();
    void pastedTextIsCutToTheColumn();
    void fieldsFilledToTheEdgeAreStored();
    void aBadHouseNumberIsARunTimeError_data();
    void aBadHouseNumberIsARunTimeError();
    void aBadHouseNumberLeavesTheAlteredRow();

private:
    static void openPostalCodes(const QString &file)
    {
        core::DBCEP = dao::DBEngine::CreateDatabase(file, QString());
        core::DBCEP->Execute(u"CREATE TABLE CEPS (CEP varchar(8), Tipo varchar(30), Rua varchar(100), "
                             "Bairro varchar(60), Cidade varchar(60), Estado varchar(2))"_s);
        core::DBCEP->Execute(u"INSERT INTO CEPS (CEP, Tipo, Rua, Bairro, Cidade, Estado) VALUES ('13010002', "
                             "'AVENIDA', 'FRANCISCO GLICÉRIO', 'CENTRO', 'CAMPINAS', 'MG')"_s);
    }
};

// --- help at typing

void TstFrmCadaFornecedorCampos::masksFieldsAsTheyAreTyped_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("name") << u"txtNome"_s << u"josé & cia"_s << u"JOSÉ & CIA"_s;
    QTest::newRow("house number") << u"txtNumero"_s << u"1a2,5.x"_s << u"12,5."_s;
    QTest::newRow("postal code") << u"txtCEP"_s << u"01310x100"_s << u"01.310-100"_s;
    QTest::newRow("first phone") << u"txtFone1"_s << u"1133224455"_s << u"(11) 3322-4455"_s;
    QTest::newRow("second phone") << u"txtFone2"_s << u"11-3322.4455"_s << u"(11) 3322-4455"_s;
    QTest::newRow("mobile") << u"txtCelular"_s << u"1198765432"_s << u"(11) 9876-5432"_s;
    QTest::newRow("document") << u"txtCPF"_s << u"11.222.333/0001-81"_s << u"11222333000181"_s;
    QTest::newRow("e-mail") << u"txtEmail"_s << u"a@b.com"_s << u"A@B.COM"_s;
}

void TstFrmCadaFornecedorCampos::masksFieldsAsTheyAreTyped()
{
    QFETCH(QString, field);
    QFETCH(QString, typed);
    type(form_, field, typed);
    QTEST(text(form_, field), "shown");
}

void TstFrmCadaFornecedorCampos::storedTextsShowWithoutAMask()
{
    program_->sql(u"UPDATE Fornecedores SET Fone1 = '190', CEP = '13' WHERE Codigo = 1"_s);
    load(u"0001"_s);
    QCOMPARE(shown(u"txtFone1"_s), u"190"_s);
    QCOMPARE(shown(u"txtCEP"_s), u"13"_s);
}

void TstFrmCadaFornecedorCampos::enterWalksThroughTheFields()
{
    cadastro::focus(form_, u"txtNome"_s);
    key(form_, u"txtNome"_s, Qt::Key_Return);
    QCOMPARE(focusOf(form_), u"txtContato"_s);
    key(form_, u"txtContato"_s, Qt::Key_Return);
    QCOMPARE(focusOf(form_), u"txtEndereco"_s);
}

void TstFrmCadaFornecedorCampos::checksTheDocument_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("message");
    const QString wrongLength = u"É Necessário um CPF com 11 Dígitos"_s;
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("a good CNPJ") << u"11222333000181"_s << QString();
    QTest::newRow("a bad CNPJ") << u"11222333000180"_s << u"CNPJ inválido"_s;
    QTest::newRow("fourteen zeros") << u"00000000000000"_s << u"CNPJ Inválido"_s;
    QTest::newRow("a good CPF") << u"52998224725"_s << QString();
    QTest::newRow("a bad CPF") << u"52998224724"_s << u"CPF Inválido"_s;
    QTest::newRow("13 digits are no CPF") << u"1122233300018"_s << wrongLength;
    QTest::newRow("15 digits are no CPF") << u"112223330001811"_s << wrongLength;
    QTest::newRow("one digit is no CPF") << u"1"_s << wrongLength;
}

void TstFrmCadaFornecedorCampos::checksTheDocument()
{
    QFETCH(QString, document);
    QFETCH(QString, message);
    if (!message.isEmpty()) {
        boxes_->exclamation(message);
    }
    type(form_, u"txtCPF"_s, document);
    boxes_->finish();
    QTRY_COMPARE(focusOf(form_), u"txtEmail"_s);
    QCOMPARE(shown(u"txtCPF"_s), document);
}

void TstFrmCadaFornecedorCampos::anInvalidDocumentCanBeStored()
{
    type(form_, u"txtNome"_s, u"NOVO"_s);
    boxes_->exclamation(u"CNPJ inválido"_s);
    type(form_, u"txtCPF"_s, u"11222333000180"_s);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT CNPJ FROM Fornecedores WHERE Codigo = 4"_s), (Rows{{u"11222333000180"_s}}));
}

void TstFrmCadaFornecedorCampos::onlyTheDigitsOfADocumentAreStored()
{
    type(form_, u"txtNome"_s, u"NOVO"_s);
    control<QLineEdit>(form_, u"txtCPF"_s)->setText(u"529.982.247-25"_s);
    answer(askInclude, u"btnIncluir"_s);
    const QString stored = u"SELECT CNPJ FROM Fornecedores WHERE Codigo = 4"_s;
    QCOMPARE(program_->rows(stored), (Rows{{u"52998224725"_s}}));

    load(u"0004"_s);
    control<QLineEdit>(form_, u"txtCPF"_s)->setText(u"111.444.777-35"_s);
    answer(askAlter, u"btnAlterar"_s);
    QCOMPARE(program_->rows(stored), (Rows{{u"11144477735"_s}}));
}

void TstFrmCadaFornecedorCampos::aPastedDocumentKeepsItsDigits_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("warned");
    QTest::newRow("with its marks") << u"11.222.333/0001-81"_s << u"11222333000181"_s << u"11222333000181"_s << false;
    QTest::newRow("15 digits") << u"112223330001819"_s << u"112223330001819"_s << u"112223330001819"_s << true;
    QTest::newRow("16 digits") << u"1122233300018199"_s << u"112223330001819"_s << u"112223330001819"_s << true;
}

void TstFrmCadaFornecedorCampos::aPastedDocumentKeepsItsDigits()
{
    QFETCH(QString, pasted);
    QFETCH(QString, stored);
    type(form_, u"txtNome"_s, u"NOVO"_s);
    cadastro::paste(form_, u"txtCPF"_s, pasted);
    QTEST(shown(u"txtCPF"_s), "kept");
    QFETCH(bool, warned);
    if (warned) {
        boxes_->exclamation(u"É Necessário um CPF com 11 Dígitos"_s);
    }
    key(form_, u"txtCPF"_s, Qt::Key_Tab);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT CNPJ FROM Fornecedores WHERE Codigo = 4"_s), (Rows{{stored}}));
}

void TstFrmCadaFornecedorCampos::theEmailIsLoweredOnWriting()
{
    load(u"0001"_s);
    type(form_, u"txtEmail"_s, u"Ação@Alfa.COM"_s);
    QCOMPARE(shown(u"txtEmail"_s), u"AÇÃO@ALFA.COM"_s);
    answer(askAlter, u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT Email FROM Fornecedores WHERE Codigo = 1"_s), (Rows{{u"ação@alfa.com"_s}}));
}

// --- postal codes

void TstFrmCadaFornecedorCampos::aPostalCodeBringsItsAddress()
{
    openPostalCodes(program_->path(u"CEP.MDB"_s));
    type(form_, u"txtCEP"_s, u"13010002"_s);
    QTRY_COMPARE(focusOf(form_), u"txtNumero"_s);
    QCOMPARE(shown(u"txtEndereco"_s), u"AVENIDA FRANCISCO GLICÉRIO"_s);
    QCOMPARE(shown(u"txtBairro"_s), u"CENTRO"_s);
    QCOMPARE(shown(u"txtCidade"_s), u"CAMPINAS"_s);
    QCOMPARE(shown(u"cboEstado"_s), u"MG"_s);
    QCOMPARE(shown(u"txtCEP"_s), u"13.010-002"_s);
}

void TstFrmCadaFornecedorCampos::anUnknownPostalCodeChangesNothing()
{
    openPostalCodes(program_->path(u"CEP.MDB"_s));
    load(u"0001"_s);
    type(form_, u"txtCEP"_s, u"99999999"_s);
    QCOMPARE(cadastro::shown(form_, alfa), cadastro::with(alfa, u"txtCEP"_s, u"99.999-999"_s));
    QCOMPARE(focusOf(form_), u"txtPontoReferencia"_s);
}

void TstFrmCadaFornecedorCampos::aPostalCodeLeftAgainIsLookedUpAgain()
{
    openPostalCodes(program_->path(u"CEP.MDB"_s));
    program_->sql(u"UPDATE Fornecedores SET CEP = '13.010-002' WHERE Codigo = 1"_s);
    load(u"0001"_s);
    QCOMPARE(shown(u"txtEndereco"_s), u"RUA A"_s);
    key(form_, u"txtCEP"_s, Qt::Key_Tab);
    QTRY_COMPARE(focusOf(form_), u"txtNumero"_s);
    QCOMPARE(shown(u"txtEndereco"_s), u"AVENIDA FRANCISCO GLICÉRIO"_s);
}

void TstFrmCadaFornecedorCampos::nothingIsLookedUpWithTheSettingOff()
{
    openPostalCodes(program_->path(u"CEP.MDB"_s));
    program_->config(u"CEP"_s, u"Off"_s);
    type(form_, u"txtCEP"_s, u"13010002"_s);
    QCOMPARE(shown(u"txtEndereco"_s), QString());
    QCOMPARE(focusOf(form_), u"txtPontoReferencia"_s);
}

void TstFrmCadaFornecedorCampos::anIncompletePostalCodeIsNotLookedUp()
{
    openPostalCodes(program_->path(u"CEP.MDB"_s));
    type(form_, u"txtCEP"_s, u"1301000"_s);
    QCOMPARE(shown(u"txtCEP"_s), u"13.010-00"_s);
    QCOMPARE(shown(u"txtEndereco"_s), QString());
    QCOMPARE(focusOf(form_), u"txtPontoReferencia"_s);
}

// --- bad input

/// Many digits as a box shows them; phones and the postal code in their masks.
static QString sevens(const QString &field, int length)
{
    if (field == u"txtCEP") {
        return u"77.777-777"_s;
    }
    const bool phone = field.startsWith(u"txtFone") || field == u"txtCelular";
    return phone ? u"(77) 7777-7777"_s : QString(length, u'7');
}

void TstFrmCadaFornecedorCampos::pastedTextIsCutToTheColumn_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("length");
    const std::pair<QString, int> limits[] = {
        {u"txtNome"_s, 200},  {u"txtContato"_s, 200},    {u"txtEndereco"_s, 200}, {u"txtComplemento"_s, 30},
        {u"txtBairro"_s, 50}, {u"txtCidade"_s, 80},      {u"txtCEP"_s, 10},       {u"txtPontoReferencia"_s, 120},
        {u"txtFone1"_s, 14},  {u"txtFone2"_s, 14},       {u"txtCelular"_s, 14},   {u"txtCPF"_s, 15},
        {u"txtEmail"_s, 100}, {u"txtObservacoes"_s, 200}};
    for (const auto &[field, length] : limits) {
        QTest::newRow(qPrintable(field)) << field << length;
    }
}

void TstFrmCadaFornecedorCampos::pastedTextIsCutToTheColumn()
{
    QFETCH(QString, field);
    QFETCH(int, length);
    cadastro::paste(form_, field, QString(300, u'7'));
    QCOMPARE(shown(field), sevens(field, length));
    QCOMPARE(shown(field).size(), length);
}

void TstFrmCadaFornecedorCampos::fieldsFilledToTheEdgeAreStored()
{
    for (const auto &[field, unused] : alfa) {
        if (field.startsWith(u"lbl"_s)) {
            continue;
        }
        if (field == u"txtCPF"_s) {
            boxes_->exclamation(u"É Necessário um CPF com 11 Dígitos"_s);
        }
        if (field != u"txtNumero"_s && field != u"cboEstado"_s) {
            cadastro::paste(form_, field, QString(300, u'7'));
        }
        key(form_, field, Qt::Key_Tab);
    }
    answer(askInclude, u"btnIncluir"_s);
    const auto full = [](int length) { return QString(length, u'7'); };
    const QStringList stored{u"4"_s,
                             u"15/05/2024 00:00:00"_s,
                             full(200),
                             full(200),
                             full(200),
                             null,
                             full(30),
                             full(50),
                             full(80),
                             u"SP"_s,
                             u"77.777-777"_s,
                             full(120),
                             u"(77) 7777-7777"_s,
                             u"(77) 7777-7777"_s,
                             u"(77) 7777-7777"_s,
                             full(15),
                             full(100),
                             full(200)};
    QCOMPARE(suppliers().back(), stored);
}

void TstFrmCadaFornecedorCampos::aBadHouseNumberIsARunTimeError_data()
{
    QTest::addColumn<QString>("number");
    QTest::newRow("beyond the column") << u"40000"_s;
    QTest::newRow("far beyond it") << u"99999999999"_s;
    QTest::newRow("no number") << u",,"_s;
}

void TstFrmCadaFornecedorCampos::aBadHouseNumberIsARunTimeError()
{
    QFETCH(QString, number);
    type(form_, u"txtNome"_s, u"NOVO"_s);
    type(form_, u"txtNumero"_s, number);
    boxes_->question(askInclude, true).critical(cadastro::errorBox(3421));
    click(form_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(suppliers().size(), 3U);
}

void TstFrmCadaFornecedorCampos::aBadHouseNumberLeavesTheAlteredRow()
{
    const Rows before = suppliers();
    load(u"0001"_s);
    type(form_, u"txtNome"_s, u"ZETA"_s);
    type(form_, u"txtNumero"_s, u"40000"_s);
    boxes_->question(askAlter, true).critical(cadastro::errorBox(3421));
    click(form_, u"btnAlterar"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(suppliers(), before);
}

TARVELO_TEST_MAIN(TstFrmCadaFornecedorCampos)
#include "tst_frmCadaFornecedor_campos.moc"
