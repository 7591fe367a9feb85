#include "registers/registers.h"
#include "tests/registers/clientes.h"

using namespace clientes;
using support::click;
using support::control;
using support::type;

/// Searching, listing, finding in the list, sorting, and loading a record.
class TstFrmCadaClienteProcura : public QObject, private clientes::Case
{
    Q_OBJECT

private slots:
    void initTestCase() { registers::registerForms(); }
    void init();
    void cleanup() { end(); }

    void theListHasItsColumns();
    void aRowShowsItsColumns();
    void numbersStandToTheRight();

    void theSearchEntriesStandInOrder();
    void searchesTheColumnOfTheEntry_data();
    void searchesTheColumnOfTheEntry();
    void theEntriesAreShifted_data();
    void theEntriesAreShifted();
    void aCodeIsFoundExactly();
    void aTextIsFoundAnywhereWhateverItsCase();
    void wildcardsOfTheTextAct();
    void resultsAreOrderedByName();
    void anEmptySearchEmptiesTheListInSilence();
    void aSearchWithoutResultSaysNothing();
    void aSearchThatFailsIsRefused_data();
    void aSearchThatFailsIsRefused();
    void searchKeepsTheFields();

    void listAllOrdersByNameAndKeepsTheFields();

    void findTakesTheFirstNameThatBegins();
    void findScrollsToTheRow();
    void findLooksInTheListAndByNameOnly();
    void findLoadsWithoutPersonAndPunctuation();
    void findWithoutMatchLoadsTheSelectedRow();
    void findWithEmptyTextOnlyMovesTheFocus();
    void findInAnEmptyListDoesNothing();

    void aClickLoadsEveryField();
    void theKeyboardLoadsToo();
    void columnsWithoutAValueAreEmpty();
    void thePersonIsDerivedFromTheDocument_data();
    void thePersonIsDerivedFromTheDocument();
    void aRowThatIsGoneChangesNothing();
    void aLoadReplacesTheWholeRecordBefore();

    void headersSortAndReverse();
    void numbersSortAsText();
    void aSortedRowLoadsItsOwnRecord();

private:
    QStringList names() const { return cadastro::columnOf(form_, 1); }
};

void TstFrmCadaClienteProcura::init()
{
    begin();
    program_->config(u"PreencheCadastroAutomatico"_s, u"N"_s);
    open();
}

// --- the list

void TstFrmCadaClienteProcura::theListHasItsColumns()
{
    cadastro::compareColumns(form_, {{u"Código"_s, 1000},
                                     {u"Nome Cliente"_s, 3700},
                                     {u"Endereço"_s, 2000},
                                     {u"Número"_s, 1000},
                                     {u"Bairro"_s, 1500},
                                     {u"Cidade"_s, 1500},
                                     {u"Fone 1"_s, 2000},
                                     {u"Fone 2"_s, 2000},
                                     {u"Celular"_s, 2000},
                                     {u"CPF"_s, 1800},
                                     {u"E-mail"_s, 3500}});
}

void TstFrmCadaClienteProcura::aRowShowsItsColumns()
{
    maria();
    program_->customer(u"NOVA"_s);
    click(form_, u"btnTodos"_s);
    const QStringList bare{u"0002"_s, u"NOVA"_s, {}, {}, {}, {}, {}, {}, {}, {}, {}};
    QCOMPARE(cadastro::rowsOf(form_), (Rows{mariaListed, bare}));
}

void TstFrmCadaClienteProcura::numbersStandToTheRight()
{
    maria();
    click(form_, u"btnTodos"_s);
    const auto *model = cadastro::list(form_)->model();
    QTRY_COMPARE(model->rowCount(), 1);
    const auto alignment = [model](int column) {
        return Qt::Alignment(model->index(0, column).data(Qt::TextAlignmentRole).toInt());
    };
    const int name = 1;
    const int number = 3;
    QVERIFY(alignment(number).testFlag(Qt::AlignRight));
    QVERIFY(!alignment(name).testFlag(Qt::AlignRight));
}

