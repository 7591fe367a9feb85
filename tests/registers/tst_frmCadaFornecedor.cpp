#include "platform/ui/wait.h"
#include "registers/registro.h"
#include "tests/registers/fornecedores.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;
using cadastro::askInclude;
using cadastro::columnOf;
using cadastro::focusOf;
using cadastro::isOpen;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

/// The register's face: how it opens, its list and searches, the ways to a record and back to the caller.
class TstFrmCadaFornecedor : public SupplierCase
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { start(); }
    void cleanup() { end(); }

    void theModeGivesTheCaption_data();
    void theModeGivesTheCaption();
    void thePickersBeginInTheSearchText();
    void buttonsCarryTheirCaptions_data();
    void buttonsCarryTheirCaptions();
    void fieldsCarryTheirLabels();
    void combosBeginAtTheirDefaults();
    void theStatesAreTold();
    void theListHasItsColumns();
    void theListStartsEmpty();
    void theSettingFillsTheListAtLoad();
    void fitsTheMainWindow();
    void tabGoesFieldByField();
    void backClosesAndLeavesTheMode();

    void listsAllByName();
    void aClickOnTheHeaderSorts();

    void searches_data();
    void searches();
    void resultsStandByName();
    void anEmptySearchEmptiesTheList();
    void noResultEmptiesTheListInSilence();
    void aBadSearchTextIsTold_data();
    void aBadSearchTextIsTold();

    void aRowClickedShowsAllFields();
    void nullsShowAsEmpty();
    void aRowDeletedMeanwhileLeavesTheFields();
    void locatesByName();
    void locatingWithoutAMatchLoadsTheSelectedRow();
    void locatingWithoutATextMovesTheFocus();

    void handsAPickedSupplierBack_data();
    void handsAPickedSupplierBack();
    void aCallerThatIsClosedIsOpened();
    void aDoubleClickOnlyLoadsInOtherModes_data();
    void aDoubleClickOnlyLoadsInOtherModes();
    void handsAnAddedSupplierBack();
    void anIncludeInOtherModesStaysHere_data();
    void anIncludeInOtherModesStaysHere();
    void theHandBacksAreTold();
};

// --- opening

void TstFrmCadaFornecedor::theModeGivesTheCaption_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    const QString plain = u"Tarvelo - [Cadastro de Fornecedores]"_s;
    const QString pick = u"Tarvelo - [Consulta de Código de Fornecedor]"_s;
    QTest::newRow("plain") << 0 << plain;
    QTest::newRow("picker of a receipt") << 16 << pick;
    QTest::newRow("add for a receipt") << 17 << plain;
    QTest::newRow("picker, left by a caller") << 20 << pick;
    QTest::newRow("picker of the notes") << 21 << plain;
    QTest::newRow("picker of the query by supplier") << 34 << plain;
}

void TstFrmCadaFornecedor::theModeGivesTheCaption()
{
    QFETCH(int, mode);
    open(mode);
    QTEST(form_->windowTitle(), "caption");
    QCOMPARE(core::ModoChamada, qint16(mode));
}

void TstFrmCadaFornecedor::thePickersBeginInTheSearchText()
{
    for (const int mode : {16, 20}) {
        open(mode);
        QCOMPARE(focusOf(form_), u"txtTexto"_s);
        form_->Unload();
    }
}

void TstFrmCadaFornecedor::buttonsCarryTheirCaptions_data()
{
    cadastro::addButtons(u"Clique aqui para Localizar um Registro na Lista Acima Somente pelo campo NOME"_s);
}

void TstFrmCadaFornecedor::buttonsCarryTheirCaptions()
{
    open();
    cadastro::compareButton(form_);
}

