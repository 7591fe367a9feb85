#include "tests/stock/janelaentrada.h"

#include "core/caminhos.h"
#include "platform/ui/application.h"
#include "support/otherprogram.h"

using namespace Qt::StringLiterals;
using entrada::null;
using entrada::question;
using entrada::Rows;
using support::click;
using support::text;
using support::type;

namespace
{

const QString badSupplier = u"Código do Fornecedor Inválido"_s;

} // namespace

/// Confirming a note in the window that receives parts.
class TstFrmMoviEntradaPecaNota : public entrada::Case
{
    Q_OBJECT

private slots:
    void init() { prepare(); }
    void cleanup() { finish(); }

    void aNoteNeedsASupplier_data();
    void aNoteNeedsASupplier();
    void aNoteNeedsLines();
    void theSupplierIsCheckedBeforeTheLines();
    void aSupplierDeletedMeanwhileIsTold();
    void nothingIsWrittenOnNo();
    void aNoteIsWritten();
    void fieldsAndListStay();
    void aSecondPressSavesASecondNote();
    void theSamePartTwiceIsPostedTwice();
    void aCheaperNoteLowersTheCost();
    void anEqualCostLeavesThePartUntouched();
    void withoutStockControlOnlyTheCostChanges();
    void aPartWithoutALedgerPostsNothing();
    void aFreeLineIsStoredAlone();
    void aPartDeletedMeanwhileKeepsItsLine();
    void thousandsAreReadByTheDatabase();
    void theTotalIsWrittenAsItIsShown();
    void aDescriptionOfTwoHundredCharactersIsWritten();
    void anApostropheInATextIsNoHarm();
    void linesAreWrittenInTheOrderOfTheList();
    void aFailureLeavesWhatWasWritten();

private:
    Rows ledger(int part) const
    {
        Rows rows = program_->rows(
            u"SELECT Descricao, Entrada, Estoque FROM Estoque WHERE CodPeca = %1 ORDER BY Codigo"_s.arg(part));
        rows.erase(rows.begin());
        return rows;
    }
    Rows costs() const { return program_->rows(u"SELECT ValorCusto FROM Pecas WHERE Codigo < 3 ORDER BY Codigo"_s); }
};

void TstFrmMoviEntradaPecaNota::aNoteNeedsASupplier_data()
{
    QTest::addColumn<QString>("found");
    QTest::addColumn<QString>("typed");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("taken out again") << u"3"_s << QString();
    QTest::newRow("letters behind a name") << u"3"_s << u"ALFA"_s;
    QTest::newRow("a name alone") << QString() << u"ALFA"_s;
}

void TstFrmMoviEntradaPecaNota::aNoteNeedsASupplier()
{
    QFETCH(QString, found);
    QFETCH(QString, typed);
    open();
    supplier(found);
    supplier(typed);
    add(u"2"_s, u"1"_s);
    boxes_->exclamation(badSupplier);
    click(window_, u"btnIncluir"_s);
    QTRY_VERIFY(hasFocus(u"txtCodFornecedor"_s));
    QCOMPARE(notes(), Rows());
}

void TstFrmMoviEntradaPecaNota::aNoteNeedsLines()
{
    open();
    supplier();
    boxes_->exclamation(u"Lista de Peças Vazia"_s);
    click(window_, u"btnIncluir"_s);
    QCOMPARE(notes(), Rows());
}

void TstFrmMoviEntradaPecaNota::theSupplierIsCheckedBeforeTheLines()
{
    open();
    boxes_->exclamation(badSupplier);
    click(window_, u"btnIncluir"_s);
    QTRY_VERIFY(hasFocus(u"txtCodFornecedor"_s));
}

