#include "tests/registers/fornecedores.h"

using namespace Qt::StringLiterals;
using cadastro::askAlter;
using cadastro::askDelete;
using cadastro::askInclude;
using cadastro::columnOf;
using cadastro::focusOf;
using cadastro::null;
using support::click;
using support::control;
using support::type;

namespace
{

/// A new supplier as a clerk types it.
const cadastro::Fields gama{{u"txtNome"_s, u"gama ltda"_s},         {u"txtContato"_s, u"pedro"_s},
                            {u"txtEndereco"_s, u"rua b"_s},         {u"txtNumero"_s, u"45"_s},
                            {u"txtComplemento"_s, u"fundos"_s},     {u"txtBairro"_s, u"vila"_s},
                            {u"txtCidade"_s, u"curitiba"_s},        {u"cboEstado"_s, u"pr"_s},
                            {u"txtCEP"_s, u"80010000"_s},           {u"txtPontoReferencia"_s, u"praça"_s},
                            {u"txtFone1"_s, u"4133221100"_s},       {u"txtFone2"_s, u"4133221101"_s},
                            {u"txtCelular"_s, u"4199887766"_s},     {u"txtCPF"_s, u"11444777000161"_s},
                            {u"txtEmail"_s, u"Compras@Gama.com"_s}, {u"txtObservacoes"_s, u"nova"_s}};

/// What is stored of it behind the code and the date.
const QStringList gamaStored{u"GAMA LTDA"_s,
                             u"PEDRO"_s,
                             u"RUA B"_s,
                             u"45"_s,
                             u"FUNDOS"_s,
                             u"VILA"_s,
                             u"CURITIBA"_s,
                             u"PR"_s,
                             u"80.010-000"_s,
                             u"PRAÇA"_s,
                             u"(41) 3322-1100"_s,
                             u"(41) 3322-1101"_s,
                             u"(41) 9988-7766"_s,
                             u"11444777000161"_s,
                             u"compras@gama.com"_s,
                             u"NOVA"_s};

} // namespace

/// What the register writes, refuses and warns of.
class TstFrmCadaFornecedorGravar : public SupplierCase
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

    void includesASupplier();
    void aNameIsEnough();
    void anIncludeListsAllAndClears();
    void anIncludeCopiesTheSupplierShown();
    void nothingIsWrittenOnNo();
    void refusesAMissingName();
    void aNameCanBeStoredTwiceWithoutAWarning();
    void anApostropheIsNoHarm();

    void altersAllButCodeAndDate();
    void whatIsEmptiedBecomesNull();
    void anAlterationListsAllAndClears();
    void nothingIsAlteredOnNo();
    void alteringWithNothingLoadedIsRefused();
    void alteringASupplierDeletedMeanwhileIsToldFirst();
    void alteringWithoutANameIsRefused();

    void deletesTheSupplierShown();
    void nothingIsDeletedOnNo();
    void deletingWithNothingLoadedIsRefused();
    void deletingTwiceAsksAgainAndSaysNothing();
    void deletingLeavesTheNotesBehind();

    void clearingKeepsTheList();

private:
    void checkCleared()
    {
        for (const auto &[field, unused] : alfa) {
            QVERIFY2(shown(field) == (field == u"cboEstado"_s ? u"SP"_s : QString()), qPrintable(field));
        }
        QCOMPARE(control<QComboBox>(form_, u"cboEstado"_s)->currentIndex(), 24);
        QCOMPARE(focusOf(form_), u"txtNome"_s);
    }
};

// --- including

void TstFrmCadaFornecedorGravar::includesASupplier()
{
    Rows after = suppliers();
    after.push_back(QStringList{u"4"_s, u"15/05/2024 00:00:00"_s} + gamaStored);
    cadastro::fill(form_, gama);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(suppliers(), after);
}

void TstFrmCadaFornecedorGravar::aNameIsEnough()
{
    type(form_, u"txtNome"_s, u"SOZINHO"_s);
    answer(askInclude, u"btnIncluir"_s);
    const QStringList stored{u"4"_s,       u"15/05/2024 00:00:00"_s,
                             u"SOZINHO"_s, null,
                             null,         null,
                             null,         null,
                             null,         u"SP"_s,
                             null,         null,
                             null,         null,
                             null,         null,
                             null,         null};
    QCOMPARE(suppliers().back(), stored);
}