void TstFrmCadaFornecedor::fieldsCarryTheirLabels()
{
    open();
    QStringList labels;
    for (const auto *label : form_->findChildren<QLabel *>()) {
        if (label->objectName().startsWith(u"Rotulos_"_s)) {
            labels << label->text().remove(u'&');
        }
    }
    for (const QString &wanted :
         {u"Código:"_s, u"Data Cadastro:"_s, u"Nome Fornecedor:"_s, u"Contato:"_s, u"Endereço:"_s, u"Número:"_s,
          u"Complemento:"_s, u"Bairro:"_s, u"Cidade:"_s, u"Estado:"_s, u"CEP:"_s, u"Pto. Referência:"_s, u"Fone1:"_s,
          u"Fone2:"_s, u"Celular:"_s, u"CNPJ:"_s, u"E-mail:"_s, u"Observações:"_s, u"Pesquisar em:"_s}) {
        QVERIFY2(labels.contains(wanted), qPrintable(wanted));
    }
    for (const QString &absent : {u"cboPessoa"_s, u"txtRG"_s, u"txtDataNascimento"_s, u"txtLimite"_s}) {
        QVERIFY2(form_->findChild<QWidget *>(absent) == nullptr, qPrintable(absent));
    }
}

void TstFrmCadaFornecedor::combosBeginAtTheirDefaults()
{
    open();
    QCOMPARE(cadastro::entriesOf(form_, u"cboPesquisa"_s),
             (QStringList{u"Código"_s, u"Data Cadastro"_s, u"Nome"_s, u"Endereço"_s, u"Bairro"_s, u"Cidade"_s,
                          u"Estado"_s, u"CEP"_s, u"Fone1"_s, u"Fone2"_s, u"Celular"_s, u"CNPJ"_s, u"E-mail"_s}));
    QCOMPARE(control<QComboBox>(form_, u"cboPesquisa"_s)->currentIndex(), 2);
    QCOMPARE(control<QComboBox>(form_, u"cboEstado"_s)->currentIndex(), 24);
    QCOMPARE(shown(u"cboEstado"_s), u"SP"_s);
}

void TstFrmCadaFornecedor::theStatesAreTold()
{
    open();
    const QString states = u"AC AL AM AP BA CE DF ES GO MA MG MS MT PA PB PI PR RJ RN RO RR RS SC SE SP TO"_s;
    QCOMPARE(cadastro::entriesOf(form_, u"cboEstado"_s), states.split(u' '));
}

void TstFrmCadaFornecedor::theListHasItsColumns()
{
    open();
    QCOMPARE(cadastro::titlesOf(form_),
             (QStringList{u"Código"_s, u"Nome Fornecedor"_s, u"Contato"_s, u"Fone 1"_s, u"Fone 2"_s, u"Celular"_s}));
}

void TstFrmCadaFornecedor::theListStartsEmpty()
{
    program_->config(u"PreencheCadastroAutomatico"_s, u"N"_s);
    open();
    QCOMPARE(columnOf(form_), QStringList());
}

void TstFrmCadaFornecedor::theSettingFillsTheListAtLoad()
{
    program_->config(u"PreencheCadastroAutomatico"_s, u"S"_s);
    open();
    QCOMPARE(columnOf(form_), (QStringList{u"0003"_s, u"0001"_s, u"0002"_s}));
}