// --- searching

void TstFrmCadaClienteProcura::theSearchEntriesStandInOrder()
{
    QCOMPARE(cadastro::entriesOf(form_, u"cboPesquisa"_s),
             (QStringList{u"Código"_s, u"Data Cadastro"_s, u"Nome"_s, u"Endereço"_s, u"Bairro"_s, u"Cidade"_s,
                          u"Estado"_s, u"CEP"_s, u"Fone1"_s, u"Fone2"_s, u"Celular"_s, u"CPF/CNPJ"_s, u"E-mail"_s}));
}

/// The second of three bare customers has the value in the one column: it is the only one that can be found.
void TstFrmCadaClienteProcura::searchesTheColumnOfTheEntry_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("Data Cadastro") << 1 << u"DataCadastro"_s << u"#03/02/2024#"_s << u"02/03/2024"_s;
    QTest::newRow("Nome") << 2 << u"Nome"_s << u"'ZULMIRA'"_s << u"LMI"_s;
    QTest::newRow("Endereço") << 3 << u"Endereco"_s << u"'RUA DAS FLORES'"_s << u"FLOR"_s;
    QTest::newRow("Bairro") << 4 << u"Bairro"_s << u"'GONZAGA'"_s << u"ZAGA"_s;
    QTest::newRow("Cidade") << 5 << u"Cidade"_s << u"'SANTOS'"_s << u"SAN"_s;
    QTest::newRow("Estado") << 6 << u"Estado"_s << u"'RJ'"_s << u"RJ"_s;
    QTest::newRow("CEP") << 7 << u"CEP"_s << u"'11.060-001'"_s << u"60-0"_s;
    QTest::newRow("Fone1") << 8 << u"Fone1"_s << u"'(13) 3284-1111'"_s << u"(13) 3284"_s;
    QTest::newRow("Fone2") << 9 << u"Fone2"_s << u"'(13) 3284-1111'"_s << u"4-11"_s;
    QTest::newRow("Celular") << 10 << u"Celular"_s << u"'(13) 9777-3333'"_s << u"9777-3333"_s;
    QTest::newRow("CPF/CNPJ looks in RG") << 11 << u"RG"_s << u"'9876543'"_s << u"8765"_s;
    QTest::newRow("E-mail looks in CPF") << 12 << u"CPF"_s << u"'52998224725'"_s << u"9982"_s;
}

void TstFrmCadaClienteProcura::searchesTheColumnOfTheEntry()
{
    QFETCH(int, entry);
    QFETCH(QString, column);
    QFETCH(QString, value);
    QFETCH(QString, text);
    for (const auto &name : {u"ANA"_s, u"BIA"_s, u"CAIO"_s}) {
        program_->customer(name);
    }
    program_->sql(u"UPDATE Clientes SET %1 = %2 WHERE Codigo = 2"_s.arg(column, value));
    search(entry, text);
    QCOMPARE(codes(), QStringList{u"0002"_s});
}

void TstFrmCadaClienteProcura::theEntriesAreShifted_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("text");
    QTest::newRow("CPF/CNPJ does not look in CPF") << 11 << u"52998224725"_s;
    QTest::newRow("E-mail does not look in Email") << 12 << u"MARIA@OFICINA"_s;
    QTest::newRow("E-mail does not look in RG") << 12 << u"9876543"_s;
}

void TstFrmCadaClienteProcura::theEntriesAreShifted()
{
    QFETCH(int, entry);
    QFETCH(QString, text);
    maria();
    search(entry, text);
    QCOMPARE(codes(), QStringList());
}

void TstFrmCadaClienteProcura::aCodeIsFoundExactly()
{
    for (int number = 1; number <= 12; ++number) {
        program_->customer(u"CLIENTE %1"_s.arg(number));
    }
    search(0, u"1"_s);
    QCOMPARE(codes(), QStringList{u"0001"_s});
    search(0, u"12"_s);
    QCOMPARE(codes(), QStringList{u"0012"_s});
    search(0, u"99"_s);
    QCOMPARE(codes(), QStringList());
}