void TstFrmCadaFornecedorGravar::anIncludeListsAllAndClears()
{
    search(u"BETA"_s);
    QCOMPARE(columnOf(form_), QStringList{u"0002"_s});
    cadastro::fill(form_, gama);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(columnOf(form_), (QStringList{u"0003"_s, u"0001"_s, u"0002"_s, u"0004"_s}));
    checkCleared();
    QCOMPARE(shown(u"txtTexto"_s), QString());
}

void TstFrmCadaFornecedorGravar::anIncludeCopiesTheSupplierShown()
{
    load(u"0001"_s);
    answer(askInclude, u"btnIncluir"_s);
    const Rows all = suppliers();
    QCOMPARE(all.size(), 4U);
    QStringList copy = all.front();
    copy[0] = u"4"_s;
    copy[1] = u"15/05/2024 00:00:00"_s;
    QCOMPARE(all.back(), copy);
}

void TstFrmCadaFornecedorGravar::nothingIsWrittenOnNo()
{
    type(form_, u"txtNome"_s, u"NOVO"_s);
    boxes_->question(askInclude, false);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(suppliers().size(), 3U);
    QCOMPARE(shown(u"txtNome"_s), u"NOVO"_s);
}

void TstFrmCadaFornecedorGravar::refusesAMissingName()
{
    cadastro::fill(form_, cadastro::with(gama, u"txtNome"_s, QString()));
    boxes_->exclamation(u"Nome Inválido"_s);
    click(form_, u"btnIncluir"_s);
    QCOMPARE(focusOf(form_), u"txtNome"_s);
    QCOMPARE(suppliers().size(), 3U);
}

void TstFrmCadaFornecedorGravar::aNameCanBeStoredTwiceWithoutAWarning()
{
    type(form_, u"txtNome"_s, u"BETA"_s);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Fornecedores WHERE Nome = 'BETA' ORDER BY Codigo"_s),
             (Rows{{u"2"_s}, {u"4"_s}}));
}

void TstFrmCadaFornecedorGravar::anApostropheIsNoHarm()
{
    type(form_, u"txtNome"_s, u"CAIXA D'ÁGUA"_s);
    type(form_, u"txtContato"_s, u"JOANA D'ARC"_s);
    answer(askInclude, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Nome, Contato FROM Fornecedores WHERE Codigo = 4"_s),
             (Rows{{u"CAIXA D'ÁGUA"_s, u"JOANA D'ARC"_s}}));
}

// --- altering

void TstFrmCadaFornecedorGravar::altersAllButCodeAndDate()
{
    const Rows before = suppliers();
    load(u"0001"_s);
    cadastro::fill(form_, gama);
    answer(askAlter, u"btnAlterar"_s);
    const QStringList altered = QStringList{u"1"_s, u"10/01/2020 00:00:00"_s} + gamaStored;
    QCOMPARE(suppliers(), (Rows{altered, before[1], before[2]}));
}

void TstFrmCadaFornecedorGravar::whatIsEmptiedBecomesNull()
{
    load(u"0001"_s);
    for (const auto &[field, unused] : gama) {
        if (field != u"txtNome"_s && field != u"cboEstado"_s) {
            type(form_, field, QString());
        }
    }
    answer(askAlter, u"btnAlterar"_s);
    const QStringList stored{u"1"_s,
                             u"10/01/2020 00:00:00"_s,
                             u"ALFA PECAS"_s,
                             null,
                             null,
                             null,
                             null,
                             null,
                             null,
                             u"RJ"_s,
                             null,
                             null,
                             null,
                             null,
                             null,
                             null,
                             null,
                             null};
    QCOMPARE(suppliers().front(), stored);
}

void TstFrmCadaFornecedorGravar::anAlterationListsAllAndClears()
{
    load(u"0001"_s);
    type(form_, u"txtNome"_s, u"ZETA"_s);
    answer(askAlter, u"btnAlterar"_s);
    QCOMPARE(columnOf(form_, 1), (QStringList{u"ACO FORTE"_s, u"BETA"_s, u"ZETA"_s}));
    checkCleared();
}

void TstFrmCadaFornecedorGravar::nothingIsAlteredOnNo()
{
    const Rows before = suppliers();
    load(u"0001"_s);
    type(form_, u"txtNome"_s, u"ZETA"_s);
    boxes_->question(askAlter, false);
    click(form_, u"btnAlterar"_s);
    QCOMPARE(suppliers(), before);
    QCOMPARE(shown(u"txtNome"_s), u"ZETA"_s);
    QCOMPARE(shown(u"lblCodigo"_s), u"0001"_s);
}