void TstFrmMoviEntradaPecaNota::aSupplierDeletedMeanwhileIsTold()
{
    open();
    supplier();
    add(u"2"_s, u"1"_s);
    program_->sql(u"DELETE * FROM Fornecedores"_s);
    boxes_->exclamation(u"Código do Fornecedor Não Localizado"_s);
    click(window_, u"btnIncluir"_s);
    QTRY_VERIFY(hasFocus(u"txtCodFornecedor"_s));
    QCOMPARE(notes(), Rows());
    QCOMPARE(lines(), Rows());
    QCOMPARE(list()->count(), 1);
}

void TstFrmMoviEntradaPecaNota::nothingIsWrittenOnNo()
{
    open();
    supplier();
    add(u"2"_s, u"1"_s);
    boxes_->question(question, false);
    click(window_, u"btnIncluir"_s);
    QCOMPARE(notes(), Rows());
    QCOMPARE(lines(), Rows());
    QCOMPARE(ledger(2), Rows());
}

void TstFrmMoviEntradaPecaNota::aNoteIsWritten()
{
    open();
    supplier();
    type(window_, u"txtObs"_s, u"FRETE PAGO"_s);
    add(u"W712/75"_s, u"2"_s, u"1.100"_s);
    add({}, u"1"_s, u"35,5"_s, u"FRETE"_s);
    add(u"2"_s, u"2,5"_s);
    save();

    QCOMPARE(notes(), (Rows{{u"1"_s, u"3"_s, u"15/05/2024 00:00:00"_s, u"2298"_s, u"FRETE PAGO"_s, u"False"_s, null}}));
    QCOMPARE(lines(), (Rows{{u"1"_s, u"1"_s, u"1"_s, u"2"_s, u"FILTRO"_s, u"1100"_s, u"P"_s},
                            {u"2"_s, u"1"_s, u"0"_s, u"1"_s, u"FRETE"_s, u"35.5"_s, u"A"_s},
                            {u"3"_s, u"1"_s, u"2"_s, u"2.5"_s, u"OLEO"_s, u"25"_s, u"P"_s}}));
    QCOMPARE(costs(), (Rows{{u"1100"_s}, {u"25"_s}}));
    const QString entry = u"ENTRADA NOTA: 0001"_s;
    QCOMPARE(ledger(1), (Rows{{entry, u"2"_s, u"2"_s}}));
    QCOMPARE(ledger(2), (Rows{{entry, u"2.5"_s, u"2.5"_s}}));
    QCOMPARE(program_->rows(u"SELECT Codigo FROM ContasPagar"_s), Rows());
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Caixa"_s), Rows());
}

void TstFrmMoviEntradaPecaNota::fieldsAndListStay()
{
    open();
    supplier();
    type(window_, u"txtObs"_s, u"FRETE PAGO"_s);
    add(u"2"_s, u"1"_s);
    save();
    QVERIFY(hasFocus(u"txtCodFornecedor"_s));
    QCOMPARE(text(window_, u"txtCodFornecedor"_s), u"0003"_s);
    QCOMPARE(text(window_, u"lblNome"_s), u"ALFA PECAS"_s);
    QCOMPARE(text(window_, u"txtObs"_s), u"FRETE PAGO"_s);
    QCOMPARE(shown(), (QStringList{u"0002|P|1,000|OLEO|25,00|25,00"_s}));
    QCOMPARE(total(), u"25,00"_s);
}

void TstFrmMoviEntradaPecaNota::aSecondPressSavesASecondNote()
{
    open();
    supplier();
    add(u"2"_s, u"4"_s);
    save(1);
    save(2);
    QCOMPARE(notes().size(), 2U);
    QCOMPARE(lines(), (Rows{{u"1"_s, u"1"_s, u"2"_s, u"4"_s, u"OLEO"_s, u"25"_s, u"P"_s},
                            {u"2"_s, u"2"_s, u"2"_s, u"4"_s, u"OLEO"_s, u"25"_s, u"P"_s}}));
    QCOMPARE(ledger(2), (Rows{{u"ENTRADA NOTA: 0001"_s, u"4"_s, u"4"_s}, {u"ENTRADA NOTA: 0002"_s, u"4"_s, u"8"_s}}));
}