void TstFrmCadaClienteProcura::aTextIsFoundAnywhereWhateverItsCase()
{
    maria();
    program_->customer(u"ANA"_s);
    search(2, u"ari"_s);
    QCOMPARE(names(), QStringList{u"Maria"_s});
}

void TstFrmCadaClienteProcura::wildcardsOfTheTextAct()
{
    for (const auto &name : {u"ANA"_s, u"AMA"_s, u"ANITA"_s}) {
        program_->customer(name);
    }
    search(2, u"A?A"_s);
    QCOMPARE(names(), (QStringList{u"AMA"_s, u"ANA"_s}));
    search(2, u"N*A"_s);
    QCOMPARE(names(), (QStringList{u"ANA"_s, u"ANITA"_s}));
}

void TstFrmCadaClienteProcura::resultsAreOrderedByName()
{
    for (const auto &name : {u"ZECA SILVA"_s, u"ANA SILVA"_s, u"OUTRO"_s, u"MARIA SILVA"_s}) {
        program_->customer(name);
    }
    search(2, u"SILVA"_s);
    QCOMPARE(names(), (QStringList{u"ANA SILVA"_s, u"MARIA SILVA"_s, u"ZECA SILVA"_s}));
}

void TstFrmCadaClienteProcura::anEmptySearchEmptiesTheListInSilence()
{
    maria();
    click(form_, u"btnTodos"_s);
    QCOMPARE(codes(), QStringList{u"0001"_s});
    click(form_, u"btnPesquisar"_s);
    QCOMPARE(codes(), QStringList());
}

void TstFrmCadaClienteProcura::aSearchWithoutResultSaysNothing()
{
    maria();
    click(form_, u"btnTodos"_s);
    search(2, u"XYZ"_s);
    QCOMPARE(codes(), QStringList());
    QCOMPARE(text(u"txtTexto"_s), u"XYZ"_s);
}

void TstFrmCadaClienteProcura::aSearchThatFailsIsRefused_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("text");
    QTest::newRow("letters as a code") << 0 << u"ABC"_s;
    QTest::newRow("two numbers as a code") << 0 << u"1 2"_s;
    QTest::newRow("letters as a date") << 1 << u"ABC"_s;
    QTest::newRow("an apostrophe in a name") << 2 << u"JOANA D'ARC"_s;
    QTest::newRow("an apostrophe in an address") << 3 << u"D'OESTE"_s;
}

void TstFrmCadaClienteProcura::aSearchThatFailsIsRefused()
{
    QFETCH(int, entry);
    QFETCH(QString, text);
    maria();
    click(form_, u"btnTodos"_s);
    boxes_->exclamation(u"Tipo de Dados Inválido para Pesquisa"_s);
    search(entry, text);
    QTRY_COMPARE(focus(), u"txtTexto"_s);
    QCOMPARE(control<QLineEdit>(form_, u"txtTexto"_s)->selectedText(), text);
    QCOMPARE(codes(), QStringList());

    // The trap is off again: the window goes on.
    boxes_->finish();
    search(2, u"MARIA"_s);
    QCOMPARE(codes(), QStringList{u"0001"_s});
}

void TstFrmCadaClienteProcura::searchKeepsTheFields()
{
    maria();
    click(form_, u"btnTodos"_s);
    cadastro::clickRow(form_, 0);
    search(2, u"XYZ"_s);
    QCOMPARE(shown(mariaShown), mariaShown);
}

void TstFrmCadaClienteProcura::listAllOrdersByNameAndKeepsTheFields()
{
    for (const auto &name : {u"ZECA"_s, u"ÁLVARO"_s, u"bia"_s, u"ANA"_s}) {
        program_->customer(name);
    }
    type(form_, u"txtEndereco"_s, u"RUA X"_s);
    type(form_, u"txtTexto"_s, u"ZECA"_s);
    click(form_, u"btnTodos"_s);
    QCOMPARE(names(), (QStringList{u"ÁLVARO"_s, u"ANA"_s, u"bia"_s, u"ZECA"_s}));
    click(form_, u"btnTodos"_s);
    QCOMPARE(codes(), (QStringList{u"0002"_s, u"0004"_s, u"0003"_s, u"0001"_s}));
    QCOMPARE(text(u"txtEndereco"_s), u"RUA X"_s);
    QCOMPARE(text(u"txtTexto"_s), u"ZECA"_s);
}