void TstFrmCadaFornecedor::fitsTheMainWindow()
{
    open();
    const QSize least = form_->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

void TstFrmCadaFornecedor::tabGoesFieldByField()
{
    open();
    const QStringList order{
        u"txtNome"_s,       u"txtContato"_s, u"txtEndereco"_s, u"txtNumero"_s, u"txtComplemento"_s,
        u"txtBairro"_s,     u"txtCidade"_s,  u"cboEstado"_s,   u"txtCEP"_s,    u"txtPontoReferencia"_s,
        u"txtFone1"_s,      u"txtFone2"_s,   u"txtCelular"_s,  u"txtCPF"_s,    u"txtEmail"_s,
        u"txtObservacoes"_s};
    QCOMPARE(cadastro::tabOrder(form_, order.first(), order.size()), order);
}

void TstFrmCadaFornecedor::backClosesAndLeavesTheMode()
{
    open(16);
    type(form_, u"txtNome"_s, u"NOVO"_s);
    click(form_, u"btnVoltar"_s);
    QVERIFY(!isOpen(window));
    QCOMPARE(core::ModoChamada, qint16{16});
    QCOMPARE(suppliers().size(), 3U);
}

// --- the list

void TstFrmCadaFornecedor::listsAllByName()
{
    open();
    click(form_, u"btnTodos"_s);
    const Rows all{{u"0003"_s, u"ACO FORTE"_s, u"ANA"_s, u"(31) 3333-4444"_s, QString(), QString()},
                   alfaRow,
                   {u"0002"_s, u"BETA"_s, QString(), QString(), QString(), QString()}};
    QCOMPARE(cadastro::rowsOf(form_), all);
}

void TstFrmCadaFornecedor::aClickOnTheHeaderSorts()
{
    openFull();
    cadastro::clickHeader(form_, 0);
    QCOMPARE(columnOf(form_), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
    cadastro::clickHeader(form_, 0);
    QCOMPARE(columnOf(form_), (QStringList{u"0003"_s, u"0002"_s, u"0001"_s}));
    cadastro::clickHeader(form_, 2);
    QCOMPARE(columnOf(form_, 2), (QStringList{QString(), u"ANA"_s, u"JOSÉ"_s}));
}

// --- searching

void TstFrmCadaFornecedor::searches_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("code");
    QTest::newRow("code") << 0 << u"3"_s << u"0003"_s;
    QTest::newRow("date") << 1 << u"10/01/2020"_s << u"0001"_s;
    QTest::newRow("name, inside") << 2 << u"fa pec"_s << u"0001"_s;
    QTest::newRow("address") << 3 << u"rua"_s << u"0001"_s;
    QTest::newRow("quarter") << 4 << u"CENT"_s << u"0001"_s;
    QTest::newRow("town") << 5 << u"anto"_s << u"0001"_s;
    QTest::newRow("state") << 6 << u"MG"_s << u"0003"_s;
    QTest::newRow("postal code, with its marks") << 7 << u".010-1"_s << u"0001"_s;
    QTest::newRow("first phone") << 8 << u"3333"_s << u"0003"_s;
    QTest::newRow("second phone") << 9 << u"3222-2"_s << u"0001"_s;
    QTest::newRow("mobile") << 10 << u"9111"_s << u"0001"_s;
    QTest::newRow("document") << 11 << u"33000"_s << u"0001"_s;
    QTest::newRow("document of a person") << 11 << u"529982"_s << u"0003"_s;
    QTest::newRow("e-mail, without regard to case") << 12 << u"@ALFA"_s << u"0001"_s;
}

void TstFrmCadaFornecedor::searches()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    QFETCH(QString, code);
    open();
    search(index, text);
    QCOMPARE(columnOf(form_), QStringList{code});
    if (code == u"0001"_s) {
        QCOMPARE(cadastro::rowsOf(form_), Rows{alfaRow});
    }
}

void TstFrmCadaFornecedor::resultsStandByName()
{
    open();
    search(2, u"a"_s);
    QCOMPARE(columnOf(form_, 1), (QStringList{u"ACO FORTE"_s, u"ALFA PECAS"_s, u"BETA"_s}));
}

void TstFrmCadaFornecedor::anEmptySearchEmptiesTheList()
{
    openFull();
    search(2, QString());
    QCOMPARE(columnOf(form_), QStringList());
}

void TstFrmCadaFornecedor::noResultEmptiesTheListInSilence()
{
    openFull();
    search(2, u"ZZZ"_s);
    QCOMPARE(columnOf(form_), QStringList());
}

void TstFrmCadaFornecedor::aBadSearchTextIsTold_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::newRow("a code that is no number") << 0 << u"ABC"_s;
    QTest::newRow("a date that is none") << 1 << u"ABC"_s;
    QTest::newRow("an apostrophe") << 2 << u"D'ARC"_s;
    QTest::newRow("an apostrophe in the document") << 11 << u"'"_s;
}

