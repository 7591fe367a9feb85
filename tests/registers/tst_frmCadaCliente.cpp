#include "registers/registers.h"
#include "tests/registers/clientes.h"

#include "platform/ui/application.h"

using namespace clientes;
using support::click;
using support::control;
using support::type;

/// Including, altering, deleting and clearing.
class TstFrmCadaCliente : public QObject, private clientes::Case
{
    Q_OBJECT

private slots:
    void initTestCase() { registers::registerForms(); }
    void init()
    {
        begin();
        open();
    }
    void cleanup() { end(); }

    void includeRefusesTheFirstBadField_data() { badFields(); }
    void includeRefusesTheFirstBadField();
    void anEmptyNumberIsRefusedAndZeroIsTaken();
    void includeWritesNothingOnNo();
    void anEmptyLimitIsFilledBeforeTheQuestion();
    void anEmptyLimitIsStoredAsZero();
    void includeWritesEveryColumn();
    void whatStaysEmptyIsNull();
    void includeListsAllAndClears();
    void includeCopiesTheRecordShown();
    void anInvalidDocumentIsStoredAfterItsWarning();
    void aCodeIsNeverGivenTwice();
    void aHouseNumberTooLargeIsARunTimeError();

    void alterRefusesTheFirstBadField_data() { badFields(); }
    void alterRefusesTheFirstBadField();
    void nothingShownIsRefused_data();
    void nothingShownIsRefused();
    void alterFindsNoRowBeforeItChecks();
    void alterWritesNothingOnNo();
    void alterRewritesAllButCodeAndDate();
    void alterStripsTheDocument_data();
    void alterStripsTheDocument();
    void alterWritesNullForWhatWasEmptied();
    void alterLeavesTheOtherCustomers();
    void alterListsAllAndClears();
    void anAlteredHouseNumberTooLargeIsARunTimeError();

    void deleteAsksAndObeysNo();
    void deleteKeepsTheFieldsAndListsAll();
    void aSecondDeleteDoesNothing();
    void aDeletedRecordCannotBeAltered();
    void deleteLeavesVehiclesAndOrders();

    void clearEmptiesFieldsAndLabels();
    void clearKeepsChoicesAndList();

private:
    static void badFields();
    void refuses(const QString &button, const QString &question);
    void loadMaria();
};

void TstFrmCadaCliente::loadMaria()
{
    maria();
    click(form_, u"btnTodos"_s);
    cadastro::clickRow(form_, 0);
    QCOMPARE(shown(mariaShown), mariaShown);
}

// --- including

/// In each row the field named and all those that are checked behind it are bad.
void TstFrmCadaCliente::badFields()
{
    QTest::addColumn<Fields>("bad");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("field");

    const QStringList messages{u"Limite de Crédito Inválido"_s, u"Número do Endereço Inválido"_s,
                               u"Endereço Inválido"_s, u"Data de Nascimento Inválida"_s, u"Nome Inválido"_s};
    const Fields values{{u"txtLimite"_s, u"1,2,3"_s},
                        {u"txtNumero"_s, u"1,2,3"_s},
                        {u"txtEndereco"_s, QString()},
                        {u"txtDataNascimento"_s, u"31022024"_s},
                        {u"txtNome"_s, QString()}};
    Fields bad;
    for (qsizetype i = 0; i < values.size(); ++i) {
        bad.prepend(values[i]);
        QTest::addRow("%s", qPrintable(values[i].first)) << bad << messages[i] << values[i].first;
    }
}

void TstFrmCadaCliente::refuses(const QString &button, const QString &question)
{
    QFETCH(Fields, bad);
    QFETCH(QString, message);
    QFETCH(QString, field);
    const Rows before = stored();
    cadastro::fill(form_, bad);
    boxes_->exclamation(message);
    click(form_, button);

    QTRY_COMPARE(focus(), field);
    QCOMPARE(control<QLineEdit>(form_, field)->selectedText(), text(field));
    QCOMPARE(stored(), before);

    // With the rest in order it is this field that stood in the way.
    boxes_->finish();
    for (const auto &[name, value] : bad) {
        type(form_, name, {});
    }
    type(form_, u"txtNome"_s, u"ROSA"_s);
    type(form_, u"txtEndereco"_s, u"RUA C"_s);
    type(form_, u"txtNumero"_s, u"5"_s);
    boxes_->question(question, true);
    click(form_, button);
    boxes_->finish();
}