// --- finding in the list

void TstFrmCadaClienteProcura::findTakesTheFirstNameThatBegins()
{
    for (const auto &name : {u"ANAMARIA"_s, u"Maria Lima"_s, u"MARIA SOUZA"_s}) {
        program_->customer(name);
    }
    click(form_, u"btnTodos"_s);
    locate(u"mari"_s);
    QCOMPARE(cadastro::list(form_)->selectedRow(), 1);
    QCOMPARE(text(u"txtNome"_s), u"Maria Lima"_s);
    QCOMPARE(text(u"lblCodigo"_s), u"0002"_s);
}

void TstFrmCadaClienteProcura::findScrollsToTheRow()
{
    for (int number = 100; number < 200; ++number) {
        program_->customer(u"CLIENTE %1"_s.arg(number));
    }
    click(form_, u"btnTodos"_s);
    auto *list = cadastro::list(form_);
    const auto place = [list] { return list->visualRect(list->model()->index(99, 0)); };
    QTRY_VERIFY(list->model()->rowCount() == 100);
    QVERIFY(!list->viewport()->rect().contains(place().center()));
    locate(u"CLIENTE 199"_s);
    QCOMPARE(list->selectedRow(), 99);
    QVERIFY(list->viewport()->rect().contains(QPoint(1, place().center().y())));
    QCOMPARE(text(u"lblCodigo"_s), u"0100"_s);
}

void TstFrmCadaClienteProcura::findLooksInTheListAndByNameOnly()
{
    program_->customer(u"ANA"_s);
    program_->customer(u"BIA"_s);
    click(form_, u"btnTodos"_s);
    program_->sql(u"UPDATE Clientes SET Cidade = 'SANTOS' WHERE Codigo = 2"_s);
    program_->customer(u"CAIO"_s);
    cadastro::clickRow(form_, 0);
    cadastro::choose(form_, u"cboPesquisa"_s, 5);

    locate(u"BIA"_s);
    QCOMPARE(text(u"lblCodigo"_s), u"0002"_s);
    QCOMPARE(text(u"txtCidade"_s), u"SANTOS"_s);
    locate(u"SANTOS"_s);
    QCOMPARE(text(u"lblCodigo"_s), u"0002"_s);
    locate(u"CAIO"_s);
    QCOMPARE(text(u"lblCodigo"_s), u"0002"_s);
    QCOMPARE(codes(), (QStringList{u"0001"_s, u"0002"_s}));
}

void TstFrmCadaClienteProcura::findLoadsWithoutPersonAndPunctuation()
{
    maria();
    click(form_, u"btnTodos"_s);
    cadastro::choose(form_, u"cboPessoa"_s, 1);
    locate(u"MARIA"_s);
    auto wanted = cadastro::with(mariaShown, u"cboPessoa"_s, u"Jurídica"_s);
    wanted = cadastro::with(wanted, u"txtCPF"_s, u"52998224725"_s);
    QCOMPARE(shown(mariaShown), wanted);
}

void TstFrmCadaClienteProcura::findWithoutMatchLoadsTheSelectedRow()
{
    maria();
    program_->customer(u"ZECA"_s);
    click(form_, u"btnTodos"_s);
    cadastro::clickRow(form_, 0);
    click(form_, u"btnCancelar"_s);
    QCOMPARE(text(u"lblCodigo"_s), QString());
    locate(u"NINGUÉM"_s);
    QCOMPARE(cadastro::list(form_)->selectedRow(), 0);
    QCOMPARE(text(u"lblCodigo"_s), u"0001"_s);
    QCOMPARE(text(u"txtNome"_s), u"Maria"_s);
}