void TstFrmCadaFornecedor::aBadSearchTextIsTold()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    openFull();
    boxes_->exclamation(u"Tipo de Dados Inválido para Pesquisa"_s);
    search(index, text);
    boxes_->finish();
    QVERIFY(!ui::Application::ended());
    QCOMPARE(columnOf(form_), QStringList());
    QCOMPARE(focusOf(form_), u"txtTexto"_s);
    QCOMPARE(control<QLineEdit>(form_, u"txtTexto"_s)->selectedText(), text);
}

// --- a row chosen

void TstFrmCadaFornecedor::aRowClickedShowsAllFields()
{
    openFull();
    cadastro::clickRow(form_, 1);
    QCOMPARE(cadastro::shown(form_, alfa), alfa);
}

void TstFrmCadaFornecedor::nullsShowAsEmpty()
{
    openFull();
    cadastro::clickRow(form_, 1);
    cadastro::clickRow(form_, 2);
    Fields beta;
    for (const auto &[field, unused] : alfa) {
        beta.append({field, QString()});
    }
    beta = cadastro::with(beta, u"lblCodigo"_s, u"0002"_s);
    beta = cadastro::with(beta, u"txtNome"_s, u"BETA"_s);
    beta = cadastro::with(beta, u"cboEstado"_s, u"SP"_s);
    QCOMPARE(cadastro::shown(form_, beta), beta);
}

void TstFrmCadaFornecedor::aRowDeletedMeanwhileLeavesTheFields()
{
    openFull();
    cadastro::clickRow(form_, 1);
    program_->sql(u"DELETE * FROM Fornecedores WHERE Codigo = 3"_s);
    cadastro::clickRow(form_, 0);
    QCOMPARE(cadastro::shown(form_, alfa), alfa);
}

void TstFrmCadaFornecedor::locatesByName()
{
    openFull();
    locate(u"al"_s);
    QCOMPARE(cadastro::list(form_)->selectedRow(), 1);
    QCOMPARE(cadastro::shown(form_, alfa), alfa);
}

void TstFrmCadaFornecedor::locatingWithoutAMatchLoadsTheSelectedRow()
{
    openFull();
    compareSelectedRowLocated(1, u"txtContato"_s, u"PECAS"_s, alfa);
}

void TstFrmCadaFornecedor::locatingWithoutATextMovesTheFocus()
{
    openFull();
    compareOnlyFocusMoved(1, u"txtContato"_s);
}

// --- handing back

void TstFrmCadaFornecedor::handsAPickedSupplierBack_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("byMouse");
    QTest::addColumn<QString>("caller");
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("modeAfter");
    const QString code = u"txtCodFornecedor"_s;
    const QString ofNotes = u"txtCodForn"_s;
    QTest::newRow("receipt") << 16 << true << receipt << code << 0;
    QTest::newRow("receipt, Enter") << 16 << false << receipt << code << 0;
    QTest::newRow("left by a caller") << 20 << true << query << ofNotes << 20;
    QTest::newRow("notes") << 21 << true << query << ofNotes << 21;
    QTest::newRow("notes, Enter") << 21 << false << query << ofNotes << 21;
    QTest::newRow("query by supplier") << 34 << true << query << ofNotes << 34;
}

void TstFrmCadaFornecedor::handsAPickedSupplierBack()
{
    QFETCH(int, mode);
    QFETCH(bool, byMouse);
    QFETCH(QString, caller);
    QFETCH(QString, field);
    QFETCH(int, modeAfter);
    auto *target = support::show(caller);
    openFull(mode);
    if (byMouse) {
        cadastro::doubleClickRow(form_, 1);
    } else {
        cadastro::clickRow(form_, 1);
        key(form_, u"Lista"_s, Qt::Key_Return);
    }
    QTRY_VERIFY(!isOpen(window));
    QCOMPARE(text(target, field), u"0001"_s);
    QCOMPARE(focusOf(target), field);
    QCOMPARE(control<QLineEdit>(target, field)->selectedText(), u"0001"_s);
    QCOMPARE(core::ModoChamada, qint16(modeAfter));
    QVERIFY(!isOpen(caller == receipt ? query : receipt));
}