void TstFrmCadaCliente::includeRefusesTheFirstBadField()
{
    cadastro::fill(form_, typed);
    refuses(u"btnIncluir"_s, askInclude);
    QCOMPARE(stored().size(), 1U);
}

void TstFrmCadaCliente::anEmptyNumberIsRefusedAndZeroIsTaken()
{
    cadastro::fill(form_, cadastro::with(typed, u"txtNumero"_s, QString()));
    boxes_->exclamation(u"Número do Endereço Inválido"_s);
    click(form_, u"btnIncluir"_s);
    QTRY_COMPARE(focus(), u"txtNumero"_s);
    QCOMPARE(stored(), Rows());

    type(form_, u"txtNumero"_s, u"0"_s);
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Numero FROM Clientes"_s), (Rows{{u"0"_s}}));
}

void TstFrmCadaCliente::includeWritesNothingOnNo()
{
    cadastro::fill(form_, typed);
    const Fields before = shown(mariaShown);
    boxes_->question(askInclude, false);
    click(form_, u"btnIncluir"_s);

    QCOMPARE(stored(), Rows());
    QCOMPARE(shown(mariaShown), before);
    QCOMPARE(codes(), QStringList());
}

void TstFrmCadaCliente::anEmptyLimitIsFilledBeforeTheQuestion()
{
    cadastro::fill(form_, cadastro::with(typed, u"txtLimite"_s, QString()));
    QCOMPARE(text(u"txtLimite"_s), QString());
    boxes_->question(askInclude, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(text(u"txtLimite"_s), u"0,00"_s);
}

void TstFrmCadaCliente::anEmptyLimitIsStoredAsZero()
{
    cadastro::fill(form_, cadastro::with(typed, u"txtLimite"_s, QString()));
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->value(u"SELECT LimiteCredito FROM Clientes"_s), runtime::Value(0.0F));
}

void TstFrmCadaCliente::includeWritesEveryColumn()
{
    cadastro::fill(form_, typed);
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(stored(), Rows{written});
    QCOMPARE(program_->value(u"SELECT LimiteCredito FROM Clientes"_s), runtime::Value(1234.5F));
    QCOMPARE(program_->value(u"SELECT Numero FROM Clientes"_s), runtime::Value(qint16{120}));
}

void TstFrmCadaCliente::whatStaysEmptyIsNull()
{
    cadastro::fill(form_, {{u"txtNome"_s, u"ANA"_s}, {u"txtEndereco"_s, u"RUA C"_s}, {u"txtNumero"_s, u"5"_s}});
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);
    const QStringList row{u"1"_s,   u"15/05/2024 00:00:00"_s,
                          u"ANA"_s, u"RUA C"_s,
                          u"5"_s,   null,
                          null,     null,
                          u"SP"_s,  null,
                          null,     null,
                          null,     null,
                          null,     null,
                          null,     null,
                          u"0"_s,   null};
    QCOMPARE(stored(), Rows{row});
}

void TstFrmCadaCliente::includeListsAllAndClears()
{
    maria();
    program_->customer(u"ANA"_s);
    cadastro::choose(form_, u"cboPessoa"_s, 1);
    cadastro::fill(form_, cadastro::with(typed, u"txtCPF"_s, QString()));
    cadastro::fill(form_, {{u"txtTexto"_s, u"ANA"_s}});
    click(form_, u"btnPesquisar"_s);
    QCOMPARE(codes(), QStringList{u"0002"_s});
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);

    QCOMPARE(cadastro::columnOf(form_, 1), (QStringList{u"ANA"_s, u"JOANA"_s, u"Maria"_s}));
    for (const auto &[name, value] : typed) {
        QCOMPARE(text(name), name == u"cboEstado" ? u"SP"_s : QString());
    }
    QCOMPARE(text(u"txtTexto"_s), QString());
    QCOMPARE(text(u"cboPessoa"_s), u"Jurídica"_s);
    QCOMPARE(focus(), u"txtNome"_s);
    QVERIFY(form_->isVisible());
}