void TstFrmCadaClienteProcura::findWithEmptyTextOnlyMovesTheFocus()
{
    maria();
    click(form_, u"btnTodos"_s);
    cadastro::clickRow(form_, 0);
    click(form_, u"btnCancelar"_s);
    click(form_, u"btnLocalizar"_s);
    QCOMPARE(focus(), u"Lista"_s);
    QCOMPARE(cadastro::list(form_)->selectedRow(), 0);
    QCOMPARE(text(u"lblCodigo"_s), QString());
    QCOMPARE(text(u"txtNome"_s), QString());
}

void TstFrmCadaClienteProcura::findInAnEmptyListDoesNothing()
{
    maria();
    locate(u"MARIA"_s);
    QCOMPARE(codes(), QStringList());
    QCOMPARE(text(u"lblCodigo"_s), QString());
    QCOMPARE(text(u"txtNome"_s), QString());
}

// --- loading

void TstFrmCadaClienteProcura::aClickLoadsEveryField()
{
    program_->customer(u"ANA"_s);
    program_->sql(u"DELETE * FROM Clientes"_s);
    maria();
    click(form_, u"btnTodos"_s);
    cadastro::choose(form_, u"cboPessoa"_s, 1);
    cadastro::clickRow(form_, 0);
    const auto wanted = cadastro::with(mariaShown, u"lblCodigo"_s, u"0002"_s);
    QCOMPARE(shown(mariaShown), wanted);
    QCOMPARE(person(), 0);
}

void TstFrmCadaClienteProcura::theKeyboardLoadsToo()
{
    program_->customer(u"ANA"_s);
    program_->customer(u"BIA"_s);
    click(form_, u"btnTodos"_s);
    cadastro::clickRow(form_, 0);
    support::key(form_, u"Lista"_s, Qt::Key_Down);
    QCOMPARE(text(u"lblCodigo"_s), u"0002"_s);
    QCOMPARE(text(u"txtNome"_s), u"BIA"_s);
}

void TstFrmCadaClienteProcura::columnsWithoutAValueAreEmpty()
{
    maria();
    program_->sql(u"INSERT INTO Clientes (Nome) VALUES ('VAZIA')"_s);
    click(form_, u"btnTodos"_s);
    cadastro::clickRow(form_, 0);
    cadastro::clickRow(form_, 1);
    for (const auto &[name, value] : mariaShown) {
        const bool told = name == u"lblCodigo" || name == u"txtNome" || name == u"cboPessoa";
        QVERIFY2(told || text(name).isEmpty(), qPrintable(name + u' ' + text(name)));
    }
    QCOMPARE(text(u"lblCodigo"_s), u"0002"_s);
    QCOMPARE(text(u"txtNome"_s), u"VAZIA"_s);
    QCOMPARE(person(), 0);
}

void TstFrmCadaClienteProcura::thePersonIsDerivedFromTheDocument_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("shownAs");
    QTest::newRow("none") << u"Null"_s << 0 << QString();
    QTest::newRow("11 digits") << u"'52998224725'"_s << 0 << u"529.982.247-25"_s;
    QTest::newRow("14 digits") << u"'11222333000181'"_s << 1 << u"11.222.333/0001-81"_s;
    QTest::newRow("11 digits, punctuated") << u"'529.982.247-25'"_s << 1 << u"529.982.247-25"_s;
    QTest::newRow("14 digits, punctuated") << u"'11.222.333/0001-81'"_s << 1 << u"11.222.333/0001-81"_s;
    QTest::newRow("10 characters") << u"'1234567890'"_s << 0 << QString();
    QTest::newRow("12 characters") << u"'123456789012'"_s << 1 << QString();
}

void TstFrmCadaClienteProcura::thePersonIsDerivedFromTheDocument()
{
    QFETCH(QString, document);
    QFETCH(int, index);
    maria();
    program_->sql(u"UPDATE Clientes SET CPF = "_s + document);
    click(form_, u"btnTodos"_s);
    cadastro::choose(form_, u"cboPessoa"_s, 1 - index);
    cadastro::clickRow(form_, 0);
    QCOMPARE(person(), index);
    QTEST(text(u"txtCPF"_s), "shownAs");
}