void TstFrmMoviEntradaPecaNota::theSamePartTwiceIsPostedTwice()
{
    open();
    supplier();
    add(u"1"_s, u"2"_s, u"30"_s);
    add(u"1"_s, u"3"_s, u"28,5"_s);
    save();
    const QString entry = u"ENTRADA NOTA: 0001"_s;
    QCOMPARE(ledger(1), (Rows{{entry, u"2"_s, u"2"_s}, {entry, u"3"_s, u"5"_s}}));
    QCOMPARE(costs().front().front(), u"28.5"_s);
}

void TstFrmMoviEntradaPecaNota::aCheaperNoteLowersTheCost()
{
    open();
    supplier();
    add(u"2"_s, u"1"_s, u"19,9"_s);
    save();
    QCOMPARE(costs(), (Rows{{u"1030.5"_s}, {u"19.9"_s}}));
    QCOMPARE(program_->rows(u"SELECT ValorVenda FROM Pecas WHERE Codigo = 2"_s), (Rows{{u"40"_s}}));
}

/// The file refuses any change of a part here: one would end the program.
void TstFrmMoviEntradaPecaNota::anEqualCostLeavesThePartUntouched()
{
    open();
    supplier();
    add(u"1"_s, u"1"_s);
    support::OtherProgram other(core::caminho(core::ArquivoDB));
    QVERIFY(other.run("CREATE TRIGGER refuse BEFORE UPDATE ON Pecas BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    save();
    QCOMPARE(costs().front().front(), u"1030.5"_s);
    QCOMPARE(ledger(1).size(), 1U);
}

void TstFrmMoviEntradaPecaNota::withoutStockControlOnlyTheCostChanges()
{
    program_->sql(u"UPDATE Pecas SET ControlaEstoque = 0 WHERE Codigo = 2"_s);
    open();
    supplier();
    add(u"2"_s, u"1"_s, u"30"_s);
    save();
    QCOMPARE(costs().back().front(), u"30"_s);
    QCOMPARE(ledger(2), Rows());
}

void TstFrmMoviEntradaPecaNota::aPartWithoutALedgerPostsNothing()
{
    program_->sql(u"DELETE * FROM Estoque WHERE CodPeca = 2"_s);
    open();
    supplier();
    add(u"2"_s, u"1"_s, u"30"_s);
    save();
    QCOMPARE(costs().back().front(), u"30"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Estoque WHERE CodPeca = 2"_s), Rows());
}

void TstFrmMoviEntradaPecaNota::aFreeLineIsStoredAlone()
{
    const Rows before = costs();
    open();
    supplier();
    add({}, u"3"_s, u"10"_s, u"ESTOPA"_s);
    save();
    QCOMPARE(lines(), (Rows{{u"1"_s, u"1"_s, u"0"_s, u"3"_s, u"ESTOPA"_s, u"10"_s, u"A"_s}}));
    QCOMPARE(costs(), before);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Estoque"_s).size(), 2U);
}

/// With the part its ledger has gone, too.
void TstFrmMoviEntradaPecaNota::aPartDeletedMeanwhileKeepsItsLine()
{
    open();
    supplier();
    add(u"2"_s, u"1"_s, u"30"_s);
    program_->sql(u"DELETE * FROM Pecas WHERE Codigo = 2"_s);
    program_->sql(u"DELETE * FROM Estoque WHERE CodPeca = 2"_s);
    save();
    QCOMPARE(lines(), (Rows{{u"1"_s, u"1"_s, u"2"_s, u"1"_s, u"OLEO"_s, u"30"_s, u"P"_s}}));
    QCOMPARE(program_->rows(u"SELECT CodPeca FROM Estoque"_s), (Rows{{u"1"_s}}));
}

void TstFrmMoviEntradaPecaNota::thousandsAreReadByTheDatabase()
{
    open();
    supplier();
    add(u"2"_s, u"1000"_s);
    QCOMPARE(shown(), (QStringList{u"0002|P|1.000,000|OLEO|25,00|25.000,00"_s}));
    save();
    QCOMPARE(program_->rows(u"SELECT Quantidade FROM NotasPecas"_s), (Rows{{u"1000"_s}}));
    QCOMPARE(ledger(2), (Rows{{u"ENTRADA NOTA: 0001"_s, u"1000"_s, u"1000"_s}}));
    QCOMPARE(program_->rows(u"SELECT Valor FROM NotasEntradas"_s), (Rows{{u"25000"_s}}));
}

/// The total of a note whose fields were emptied begins anew.
void TstFrmMoviEntradaPecaNota::theTotalIsWrittenAsItIsShown()
{
    open();
    add(u"2"_s, u"1"_s);
    click(window_, u"btnCancelar"_s);
    supplier();
    add(u"2"_s, u"2"_s);
    save();
    QCOMPARE(program_->rows(u"SELECT Valor FROM NotasEntradas"_s), (Rows{{u"50"_s}}));
    QCOMPARE(lines().size(), 2U);
}

void TstFrmMoviEntradaPecaNota::aDescriptionOfTwoHundredCharactersIsWritten()
{
    open();
    supplier();
    add({}, u"1"_s, u"1"_s, QString(200, u'X'));
    save();
    QCOMPARE(program_->rows(u"SELECT Descricao FROM NotasPecas"_s), (Rows{{QString(200, u'X')}}));
}

void TstFrmMoviEntradaPecaNota::anApostropheInATextIsNoHarm()
{
    open();
    supplier();
    type(window_, u"txtObs"_s, u"CAIXA D'AGUA"_s);
    add({}, u"1"_s, u"1"_s, u"BOIA D'AGUA"_s);
    save();
    QCOMPARE(program_->rows(u"SELECT Observacoes FROM NotasEntradas"_s), (Rows{{u"CAIXA D'AGUA"_s}}));
    QCOMPARE(program_->rows(u"SELECT Descricao FROM NotasPecas"_s), (Rows{{u"BOIA D'AGUA"_s}}));
}

/// A click on a column puts the lines into another order; the last cost is that of the last line.
void TstFrmMoviEntradaPecaNota::linesAreWrittenInTheOrderOfTheList()
{
    open();
    supplier();
    add(u"2"_s, u"1"_s, u"31"_s);
    add({}, u"1"_s, u"5"_s, u"FRETE"_s);
    add(u"2"_s, u"1"_s, u"29"_s);
    cadastro::clickHeader(window_, 4);
    const QStringList sorted = cadastro::columnOf(window_, 4);
    QCOMPARE(sorted, (QStringList{u"29,00"_s, u"31,00"_s, u"5,00"_s}));
    save();
    QCOMPARE(program_->rows(u"SELECT ValorUnit FROM NotasPecas ORDER BY Codigo"_s),
             (Rows{{u"29"_s}, {u"31"_s}, {u"5"_s}}));
    QCOMPARE(costs().back().front(), u"31"_s);
}

/// Without the table of the ledgers header, lines and the first cost stand.
void TstFrmMoviEntradaPecaNota::aFailureLeavesWhatWasWritten()
{
    open();
    supplier();
    add(u"1"_s, u"2"_s, u"30"_s);
    add(u"2"_s, u"1"_s, u"31"_s);
    program_->sql(u"DROP TABLE Estoque"_s);
    const QString message = cadastro::errorBox(u"SELECT * FROM Estoque"_s);
    QVERIFY(message.contains(u"'3078'"));
    boxes_->question(question, true).title({}).critical(message);
    click(window_, u"btnIncluir"_s);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(notes().size(), 1U);
    QCOMPARE(lines().size(), 2U);
    QCOMPARE(costs(), (Rows{{u"30"_s}, {u"25"_s}}));
}

TARVELO_TEST_MAIN(TstFrmMoviEntradaPecaNota)
#include "tst_frmMoviEntradaPeca_nota.moc"