void TstFrmCadaCliente::includeCopiesTheRecordShown()
{
    loadMaria();
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);

    QStringList copy = mariaStored;
    copy[0] = u"2"_s;
    copy[1] = u"15/05/2024 00:00:00"_s;
    copy[15] = u"529.982.247-25"_s;
    QCOMPARE(stored(), (Rows{mariaStored, copy}));

    // With its punctuation the document is longer than a person's.
    cadastro::clickRow(form_, int(codes().indexOf(u"0002"_s)));
    QCOMPARE(text(u"cboPessoa"_s), u"Jurídica"_s);
    QCOMPARE(text(u"txtCPF"_s), u"529.982.247-25"_s);
}

void TstFrmCadaCliente::anInvalidDocumentIsStoredAfterItsWarning()
{
    boxes_->exclamation(u"CPF Inválido"_s).question(askInclude, true);
    cadastro::fill(form_, cadastro::with(typed, u"txtCPF"_s, u"52998224724"_s));
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT CPF FROM Clientes"_s), (Rows{{u"52998224724"_s}}));
}

void TstFrmCadaCliente::aCodeIsNeverGivenTwice()
{
    loadMaria();
    program_->sql(u"DELETE * FROM Clientes"_s);
    boxes_->question(askInclude, true);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Clientes"_s), (Rows{{u"2"_s}}));
}

void TstFrmCadaCliente::aHouseNumberTooLargeIsARunTimeError()
{
    cadastro::fill(form_, cadastro::with(typed, u"txtNumero"_s, u"40000"_s));
    boxes_->question(askInclude, true).critical(cadastro::errorBox(3421, runtime::errorText(3421)));
    click(form_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(stored(), Rows());
}

// --- altering

void TstFrmCadaCliente::alterRefusesTheFirstBadField()
{
    loadMaria();
    refuses(u"btnAlterar"_s, askAlter);
    QCOMPARE(program_->rows(u"SELECT Codigo, Nome, Endereco, Numero FROM Clientes"_s),
             (Rows{{u"1"_s, u"ROSA"_s, u"RUA C"_s, u"5"_s}}));
}

void TstFrmCadaCliente::nothingShownIsRefused_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("alter") << u"btnAlterar"_s;
    QTest::newRow("delete") << u"btnExcluir"_s;
}

void TstFrmCadaCliente::nothingShownIsRefused()
{
    QFETCH(QString, button);
    maria();
    click(form_, u"btnTodos"_s);
    boxes_->exclamation(u"Código Inválido"_s);
    click(form_, button);
    QTRY_COMPARE(focus(), u"Lista"_s);
    QCOMPARE(stored(), Rows{mariaStored});
}

void TstFrmCadaCliente::alterFindsNoRowBeforeItChecks()
{
    loadMaria();
    program_->sql(u"DELETE * FROM Clientes"_s);
    type(form_, u"txtNome"_s, {});
    boxes_->exclamation(u"Código não localizado"_s);
    click(form_, u"btnAlterar"_s);
    boxes_->finish();
    QCOMPARE(stored(), Rows());
    QCOMPARE(codes(), QStringList{u"0001"_s});
}

void TstFrmCadaCliente::alterWritesNothingOnNo()
{
    loadMaria();
    type(form_, u"txtEndereco"_s, u"RUA NOVA"_s);
    boxes_->question(askAlter, false);
    click(form_, u"btnAlterar"_s);
    QCOMPARE(stored(), Rows{mariaStored});
    QCOMPARE(text(u"txtEndereco"_s), u"RUA NOVA"_s);
    QCOMPARE(text(u"lblCodigo"_s), u"0001"_s);
}