void TstFrmCadaClienteProcura::aRowThatIsGoneChangesNothing()
{
    maria();
    program_->customer(u"ZECA"_s);
    click(form_, u"btnTodos"_s);
    program_->sql(u"DELETE * FROM Clientes WHERE Codigo = 2"_s);
    cadastro::clickRow(form_, 0);
    cadastro::clickRow(form_, 1);
    QCOMPARE(shown(mariaShown), mariaShown);
}

void TstFrmCadaClienteProcura::aLoadReplacesTheWholeRecordBefore()
{
    maria();
    click(form_, u"btnTodos"_s);
    cadastro::fill(form_, typed);
    cadastro::clickRow(form_, 0);
    QCOMPARE(shown(mariaShown), mariaShown);
}

// --- sorting

void TstFrmCadaClienteProcura::headersSortAndReverse()
{
    for (const auto &name : {u"ANA"_s, u"BIA"_s, u"CAIO"_s}) {
        program_->customer(name);
    }
    program_->sql(u"UPDATE Clientes SET Cidade = 'SANTOS' WHERE Codigo = 1"_s);
    program_->sql(u"UPDATE Clientes SET Cidade = 'AVARÉ' WHERE Codigo = 2"_s);
    program_->sql(u"UPDATE Clientes SET Cidade = 'MAUÁ' WHERE Codigo = 3"_s);
    click(form_, u"btnTodos"_s);

    const int name = 1;
    const int city = 5;
    cadastro::clickHeader(form_, city);
    QCOMPARE(names(), (QStringList{u"BIA"_s, u"CAIO"_s, u"ANA"_s}));
    cadastro::clickHeader(form_, city);
    QCOMPARE(names(), (QStringList{u"ANA"_s, u"CAIO"_s, u"BIA"_s}));
    cadastro::clickHeader(form_, city);
    QCOMPARE(names(), (QStringList{u"BIA"_s, u"CAIO"_s, u"ANA"_s}));
    cadastro::clickHeader(form_, name);
    QCOMPARE(names(), (QStringList{u"ANA"_s, u"BIA"_s, u"CAIO"_s}));
    cadastro::clickHeader(form_, name);
    QCOMPARE(names(), (QStringList{u"CAIO"_s, u"BIA"_s, u"ANA"_s}));
}

void TstFrmCadaClienteProcura::numbersSortAsText()
{
    for (const auto &name : {u"ANA"_s, u"BIA"_s, u"CAIO"_s}) {
        program_->customer(name);
    }
    program_->sql(u"UPDATE Clientes SET Numero = 9 WHERE Codigo = 1"_s);
    program_->sql(u"UPDATE Clientes SET Numero = 100 WHERE Codigo = 2"_s);
    program_->sql(u"UPDATE Clientes SET Numero = 20 WHERE Codigo = 3"_s);
    click(form_, u"btnTodos"_s);
    const int number = 3;
    cadastro::clickHeader(form_, number);
    QCOMPARE(cadastro::columnOf(form_, number), (QStringList{u"100"_s, u"20"_s, u"9"_s}));
}

void TstFrmCadaClienteProcura::aSortedRowLoadsItsOwnRecord()
{
    program_->customer(u"ANA"_s);
    program_->customer(u"BIA"_s);
    click(form_, u"btnTodos"_s);
    cadastro::clickHeader(form_, 0);
    cadastro::clickHeader(form_, 0);
    QCOMPARE(codes(), (QStringList{u"0002"_s, u"0001"_s}));
    cadastro::clickRow(form_, 0);
    QCOMPARE(text(u"txtNome"_s), u"BIA"_s);
}

TARVELO_TEST_MAIN(TstFrmCadaClienteProcura)
#include "tst_frmCadaCliente_procura.moc"