void TstFrmCadaFornecedor::aCallerThatIsClosedIsOpened()
{
    openFull(16);
    cadastro::doubleClickRow(form_, 0);
    QTRY_VERIFY(!isOpen(window));
    auto *target = ui::Forms::instance().find(receipt);
    QVERIFY(target != nullptr && target->isVisible());
    QCOMPARE(text(target, u"txtCodFornecedor"_s), u"0003"_s);
}

void TstFrmCadaFornecedor::aDoubleClickOnlyLoadsInOtherModes_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("plain") << 0;
    QTest::newRow("adding for a receipt") << 17;
    QTest::newRow("a mode of other windows") << 3;
}

void TstFrmCadaFornecedor::aDoubleClickOnlyLoadsInOtherModes()
{
    QFETCH(int, mode);
    openFull(mode);
    cadastro::doubleClickRow(form_, 1);
    ui::DoEvents();
    key(form_, u"Lista"_s, Qt::Key_Return);
    ui::DoEvents();
    QVERIFY(isOpen(window));
    QCOMPARE(cadastro::shown(form_, alfa), alfa);
    QVERIFY(!isOpen(receipt) && !isOpen(query));
    QCOMPARE(core::ModoChamada, qint16(mode));
}

void TstFrmCadaFornecedor::handsAnAddedSupplierBack()
{
    auto *target = support::show(receipt);
    open(17);
    type(form_, u"txtNome"_s, u"NOVO"_s);
    answer(askInclude, u"btnIncluir"_s);
    QVERIFY(!isOpen(window));
    QCOMPARE(text(target, u"txtCodFornecedor"_s), u"4"_s);
    QCOMPARE(focusOf(target), u"txtCodFornecedor"_s);
    QCOMPARE(control<QLineEdit>(target, u"txtCodFornecedor"_s)->selectedText(), u"4"_s);
    QCOMPARE(program_->rows(u"SELECT Nome FROM Fornecedores WHERE Codigo = 4"_s), (Rows{{u"NOVO"_s}}));
}

void TstFrmCadaFornecedor::anIncludeInOtherModesStaysHere_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : {0, 16, 20, 21, 34}) {
        QTest::newRow(qPrintable(QString::number(mode))) << mode;
    }
}

void TstFrmCadaFornecedor::anIncludeInOtherModesStaysHere()
{
    QFETCH(int, mode);
    open(mode);
    type(form_, u"txtNome"_s, u"NOVO"_s);
    answer(askInclude, u"btnIncluir"_s);
    QVERIFY(isOpen(window));
    QVERIFY(!isOpen(receipt) && !isOpen(query));
    QCOMPARE(columnOf(form_), (QStringList{u"0003"_s, u"0001"_s, u"0002"_s, u"0004"_s}));
    QCOMPARE(core::ModoChamada, qint16(mode));
}

void TstFrmCadaFornecedor::theHandBacksAreTold()
{
    const auto told = [](std::span<const core::Devolucao> table) {
        QStringList rows;
        for (const core::Devolucao &row : table) {
            rows << u"%1 %2 %3"_s.arg(row.modo).arg(row.janela, row.controle);
        }
        rows.sort();
        return rows;
    };
    const auto &table = registers::registroFornecedores();
    QCOMPARE(
        told(table.devolucoes),
        (QStringList{u"16 frmMoviEntradaPeca txtCodFornecedor"_s, u"20 frmRelaSelecaoNotasEntradas txtCodForn"_s,
                     u"21 frmRelaSelecaoNotasEntradas txtCodForn"_s, u"34 frmRelaSelecaoNotasEntradas txtCodForn"_s}));
    QCOMPARE(told(table.devolucoesInclusao), QStringList{u"17 frmMoviEntradaPeca txtCodFornecedor"_s});
}

TARVELO_TEST_MAIN(TstFrmCadaFornecedor)
#include "tst_frmCadaFornecedor.moc"
