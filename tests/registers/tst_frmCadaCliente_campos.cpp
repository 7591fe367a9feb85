#include "registers/registers.h"
#include "tests/registers/clientes.h"

#include "platform/dao/database.h"
#include "platform/ui/application.h"

#include <QClipboard>

using namespace clientes;
using support::click;
using support::type;

/// What the fields do while they are typed into and when they are left.
class TstFrmCadaClienteCampos : public QObject, private clientes::Case
{
    Q_OBJECT

private slots:
    void initTestCase() { registers::registerForms(); }
    void init();
    void cleanup();

    void fieldsAreFilteredAndMasked_data();
    void fieldsAreFilteredAndMasked();
    void enterWalksThroughTheFields();
    void theStatesStandInOrder();
    void aPastedTextIsCutToItsColumn_data();
    void aPastedTextIsCutToItsColumn();
    void aPastedNameIsStoredAsItWasCut();

    void aPostalCodeFillsTheAddress();
    void aPostalCodeNeedsAllItsDigits();
    void anUnknownPostalCodeChangesNothing();
    void thePostalLookupCanBeOff();

    void theDocumentIsChecked_data();
    void theDocumentIsChecked();

    void aKnownNameIsOnlyAWarning();
    void theNameOfALoadedRecordIsFoundToo();
    void aNewNameIsNoWarning();
    void anEmptyNameIsNoWarning();
    void anApostropheInTheNameIsARunTimeError();

private:
    void withPostalCodes();
};

void TstFrmCadaClienteCampos::init()
{
    begin();
    open();
}

void TstFrmCadaClienteCampos::cleanup()
{
    core::DBCEP.reset();
    end();
}

// --- typing

void TstFrmCadaClienteCampos::fieldsAreFilteredAndMasked_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("shownAs");

    QTest::newRow("name") << u"txtNome"_s << u"josé da silva"_s << u"JOSÉ DA SILVA"_s;
    QTest::newRow("address") << u"txtEndereco"_s << u"rua 7, fundos"_s << u"RUA 7, FUNDOS"_s;
    QTest::newRow("house number") << u"txtNumero"_s << u"12a,b3.4"_s << u"12,3.4"_s;
    QTest::newRow("complement") << u"txtComplemento"_s << u"apto 1-a"_s << u"APTO 1-A"_s;
    QTest::newRow("district") << u"txtBairro"_s << u"centro"_s << u"CENTRO"_s;
    QTest::newRow("city") << u"txtCidade"_s << u"são josé"_s << u"SÃO JOSÉ"_s;
    QTest::newRow("state") << u"cboEstado"_s << u"rj"_s << u"RJ"_s;
    QTest::newRow("postal code") << u"txtCEP"_s << u"11a060.001"_s << u"11.060-001"_s;
    QTest::newRow("reference") << u"txtPontoReferencia"_s << u"praça"_s << u"PRAÇA"_s;
    QTest::newRow("phone 1") << u"txtFone1"_s << u"1332841111"_s << u"(13) 3284-1111"_s;
    QTest::newRow("phone 2") << u"txtFone2"_s << u"13x3284-2222"_s << u"(13) 3284-2222"_s;
    QTest::newRow("mobile") << u"txtCelular"_s << u"13 9777 3333"_s << u"(13) 9777-3333"_s;
    QTest::newRow("registration") << u"txtRG"_s << u"12.345-x"_s << u"12.345-X"_s;
    QTest::newRow("birth date") << u"txtDataNascimento"_s << u"02/01a1980"_s << u"02/01/1980"_s;
    QTest::newRow("e-mail") << u"txtEmail"_s << u"a.b@c.com"_s << u"A.B@C.COM"_s;
    QTest::newRow("limit") << u"txtLimite"_s << u"r1234,5"_s << u"1.234,50"_s;
    QTest::newRow("limit, grouped") << u"txtLimite"_s << u"1.234,567"_s << u"1.234,57"_s;
    QTest::newRow("limit that is no number") << u"txtLimite"_s << u"1,2,3"_s << u"1,2,3"_s;
    QTest::newRow("notes") << u"txtObservacoes"_s << u"boa cliente"_s << u"BOA CLIENTE"_s;
    QTest::newRow("search text") << u"txtTexto"_s << u"maria"_s << u"MARIA"_s;
}