void TstFrmCadaCliente::alterRewritesAllButCodeAndDate()
{
    loadMaria();
    cadastro::fill(form_, typed);
    boxes_->question(askAlter, true);
    click(form_, u"btnAlterar"_s);

    QStringList row = written;
    row[1] = mariaStored[1];
    QCOMPARE(stored(), Rows{row});
}

void TstFrmCadaCliente::alterStripsTheDocument_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("person, punctuated") << u"529.982.247-25"_s << u"52998224725"_s;
    QTest::newRow("company") << u"11222333000181"_s << u"11222333000181"_s;
    QTest::newRow("company, punctuated") << u"11.222.333/0001-81"_s << u"11222333000181"_s;
}

void TstFrmCadaCliente::alterStripsTheDocument()
{
    QFETCH(QString, before);
    maria();
    program_->sql(u"UPDATE Clientes SET CPF = '%1'"_s.arg(before));
    click(form_, u"btnTodos"_s);
    cadastro::clickRow(form_, 0);
    boxes_->question(askAlter, true);
    click(form_, u"btnAlterar"_s);
    QTEST(program_->rows(u"SELECT CPF FROM Clientes"_s).front().front(), "after");
}

void TstFrmCadaCliente::alterWritesNullForWhatWasEmptied()
{
    loadMaria();
    for (const auto &[name, value] : typed) {
        if (!QStringList{u"txtNome"_s, u"txtEndereco"_s, u"txtNumero"_s, u"cboEstado"_s}.contains(name)) {
            type(form_, name, {});
        }
    }
    boxes_->question(askAlter, true);
    click(form_, u"btnAlterar"_s);
    const QStringList row{u"1"_s, mariaStored[1], u"Maria"_s, u"Rua A"_s, u"77"_s, null, null, null, u"MG"_s, null,
                          null,   null,           null,       null,       null,    null, null, null, u"0"_s,  null};
    QCOMPARE(stored(), Rows{row});
}

void TstFrmCadaCliente::alterLeavesTheOtherCustomers()
{
    loadMaria();
    program_->customer(u"ANA"_s, u"10,00"_s);
    const QStringList other = stored().back();
    type(form_, u"txtEndereco"_s, u"RUA NOVA"_s);
    boxes_->question(askAlter, true);
    click(form_, u"btnAlterar"_s);
    QStringList row = mariaStored;
    row[3] = u"RUA NOVA"_s;
    QCOMPARE(stored(), (Rows{row, other}));
}

void TstFrmCadaCliente::alterListsAllAndClears()
{
    loadMaria();
    program_->customer(u"ANA"_s);
    type(form_, u"txtEndereco"_s, u"RUA NOVA"_s);
    boxes_->question(askAlter, true);
    click(form_, u"btnAlterar"_s);

    QCOMPARE(cadastro::columnOf(form_, 1), (QStringList{u"ANA"_s, u"Maria"_s}));
    QCOMPARE(cadastro::columnOf(form_, 2), (QStringList{QString(), u"RUA NOVA"_s}));
    QCOMPARE(text(u"lblCodigo"_s), QString());
    QCOMPARE(text(u"lblDataCadastro"_s), QString());
    QCOMPARE(text(u"txtNome"_s), QString());
    QCOMPARE(text(u"cboEstado"_s), u"SP"_s);
    QCOMPARE(focus(), u"txtNome"_s);
}