void TstFrmCadaFornecedorGravar::alteringWithNothingLoadedIsRefused()
{
    const Rows before = suppliers();
    cadastro::fill(form_, gama);
    boxes_->exclamation(u"Código Inválido"_s);
    click(form_, u"btnAlterar"_s);
    QCOMPARE(focusOf(form_), u"Lista"_s);
    QCOMPARE(suppliers(), before);
}

/// The row is looked for before the name is checked, and before the question.
void TstFrmCadaFornecedorGravar::alteringASupplierDeletedMeanwhileIsToldFirst()
{
    load(u"0001"_s);
    program_->sql(u"DELETE * FROM Fornecedores WHERE Codigo = 1"_s);
    const Rows before = suppliers();
    type(form_, u"txtNome"_s, QString());
    boxes_->exclamation(u"Código não localizado"_s);
    click(form_, u"btnAlterar"_s);
    boxes_->finish();
    QCOMPARE(suppliers(), before);
    QCOMPARE(shown(u"lblCodigo"_s), u"0001"_s);
}

void TstFrmCadaFornecedorGravar::alteringWithoutANameIsRefused()
{
    const Rows before = suppliers();
    load(u"0001"_s);
    type(form_, u"txtNome"_s, QString());
    boxes_->exclamation(u"Nome Inválido"_s);
    click(form_, u"btnAlterar"_s);
    QCOMPARE(focusOf(form_), u"txtNome"_s);
    QCOMPARE(suppliers(), before);
}

// --- deleting

void TstFrmCadaFornecedorGravar::deletesTheSupplierShown()
{
    const Rows before = suppliers();
    load(u"0001"_s);
    answer(askDelete, u"btnExcluir"_s);
    QCOMPARE(suppliers(), (Rows{before[1], before[2]}));
    QCOMPARE(columnOf(form_), (QStringList{u"0003"_s, u"0002"_s}));
    QCOMPARE(cadastro::shown(form_, alfa), alfa);
}

void TstFrmCadaFornecedorGravar::nothingIsDeletedOnNo()
{
    load(u"0001"_s);
    compareKeptOnNo(u"Fornecedores"_s);
}

void TstFrmCadaFornecedorGravar::deletingWithNothingLoadedIsRefused()
{
    compareDeletionRefused(u"Fornecedores"_s);
}

void TstFrmCadaFornecedorGravar::deletingTwiceAsksAgainAndSaysNothing()
{
    load(u"0001"_s);
    answer(askDelete, u"btnExcluir"_s);
    answer(askDelete, u"btnExcluir"_s);
    boxes_->finish();
    QCOMPARE(suppliers().size(), 2U);
    boxes_->exclamation(u"Código não localizado"_s);
    click(form_, u"btnAlterar"_s);
}

void TstFrmCadaFornecedorGravar::deletingLeavesTheNotesBehind()
{
    program_->sql(u"INSERT INTO NotasEntradas (CodForn, Data, Valor) VALUES (1, #05/01/2024#, 10)"_s);
    const Rows notes = program_->rows(u"SELECT * FROM NotasEntradas"_s);
    QCOMPARE(notes.size(), 1U);
    load(u"0001"_s);
    answer(askDelete, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM NotasEntradas"_s), notes);
    QCOMPARE(program_->rows(u"SELECT NotasEntradas.Codigo FROM NotasEntradas INNER JOIN Fornecedores "
                            "On Fornecedores.Codigo=NotasEntradas.CodForn"_s),
             Rows());
}

// --- clearing

void TstFrmCadaFornecedorGravar::clearingKeepsTheList()
{
    search(6, u"RJ"_s);
    load(u"0001"_s);
    click(form_, u"btnCancelar"_s);
    checkCleared();
    QCOMPARE(shown(u"txtTexto"_s), QString());
    QCOMPARE(shown(u"cboPesquisa"_s), u"Estado"_s);
    QCOMPARE(cadastro::rowsOf(form_), Rows{alfaRow});
}

TARVELO_TEST_MAIN(TstFrmCadaFornecedorGravar)
#include "tst_frmCadaFornecedor_gravar.moc"