void TstFrmCadaClienteCampos::fieldsAreFilteredAndMasked()
{
    QFETCH(QString, field);
    QFETCH(QString, keys);
    type(form_, field, keys);
    QTEST(text(field), "shownAs");
    QVERIFY(focus() != field);
}

void TstFrmCadaClienteCampos::enterWalksThroughTheFields()
{
    const QStringList fields{u"txtNome"_s,   u"txtEndereco"_s, u"txtNumero"_s, u"txtComplemento"_s,    u"txtBairro"_s,
                             u"txtCidade"_s, u"cboEstado"_s,   u"txtCEP"_s,    u"txtPontoReferencia"_s};
    cadastro::focus(form_, fields.front());
    for (const QString &name : fields) {
        QCOMPARE(focus(), name);
        support::key(form_, name, Qt::Key_Return);
    }
    QCOMPARE(focus(), u"txtFone1"_s);
}

void TstFrmCadaClienteCampos::theStatesStandInOrder()
{
    QCOMPARE(cadastro::entriesOf(form_, u"cboEstado"_s).join(u' '),
             u"AC AL AM AP BA CE DF ES GO MA MG MS MT PA PB PI PR RJ RN RO RR RS SC SE SP TO"_s);
}

void TstFrmCadaClienteCampos::aPastedTextIsCutToItsColumn_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("masked");
    QTest::newRow("Nome") << u"txtNome"_s << 200 << QString();
    QTest::newRow("Endereco") << u"txtEndereco"_s << 200 << QString();
    QTest::newRow("Complemento") << u"txtComplemento"_s << 30 << QString();
    QTest::newRow("Bairro") << u"txtBairro"_s << 50 << QString();
    QTest::newRow("Cidade") << u"txtCidade"_s << 80 << QString();
    QTest::newRow("CEP") << u"txtCEP"_s << 10 << u"77.777-777"_s;
    QTest::newRow("PontoReferencia") << u"txtPontoReferencia"_s << 120 << QString();
    QTest::newRow("Fone1") << u"txtFone1"_s << 14 << u"(77) 7777-7777"_s;
    QTest::newRow("Fone2") << u"txtFone2"_s << 14 << u"(77) 7777-7777"_s;
    QTest::newRow("Celular") << u"txtCelular"_s << 14 << u"(77) 7777-7777"_s;
    QTest::newRow("RG") << u"txtRG"_s << 15 << QString();
    QTest::newRow("CPF") << u"txtCPF"_s << 20 << QString();
    QTest::newRow("Email") << u"txtEmail"_s << 100 << QString();
    QTest::newRow("Observacoes") << u"txtObservacoes"_s << 200 << QString();
}

void TstFrmCadaClienteCampos::aPastedTextIsCutToItsColumn()
{
    QFETCH(QString, field);
    QFETCH(int, length);
    QGuiApplication::clipboard()->setText(QString(300, u'7'));
    support::key(form_, field, Qt::Key_V, Qt::ControlModifier);
    QFETCH(QString, masked);
    QCOMPARE(text(field), masked.isEmpty() ? QString(length, u'7') : masked);
    QCOMPARE(text(field).size(), length);
}

void TstFrmCadaClienteCampos::aPastedNameIsStoredAsItWasCut()
{
    QGuiApplication::clipboard()->setText(QString(300, u'N'));
    support::key(form_, u"txtNome"_s, Qt::Key_V, Qt::ControlModifier);
    cadastro::fill(form_, {{u"txtEndereco"_s, u"RUA A"_s}, {u"txtNumero"_s, u"1"_s}});
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Nome FROM Clientes"_s), (Rows{{QString(200, u'N')}}));
}