void TstFrmCadaCliente::anAlteredHouseNumberTooLargeIsARunTimeError()
{
    loadMaria();
    type(form_, u"txtEndereco"_s, u"RUA NOVA"_s);
    type(form_, u"txtNumero"_s, u"40000"_s);
    boxes_->question(askAlter, true).critical(cadastro::errorBox(3421, runtime::errorText(3421)));
    click(form_, u"btnAlterar"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(stored(), Rows{mariaStored});
}

// --- deleting

void TstFrmCadaCliente::deleteAsksAndObeysNo()
{
    loadMaria();
    boxes_->question(askDelete, false);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(stored(), Rows{mariaStored});
    QCOMPARE(codes(), QStringList{u"0001"_s});
}

void TstFrmCadaCliente::deleteKeepsTheFieldsAndListsAll()
{
    loadMaria();
    program_->customer(u"ANA"_s);
    program_->customer(u"BIA"_s);
    boxes_->question(askDelete, true);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo, Nome FROM Clientes"_s), (Rows{{u"2"_s, u"ANA"_s}, {u"3"_s, u"BIA"_s}}));
    QCOMPARE(codes(), (QStringList{u"0002"_s, u"0003"_s}));
    QCOMPARE(shown(mariaShown), mariaShown);
}

void TstFrmCadaCliente::aSecondDeleteDoesNothing()
{
    loadMaria();
    program_->customer(u"ANA"_s);
    boxes_->question(askDelete, true).question(askDelete, true);
    click(form_, u"btnExcluir"_s);
    click(form_, u"btnExcluir"_s);
    boxes_->finish();
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Clientes"_s), (Rows{{u"2"_s}}));
    QCOMPARE(shown(mariaShown), mariaShown);
}

void TstFrmCadaCliente::aDeletedRecordCannotBeAltered()
{
    loadMaria();
    boxes_->question(askDelete, true).exclamation(u"Código não localizado"_s);
    click(form_, u"btnExcluir"_s);
    click(form_, u"btnAlterar"_s);
    boxes_->finish();
    QCOMPARE(stored(), Rows());
    QCOMPARE(shown(mariaShown), mariaShown);
}

void TstFrmCadaCliente::deleteLeavesVehiclesAndOrders()
{
    loadMaria();
    const qint32 vehicle = program_->vehicle(1, u"ABC1D23"_s);
    program_->sql(u"INSERT INTO OrdemServico (CodCliente, CodVeiculo) VALUES (1, %1)"_s.arg(vehicle));
    program_->sql(u"INSERT INTO Fiados (CodCliente) VALUES (1)"_s);
    program_->sql(u"INSERT INTO ContaFiado (CodCliente) VALUES (1)"_s);
    program_->sql(u"INSERT INTO Orcamento (CodCliente) VALUES (1)"_s);
    boxes_->question(askDelete, true);
    click(form_, u"btnExcluir"_s);

    QCOMPARE(stored(), Rows());
    for (const auto &table : {u"Veiculos"_s, u"OrdemServico"_s, u"Fiados"_s, u"ContaFiado"_s, u"Orcamento"_s}) {
        QCOMPARE(program_->rows(u"SELECT CodCliente FROM "_s + table), (Rows{{u"1"_s}}));
    }
}

// --- clearing

void TstFrmCadaCliente::clearEmptiesFieldsAndLabels()
{
    loadMaria();
    type(form_, u"txtTexto"_s, u"MARIA"_s);
    click(form_, u"btnCancelar"_s);
    for (const auto &[name, value] : mariaShown) {
        if (!name.startsWith(u"cbo")) {
            QCOMPARE(text(name), QString());
        }
    }
    QCOMPARE(text(u"txtTexto"_s), QString());
    QCOMPARE(control<QComboBox>(form_, u"cboEstado"_s)->currentIndex(), 24);
    QCOMPARE(text(u"cboEstado"_s), u"SP"_s);
    QCOMPARE(focus(), u"txtNome"_s);
    QCOMPARE(stored(), Rows{mariaStored});
}

void TstFrmCadaCliente::clearKeepsChoicesAndList()
{
    loadMaria();
    cadastro::choose(form_, u"cboPessoa"_s, 1);
    cadastro::choose(form_, u"cboPesquisa"_s, 5);
    const Rows rows = cadastro::rowsOf(form_);
    click(form_, u"btnCancelar"_s);

    QCOMPARE(person(), 1);
    QCOMPARE(text(u"cboPesquisa"_s), u"Cidade"_s);
    QCOMPARE(cadastro::rowsOf(form_), rows);
    for (const auto *caption : form_->findChildren<QLabel *>()) {
        QVERIFY2(!caption->objectName().startsWith(u"Rotulos") || !caption->text().isEmpty(),
                 qPrintable(caption->objectName()));
    }
}

TARVELO_TEST_MAIN(TstFrmCadaCliente)
#include "tst_frmCadaCliente.moc"