// --- postal code

void TstFrmCadaClienteCampos::withPostalCodes()
{
    core::DBCEP = dao::DBEngine::CreateDatabase(program_->path(u"CEP.MDB"_s), QString());
    core::DBCEP->Execute(u"CREATE TABLE CEPS (CEP varchar(8), Tipo varchar(30), Rua varchar(100), Bairro varchar(60), "
                         "Cidade varchar(60), Estado varchar(2))"_s);
    core::DBCEP->Execute(u"INSERT INTO CEPS (CEP, Tipo, Rua, Bairro, Cidade, Estado) VALUES ('30130010', 'AVENIDA', "
                         "'AFONSO PENA', 'CENTRO', 'BELO HORIZONTE', 'MG')"_s);
    cadastro::fill(form_, {{u"txtEndereco"_s, u"RUA A"_s},
                           {u"txtNumero"_s, u"77"_s},
                           {u"txtBairro"_s, u"GONZAGA"_s},
                           {u"txtCidade"_s, u"SANTOS"_s}});
}

void TstFrmCadaClienteCampos::aPostalCodeFillsTheAddress()
{
    withPostalCodes();
    type(form_, u"txtCEP"_s, u"30130010"_s);
    const Fields wanted{{u"txtCEP"_s, u"30.130-010"_s},
                        {u"txtEndereco"_s, u"AVENIDA AFONSO PENA"_s},
                        {u"txtBairro"_s, u"CENTRO"_s},
                        {u"txtCidade"_s, u"BELO HORIZONTE"_s},
                        {u"cboEstado"_s, u"MG"_s}};
    QTRY_COMPARE(focus(), u"txtNumero"_s);
    QCOMPARE(support::control<QLineEdit>(form_, u"txtNumero"_s)->selectedText(), u"77"_s);
    QCOMPARE(shown(wanted), wanted);
}

void TstFrmCadaClienteCampos::aPostalCodeNeedsAllItsDigits()
{
    withPostalCodes();
    type(form_, u"txtCEP"_s, u"3013001"_s);
    QCOMPARE(text(u"txtCEP"_s), u"30.130-01"_s);
    QCOMPARE(text(u"txtEndereco"_s), u"RUA A"_s);
    QCOMPARE(focus(), u"txtPontoReferencia"_s);
}

void TstFrmCadaClienteCampos::anUnknownPostalCodeChangesNothing()
{
    withPostalCodes();
    type(form_, u"txtCEP"_s, u"11060001"_s);
    const Fields wanted{{u"txtCEP"_s, u"11.060-001"_s},
                        {u"txtEndereco"_s, u"RUA A"_s},
                        {u"txtBairro"_s, u"GONZAGA"_s},
                        {u"txtCidade"_s, u"SANTOS"_s},
                        {u"cboEstado"_s, u"SP"_s}};
    QCOMPARE(shown(wanted), wanted);
    QCOMPARE(focus(), u"txtPontoReferencia"_s);
}

void TstFrmCadaClienteCampos::thePostalLookupCanBeOff()
{
    withPostalCodes();
    program_->config(u"CEP"_s, u"Off"_s);
    type(form_, u"txtCEP"_s, u"30130010"_s);
    QCOMPARE(text(u"txtEndereco"_s), u"RUA A"_s);
    QCOMPARE(text(u"txtCidade"_s), u"SANTOS"_s);
    QCOMPARE(focus(), u"txtPontoReferencia"_s);
}

// --- document

void TstFrmCadaClienteCampos::theDocumentIsChecked_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("message");
    const int person = 0;
    const int company = 1;
    QTest::newRow("person, empty") << person << QString() << QString();
    QTest::newRow("person, valid") << person << u"52998224725"_s << QString();
    QTest::newRow("person, wrong check digit") << person << u"52998224724"_s << u"CPF Inválido"_s;
    QTest::newRow("person, zeros") << person << u"00000000000"_s << u"CPF Inválido"_s;
    QTest::newRow("person, short") << person << u"5299822472"_s << u"É Necessário um CPF com 11 Dígitos"_s;
    QTest::newRow("person, of a company") << person << u"11222333000181"_s << u"É Necessário um CPF com 11 Dígitos"_s;
    QTest::newRow("company, empty") << company << QString() << QString();
    QTest::newRow("company, valid") << company << u"11222333000181"_s << QString();
    QTest::newRow("company, wrong check digit") << company << u"11222333000182"_s << u"CNPJ inválido"_s;
    QTest::newRow("company, zeros") << company << u"00000000000000"_s << u"CNPJ Inválido"_s;
    QTest::newRow("company, short") << company << u"1122233300018"_s << u"É obrigatório o CNPJ com 14 dígitos"_s;
    QTest::newRow("company, of a person") << company << u"52998224725"_s << u"É obrigatório o CNPJ com 14 dígitos"_s;
}

void TstFrmCadaClienteCampos::theDocumentIsChecked()
{
    QFETCH(int, kind);
    QFETCH(QString, document);
    QFETCH(QString, message);
    cadastro::choose(form_, u"cboPessoa"_s, kind);
    if (!message.isEmpty()) {
        boxes_->exclamation(message);
    }
    type(form_, u"txtCPF"_s, document);
    boxes_->finish();
    QCOMPARE(text(u"txtCPF"_s), document);
    QTRY_COMPARE(focus(), u"txtDataNascimento"_s);
}

// --- name

void TstFrmCadaClienteCampos::aKnownNameIsOnlyAWarning()
{
    maria();
    boxes_->exclamation(u"Nome de Cliente Já Cadastrado"_s);
    type(form_, u"txtNome"_s, u"maria"_s);
    boxes_->finish();
    QCOMPARE(text(u"txtNome"_s), u"MARIA"_s);
    QTRY_COMPARE(focus(), u"txtEndereco"_s);

    cadastro::fill(form_, {{u"txtEndereco"_s, u"RUA B"_s}, {u"txtNumero"_s, u"2"_s}});
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Nome FROM Clientes"_s),
             (Rows{{u"1"_s, u"Maria"_s}, {u"2"_s, u"MARIA"_s}}));
}

void TstFrmCadaClienteCampos::theNameOfALoadedRecordIsFoundToo()
{
    maria();
    click(form_, u"btnTodos"_s);
    cadastro::clickRow(form_, 0);
    boxes_->exclamation(u"Nome de Cliente Já Cadastrado"_s);
    support::key(form_, u"txtNome"_s, Qt::Key_Tab);
    boxes_->finish();
    QCOMPARE(shown(mariaShown), mariaShown);
    QTRY_COMPARE(focus(), u"txtEndereco"_s);
}

void TstFrmCadaClienteCampos::aNewNameIsNoWarning()
{
    maria();
    type(form_, u"txtNome"_s, u"MARIA LIMA"_s);
    QCOMPARE(focus(), u"txtEndereco"_s);
}

void TstFrmCadaClienteCampos::anEmptyNameIsNoWarning()
{
    maria();
    program_->sql(u"INSERT INTO Clientes (Endereco) VALUES ('RUA SEM NOME')"_s);
    support::key(form_, u"txtNome"_s, Qt::Key_Tab);
    QCOMPARE(focus(), u"txtEndereco"_s);
}

void TstFrmCadaClienteCampos::anApostropheInTheNameIsARunTimeError()
{
    boxes_->critical(cadastro::errorBox(u"SELECT Codigo FROM Clientes WHERE Nome = 'JOANA D'ARC'"_s));
    type(form_, u"txtNome"_s, u"JOANA D'ARC"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(stored(), Rows());
}

TARVELO_TEST_MAIN(TstFrmCadaClienteCampos)
#include "tst_frmCadaCliente_campos.moc"
